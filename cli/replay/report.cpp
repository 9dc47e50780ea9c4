#include "cli/replay/report.h"

#include "cli/io/terminal.h"
#include "cli/io/utf.h"
#include "cli/json/output.h"
#include "vantro/screen_lines.h"

#include <algorithm>
#include <array>

namespace vantro {

namespace {

constexpr std::size_t mostShownLines = 4;

/// The words for a status, by its number.
constexpr std::array<std::string_view, 4> statusWords{"ok", "FAILED", "ACCEPTED", "ERROR"};
constexpr std::array<std::string_view, 4> jsonWords{"ok", "failed", "accepted", "error"};

std::string_view wordOf(CaseStatus status, const std::array<std::string_view, 4>& words) {
    return words[static_cast<std::size_t>(status)];
}

Text lineOf(TextView screen, std::size_t line) {
    const TextView text = screen.substr(line * screenWidth, screenWidth);
    return Text(text.substr(0, text.find_last_not_of(u' ') + 1));
}

std::string rightAligned(std::size_t number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), ' ') + digits;
}

/// "----+----1----+----2", as wide as the widest line.
std::string ruler(std::size_t width) {
    std::string marks;
    for (std::size_t column = 1; column <= width; ++column) {
        marks += column % 10 == 0 ? static_cast<char>('0' + column / 10) : column % 5 == 0 ? '+' : '-';
    }
    return marks;
}

std::string screenText(const Difference& difference) {
    std::size_t width = 0;
    std::string lines;
    const std::size_t count = std::min(difference.screenLines.size(), mostShownLines);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t number = difference.screenLines[i];
        const Text line = lineOf(difference.screen, number);
        width = std::max(width, line.size());
        lines += "  " + rightAligned(number, 4) + " " + toUtf8(line) + "\n";
    }
    if (lines.empty()) return "";
    const std::size_t more = difference.screenLines.size() - count;
    if (more > 0) lines += "       and " + std::to_string(more) + " more\n";
    return "  line " + ruler(width) + "\n" + lines;
}

/// "line 4, columns 6 to 20"
std::string placeText(const Place& place) {
    const std::string start = "line " + std::to_string(place.line) + ", column";
    if (place.length == 1) return start + " " + std::to_string(place.column);
    return start + "s " + std::to_string(place.column) + " to " + std::to_string(place.column + place.length - 1);
}

/// "5", "5, 7 and 3 more"
std::string listText(const std::vector<std::string>& items, std::string_view separator) {
    std::string text;
    const std::size_t count = std::min(items.size(), mostShownLines);
    for (std::size_t i = 0; i < count; ++i) text.append(i == 0 ? "" : separator).append(items[i]);
    if (items.size() > count) text += " and " + std::to_string(items.size() - count) + " more";
    return text;
}

/// Where what came was read, and where the expected text is.
std::string placesText(const Difference& difference) {
    std::vector<std::string> places;
    for (const KeptPiece& piece : difference.read) {
        if (piece.place) places.push_back(placeText(*piece.place));
    }
    std::vector<std::string> lines;
    for (const std::size_t line : difference.expectedLines) lines.push_back(std::to_string(line));
    std::string text;
    if (!places.empty()) text += "    read in " + listText(places, "; ") + "\n";
    if (!lines.empty()) {
        text += std::string("    expected text is in line") + (lines.size() > 1 ? "s " : " ") + listText(lines, ", ") +
                "\n";
    }
    return text;
}

std::string differenceText(const Difference& difference, const std::string& file) {
    return "  " + file + ":" + std::to_string(difference.line) + ": " + difference.where + "\n" + "    expected " +
           difference.expected + "\n    came     " + difference.actual + "\n" + placesText(difference) +
           screenText(difference);
}

}  // namespace

void ReplayTotals::count(CaseStatus status) {
    switch (status) {
        case CaseStatus::Passed: ++passed; break;
        case CaseStatus::Failed: ++failed; break;
        case CaseStatus::Accepted: ++accepted; break;
        case CaseStatus::Broken: ++broken; break;
    }
}

std::string differencesText(const CaseResult& result) {
    std::string text;
    for (const Difference& difference : result.differences) {
        text += differenceText(difference, result.sample.expectation);
    }
    return text;
}

std::string caseText(const CaseResult& result, bool isColored) {
    constexpr std::size_t columns = 10;
    const std::string word(wordOf(result.status, statusWords));
    const bool isBold = isColored && result.status != CaseStatus::Passed;
    std::string text = (isBold ? inBold(word) : word) + std::string(columns - word.size(), ' ') + result.sample.file;
    if (!result.problem.empty()) text += ": " + result.problem;
    return text + "\n" + differencesText(result);
}

std::string acceptText(const CaseResult& result) {
    if (result.status != CaseStatus::Accepted) return "  not rewritten: " + result.problem + "\n";
    return "  rewritten: " + result.sample.expectation + " now expects what came\n";
}

std::string caseJson(const CaseResult& result) {
    std::string json;
    JsonOut out(json);
    const auto member = [&out](std::string_view name, const std::string& text) {
        out.key(name);
        out.text(toUtf16(text));
    };
    out.beginObject();
    member("file", result.sample.file);
    member("expectation", result.sample.expectation);
    member("status", std::string(wordOf(result.status, jsonWords)));
    out.key("differences");
    out.beginArray();
    for (const Difference& difference : result.differences) {
        out.beginObject();
        out.key("line");
        out.number(difference.line);
        member("where", difference.where);
        member("expected", difference.expected);
        member("actual", difference.actual);
        out.key("screenLines");
        out.beginArray();
        for (const std::size_t line : difference.screenLines) out.number(static_cast<int>(line));
        out.endArray();
        out.key("read");
        writePieces(difference.read, out);
        out.key("expectedLines");
        out.beginArray();
        for (const std::size_t line : difference.expectedLines) out.number(static_cast<int>(line));
        out.endArray();
        out.endObject();
    }
    out.endArray();
    if (!result.problem.empty()) member("error", result.problem);
    out.endObject();
    return json + "\n";
}

std::string summaryOf(const ReplayTotals& totals) {
    const std::size_t all = totals.passed + totals.failed + totals.accepted + totals.broken;
    std::string text =
        std::to_string(all) + (all == 1 ? " case: " : " cases: ") + std::to_string(totals.passed) + " ok";
    const auto add = [&text](std::size_t number, const char* word) {
        if (number > 0) text += ", " + std::to_string(number) + " " + word;
    };
    add(totals.failed, "failed");
    add(totals.accepted, "accepted");
    add(totals.broken, totals.broken == 1 ? "error" : "errors");
    return text;
}

}  // namespace vantro
