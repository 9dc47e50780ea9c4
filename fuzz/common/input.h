// How bytes stand for screens and states. An input is a text that people can read and write: a head line, and under
// it the lines of one or more screens, parted by a line of one form feed.
//
//   NAA;Et1;Rt22
//   PDN/KES
//   SIMILAR COMPANY NAME LIST
//
// The head begins with letters, each of which chooses something; "A" and a missing letter choose the first. Fields
// follow, each behind a semicolon: an item's key letter, its kind (t text, b boolean, i integer, l list) and its value.
#pragma once

#include "fuzz/targets.h"
#include "vantro/collection.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace vantro::fuzz {

/// How lines become a screen.
struct Layout {
    std::size_t width = 80;  ///< of the lines, as the terminal that shows them cuts them
    bool raw = false;        ///< the bytes are code units two by two, line ends too
    enum class End { Display, Prompt, None, Filled } end = End::Display;
};

class Input {
public:
    explicit Input(Bytes bytes);

    /// The next letter's choice, below `choices`.
    std::size_t choose(std::size_t choices);

    /// What stands behind the semicolons.
    const std::vector<std::string_view>& fields() const { return fields_; }

    /// The bytes of the screens; at least one.
    const std::vector<std::string_view>& screens() const { return screens_; }

private:
    std::string_view letters_;
    std::vector<std::string_view> fields_;
    std::vector<std::string_view> screens_;
};

/// The text of bytes: ASCII as it is, the others are code units whose high or low byte is that of a mark.
Text unitsOf(std::string_view bytes);

/// A screen: every line filled up to the width or, when it is longer, to a multiple of it.
Text screenOf(std::string_view lines, const Layout& layout);

/// A layout by the next three letters.
Layout chosenLayout(Input& input);

/// The item that a field stands for. Its letter chooses among the keys.
using Item = std::pair<Text, ItemValue>;
std::optional<Item> itemOf(std::string_view field, std::span<const TextView> keys);

}  // namespace vantro::fuzz
