#include "display/known_text.h"

#include "display/line_bits.h"
#include "vantro/screen_lines.h"

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

constexpr std::size_t lineLength = screenWidth;
static_assert(lineLength % Bytes::count == 0);

/// Compares a line. The groups are written out, because the steps of a loop would take as long as the comparisons.
bool areEqual(const char16_t* line, const std::uint8_t* known) {
    const auto compare = [&]<std::size_t... group>(std::index_sequence<group...> /*groups*/) {
        return (... & Bytes::narrow(line + group * Bytes::count).equal(Bytes::load(known + group * Bytes::count)));
    };
    return compare(std::make_index_sequence<lineLength / Bytes::count>()).bits() == (1U << Bytes::count) - 1;
}

void narrowLine(const char16_t* line, std::uint8_t* known) {
    for (std::size_t at = 0; at < lineLength; at += Bytes::count) Bytes::narrow(line + at).store(known + at);
}

/// The number of lines of 80 characters.
std::size_t wholeLines(TextView display) { return display.size() / lineLength; }

/// A last line that is shorter, padded.
auto lastPiece(TextView display) { return padded(display.substr(wholeLines(display) * lineLength)); }

}  // namespace

KnownText::KnownText(TextView display)
    : bytes_(std::make_unique_for_overwrite<std::uint8_t[]>((wholeLines(display) + 1) * lineLength)) {}

std::size_t KnownText::firstChanged(TextView display, std::size_t first, std::size_t last) const {
    const std::size_t lastWhole = std::min(last, wholeLines(display));
    const char16_t* line = display.data() + first * lineLength;
    const std::uint8_t* known = bytes_.get() + first * lineLength;
    for (; first < lastWhole && areEqual(line, known); ++first, line += lineLength) known += lineLength;
    const bool isPieceNext = first == wholeLines(display) && first < last;
    return isPieceNext && areEqual(lastPiece(display).data(), known) ? last : first;
}

void KnownText::add(TextView display, std::size_t last) {
    for (; size_ < last; ++size_) {
        std::uint8_t* const known = bytes_.get() + size_ * lineLength;
        if (size_ < wholeLines(display)) {
            narrowLine(display.data() + size_ * lineLength, known);
        } else {
            narrowLine(lastPiece(display).data(), known);
        }
    }
}

}  // namespace vantro
