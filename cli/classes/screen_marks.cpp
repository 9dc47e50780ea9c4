#include "cli/classes/screen_marks.h"

#include "cli/io/utf.h"
#include "vantro/list_rows.h"
#include "vantro/screen_lines.h"

#include <algorithm>
#include <optional>
#include <variant>

namespace vantro {

namespace {

constexpr std::size_t width = screenWidth;

using Line = std::optional<std::size_t>;

TextView lineOf(TextView screen, std::size_t line) {
    return screen.substr(std::min(line * width, screen.size()), width);
}

template <class Predicate>
Line findLine(TextView screen, std::size_t first, std::size_t last, Predicate fits) {
    for (std::size_t line = first; line <= last && line * width < screen.size(); ++line) {
        if (fits(lineOf(screen, line))) return line;
    }
    return std::nullopt;
}

Line lineAt(std::size_t index) { return index == TextView::npos ? Line() : Line(index / width); }

Line findLater(TextView screen, const ScreenFlag& flag) {
    const std::size_t other = screen.find(flag.other);
    return other == TextView::npos ? Line() : lineAt(screen.find(flag.mark, other + width));
}

// The first line with the mark at its position.
Line lineOfMark(TextView screen, const ScreenFlag& flag) {
    const auto first = static_cast<std::size_t>(flag.firstLine);
    const auto last = static_cast<std::size_t>(flag.lastLine);
    const auto begins = [&](TextView line) { return line.starts_with(flag.mark); };
    const auto contains = [&](TextView line) { return line.find(flag.mark) != TextView::npos; };
    const auto containsBoth = [&](TextView line) { return contains(line) && line.find(flag.other) != TextView::npos; };
    switch (flag.position) {
        case MarkPosition::StartsLine: return findLine(screen, first, last, begins);
        case MarkPosition::InLine: return findLine(screen, first, last, contains);
        case MarkPosition::SameLine: return findLine(screen, 0, screen.size() / width, containsBoth);
        case MarkPosition::LineLater: return findLater(screen, flag);
        case MarkPosition::OnScreen:
        case MarkPosition::EndsList: return lineAt(screen.find(flag.mark));
        case MarkPosition::NotOnScreen: break;
    }
    return std::nullopt;
}

// The further screens of a list do not repeat its title.
bool showsTheOther(TextView screen, const ScreenFlag& flag) {
    return flag.position == MarkPosition::EndsList || screen.find(flag.other) != TextView::npos;
}

bool isTrueOrFilled(const ItemValue& value) {
    if (const auto* truth = std::get_if<bool>(&value)) return *truth;
    if (const auto* text = std::get_if<Text>(&value)) return !text->empty();
    if (const auto* list = std::get_if<TextList>(&value)) return list->size() > 1;  // entry 0 is empty
    return true;
}

bool isState(const ClassRow& row, TextView key) {
    return std::ranges::count(row.description.state, key, &ParameterRow::key) > 0;
}

}  // namespace

std::vector<SeenMark> marksOn(TextView screen, const ClassRow& row) {
    std::vector<SeenMark> marks;
    for (const ScreenFlag& flag : row.description.flags) {
        const Line line = lineOfMark(screen, flag);
        if (line && showsTheOther(screen, flag)) marks.push_back({&flag, *line});
    }
    return marks;
}

bool isRecognised(const ClassRow& row, TextView screen, const CollectionPtr& results) {
    if (!results) return false;
    const auto isRead = [&](const ResultRow& result) {
        const ItemPtr item = isState(row, result.key) ? ItemPtr() : results->Item(result.key);
        return item && isTrueOrFilled(item->Value());
    };
    return std::ranges::any_of(row.description.results, isRead) || !marksOn(screen, row).empty();
}

bool showsList(const ClassRow& row, TextView screen, const CollectionPtr& state) {
    if (row.description.columns.empty()) return false;
    try {
        return readRows(row, screen, state).isList;
    } catch (const Error&) {
        return false;
    }
}

std::string notRecognised(const ClassRow& row, TextView screen) {
    const std::string name = toUtf8(row.name);
    if (screen.empty()) return "the screen is empty, so " + name + " read nothing";
    if (row.description.flags.empty()) return name + " reads nothing on a screen. " + toUtf8(row.description.remark);
    return "no test of " + name + " recognised the screen; 'vantro-profile identify' says which class reads it";
}

}  // namespace vantro
