// Identifiers of displays, made from a pattern.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// What the placeholders of a pattern stand for; texts in UTF-8.
struct IdValues {
    std::string_view file = {};  ///< as named on the command line
    std::string_view locator = {};
    std::string_view title = {};
    std::size_t display = 0;
    std::size_t line = 0;
};

/// A text with the placeholders {locator}, {title}, {file}, {name} (the file's name without folder and extensions),
/// {display} and {line}.
class IdPattern {
public:
    /// Raises UsageError for an unknown placeholder and for a brace that is not closed.
    explicit IdPattern(std::string_view pattern);

    std::string idOf(const IdValues& values) const;

private:
    enum class Value : std::uint8_t { None, Locator, Title, File, Name, Display, Line };
    struct Piece {
        std::string text;
        Value value;  ///< after the text
    };

    static Value valueNamed(std::string_view name);
    static std::string shown(Value value, const IdValues& values);

    std::vector<Piece> pieces_;
};

}  // namespace vantro
