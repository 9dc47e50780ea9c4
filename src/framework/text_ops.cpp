#include "framework/text_ops.h"

#include "framework/bytes.h"

#include <bit>

namespace vantro {

namespace {

constexpr bool isAscii(char16_t character) { return character < 0x80; }

// Compares the first and the last character of the searched text that are no blanks at sixteen positions at a time, and
// the rest only where both match. The last sixteen positions may overlap those before them.
std::size_t positionOf(TextView text, TextView searched, std::size_t start) {
    const std::size_t front = searched.find_first_not_of(u' ');
    if (front == TextView::npos || text.size() < searched.size()) return text.find(searched, start);
    const std::size_t back = searched.find_last_not_of(u' ');
    if (!isAscii(searched[front]) || !isAscii(searched[back])) return text.find(searched, start);
    const std::size_t positions = text.size() - searched.size() + 1;  // where the searched text can begin
    if (positions < start + Bytes::count) return text.find(searched, start);
    const char first = static_cast<char>(searched[front]);
    const char last = static_cast<char>(searched[back]);
    const std::size_t lastGroup = positions - Bytes::count;
    for (std::size_t group = start;; group = std::min(group + Bytes::count, lastGroup)) {
        Bytes matches = Bytes::narrow(text.data() + group + front).equal(first);
        if (back > front) matches = matches & Bytes::narrow(text.data() + group + back).equal(last);
        for (unsigned both = matches.bits(); both != 0; both &= both - 1) {
            const std::size_t position = group + static_cast<std::size_t>(std::countr_zero(both));
            if (beginsWith(text.substr(position), searched)) return position;
        }
        if (group == lastGroup) return TextView::npos;
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
    constexpr unsigned all = 0xFFFF;
    if (text.size() < Bytes::count) return text.find_first_not_of(u' ') == TextView::npos;
    const char16_t* const last = text.data() + (text.size() - Bytes::count);
    for (const char16_t* group = text.data(); group < last; group += Bytes::count) {
        if (Bytes::narrow(group).equal(' ').bits() != all) return false;
    }
    return Bytes::narrow(last).equal(' ').bits() == all;
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
