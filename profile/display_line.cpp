#include "profile/display_line.h"

#include "framework/line_groups.h"

#include <algorithm>

namespace vantro {

DisplayLine::DisplayLine(TextView text, LineMarks marks) : text_(text), marks_(marks) {
    if (!fitsBits()) {
        contentEnd_ = static_cast<std::uint32_t>(vantro::rightTrimmed(text).size());
        contentBegin_ = contentEnd_ - static_cast<std::uint32_t>(vantro::trimmed(text).size());
        prefixes_ = prefixesIn(text);
        return;
    }
    LineBits slashes;
    lookAtGroups(text, [&](const auto& groups) {
        blanks_ = groups.blanks();
        slashes = groups.where(u'/');
    });
    const LineBits content = ~blanks_;
    contentEnd_ = static_cast<std::uint32_t>(content.end());
    contentBegin_ = std::min(static_cast<std::uint32_t>(content.lowest()), contentEnd_);
    if (slashes.any()) prefixes_ = prefixesIn(text, slashes, contentBegin_);
}

Column DisplayLine::findWord(TextView word) const {
    if (!fitsBits()) return find(text_, word);
    for (LineBits places = blanks_.beforeWords(static_cast<unsigned>(word.size() - 2)); places.any();
         places.removeLowest()) {
        const std::size_t place = places.lowest();
        if (place >= text_.size()) break;
        if (text_.substr(place).starts_with(word)) return Column{static_cast<int>(place) + 1};
    }
    return Column{0};
}

}  // namespace vantro
