#include "cli/replay/expectation.h"

#include "cli/io/failure.h"
#include "cli/io/utf.h"
#include "cli/json/output.h"
#include "cli/json/profile_json.h"

#include <algorithm>
#include <map>
#include <utility>

namespace vantro {

namespace {

using Kind = JsonNode::Kind;

int lineAt(std::string_view text, std::size_t index) {
    return 1 + static_cast<int>(std::ranges::count(text.substr(0, index), '\n'));
}

// The lines of the screen with the texts in a value. Numbers of elements are in many lines.
void collectTexts(const JsonNode& node, TextList& texts) {
    if (node.kind == Kind::String) texts.push_back(node.string());
    for (const JsonNode& item : node.items) collectTexts(item, texts);
}

std::vector<std::size_t> linesWithTexts(TextView display, const JsonNode* value) {
    TextList texts;
    if (value != nullptr) collectTexts(*value, texts);
    std::vector<std::size_t> lines;
    for (const Text& text : texts) addLines(linesWith(display, text), lines);
    return lines;
}

/// Where the values of a profile were read, from the same profile written with its positions.
class NodePositions {
public:
    NodePositions(const JsonNode& profile, const JsonNode& withPositions) { collect(profile, withPositions); }

    /// The pieces of all values in a node.
    KeptPieces of(const JsonNode& node) const {
        const auto found = pieces_.find(&node);
        KeptPieces pieces = found != pieces_.end() ? found->second : KeptPieces();
        for (const JsonNode& item : node.items) {
            const KeptPieces further = of(item);
            pieces.insert(pieces.end(), further.begin(), further.end());
        }
        return pieces;
    }

private:
    void collect(const JsonNode& node, const JsonNode& placed) {
        const JsonNode* const positions = placed.member("positions");
        for (std::size_t i = 0; i < node.items.size(); ++i) {
            const bool isMember = node.kind == Kind::Object;
            const JsonNode* const match = isMember ? placed.member(node.names[i]) : &placed.items[i];
            collect(node.items[i], *match);
            const JsonNode* const pieces =
                isMember && positions != nullptr ? positions->member(node.names[i]) : nullptr;
            if (pieces != nullptr) pieces_[&node.items[i]] = piecesIn(*pieces);
        }
    }

    static KeptPieces piecesIn(const JsonNode& array) {
        KeptPieces pieces;
        for (const JsonNode& piece : array.items) {
            const auto number = [&piece](std::string_view name) {
                return static_cast<std::int32_t>(std::stoi(std::string(piece.member(name)->text)));
            };
            const JsonNode* const inserted = piece.member("inserted");
            pieces.push_back(inserted != nullptr
                                 ? KeptPiece{inserted->string(), std::nullopt}
                                 : KeptPiece{{}, Place{number("line"), number("column"), number("length")}});
        }
        return pieces;
    }

    std::map<const JsonNode*, KeptPieces> pieces_;
};

class Comparison {
public:
    Comparison(std::string_view file, const Text& display, const NodePositions& positions)
        : file_(file), display_(display), positions_(positions) {}

    ExpectationResult run(const JsonNode& expected, const JsonNode& actual) {
        compare("", expected, actual);
        return std::move(result_);
    }

private:
    void compare(const std::string& path, const JsonNode& expected, const JsonNode& actual) {
        if (isSame(expected, actual)) return;
        if (expected.kind == Kind::Object && actual.kind == Kind::Object) {
            compareObjects(path, expected, actual);
        } else if (expected.kind == Kind::Array && actual.kind == Kind::Array) {
            compareArrays(path, expected, actual);
        } else {
            add(path, offsetOf(expected), &expected, &actual);
            replace(expected, actual);
        }
    }

    // ---- Objects

    void compareObjects(const std::string& path, const JsonNode& expected, const JsonNode& actual) {
        const auto isIgnored = [&path](const std::string& name) {
            return path.empty() && (name == "source" || name == "id");
        };
        const auto pathOf = [&path](const std::string& name) { return path.empty() ? name : path + "." + name; };
        for (std::size_t i = 0; i < expected.items.size(); ++i) {
            const std::string& name = expected.names[i];
            const JsonNode& item = expected.items[i];
            const JsonNode* const match = actual.member(name);
            if (isIgnored(name)) continue;
            if (match != nullptr) {
                compare(pathOf(name), item, *match);
            } else if (!item.isEmpty()) {
                add(pathOf(name), offsetOf(item), &item, nullptr);
                edit(offsetOf(item), item.text.size(), emptied(item));
            }
        }
        std::string further;
        bool hasFurther = false;
        for (std::size_t i = 0; i < actual.items.size(); ++i) {
            const JsonNode& item = actual.items[i];
            if (item.isEmpty() || expected.member(actual.names[i]) != nullptr) continue;
            add(pathOf(actual.names[i]), offsetOf(expected), nullptr, &item);
            hasFurther = true;
            if (!expected.items.empty()) further += memberText(expected, actual.names[i], item);
        }
        if (!hasFurther) return;
        if (expected.items.empty()) return replace(expected, actual);
        const JsonNode& last = expected.items.back();
        edit(offsetOf(last) + last.text.size(), 0, further);
    }

    // What is empty is the same as what is absent.
    static std::string emptied(const JsonNode& item) {
        if (item.kind == Kind::Array) return "[]";
        return item.kind == Kind::Object ? "{}" : item.kind == Kind::String ? "\"\"" : "null";
    }

