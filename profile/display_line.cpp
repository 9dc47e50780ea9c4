#include "profile/display_line.h"

#include <algorithm>

namespace vantro {

DisplayLine::DisplayLine(TextView text, LineMarks marks) : text_(text), marks_(marks) {
    if (!fitsBits()) {
        contentEnd_ = static_cast<std::uint32_t>(vantro::rightTrimmed(text).size());
        contentBegin_ = contentEnd_ - static_cast<std::uint32_t>(vantro::trimmed(text).size());
        prefixes_ = prefixesIn(text);
        return;
    }
    const BlanksAndSlashes bits = blanksAndSlashesOf(text);
    blanks_ = bits.blanks;
    const LineBits content = ~blanks_;
    contentEnd_ = static_cast<std::uint32_t>(content.end());
    contentBegin_ = std::min(static_cast<std::uint32_t>(content.lowest()), contentEnd_);
    if (bits.slashes.any()) prefixes_ = prefixesIn(text, bits.slashes, contentBegin_);
}

}  // namespace vantro
