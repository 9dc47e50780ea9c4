#include "common/pcre2_expression.h"

#include "common/element_set.h"

#include <cstdio>
#include <cstdlib>

namespace vantro::bench {

Pcre2Expression::Pcre2Expression(std::string_view source, Anchored anchored) {
    const std::u16string pattern = widen(source);
    const std::uint32_t options = PCRE2_DOTALL | (anchored == Anchored::Yes ? PCRE2_ANCHORED : 0U);
    int error = 0;
    PCRE2_SIZE offset = 0;
    code_ =
        pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern.data()), pattern.size(), options, &error, &offset, nullptr);
    if (code_ == nullptr || pcre2_jit_compile(code_, PCRE2_JIT_COMPLETE) != 0) {
        std::fprintf(stderr, "PCRE2 cannot compile the expression (%d at %zu)\n", error, offset);
        std::exit(1);
    }
    data_ = pcre2_match_data_create_from_pattern(code_, nullptr);
    offsets_ = pcre2_get_ovector_pointer(data_);
}

Pcre2Expression::~Pcre2Expression() {
    pcre2_match_data_free(data_);
    pcre2_code_free(code_);
}

}  // namespace vantro::bench
