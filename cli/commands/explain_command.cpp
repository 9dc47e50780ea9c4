#include "cli/classes/trans_class.h"
#include "cli/classes/unknown_keys.h"
#include "cli/commands/commands.h"
#include "cli/commands/display_doubts.h"
#include "cli/commands/display_query.h"
#include "cli/commands/display_warnings.h"
#include "cli/commands/rows_view.h"
#include "cli/commands/verify_input.h"
#include "cli/explain/explain_json.h"
#include "cli/explain/explain_text.h"
#include "cli/explain/explained.h"
#include "cli/explain/explained_response.h"
#include "cli/explain/html_page.h"
#include "cli/io/displays.h"
#include "cli/io/failure.h"
#include "cli/io/input_files.h"
#include "cli/io/output_file.h"
#include "cli/io/screen_warnings.h"
#include "cli/io/standard_io.h"
#include "cli/io/terminal.h"
#include "cli/io/utf.h"
#include "cli/io/warnings.h"
#include "cli/json/collection.h"
#include "cli/json/profile_json.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace vantro {

namespace {

constexpr auto wholeProfile = "profile";

/// Moves the file out of the arguments: the one that is not KEY=VALUE.
void separateFile(ExplainOptions& options) {
    const auto isPair = [](const std::string& argument) { return argument.find('=') != std::string::npos; };
    const auto files = std::stable_partition(options.arguments.begin(), options.arguments.end(), isPair);
    const auto count = options.arguments.end() - files;
    if (count > 1 || (count == 1 && !options.file.empty())) {
        throw UsageError("one screen or one file of displays is explained at a time, not also '" +
                         options.arguments.back() + "'");
    }
    if (count == 1) options.file = *files;
    options.arguments.erase(files, options.arguments.end());
}

std::string titleOf(const Explained& explained, const std::string& what) {
    std::string title = what + ", " + std::string(explained.call) + ": " + inputName(explained.file);
    if (explained.display != 0) title += ", display " + std::to_string(explained.display);
    return title;
}

/// Prints the explanation as the options ask for it.
void show(const Explained& explained, const ExplainOptions& options) {
    if (!options.htmlFile.empty()) {
        const std::string page = htmlPage(explained.explanation, explained.row, explained.title);
        return isStandardInput(options.htmlFile) ? writeOutput(page) : writeFile(options.htmlFile, page);
    }
    if (!options.json) return writeOutput(explainText(explained, {outputColumns(), outputShowsColor()}));
    std::string json;
    JsonOut out(json);
    writeExplanation(explained, out);
    writeOutput(json + "\n");
}

// ---- Screens

VerifyOptions verifyOptions(const ExplainOptions& options) {
    VerifyOptions verify;
    verify.className = options.what;
    verify.parameters = options.arguments;
    verify.screenFile = options.file;
    verify.stateFile = options.stateFile;
    verify.encoding = options.encoding;
    verify.lenient = options.splitting.isLenient;
    verify.maxLine = options.maxLine;
    return verify;
}

std::string outcomeOf(const ClassRow& row, const ListRows& found) {
    if (!found.isList) return "Empty, not failed: the screen shows no list that " + toUtf8(row.name) + " reads.";
    return "The screen shows a list; rows read: " + std::to_string(found.rows.size()) + ".";
}

/// Calls the class and notes how the call ended. Returns the exit status.
int explainCall(const ClassRow& row, const Text& screen, const CollectionPtr& state, Explanation& explanation,
                Explained& explained) {
    return explainResponse(row, screen, state, explanation, explained) ? success : screenNotRecognised;
}

/// The same for the rows of a list.
int explainRows(const ClassRow& row, const Text& screen, const CollectionPtr& state, Explanation& explanation,
                Explained& explained) {
    const ListRows found = readRows(row, screen, state, explanation);
    explained.outcome = outcomeOf(row, found);
    explained.writeResults = [json = rowsText(row, found, RowsView::Json)](JsonOut& out) {
        out.raw(std::string_view(json).substr(0, json.size() - 1));  // without its line end
    };
    return found.isList ? success : screenNotRecognised;
}

int explainScreen(const ClassRow& row, const ExplainOptions& options) {
    if (options.rows) requireLists(row);
    const VerifyOptions verify = verifyOptions(options);
    const std::shared_ptr<BuiltInCollection> collection = collectionFor(verify);
    Warnings warnings(options.quiet);
    if (collection) warnAboutUnknownKeys(row, PassedFor::Screen, *collection, warnings);
    const Text screen = screenFor(verify, warnings);
    for (const std::string& warning : screenWarnings(screen)) warnings.add(warning);

    Explanation explanation;
    Explained explained{.explanation = explanation,
                        .row = &row,
                        .call = options.rows ? "readRows" : "VerifyResponse",
                        .title = {},
                        .file = {},
                        .error = {},
                        .outcome = {},
                        .writeResults = {}};
    explained.file = isStandardInput(options.file) ? "-" : options.file;
    explained.title = titleOf(explained, toUtf8(row.name));
    int status = success;
    try {
        status = (options.rows ? explainRows : explainCall)(row, screen, collection, explanation, explained);
    } catch (const Error& raised) {
        explained.error = raised;
        status = callFailed;
    }
    show(explained, options);
    return status == success ? warnings.statusAfter(success, options.strict) : status;
}

// ---- Displays

/// What is asked of a display: everything, or one query.
struct Asked {
    const QueryFacts* query = nullptr;  ///< null for everything
};

/// The query that a text under "strKeyPrefix" selects, or null.
const QueryFacts* queryOf(const std::string& prefix) {
    const Text text = toUtf16(prefix);
    const QueryFacts& notes = factsOf(OtherQuery::Notes);
    if (text == notes.word) return &notes;
    const auto queries = profileQueries();
    const auto found = std::ranges::find_if(queries, [&text](const QueryFacts& query) {
        return query.match == WordMatch::Whole ? text == query.word : text.starts_with(query.word);
    });
    return found == queries.end() ? nullptr : &*found;
}

/// A family whose query returns one element: without an index, all its elements are read, as to count them.
const FamilyFacts* countedFamily(const Asked& asked, const ExplainOptions& options) {
    if (asked.query == nullptr || !asked.query->family || options.index) return nullptr;
    const FamilyFacts& family = factsOf(*asked.query->family);
    return family.output == ElementOutput::Element ? &family : nullptr;
}

DisplayQuery queryFor(const Asked& asked, const ExplainOptions& options) {
    if (asked.query->other == OtherQuery::Notes) {
        return queryFor(NotesOptions{.search = options.search, .qualifier = options.qualifier, .common = {}});
    }
    return queryFor(ElementsOptions{.prefix = options.what,
                                    .index = options.index,
                                    .selection = options.selection,
                                    .qualifier = options.qualifier,
                                    .common = {}});
}

class DisplayExplainer {
public:
    DisplayExplainer(const Asked& asked, const ExplainOptions& options)
        : asked_(asked), options_(options), warnings_(options.quiet) {}

