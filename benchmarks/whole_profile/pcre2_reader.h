// The 16-bit PCRE2 library with its just-in-time compiler, directly on UTF-16.
#pragma once

#include "common/pcre2_expression.h"
#include "whole_profile/assembler.h"
#include "whole_profile/scanned.h"

namespace vantro::bench {

class Pcre2Reader {
public:
    /// The result is overwritten by the next call.
    const ScannedViews& read(std::u16string_view display);

private:
    Pcre2Expression end_{endExpression, Pcre2Expression::Anchored::No};
    Pcre2Expression line_{lineExpression, Pcre2Expression::Anchored::Yes};
    ScannedViews result_;
};

}  // namespace vantro::bench
