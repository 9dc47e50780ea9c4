#include "display/display_line.h"

namespace vantro {

DisplayLine::DisplayLine(TextView text, LineMarks marks) : text_(text), marks_(marks) {
    if (!fitsBits()) {
        contentEnd_ = static_cast<std::uint32_t>(vantro::rightTrimmed(text).size());
        contentBegin_ = contentEnd_ - static_cast<std::uint32_t>(vantro::trimmed(text).size());
        prefixes_ = prefixesIn(text);
        return;
    }
    lookAtGroups(text, [this](const auto& groups) { lookAt(groups); });
}

Column DisplayLine::findWord(TextView word) const {
    if (!fitsBits()) return find(text_, word);
    for (LineBits places = blanks_.beforeWords(static_cast<unsigned>(word.size() - 2)); places.any();
         places.removeLowest()) {
        const std::size_t place = places.lowest();
        if (beginsWith(text_.substr(place), word)) return Column{static_cast<int>(place) + 1};
    }
    return Column{0};
}

}  // namespace vantro