    int explainAll() {
        DisplayStream displays(options_.file, options_.maxLine, options_.encoding, options_.splitting);
        std::optional<StreamedDisplay> display = displays.next();
        while (display) {
            std::optional<StreamedDisplay> following = displays.next();
            ++number_;
            isOneOfMany_ = isOneOfMany_ || following;
            const bool isWanted = !options_.display || *options_.display == number_;
            if (isWanted) refuseSecondPage();
            if (isWanted) explain(*display);
            display = std::move(following);
        }
        if (explained_ == 0) fail(nothingExplained());
        displayWarnings_.endFile(inputName(options_.file));
        return status_ == success ? warnings_.statusAfter(success, options_.strict) : status_;
    }

private:
    std::string name() const { return inputName(options_.file) + ", display " + std::to_string(number_); }

    std::string nothingExplained() const {
        if (number_ == 0) return inputName(options_.file) + " contains no display";
        return inputName(options_.file) + " has no display " + std::to_string(options_.display.value_or(0)) +
               ", only " + std::to_string(number_);
    }

    void refuseSecondPage() const {
        if (options_.htmlFile.empty() || options_.display || !isOneOfMany_) return;
        throw UsageError("the file has several displays, and a page shows one; choose it with --display N");
    }

    void explain(const StreamedDisplay& display) {
        ++explained_;
        if (!display.problem.empty()) {
            displayWarnings_.skip();
            return fail(name() + ": " + asSentence(display.problem) + " It cannot be explained.");
        }
        displayWarnings_.add(doubtsOf(display.found, display.found.text), name() + ": ", display.linesAbove);
        Explanation explanation;
        Explained explained{.explanation = explanation,
                            .row = nullptr,
                            .call = {},
                            .title = {},
                            .file = {},
                            .error = {},
                            .outcome = {},
                            .writeResults = {}};
        explained.file = isStandardInput(options_.file) ? "-" : options_.file;
        explained.display = number_;
        explained.line = display.linesAbove + display.found.line;
        asked_.query == nullptr ? explainProfile(display.found.text, explanation, explained)
                                : explainQuery(display.found.text, explanation, explained);
        if (isOneOfMany_ && explained_ > 1 && !options_.json && options_.htmlFile.empty()) writeOutput("\n");
        explained.title = titleOf(explained, options_.what);
        show(explained, options_);
    }

