// Text as the terminal hands it over: UTF-16 code units. Every position, length and index of the library
// counts code units, and a character is one code unit.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantro {

using Text = std::u16string;
using TextView = std::u16string_view;

/// A list of texts, indexed from 0. Most lists that the library fills leave entry 0 empty and hold element k
/// at index k; the description of each list says so.
using TextList = std::vector<Text>;

/// A list of booleans, indexed like the list of texts that it belongs to.
using FlagList = std::vector<bool>;

}  // namespace vantro
