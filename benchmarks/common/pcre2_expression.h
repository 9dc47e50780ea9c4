// A compiled expression of the 16-bit PCRE2 library with its just-in-time compiler.
#pragma once

#define PCRE2_CODE_UNIT_WIDTH 16

#include <pcre2.h>
#include <cstdint>
#include <string_view>

namespace vantro::bench {

class Pcre2Expression {
public:
    enum class Anchored : bool { No, Yes };

    /// Ends the program when the ASCII source is not a valid expression.
    Pcre2Expression(std::string_view source, Anchored anchored);
    ~Pcre2Expression();
    Pcre2Expression(const Pcre2Expression&) = delete;
    Pcre2Expression& operator=(const Pcre2Expression&) = delete;

    /// The number of the last group that matched, plus 1; below 1 when nothing matched.
    int match(std::u16string_view text) const {
        return pcre2_jit_match(code_, reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), 0, 0, data_, nullptr);
    }

    bool took(int group) const { return offsets_[2 * group] != PCRE2_UNSET; }
    std::size_t begin(int group) const { return offsets_[2 * group]; }
    std::u16string_view group(std::u16string_view text, int group) const {
        return {text.data() + begin(group), offsets_[2 * group + 1] - begin(group)};
    }

    /// The index of the first match; the text's size when there is none.
    std::size_t find(std::u16string_view text) const { return match(text) > 0 ? begin(0) : text.size(); }

private:
    pcre2_code* code_;
    pcre2_match_data* data_;
    const PCRE2_SIZE* offsets_;
};

}  // namespace vantro::bench