    void explainProfile(const Text& text, Explanation& explanation, Explained& explained) {
        profile_ = parseProfile(text, explanation);
        explained.call = "parseProfile";
        explained.outcome = outcomesOfQueries(explanation, profile_);
        explained.writeResults = [this](JsonOut& out) { writeProfile(profile_, {}, out); };
        if (!profile_.problems.empty()) status_ = callFailed;
    }

    void explainQuery(const Text& text, Explanation& explanation, Explained& explained) {
        profile_ = parseProfile(text);
        const FamilyFacts* const counted = countedFamily(asked_, options_);
        call_ = counted != nullptr ? toUtf8(counted->countProperty) : "ProfileElements";
        explained.call = call_;
        const DisplayQuery query = queryFor(asked_, options_);
        explained.row = findClass(query.className);
        try {
            answer_ = counted != nullptr ? countOf(*counted, text, explanation) : answerOf(text, query, &explanation);
            explained.outcome = outcomesOfQueries(explanation, profile_);
        } catch (const Error& raised) {
            explained.error = raised;
            status_ = callFailed;
        }
        explained.writeResults = [this](JsonOut& out) { writeCollection(answer_, out); };
    }

    static CollectionPtr countOf(const FamilyFacts& family, const Text& display, Explanation& explanation) {
        const ClassRow& row = *findClass(u"CProfile");
        BuiltInTerminal builtIn;
        ObservedTerminal terminal(builtIn, &explanation);
        const auto count = std::make_shared<BuiltInCollection>();
        const auto object = createObject(row, terminal);
        count->Add(family.countProperty, findCount(row, family.countProperty)->call(*object, CountRequest{display}));
        return count;
    }

    void fail(const std::string& what) {
        complain(what);
        status_ = callFailed;
    }

    const Asked& asked_;
    const ExplainOptions& options_;
    Warnings warnings_;
    DisplayWarnings displayWarnings_{[this](const std::string& what) { warnings_.add(what); }};
    Profile profile_;
    CollectionPtr answer_;
    std::string call_;
    std::size_t number_ = 0;
    std::size_t explained_ = 0;
    bool isOneOfMany_ = false;
    int status_ = success;
};

int explainDisplays(const Asked& asked, const ExplainOptions& options) {
    if (!options.arguments.empty() || !options.stateFile.empty() || options.rows) {
        throw UsageError("KEY=VALUE, --state and --rows are for the screen of a class, not for a display");
    }
    if (isStandardInput(options.file) && inputIsTerminal()) {
        complain("reading displays from standard input; end them with the end-of-file key");
    }
    return DisplayExplainer(asked, options).explainAll();
}

}  // namespace

int runExplain(ExplainOptions options) {
    separateFile(options);
    if (options.what == wholeProfile) return explainDisplays({}, options);
    if (const QueryFacts* const query = queryOf(options.what)) return explainDisplays({query}, options);
    if (findClass(toUtf16(options.what)) == nullptr) {
        throw UsageError("'" + options.what + "' is neither 'profile' nor the prefix of a query, and " +
                         unknownClass(options.what));
    }
    return explainScreen(transactionClass(options.what), options);
}

}  // namespace vantro
