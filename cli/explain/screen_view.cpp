#include "cli/explain/screen_view.h"

#include "cli/io/utf.h"
#include "vantro/families.h"
#include "vantro/screen_lines.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

namespace vantro {

namespace {

constexpr auto width = static_cast<std::size_t>(screenWidth);

// Colours that are readable on dark and on light backgrounds, then the same in bold.
constexpr std::array<std::string_view, 12> colors{"32",   "36",   "33",   "35",   "34",   "31",
                                                  "1;32", "1;36", "1;33", "1;35", "1;34", "1;31"};
constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view underlined = "4";
constexpr std::string_view faint = "2";

constexpr int noValue = -1;

/// A name of values, with its place in the legend.
struct LegendEntry {
    std::string name;
    std::string meaning;
    bool isUsed = false;
};

struct Cell {
    int value = noValue;  // index in the legend
    bool isMark = false;
};

std::string_view escaped(TextView character, std::string& utf8) {
    utf8.clear();
    appendUtf8(character, utf8);
    const auto first = static_cast<unsigned char>(utf8.front());
    if (first < 0x20 || first == 0x7F) utf8 = "?";
    return utf8;
}

class ScreenView {
public:
    ScreenView(const Explanation& explanation, const ClassRow* row, const ScreenLook& look)
        : explanation_(explanation),
          row_(row),
          look_(look),
          lineCount_((explanation.screen().size() + width - 1) / width),
          digits_(std::max<std::size_t>(2, std::to_string(lineCount_).size())),
          cells_(lineCount_ * width) {
        for (const LookAlike& lookAlike : lookAlikes(explanation)) lookAlikes_.insert(lookAlike.line);
        paint();
    }

    std::vector<ShownLine> lines() {
        addRuler();
        for (std::size_t line = 0; line < lineCount_; ++line) addLine(line);
        addRuler();
        addLegend();
        return std::move(lines_);
    }

private:
    std::size_t gutter() const { return digits_ + 2; }
    std::size_t room() const {
        return look_.width == 0 ? width : std::clamp<std::size_t>(look_.width - gutter(), 20, width);
    }

    // The parts of elements are inside the texts that are added as keys: what was read first is painted last.
    void paint() {
        for (const KeptStep& step : explanation_.steps()) {
            if (step.kind == StepKind::QueryBegins) query_ = toUtf8(step.name);
            if (step.kind == StepKind::QueryEnds) query_.clear();
            if (step.kind == StepKind::KeyAdded || step.kind == StepKind::EntryAdded) paint(step);
            if (step.kind == StepKind::MarkSearched) paintMark(step);
        }
        for (const KeptStep& step : explanation_.steps()) {
            if (step.kind == StepKind::QueryBegins) query_ = toUtf8(step.name);
            if (step.kind == StepKind::QueryEnds) query_.clear();
            if (step.kind == StepKind::ValueRead) paint(step);
        }
        for (const Cell& cell : cells_) {
            if (cell.value != noValue) legend_[static_cast<std::size_t>(cell.value)].isUsed = true;
            marksAreShown_ = marksAreShown_ || cell.isMark;
        }
    }

    template <class Use>
    void forEachCell(const KeptStep& step, Use use) {
        for (const KeptPiece& piece : step.pieces) {
            if (!piece.place || piece.place->line < 0 || piece.place->column < 1) continue;
            const std::size_t first =
                static_cast<std::size_t>(piece.place->line) * width + static_cast<std::size_t>(piece.place->column) - 1;
            const std::size_t end = first + static_cast<std::size_t>(piece.place->length);
            for (std::size_t at = first; at < std::min(end, cells_.size()); ++at) use(cells_[at]);
        }
    }

    void paint(const KeptStep& step) {
        if (!step.isPlaced()) return;
        const int value = legendIndexOf(step);
        forEachCell(step, [value](Cell& cell) { cell.value = value; });
    }

    void paintMark(const KeptStep& step) {
        forEachCell(step, [](Cell& cell) { cell.isMark = true; });
    }

    /// The values of all families share the names of their parts.
    int legendIndexOf(const KeptStep& step) {
        const bool isPart = step.kind == StepKind::ValueRead && step.family;
        const bool isOfQuery = step.kind == StepKind::ValueRead && !step.family && !query_.empty();
        const std::string name = (isOfQuery ? query_ + " " : "") + toUtf8(step.name);
        const auto known = std::ranges::find(legend_, name, &LegendEntry::name);
        if (known == legend_.end()) {
            legend_.push_back({name, isPart ? partMeaning(name) : toUtf8(meaningOf(step, row_))});
            return static_cast<int>(legend_.size()) - 1;
        }
        return static_cast<int>(known - legend_.begin());
    }

    /// Two parts share a name: the free text is another thing in a service request than in a confidential remark.
    static std::string partMeaning(std::string_view name) {
        std::string meanings;
        for (std::size_t index = 0; index < elementPartCount; ++index) {
            const PartFacts& facts = factsOf(static_cast<ElementPart>(index));
            if (facts.json != name) continue;
            if (!meanings.empty()) meanings += "; or ";
            meanings += toUtf8(facts.meaning);
        }
        return meanings;
    }

    /// The place of a used entry among the used ones.
    std::size_t rankOf(int value) const {
        return static_cast<std::size_t>(
            std::ranges::count(std::span(legend_).first(static_cast<std::size_t>(value)), true, &LegendEntry::isUsed));
    }
    std::string_view colorOf(int value) const { return colors[rankOf(value) % colors.size()]; }
    char letterOf(int value) const { return letters[rankOf(value) % letters.size()]; }

