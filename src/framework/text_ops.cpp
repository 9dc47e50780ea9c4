#include "framework/text_ops.h"

#include "framework/bytes.h"

#include <bit>

namespace vantro {

namespace {

constexpr bool isAscii(char16_t character) { return character < 0x80; }

// Compares the first and the last character of the searched text at sixteen positions at a time, and the rest only
// where both match. The last sixteen positions may overlap those before them.
std::size_t positionOf(TextView text, TextView searched, std::size_t start) {
    if (searched.empty() || text.size() < searched.size()) return text.find(searched, start);
    if (!isAscii(searched.front()) || !isAscii(searched.back())) return text.find(searched, start);
    const std::size_t reach = searched.size() - 1;
    const std::size_t positions = text.size() - reach;  // the number of positions where the searched text can begin
    if (positions < start + Bytes::count) return text.find(searched, start);
    const char front = static_cast<char>(searched.front());
    const char back = static_cast<char>(searched.back());
    const std::size_t last = positions - Bytes::count;
    for (std::size_t begin = start;; begin = std::min(begin + Bytes::count, last)) {
        Bytes matches = Bytes::narrow(text.data() + begin).equal(front);
        if (reach > 0) matches = matches & Bytes::narrow(text.data() + begin + reach).equal(back);
        for (unsigned both = matches.bits(); both != 0; both &= both - 1) {
            const std::size_t position = begin + static_cast<std::size_t>(std::countr_zero(both));
            if (beginsWith(text.substr(position), searched)) return position;
        }
        if (begin == last) return TextView::npos;
    }
}

}  // namespace

Column find(TextView text, TextView searched, Column from) {
    if (from.value < 1) fail(Failure::InvalidProcedureCall);
    const std::size_t start = static_cast<std::size_t>(from.value - 1);
    if (start >= text.size()) return Column{0};
    const std::size_t position = positionOf(text, searched, start);
    return position == TextView::npos ? Column{0} : Column{static_cast<int>(position) + 1};
}

bool isBlank(TextView text) {
    for (; text.size() >= Bytes::count; text.remove_prefix(Bytes::count)) {
        constexpr unsigned all = 0xFFFF;
        if (Bytes::narrow(text.data()).equal(' ').bits() != all) return false;
    }
    return text.find_first_not_of(u' ') == TextView::npos;
}

Text concat(std::initializer_list<TextView> parts) {
    std::size_t length = 0;
    for (const TextView part : parts) length += part.size();
    Text text;
    text.reserve(length);
    for (const TextView part : parts) text.append(part);
    return text;
}

}  // namespace vantro
