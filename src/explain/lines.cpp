// The lines of a screen by what the steps say about them.
#include "framework/screen.h"
#include "vantro/explanation.h"

#include <algorithm>

namespace vantro {

namespace {

/// The rules that see a mark of the display in their line.
constexpr auto rulesOfMarks = std::to_array<std::string_view>({
    "displayEnds", "sectionEndsAtRule", "sectionEndsAtEndText", "sectionEndsAtPrompt",    // prefixed sections
    "scanEndsAtEndText", "scanEndsAtPrompt", "scanEndsAtPromptLine", "scanEndsAtHeader",  // transferable elements
    "selectionEndsAtMark", "selectionEndsAtHyphens",                                      // their selection
    "documentsEndAtRule", "documentsEndAtMark",                                           // documents and follow-up
    "promptAboveNotes", "endTextAboveNotes", "notesEnd", "notesPause",                    // notes
    "tagSearchEnds", "hostLine",                                                          // header values
});

bool seesMark(const KeptStep& step) {
    return step.rule != nullptr && std::ranges::find(rulesOfMarks, step.rule->name) != rulesOfMarks.end();
}

/// A set of lines of the screen.
class LineSet {
public:
    explicit LineSet(TextView screen) : isIn_((screen.size() + screenWidth - 1) / screenWidth) {}

    bool contains(std::size_t line) const { return isIn_[line]; }

    /// Adds a range of lines, inclusive, as far as it is on the screen.
    void add(std::int32_t first, std::int32_t last) {
        const auto end = std::min(static_cast<std::ptrdiff_t>(last) + 1, std::ssize(isIn_));
        for (std::ptrdiff_t line = std::max(first, 0); line < end; ++line) isIn_[static_cast<std::size_t>(line)] = true;
    }

    void add(const std::vector<KeptPiece>& pieces) {
        for (const KeptPiece& piece : pieces) {
            if (piece.place) add(piece.place->line, piece.place->line);
        }
    }

    template <class Test>
    std::vector<std::int32_t> linesIf(Test test) const {
        std::vector<std::int32_t> lines;
        for (std::size_t line = 0; line < isIn_.size(); ++line) {
            if (test(line)) lines.push_back(static_cast<std::int32_t>(line));
        }
        return lines;
    }

private:
    std::vector<bool> isIn_;
};

}  // namespace

std::vector<std::int32_t> linesLookedAt(const Explanation& explanation) {
    LineSet named(explanation.screen());
    for (const KeptStep& step : explanation.steps()) {
        if (step.line != noLine) named.add(step.line, std::max(step.line, step.lastLine));
        named.add(step.pieces);
    }
    return named.linesIf([&](std::size_t line) { return named.contains(line); });
}

std::vector<std::int32_t> unreadLines(const Explanation& explanation) {
    const TextView screen = explanation.screen();
    LineSet read(screen);
    for (const KeptStep& step : explanation.steps()) {
        read.add(step.pieces);
        if (seesMark(step)) read.add(step.line, step.line);
    }
    return read.linesIf([&](std::size_t line) {
        return !read.contains(line) && !isBlank(screen.substr(line * screenWidth, screenWidth));
    });
}

}  // namespace vantro
