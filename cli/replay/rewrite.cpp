#include "cli/replay/rewrite.h"

#include <algorithm>

namespace vantro {

namespace {

/// The edits of an exchange, made line by line.
class Rewriting {
public:
    explicit Rewriting(std::string_view text) : text_(text), hasCarriageReturns_(text.find("\r\n") < text.find('\n')) {
        starts_.push_back(0);
        for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1)) {
            starts_.push_back(at + 1);
        }
    }

    void rewrite(const ExchangeStep& step, const StepOutcome& outcome) {
        if (outcome.command != step.command || outcome.commandRaised != step.commandRaises) {
            replace(step.lines.command, 1,
                    commandLine({.command = outcome.command, .commandRaises = outcome.commandRaised}));
        }
        if (outcome.count && outcome.count != step.count) {
            replace(step.lines.count, 1, "count: " + std::to_string(*outcome.count) + "\n");
        }
        if (!step.results) return;
        const int resultLines = 1 + static_cast<int>(step.results->entries.size());
        if (*outcome.results != *step.results) {
            replace(step.lines.results, resultLines, resultsOf(step, *outcome.results));
        }
        if (outcome.reported == step.reported) return;
        const std::string reported = outcome.reported.empty() ? "" : "reported: " + spelled(outcome.reported) + "\n";
        if (step.lines.reported > 0) return replace(step.lines.reported, 1, reported);
        replace(step.lines.results + resultLines, 0, reported);
    }

    std::string result() const { return edited(text_, edits_); }

private:
    // An entry that was expected keeps its line.
    std::string resultsOf(const ExchangeStep& step, const ExchangeResults& came) const {
        if (came.kind != ExchangeResults::Kind::Collection) return resultsLines(came);
        std::string lines = resultsLines({.kind = came.kind});
        for (const ExchangeEntry& entry : came.entries) {
            const auto expected = std::ranges::find(step.results->entries, entry);
            const bool isExpected = expected != step.results->entries.end();
            const auto index = static_cast<int>(expected - step.results->entries.begin());
            lines += isExpected ? lineAt(step.lines.results + 1 + index) : entryLine(entry);
        }
        return lines;
    }

    std::size_t startOf(int line) const { return starts_[static_cast<std::size_t>(line) - 1]; }

    /// With a line feed as its end.
    std::string lineAt(int line) const {
        std::string found(text_.substr(startOf(line), startOf(line + 1) - startOf(line)));
        if (found.ends_with("\r\n")) found.erase(found.size() - 2, 1);
        return found;
    }

    void replace(int line, int count, const std::string& lines) {
        std::string text;
        for (const char byte : lines) text += byte == '\n' && hasCarriageReturns_ ? "\r\n" : std::string(1, byte);
        edits_.push_back({startOf(line), startOf(line + count), std::move(text)});
    }

    std::string_view text_;
    bool hasCarriageReturns_;
    std::vector<std::size_t> starts_;  // of the lines
    std::vector<Edit> edits_;
};

}  // namespace

std::string edited(std::string_view text, const std::vector<Edit>& edits) {
    std::string result;
    std::size_t at = 0;
    for (const Edit& edit : edits) {
        result += text.substr(at, edit.begin - at);
        result += edit.text;
        at = edit.end;
    }
    result += text.substr(at);
    return result;
}

std::string withOutcomes(std::string_view text, const Exchange& steps, const std::vector<StepOutcome>& outcomes) {
    Rewriting rewriting(text);
    for (std::size_t i = 0; i < steps.size(); ++i) rewriting.rewrite(steps[i], outcomes[i]);
    return rewriting.result();
}

}  // namespace vantro
