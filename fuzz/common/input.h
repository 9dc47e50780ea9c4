// How bytes become screens and states. An input is readable text: a head line, followed by the lines of one or more
// screens, separated by a line with one form feed.
//
//   NAA;Et1;Rt22
//   PDN/KES
//   SIMILAR COMPANY NAME LIST
//
// The head begins with letters, each of which makes a choice; "A" or a missing letter means the first. Fields follow,
// each after a semicolon: the letter of an item's key, its kind (t text, b boolean, i integer, l list) and its value.
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
    std::size_t width = 80;  ///< of the lines, as the terminal cuts them
    bool raw = false;        ///< each two bytes are a code unit, including line ends
    enum class End { Display, Prompt, None, Filled } end = End::Display;
};

class Input {
public:
    explicit Input(Bytes bytes);

    /// The next letter's choice, below `choices`.
    std::size_t choose(std::size_t choices);

    /// The fields after the semicolons.
    const std::vector<std::string_view>& fields() const { return fields_; }

    /// The bytes of the screens; at least one.
    const std::vector<std::string_view>& screens() const { return screens_; }

private:
    std::string_view letters_;
    std::vector<std::string_view> fields_;
    std::vector<std::string_view> screens_;
};

/// Converts bytes: ASCII is unchanged, the other bytes become code units whose high or low byte is that of a mark.
Text unitsOf(std::string_view bytes);

/// A screen: every line padded to the width or, when it is longer, to a multiple of it.
Text screenOf(std::string_view lines, const Layout& layout);

/// The layout chosen by the next three letters.
Layout chosenLayout(Input& input);

/// The item that a field describes. Its letter chooses one of the keys.
using Item = std::pair<Text, ItemValue>;
std::optional<Item> itemOf(std::string_view field, std::span<const TextView> keys);

}  // namespace vantro::fuzz
