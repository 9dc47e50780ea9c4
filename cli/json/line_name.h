// Names of lines of JSON, and their texts, in messages.
#pragma once

#include <cstddef>
#include <string>

namespace vantro {

/// A text of the input for a message: UTF-8, cut after 60 characters.
std::string shortened(const std::string& text);

/// "line 3, id 7". `line` counts from 1; `id` is JSON, shortened, or null for none.
std::string lineName(std::size_t line, const std::string* id);

}  // namespace vantro
