#include "tests/support/near_misses.h"

#include <algorithm>

namespace vantro::test {

namespace {

// The characters that readers distinguish: blanks, letters, digits, and those of the marks.
constexpr TextView replacements = u" X7->/:*";

class Varied {
public:
    Varied(const Text& screen, const Variation& variation, const std::function<bool(const Text&)>& visit)
        : variation_(variation), visit_(visit) {
        for (std::size_t start = 0; start < screen.size(); start += variation.width) {
            lines_.push_back(screen.substr(start, variation.width));
        }
    }

    std::size_t run() {
        const std::size_t varied = lines_.size() - std::min(lines_.size(), variation_.wholeLines);
        for (std::size_t line = 0; line < varied; ++line) {
            varyCharacters(line);
            plantMarks(line);
            varyLines(line);
            cutShort(line);
        }
        return visited_;
    }

private:
    // Calls the visitor with the lines after `change`.
    template <class Change>
    void with(Change change) {
        if (isStopped_ || number_++ % variation_.every != variation_.offset) return;
        std::vector<Text> lines = lines_;
        change(lines);
        Text text;
        for (const Text& line : lines) text += line;
        ++visited_;
        isStopped_ = !visit_(text);
    }

    void varyCharacters(std::size_t line) {
        for (std::size_t position = 0; position < lines_[line].size(); ++position) {
            for (const char16_t other : replacements) {
                if (other == lines_[line][position]) continue;
                with([&](std::vector<Text>& lines) { lines[line][position] = other; });
            }
            with([&](std::vector<Text>& lines) { lines[line].erase(position, 1).push_back(u' '); });
            with([&](std::vector<Text>& lines) {
                lines[line].insert(position, 1, lines[line][position]);
                lines[line].pop_back();
            });
        }
    }

    void plantMarks(std::size_t line) {
        for (const Text& mark : variation_.planted) {
            for (std::size_t position = 0; position + mark.size() <= lines_[line].size(); ++position) {
                with([&](std::vector<Text>& lines) { lines[line].replace(position, mark.size(), mark); });
            }
        }
    }

    void varyLines(std::size_t line) {
        const auto at = static_cast<std::ptrdiff_t>(line);
        with([&](std::vector<Text>& lines) { lines.erase(lines.begin() + at); });
        with([&](std::vector<Text>& lines) { std::swap(lines[line], lines[line + 1 < lines.size() ? line + 1 : 0]); });
        constexpr std::size_t furthest = 26;  // one line more than any reader searches for a title or an entry
        for (std::size_t count = 1; count <= furthest; ++count) {
            with([&](std::vector<Text>& lines) { insert(lines, at, count, Text(variation_.width, u' ')); });
            with([&](std::vector<Text>& lines) { insert(lines, at, count, filler()); });
            with([&](std::vector<Text>& lines) { insert(lines, at, count, lines[line]); });
        }
    }

    static void insert(std::vector<Text>& lines, std::ptrdiff_t position, std::size_t count, const Text& line) {
        const Text added = line;
        lines.insert(lines.begin() + position, count, added);
    }

    Text filler() const {
        Text line(u"X");
        line.resize(variation_.width, u' ');
        return line;
    }

    // The text ends inside the line. Where complete lines follow, only this line is cut.
    void cutShort(std::size_t line) {
        for (std::size_t length = 0; length < lines_[line].size(); ++length) {
            with([&](std::vector<Text>& lines) {
                std::ranges::fill(lines[line].begin() + static_cast<std::ptrdiff_t>(length), lines[line].end(), u' ');
            });
            if (variation_.wholeLines > 0) continue;
            with([&](std::vector<Text>& lines) {
                lines.resize(line + 1);
                lines[line].resize(length);
            });
        }
    }

    const Variation& variation_;
    const std::function<bool(const Text&)>& visit_;
    std::vector<Text> lines_;
    std::size_t number_ = 0;
    std::size_t visited_ = 0;
    bool isStopped_ = false;
};

}  // namespace

std::size_t forEachNearMiss(const Text& screen, const Variation& variation,
                            const std::function<bool(const Text&)>& visit) {
    return Varied(screen, variation, visit).run();
}

}  // namespace vantro::test
