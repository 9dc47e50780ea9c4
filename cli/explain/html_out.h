// HTML, written into a text. Whatever comes from a screen is written with `text`, in elements and attributes alike.
#pragma once

#include "vantro/text.h"

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

namespace vantro {

/// Appends markup and texts.
class HtmlOut {
public:
    explicit HtmlOut(std::string& out) : out_(out) {}

    HtmlOut(const HtmlOut&) = delete;
    HtmlOut& operator=(const HtmlOut&) = delete;

    HtmlOut& markup(std::string_view html) {
        out_ += html;
        return *this;
    }
    HtmlOut& number(std::integral auto value) { return markup(std::to_string(value)); }

    /// "1 line", "2 lines"
    HtmlOut& count(std::size_t value, std::string_view one, std::string_view many) {
        return number(value).markup(" ").markup(value == 1 ? one : many);
    }

    /// Escapes what HTML reads as markup. A character that is not visible or changes the direction of writing becomes a
    /// visible one, so that columns and order stay those of the host.
    HtmlOut& text(TextView value);
    HtmlOut& text(std::string_view utf8);

private:
    void character(char32_t value);

    std::string& out_;
};

}  // namespace vantro
