#include "cli/io/display_lines.h"
#include "cli/io/screen_input.h"
#include "cli/io/utf.h"
#include "cli/replay/step_input.h"
#include "vantro/screen_lines.h"

#include <algorithm>

namespace vantro {

namespace {

using Line = std::string_view;

/// The command after the prompt; empty for a line without one.
Line commandIn(Line line) { return line.starts_with('>') ? trimmed(line.substr(1)) : Line(); }

class LogReader {
public:
    explicit LogReader(std::string_view log) : rest_(log) {}

    std::vector<StepInput> run() {
        for (std::size_t number = 1; !rest_.empty(); ++number) take(nextLine(), number);
        endScreen();
        return std::move(steps_);
    }

private:
    Line nextLine() {
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        const Line line = withoutCarriageReturn(rest_.substr(0, end));
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return line;
    }

    void take(Line line, std::size_t number) {
        if (!commandIn(line).empty()) {
            if (!lines_.empty() && lines_.size() < mostScreenLines) lines_.push_back(line.substr(0, 1));
            endScreen();
        }
        if (lines_.empty() && (isBlank(line) || isPrompt(line))) return;  // between screens
        if (lines_.empty()) first_ = number;
        lines_.push_back(line);
        if (isPrompt(line)) endScreen();
    }

    void endScreen() {
        while (!lines_.empty() && isBlank(lines_.back())) lines_.pop_back();
        if (lines_.empty()) return;
        StepInput step{.line = first_, .isLogged = true};
        for (const Line line : lines_) step.source.append(step.source.empty() ? "" : "\n").append(line);
        const Line command = commandIn(lines_.front());
        const bool isRepeated = !command.empty() && lines_.size() > 1 && trimmed(lines_[1]) == command;
        if (isRepeated) lines_.erase(lines_.begin());
        step.sent = toUtf16(command.empty() ? trimmed(lines_.front()) : command);
        readScreen(step);
        steps_.push_back(std::move(step));
        lines_.clear();
    }

    void readScreen(StepInput& step) const {
        TextList texts;
        for (const Line line : lines_) texts.push_back(toUtf16(line));
        JoinedLines joined = joinLines(texts);
        if (!joined.longLines.empty()) {
            const LongLine& first = joined.longLines.front();
            step.problem = "the screen's " + tooLongLine(first.number, first.length);
        }
        step.screen = std::move(joined.screen);
    }

    std::string_view rest_;
    std::vector<Line> lines_;  // of the screen that is being read
    std::size_t first_ = 0;    // the number of its first line
    std::vector<StepInput> steps_;
};

}  // namespace

std::vector<StepInput> stepsOfLog(std::string_view log) { return LogReader(log).run(); }

}  // namespace vantro
