#include "cli/commands/display_query.h"

#include "cli/commands/display_warnings.h"
#include "cli/io/displays.h"
#include "cli/io/failure.h"
#include "cli/io/input_files.h"
#include "cli/io/standard_io.h"
#include "cli/io/warnings.h"
#include "cli/json/positions.h"
#include "vantro/registry.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace vantro {

CollectionPtr answerOf(const Text& display, DisplayQuery query, ReadingObserver* observer) {
    std::vector<Text> asked;
    for (const auto& entry : query.request->entries()) asked.push_back(entry.key());

    BuiltInTerminal builtIn;
    ObservedTerminal terminal(builtIn, observer);
    const auto object = createObject(*findClass(query.className), terminal);
    if (object->profileGet()->ProfileElements(display, query.request, &query.selection, query.qualifier)) return {};

    const auto answer = std::make_shared<BuiltInCollection>();
    for (const auto& entry : query.request->entries()) {
        if (std::ranges::count(asked, entry.key()) == 0) answer->Add(entry.key(), entry.Value());
    }
    return answer;
}

namespace {

class Answers {
public:
    Answers(const QueryOptions& options, const Question& question)
        : options_(options),
          question_(question),
          view_(chosenView(options.table, options.json)),
          warnings_(options.quiet) {}

    int printAll() {
        DisplayStream displays(options_.file, options_.maxLine, options_.encoding, options_.splitting);
        std::optional<StreamedDisplay> display = displays.next();
        if (!display) fail(inputName(options_.file) + " contains no display");
        while (display && knowsPrefix_) {
            std::optional<StreamedDisplay> following = displays.next();
            isOneOfMany_ = isOneOfMany_ || following;
            ++number_;
            print(*display);
            display = std::move(following);
        }
        displayWarnings_.endFile(inputName(options_.file));
        return warnings_.statusAfter(status_, options_.strict);
    }

private:
    std::string name() const { return inputName(options_.file) + ", display " + std::to_string(number_); }

    void print(const StreamedDisplay& display) {
        if (!display.problem.empty()) {
            displayWarnings_.skip();
            return fail(name() + ": " + asSentence(display.problem) + " The display is left out, the others are not.");
        }
        const Text& text = display.found.text;
        displayWarnings_.add(doubtsOf(display.found, text), name() + ": ", display.linesAbove);
        try {
            DisplayQuery query = question_.query();
            ResultPositions positions(*findClass(query.className));
            ResultPositions* const asked = options_.positions ? &positions : nullptr;
            const CollectionPtr answer = answerOf(text, std::move(query), asked);
            knowsPrefix_ = answer != nullptr;
            if (!knowsPrefix_) return fail(question_.unknown);
            writeOutput(shown(answer, asked));
        } catch (const Error& raised) {
            const std::string missing = question_.missing ? question_.missing(raised) : "";
            const std::string failure = "the query failed with " + asSentence(describe(raised));
            fail(name() + ": " + (missing.empty() ? failure : missing + "; without it " + failure));
        }
    }

    std::string shown(const CollectionPtr& answer, const ResultPositions* positions) const {
        const std::string results = resultsText(answer, view_, positions);
        return view_ == View::Table && isOneOfMany_ ? name() + "\n\n" + results + "\n" : results;
    }

    void fail(const std::string& what) {
        complain(what);
        status_ = callFailed;
    }

    const QueryOptions& options_;
    const Question& question_;
    View view_;
    Warnings warnings_;
    DisplayWarnings displayWarnings_{[this](const std::string& what) { warnings_.add(what); }};
    std::size_t number_ = 0;
    bool isOneOfMany_ = false;
    bool knowsPrefix_ = true;
    int status_ = success;
};

}  // namespace

int answerDisplays(const QueryOptions& options, const Question& question) {
    if (isStandardInput(options.file) && inputIsTerminal()) {
        complain("reading displays from standard input; end them with the end-of-file key");
    }
    return Answers(options, question).printAll();
}

}  // namespace vantro
