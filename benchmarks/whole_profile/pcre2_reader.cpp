#include "whole_profile/pcre2_reader.h"

#include "common/units.h"

namespace vantro::bench {

const ScannedViews& Pcre2Reader::read(std::u16string_view display) {
    result_.prepare(display.size());
    Assembler<char16_t> assembler(result_);
    const std::size_t lines = end_.find(display) / 80;
    for (std::size_t n = 0; n < lines; ++n) {
        MatchedLine<char16_t> matched{screenLine(display, n), {}};
        const int groups = line_.match(matched.line);
        for (int i = 1; i < groups; ++i) {
            if (line_.took(i)) matched.groups[static_cast<std::size_t>(i)] = line_.group(matched.line, i);
        }
        assembler.take(matched);
    }
    assembler.finish();
    return result_;
}

}  // namespace vantro::bench