    void add(const std::string& text, std::size_t columns) { lines_.push_back({text, columns}); }

    void addRuler() {
        std::string ruler(gutter(), ' ');
        for (std::size_t column = 1; column <= room(); ++column) {
            ruler += column % 10 == 0 ? static_cast<char>('0' + column / 10 % 10) : column % 5 == 0 ? '+' : '.';
        }
        add(styled(ruler, faint), ruler.size());
    }

    std::string styled(const std::string& text, std::string_view style) const {
        if (!look_.hasColor || style.empty() || text.empty()) return text;
        return "\x1B[" + std::string(style) + "m" + text + "\x1B[0m";
    }

    std::string styleOf(const Cell& cell, bool isRead) const {
        std::string style(cell.value != noValue ? colorOf(cell.value) : isRead ? "" : faint);
        if (!cell.isMark) return style;
        return style.empty() ? std::string(underlined) : style + ";" + std::string(underlined);
    }

    void addLine(std::size_t line) {
        const TextView text = TextView(explanation_.screen()).substr(line * width, width);
        const std::size_t used = text.find_last_not_of(u' ') + 1;
        std::size_t start = 0;
        do {
            addPart(line, text.substr(0, used), start);
            start += room();
        } while (start < used);
    }

    std::string numberOf(std::size_t line) const {
        const std::string digits = std::to_string(line);
        const bool looksAlike = lookAlikes_.contains(static_cast<std::int32_t>(line));
        return std::string(digits_ - digits.size(), ' ') + digits + (looksAlike ? '!' : ' ') + ' ';
    }

    /// The columns of a line from `start` (from 0) on that fit.
    void addPart(std::size_t line, TextView text, std::size_t start) {
        const auto cells = std::span(cells_).subspan(line * width, width);
        const bool isRead =
            std::ranges::any_of(cells, [](const Cell& cell) { return cell.value != noValue || cell.isMark; });
        std::string shown = start == 0 ? styled(numberOf(line), faint) : std::string(digits_, ' ') + "> ";
        std::size_t columns = gutter();
        std::string run;
        std::string style;
        std::string utf8;
        const std::size_t end = std::min(text.size(), start + room());
        for (std::size_t at = start; at < end;) {
            const std::size_t units = codePointAt(text, at).units;
            const std::string next = styleOf(cells[at], isRead);
            if (next != style) {
                shown += styled(run, style);
                run.clear();
                style = next;
            }
            run += escaped(text.substr(at, units), utf8);
            at += units;
            ++columns;
        }
        shown += styled(run, style);
        const std::size_t trailing = shown.size() - (shown.find_last_not_of(' ') + 1);
        shown.resize(shown.size() - trailing);
        add(shown, columns - trailing);
        if (!look_.hasColor) addLetters(cells, start, end);
    }

    /// What colours would show, below the line.
    void addLetters(std::span<const Cell> cells, std::size_t start, std::size_t end) {
        std::string row(gutter(), ' ');
        for (std::size_t at = start; at < end; ++at) {
            row += cells[at].value != noValue ? letterOf(cells[at].value) : cells[at].isMark ? '^' : ' ';
        }
        row.resize(row.find_last_not_of(' ') + 1);
        if (!row.empty()) add(row, row.size());
    }

    void addLegend() {
        std::size_t longest = 0;
        for (const LegendEntry& entry : legend_) {
            if (entry.isUsed) longest = std::max(longest, entry.name.size());
        }
        for (std::size_t index = 0; index < legend_.size(); ++index) {
            const LegendEntry& entry = legend_[index];
            if (!entry.isUsed) continue;
            const auto value = static_cast<int>(index);
            const std::string sign(3, look_.hasColor ? '#' : letterOf(value));
            addExplained(styled(sign, colorOf(value)),
                         entry.name + std::string(longest - entry.name.size() + 2, ' ') + entry.meaning);
        }
        if (marksAreShown_) {
            addExplained(look_.hasColor ? styled("abc", underlined) : "^^^", "a mark that was searched for and found");
        }
        if (!lookAlikes_.empty()) addExplained("  !", "the line looks like an element and is none");
    }

    void addExplained(const std::string& sign, std::string text) {
        constexpr std::size_t signWidth = 3;
        text.resize(text.find_last_not_of(' ') + 1);
        const std::size_t most = look_.width == 0 ? text.size() : room() + gutter() - signWidth - 2;
        std::string first = sign;
        do {
            std::size_t cut = text.size() <= most ? text.size() : text.rfind(' ', most);
            if (cut == 0 || cut == std::string::npos) cut = std::min(most, text.size());
            add(first + "  " + text.substr(0, cut), signWidth + 2 + cut);
            text.erase(0, std::min(text.find_first_not_of(' ', cut), text.size()));
            first.assign(signWidth, ' ');
        } while (!text.empty());
    }

    const Explanation& explanation_;
    const ClassRow* row_;
    const ScreenLook& look_;
    std::size_t lineCount_;
    std::size_t digits_;
    std::vector<Cell> cells_;  // by position on the screen
    std::vector<LegendEntry> legend_;
    std::set<std::int32_t> lookAlikes_;
    std::string query_;
    bool marksAreShown_ = false;
    std::vector<ShownLine> lines_;
};

}  // namespace

std::size_t neededColumns(std::size_t lines) {
    return std::max<std::size_t>(2, std::to_string(lines).size()) + 2 + width;
}

std::vector<ShownLine> screenView(const Explanation& explanation, const ClassRow* row, const ScreenLook& look) {
    return ScreenView(explanation, row, look).lines();
}

}  // namespace vantro
