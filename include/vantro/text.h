// Text as terminals pass it: UTF-16. Every position, length and index of the library counts code units; "character"
// means one code unit.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantro {

using Text = std::u16string;
using TextView = std::u16string_view;

/// A list of texts, indexed from 0. Most lists that the library fills have an empty entry 0 and element k at index k;
/// the description of each list says so.
using TextList = std::vector<Text>;

/// A list of booleans, indexed from 0.
using FlagList = std::vector<bool>;

}  // namespace vantro
