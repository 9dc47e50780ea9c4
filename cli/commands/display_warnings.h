// Warnings about the displays of one file after the other.
#pragma once

#include "cli/commands/display_doubts.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace vantro {

/// Says what is doubtful about displays, one warning per kind and display. Of each kind, only the first few warnings of
/// a file are said one by one; the others are counted.
class DisplayWarnings {
public:
    using Say = std::function<void(const std::string&)>;

    static constexpr std::size_t mostOfAKind = 5;

    /// `say` receives the warnings, each without the full stop at its end.
    explicit DisplayWarnings(Say say) : say_(std::move(say)) {}

    /// The next display of the file, in their order. `where` names it: "file, display 3: "; `linesAbove` is the number
    /// of lines before its chunk. For a display that was not read, call `skip` instead.
    void add(const DisplayDoubts& doubts, const std::string& where, std::size_t linesAbove);
    void skip() { pageMayFollow_ = false; }

    /// The next display, read from a record, with what is to be said of its control characters.
    void addRecord(const std::vector<std::string>& controls, const std::string& where);

    /// What is to be said of the next display instead of the errors of its queries; "" for a profile display.
    std::string refusal(const DisplayDoubts& doubts, std::size_t linesAbove) const;

    /// The end of the file with this name: tells how many warnings were not said.
    void endFile(const std::string& name);

private:
    enum Kind : std::size_t {
        Pages,
        NoProfile,
        ControlCharacters,
        CutLines,
        MendedLines,
        SecondHead,
        NoEnd,
        UnreadLines,
        kinds
    };

    bool isPage(const DisplayDoubts& doubts) const { return pageMayFollow_ && !doubts.beginsLikeDisplay; }
    void warn(Kind kind, const std::string& what);

    Say say_;
    std::array<std::size_t, kinds> counts_{};  // of this file
    bool pageMayFollow_ = false;               // the display above is a page that ends with a prompt
};

}  // namespace vantro
