// RE2, which reads only UTF-8.
#pragma once

#include "whole_profile/scanned.h"

#include <memory>
#include <string_view>

namespace re2 {
class RE2;
}

namespace vantro::bench {

class Re2Reader {
public:
    Re2Reader();
    ~Re2Reader();

    /// The result is overwritten by the next call.
    const Scanned<std::string_view>& read(std::string_view display);

private:
    std::unique_ptr<re2::RE2> end_;
    std::unique_ptr<re2::RE2> line_;
    Scanned<std::string_view> result_;
};

}  // namespace vantro::bench
