#include "tests/support/exchange_file.h"

#include "tests/support/text.h"

#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

#include <algorithm>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>

namespace vantro::test {

namespace {

constexpr std::size_t screenColumns = 80;
constexpr std::size_t screenLines = 24;

/// The sections of a step in their required order.
enum class Section { Start, Params, Command, Screen, State, Count, Results, Reported };

class Parser {
public:
    explicit Parser(std::string_view text) : text_(text) {}

    Exchange parse() {
        while (next()) {
            if (line_.empty() || (steps_.empty() && line_.starts_with("#"))) continue;
            if (line_.starts_with("== ")) {
                beginStep();
            } else {
                section();
            }
        }
        if (steps_.empty()) error("no step");
        endStep();
        return std::move(steps_);
    }

private:
    [[noreturn]] void error(const std::string& what) const {
        throw std::runtime_error("line " + std::to_string(number_) + ": " + what);
    }

    bool next() {
        if (text_.empty()) return false;
        const std::size_t end = text_.find('\n');
        if (end == std::string_view::npos) error("the last line has no end");
        line_ = text_.substr(0, end);
        text_.remove_prefix(end + 1);
        ++number_;
        return true;
    }

    bool nextBegins(std::string_view start) const { return text_.starts_with(start); }

    void beginStep() {
        if (!steps_.empty()) endStep();
        steps_.emplace_back();
        step().line = number_;
        step().className = wide(line_.substr(3));
        at_ = Section::Start;
    }

    void endStep() const {
        if (step().screen.has_value() != step().results.has_value()) error("a screen and results go together");
        if (!step().command && !step().commandRaises && !step().screen) error("the step checks nothing");
    }

    void section() {
        if (steps_.empty()) error("a section before the first step");
        if (line_ == "params:") return enter(Section::Params), void(step().params = entries());
        if (take("command raises: ")) return enter(Section::Command), void(step().commandRaises = integer());
        if (take("command: ")) return enter(Section::Command), void(step().command = text());
        if (line_ == "screen:") return enter(Section::Screen), void(step().screen = screen());
        if (line_ == "state: previous") return enter(Section::State), void(step().statePrevious = true);
        if (take("count: ")) return enter(Section::Count), void(step().count = integer());
        if (line_.starts_with("results")) return enter(Section::Results), void(step().results = results());
        if (take("reported: ")) return enter(Section::Reported), void(step().reported = integers());
        error("not a section: " + std::string(line_));
    }

    void enter(Section section) {
        if (section <= at_) error("a section out of order");
        at_ = section;
    }

    bool take(std::string_view start) {
        if (!line_.starts_with(start)) return false;
        line_.remove_prefix(start.size());
        return true;
    }

    ExpectedResults results() {
        using Kind = ExpectedResults::Kind;
        if (line_ == "results: none") return {Kind::NoCollection, {}, 0};
        if (take("results raises: ")) return {Kind::Raised, {}, integer()};
        if (line_ != "results:") error("not a result: " + std::string(line_));
        return {Kind::Collection, entries(), 0};
    }

    Entries entries() {
        Entries found;
        while (nextBegins("  \"")) {
            next();
            const std::size_t end = line_.find("\": ");
            if (end == std::string_view::npos) error("not a key with its value");
            const Text key = wide(line_.substr(3, end - 3));
            if (std::ranges::any_of(found, [&](const Entry& entry) { return entry.key == key; })) error("a key twice");
            found.emplace_back(key, value(json(line_.substr(end + 3))));
        }
        return found;
    }

    Text screen() {
        Text all;
        std::size_t lines = 0;
        while (nextBegins("|")) {
            if (all.size() != lines * screenColumns) error("only the last line of a screen may be shorter");
            next();
            if (line_.size() < 2 || !line_.ends_with("|")) error("a screen line stands between two bars");
            const Text line = wide(line_.substr(1, line_.size() - 2));
            if (line.size() > screenColumns) error("a screen line longer than 80 characters");
            if (++lines > screenLines) error("a screen of more than 24 lines");
            all += line;
        }
        return all;
    }

    rapidjson::Document json(std::string_view value) const {
        rapidjson::Document document;
        document.Parse(value.data(), value.size());
        if (document.HasParseError()) error(rapidjson::GetParseError_En(document.GetParseError()));
        return document;
    }

    static Text text(const rapidjson::Value& value) { return wide({value.GetString(), value.GetStringLength()}); }

    int number(const rapidjson::Value& value) const {
        if (!value.IsInt()) error("not a whole number");
        return value.GetInt();
    }

    Text text() const {
        const rapidjson::Document value = json(line_);
        if (!value.IsString()) error("not a text");
        return text(value);
    }

    int integer() const { return number(json(line_)); }

    std::vector<int> integers() const {
        const rapidjson::Document value = json(line_);
        if (!value.IsArray()) error("not a list");
        std::vector<int> found;
        for (const auto& entry : value.GetArray()) found.push_back(number(entry));
        return found;
    }

    ItemValue value(const rapidjson::Document& json) const {
        if (json.IsBool()) return json.GetBool();
        if (json.IsString()) return text(json);
        if (json.IsArray()) return list(json);
        const int whole = number(json);
        if (whole != static_cast<std::int16_t>(whole)) error("a number beyond 16 bits");
        return static_cast<std::int16_t>(whole);
    }

    TextList list(const rapidjson::Document& json) const {
        TextList found;
        for (const auto& entry : json.GetArray()) {
            if (!entry.IsString()) error("a list of something else than texts");
            found.push_back(text(entry));
        }
        return found;
    }

    ExchangeStep& step() { return steps_.back(); }
    const ExchangeStep& step() const { return steps_.back(); }

    std::string_view text_;
    std::string_view line_;
    int number_ = 0;
    Section at_ = Section::Start;
    Exchange steps_;
};

}  // namespace

Exchange parseExchange(std::string_view text) { return Parser(text).parse(); }

Exchange readExchange(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    if (!stream) throw std::runtime_error(file.string() + ": cannot be read");
    try {
        return parseExchange(text.str());
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(file.filename().string() + ", " + error.what());
    }
}

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder, std::string_view ending) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ending) files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

}  // namespace vantro::test
