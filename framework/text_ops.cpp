#include "framework/text_ops.h"

#include "vantro/error.h"

namespace vantro {

TextView mid(TextView text, Column column) {
    if (column.value < 1) fail(Failure::InvalidProcedureCall);
    const auto start = static_cast<std::size_t>(column.value - 1);
    return start < text.size() ? text.substr(start) : TextView{};
}

TextView mid(TextView text, Column column, Width width) {
    const TextView rest = mid(text, column);
    return width.value < 1 ? TextView{} : left(rest, width);
}

Column find(TextView text, TextView searched, Column from) {
    if (from.value < 1) fail(Failure::InvalidProcedureCall);
    const std::size_t start = static_cast<std::size_t>(from.value - 1);
    if (start >= text.size()) return Column{0};
    const std::size_t place = text.find(searched, start);
    return place == TextView::npos ? Column{0} : Column{static_cast<int>(place) + 1};
}

Text joined(std::initializer_list<TextView> parts) {
    std::size_t length = 0;
    for (const TextView part : parts) length += part.size();
    Text text;
    text.reserve(length);
    for (const TextView part : parts) text.append(part);
    return text;
}

}  // namespace vantro
