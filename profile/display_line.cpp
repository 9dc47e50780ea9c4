#include "profile/display_line.h"

#include <algorithm>

namespace vantro {

DisplayLine::DisplayLine(TextView text, LineMarks marks) : text_(text), marks_(marks) {
    if (!fitsBits()) {
        contentEnd_ = static_cast<std::uint32_t>(vantro::rightTrimmed(text).size());
        contentBegin_ = contentEnd_ - static_cast<std::uint32_t>(vantro::trimmed(text).size());
        return;
    }
    const BlanksAndSlashes bits = blanksAndSlashesOf(text);
    blanks_ = bits.blanks;
    slashes_ = bits.slashes;
    const LineBits content = ~blanks_;
    contentEnd_ = static_cast<std::uint32_t>(content.end());
    contentBegin_ = std::min(static_cast<std::uint32_t>(content.lowest()), contentEnd_);
}

bool DisplayLine::holdsPrefix(TextView prefix, Column from) const {
    if (!fitsBits()) return holdsFrom(trimmed(), prefix, from);
    if (!slashes_.any()) return false;
    const std::size_t letters = prefix.size() - 1;
    const std::size_t firstSlash = contentBegin_ + static_cast<std::size_t>(from.value - 1) + letters;
    for (LineBits slashes = slashes_ & LineBits::from(firstSlash); slashes.any(); slashes.removeLowest()) {
        if (text_.substr(slashes.lowest() - letters).starts_with(prefix)) return true;
    }
    return false;
}

}  // namespace vantro
