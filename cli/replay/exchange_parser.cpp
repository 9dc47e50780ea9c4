#include "cli/io/failure.h"
#include "cli/io/utf.h"
#include "cli/json/spelling.h"
#include "cli/json/tree.h"
#include "cli/replay/exchange.h"
#include "vantro/screen_lines.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace vantro {

namespace {

/// Something else than the described format; the parser adds the line.
struct Fault {
    std::string what;
};

/// The one value of a line.
JsonNode nodeIn(std::string_view line) {
    try {
        return readTree(line);
    } catch (const JsonFault& fault) {
        throw Fault{fault.what};
    }
}

int integerOf(const JsonNode& node) {
    int value = 0;
    const char* const end = node.text.data() + node.text.size();
    const auto [stop, problem] = std::from_chars(node.text.data(), end, value);
    if (node.kind != JsonNode::Kind::Number || problem != std::errc{} || stop != end) {
        throw Fault{"a whole number is expected"};
    }
    return value;
}

int integerIn(std::string_view line) { return integerOf(nodeIn(line)); }

std::vector<int> integersIn(std::string_view line) {
    const JsonNode list = nodeIn(line);
    if (list.kind != JsonNode::Kind::Array) throw Fault{"a list of error numbers is expected"};
    std::vector<int> found;
    for (const JsonNode& item : list.items) found.push_back(integerOf(item));
    return found;
}

Text textOf(const JsonNode& node) {
    if (node.kind != JsonNode::Kind::String) throw Fault{"a text in quotation marks is expected"};
    return node.string();
}

TextList listOf(const JsonNode& node) {
    TextList found;
    for (const JsonNode& item : node.items) found.push_back(textOf(item));
    return found;
}

ItemValue itemIn(std::string_view line) {
    using Kind = JsonNode::Kind;
    const JsonNode node = nodeIn(line);
    if (node.kind == Kind::True || node.kind == Kind::False) return node.kind == Kind::True;
    if (node.kind == Kind::String) return textOf(node);
    if (node.kind == Kind::Array) return listOf(node);
    const auto number = wholeNumber(node.text);
    if (node.kind == Kind::Number && number) return *number;
    throw Fault{"a text, true, false, a whole number from -32768 to 32767 or a list of texts is expected"};
}

/// The sections of a step in their required order.
enum class Section { Start, Params, Command, Screen, State, Count, Results, Reported };

class Parser {
public:
    explicit Parser(std::string_view text) : text_(text) {}

    Exchange parse() {
        try {
            readSteps();
        } catch (const Fault& fault) {
            throw UsageError("line " + std::to_string(number_) + ": " + fault.what);
        }
        return std::move(steps_);
    }

private:
    void readSteps() {
        bool mayComment = true;  // at the beginning, and after a blank line
        while (next()) {
            if (mayComment && line_.starts_with('#')) continue;
            mayComment = line_.empty();
            if (line_.empty()) continue;
            line_.starts_with("== ") ? beginStep() : section();
        }
        if (steps_.empty()) throw Fault{"there is no step, a line such as '== CPDNTrans'"};
        endStep();
    }

    bool next() {
        if (text_.empty()) return false;
        const std::size_t end = text_.find('\n');
        ++number_;
        if (end == std::string_view::npos) throw Fault{"the last line has no end"};
        line_ = text_.substr(0, end);
        if (line_.ends_with('\r')) line_.remove_suffix(1);
        text_.remove_prefix(end + 1);
        if (!isUtf8(line_)) throw Fault{"the line is not UTF-8"};
        return true;
    }

    bool nextBegins(std::string_view start) const { return text_.starts_with(start); }

    void beginStep() {
        if (!steps_.empty()) endStep();
        steps_.emplace_back();
        step().line = number_;
        step().className = toUtf16(line_.substr(3));
        at_ = Section::Start;
    }

    void endStep() {
        const ExchangeStep& ended = step();
        const char* fault = nullptr;
        if (ended.screen.has_value() != ended.results.has_value()) fault = "a screen and results go together";
        if (!ended.command && !ended.commandRaises && !ended.screen) fault = "the step checks nothing";
        if (fault == nullptr) return;
        number_ = ended.line;
        throw Fault{fault};
    }

    void section() {
        if (steps_.empty()) throw Fault{"a section before the first step"};
        if (line_ == "params:") return enter(Section::Params), void(step().params = entries());
        if (take("command raises: ")) return enterCommand(), void(step().commandRaises = integerIn(line_));
        if (take("command: ")) return enterCommand(), void(step().command = textOf(nodeIn(line_)));
        if (line_ == "screen:") return enter(Section::Screen), void(step().screen = screen());
        if (line_ == "state: previous") return enter(Section::State), void(step().statePrevious = true);
        if (take("count: ")) {
            enter(Section::Count);
            step().lines.count = number_;
            step().count = integerIn(line_);
        } else if (line_.starts_with("results")) {
            enter(Section::Results);
            step().lines.results = number_;
            step().results = results();
        } else if (take("reported: ")) {
            enter(Section::Reported);
            step().lines.reported = number_;
            step().reported = integersIn(line_);
        } else {
            throw Fault{"not a section: " + std::string(line_)};
        }
    }

    void enter(Section section) {
        if (section <= at_) throw Fault{"a section out of order"};
        at_ = section;
    }

    void enterCommand() {
        enter(Section::Command);
        step().lines.command = number_;
    }

    bool take(std::string_view start) {
        if (!line_.starts_with(start)) return false;
        line_.remove_prefix(start.size());
        return true;
    }

    ExchangeResults results() {
        using Kind = ExchangeResults::Kind;
        if (line_ == "results: none") return {};
        if (take("results raises: ")) return {.kind = Kind::Raised, .raised = integerIn(line_)};
        if (line_ != "results:") throw Fault{"not a result: " + std::string(line_)};
        return {.kind = Kind::Collection, .entries = entries()};
    }

    ExchangeEntries entries() {
        ExchangeEntries found;
        while (nextBegins("  \"")) {
            next();
            const std::size_t end = line_.find("\": ");
            if (end == std::string_view::npos) throw Fault{"not a key with its value"};
            const Text key = toUtf16(line_.substr(3, end - 3));
            if (std::ranges::count(found, key, &ExchangeEntry::key) > 0) throw Fault{"a key twice"};
            found.push_back({key, itemIn(line_.substr(end + 3))});
        }
        return found;
    }

    Text screen() {
        Text all;
        std::size_t lines = 0;
        while (nextBegins("|")) {
            if (all.size() != lines * screenWidth) {
                throw Fault{"only the last line of a screen may be shorter"};
            }
            next();
            if (line_.size() < 2 || !line_.ends_with('|')) throw Fault{"a screen line stands between two bars"};
            const Text line = toUtf16(line_.substr(1, line_.size() - 2));
            if (line.size() > screenWidth) throw Fault{"a screen line longer than 80 characters"};
            if (++lines > mostScreenLines) throw Fault{"a screen of more than 24 lines"};
            all += line;
        }
        return all;
    }

    ExchangeStep& step() { return steps_.back(); }

    std::string_view text_;
    std::string_view line_;
    int number_ = 0;
    Section at_ = Section::Start;
    Exchange steps_;
};

}  // namespace

Exchange parseExchange(std::string_view text) { return Parser(text).parse(); }

}  // namespace vantro
