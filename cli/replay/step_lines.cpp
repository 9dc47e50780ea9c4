#include "cli/classes/trans_class.h"
#include "cli/io/display_lines.h"
#include "cli/io/failure.h"
#include "cli/io/utf.h"
#include "cli/json/input.h"
#include "cli/replay/player.h"
#include "cli/replay/step_input.h"

#include <algorithm>
#include <array>

namespace vantro {

namespace {

class StepLineReader {
public:
    StepInput read(std::string_view line, std::size_t number) {
        step_ = {.line = number, .source = std::string(line)};
        std::string text(line);
        text.append(jsonPadding, '\0');
        const JsonOutcome outcome = input_.readObject({text.data(), line.size()}, members_);
        try {
            if (!outcome.problem.empty()) throw UsageError(outcome.problem);
            if (!outcome.isObject) throw UsageError("the line is JSON, but not an object");
            assemble();
        } catch (const UsageError& problem) {
            step_.problem = problem.what();
        }
        return std::move(step_);
    }

private:
    void assemble() {
        for (const JsonMember& member : members_) {
            if (member.isGiven && !member.fault.empty())
                throw UsageError(std::string(member.name) + ": " + member.fault);
        }
        if (has("class")) step_.row = &transactionClass(toUtf8(class_));
        if (has("params") && params_) step_.params = entriesOf(*params_);
        if (has("command")) step_.sent = command_;
        if (has("response")) takeScreen(response_);
        if (has("screen")) takeScreen(screen_);
        if (has("state") && state_ != u"previous") throw UsageError("state: only \"previous\" is known");
        step_.statePrevious = has("state");
        has("call") ? takeCall() : void(step_.buildsCommand = step_.params || step_.sent || !step_.screen);
        if (step_.screen) return;
        if (step_.statePrevious) throw UsageError("state: it is for a screen, which is missing");
        if (step_.row == nullptr) throw UsageError("a class or a screen is missing");
    }

    void takeScreen(const JsonScreen& screen) {
        if (!screen.isNull()) step_.screen = Text(screen.text());
    }

    void takeCall() {
        if (call_ == u"CreateCommand") {
            step_.screen.reset();
            step_.buildsCommand = true;
        } else if (call_ == u"VerifyResponse" || call_ == u"RecLocCount") {
            if (!step_.screen) throw UsageError("response: the member is missing");
            step_.isCounted = call_ == u"RecLocCount";
        } else {
            throw UsageError("an exchange has no call " + inQuotes(call_));
        }
    }

    bool has(std::string_view name) const { return std::ranges::find(members_, name, &JsonMember::name)->isGiven; }

    JsonInput input_;
    Text class_;
    Text call_;
    Text command_;
    Text state_;
    JsonCollection params_;
    JsonScreen response_;
    JsonScreen screen_;
    std::array<JsonMember, 7> members_{{
        {"class", &class_},
        {"call", &call_},
        {"command", &command_},
        {"state", &state_},
        {"params", &params_},
        {"response", &response_},
        {"screen", &screen_},
    }};
    StepInput step_;
};

}  // namespace

std::vector<StepInput> stepsOfJsonLines(std::string_view lines) {
    StepLineReader reader;
    std::vector<StepInput> steps;
    for (std::size_t number = 1; !lines.empty(); ++number) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        const std::string_view line = withoutCarriageReturn(lines.substr(0, end));
        lines.remove_prefix(std::min(end + 1, lines.size()));
        if (!isBlank(line)) steps.push_back(reader.read(line, number));
    }
    return steps;
}

}  // namespace vantro