    /// A further member after the last one of an object.
    std::string memberText(const JsonNode& object, const std::string& name, const JsonNode& item) const {
        const bool hasLines = object.text.find('\n') != std::string_view::npos;
        const std::string indent = indentAt(offsetOf(object.items.back()));
        const std::string start = hasLines ? "," + lineEnd() + indent : ",";
        return start + '"' + name + (hasLines ? "\": " : "\":") + laidOut(item, indent, hasLines);
    }

    // ---- Arrays

    void compareArrays(const std::string& path, const JsonNode& expected, const JsonNode& actual) {
        const auto itemPath = [&path](std::size_t index) { return path + "[" + std::to_string(index) + "]"; };
        const std::vector<JsonNode>& wanted = expected.items;
        const std::vector<JsonNode>& came = actual.items;
        if (wanted.size() == came.size()) {
            for (std::size_t i = 0; i < came.size(); ++i) compare(itemPath(i), wanted[i], came[i]);
            return;
        }
        const std::size_t most = std::min(wanted.size(), came.size());
        std::size_t front = 0;
        while (front < most && isSame(wanted[front], came[front])) ++front;
        std::size_t back = 0;
        while (back < most - front && isSame(wanted[wanted.size() - 1 - back], came[came.size() - 1 - back])) ++back;
        for (std::size_t i = front; i < wanted.size() - back; ++i) {
            add(itemPath(i), offsetOf(wanted[i]), &wanted[i], nullptr);
        }
        for (std::size_t i = front; i < came.size() - back; ++i) {
            add(itemPath(i), offsetOf(expected), nullptr, &came[i]);
        }
        replace(expected, actual);
    }

    // ---- Results

    void add(const std::string& path, std::size_t offset, const JsonNode* expected, const JsonNode* actual) {
        const KeptPieces read = actual != nullptr ? positions_.of(*actual) : KeptPieces();
        const std::vector<std::size_t> expectedLines = linesWithTexts(display_, expected);
        std::vector<std::size_t> lines = read.empty() ? linesWithTexts(display_, actual) : linesOf(read);
        addLines(expectedLines, lines);
        result_.differences.push_back({.line = lineAt(file_, offset),
                                       .where = path.empty() ? "the whole profile" : path,
                                       .expected = expected != nullptr ? inOneLine(expected->text) : nothing,
                                       .actual = actual != nullptr ? std::string(actual->text) : nothing,
                                       .screenLines = std::move(lines),
                                       .screen = display_,
                                       .read = read,
                                       .expectedLines = expectedLines});
    }

    void edit(std::size_t at, std::size_t length, std::string text) {
        result_.edits.push_back({at, at + length, std::move(text)});
    }

    void replace(const JsonNode& expected, const JsonNode& actual) {
        const bool hasLines = file_.find('\n') < file_.find_last_not_of(" \r\n");
        edit(offsetOf(expected), expected.text.size(), laidOut(actual, indentAt(offsetOf(expected)), hasLines));
    }

    // ---- The form of the file

    std::size_t offsetOf(const JsonNode& node) const {
        return static_cast<std::size_t>(node.text.data() - file_.data());
    }

    std::string lineEnd() const { return file_.find("\r\n") != std::string_view::npos ? "\r\n" : "\n"; }

    std::string indentAt(std::size_t offset) const {
        const std::size_t lineFeed = file_.substr(0, offset).rfind('\n');
        const std::string_view line = file_.substr(lineFeed == std::string_view::npos ? 0 : lineFeed + 1);
        return std::string(line.substr(0, line.find_first_not_of(' ')));
    }

    /// A value as it is written in this file, its further lines with this indent.
    std::string laidOut(const JsonNode& node, const std::string& indent, bool hasLines) const {
        if (!hasLines) return std::string(node.text);
        std::string text;
        for (const char byte : indented(node.text)) text += byte == '\n' ? lineEnd() + indent : std::string(1, byte);
        return text;
    }

    std::string_view file_;
    const Text& display_;
    const NodePositions& positions_;
    ExpectationResult result_;
};

JsonNode readExpectation(std::string_view text) {
    try {
        JsonNode expected = readTree(text);
        if (expected.kind == Kind::Object) return expected;
        throw JsonFault{0, "not an object, as 'vantro-profile parse --pretty' prints it"};
    } catch (const JsonFault& fault) {
        throw UsageError("line " + std::to_string(lineAt(text, fault.at)) + ": not an expectation: " + fault.what);
    }
}

}  // namespace

ExpectationResult compareWithExpectation(std::string_view expectation, const Text& display) {
    if (!isUtf8(expectation)) throw UsageError("the file is not UTF-8");
    const JsonNode expected = readExpectation(expectation);
    ProfilePositions positions;
    const Profile profile = parseProfile(display, positions);
    const auto written = [&profile](const ProfilePositions* places) {
        std::string json;
        JsonOut out(json);
        writeProfile(profile, {.positions = places}, out);
        return json;
    };
    const std::string json = written(nullptr);
    const std::string jsonWithPositions = written(&positions);
    const JsonNode actual = readTree(json);
    const NodePositions places(actual, readTree(jsonWithPositions));
    return Comparison(expectation, display, places).run(expected, actual);
}

}  // namespace vantro
