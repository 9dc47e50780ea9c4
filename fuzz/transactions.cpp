// A class, a state and one or more screens. Every screen after the first is read with the results of the previous one,
// as when paging through a list. Screens with an odd number of lines are read by observed readers.
#include "fuzz/common/compare.h"
#include "fuzz/common/input.h"
#include "fuzz/common/piece_check.h"
#include "tests/oracle/screens_oracle.h"
#include "tests/support/own_lines_terminal.h"
#include "vantro/registry.h"

#include <array>

namespace vantro::fuzz {

namespace {

struct Reader {
    const ClassRow* row;
    oracle::Verify verify;
};

const std::vector<Reader>& readers() {
    static const std::vector<Reader> all = [] {
        std::vector<Reader> found;
        for (const ClassRow& row : classTable()) {
            if (row.hasProfileTrans) {
                found.push_back({&row, oracle::verifyOf(std::string(row.name.begin(), row.name.end()))});
            }
        }
        return found;
    }();
    return all;
}

// Every key that a reader reads or adds, and one that none knows.
constexpr std::array<TextView, 16> stateKeys{
    u"blnKeyEndOfBlock", u"strKeyRecLocPos",   u"strKeyIndex",      u"blnKeyUpdate",
    u"blnKeyExit",       u"blnKeyEnter",       u"blnKeyIgnore",     u"strCommand",
    u"blnKeyResponseOK", u"strKeyErrorString", u"strKeyCoNames",    u"strKeyName",
    u"intKeyIndex",      u"strKeyElement()",   u"blnkeyendofblock", u"",
};

/// The outcome of reading one screen.
struct Answer {
    std::shared_ptr<BuiltInCollection> results;
    int error = 0;
    std::int16_t linked = 0;    // profiles counted by the class's count property
    std::vector<int> reported;  // error numbers, in order
    std::string pieces;         // what an observer was told wrongly
};

struct Expected {
    std::optional<oracle::Collection> results;
    int error = 0;
    int linked = 0;
};

bool addsToState(const ClassRow& row) { return row.name == u"CProfileMode" || row.name == u"CProfileNotes"; }

bool countsLinked(const ClassRow& row) { return row.name == u"CRLPTrans"; }

/// An object of the class with its own terminal.
template <class OfTerminal>
class Library {
public:
    template <class... Arguments>
    explicit Library(const ClassRow& row, std::size_t width, Arguments... arguments)
        : row_(row),
          width_(width),
          terminal_(arguments..., [this](const Error& error) { answer_.reported.push_back(error.number()); }),
          observed_(terminal_),
          object_(createObject(row, observed_)) {}

    Answer read(TextView screen, const CollectionPtr& state) {
        PieceCheck pieces(screen, width_);
        const bool isObserved = screen.size() / width_ % 2 == 1;
        observed_.setObserver(isObserved ? &pieces : nullptr);
        Answer answer = readNow(screen, state);
        observed_.setObserver(nullptr);
        answer.pieces = pieces.message();
        return answer;
    }

private:
    Answer readNow(TextView screen, const CollectionPtr& state) {
        answer_ = Answer();
        try {
            const CollectionPtr results = object_->profileTrans()->VerifyResponse(screen, state);
            answer_.results = std::static_pointer_cast<BuiltInCollection>(results);
        } catch (const Error& error) {
            answer_.error = error.number();
        }
        if (countsLinked(row_)) answer_.linked = row_.counts.front().call(*object_, CountRequest{screen});
        return std::move(answer_);
    }

    const ClassRow& row_;
    std::size_t width_;
    Answer answer_;
    OfTerminal terminal_;
    ObservedTerminal observed_;
    std::unique_ptr<ProfileObject> object_;
};

Expected expectedOf(const Reader& reader, const Text& screen, const oracle::Collection* state) {
    Expected expected;
    try {
        expected.results = reader.verify(screen, state);
    } catch (const oracle::Failure& failure) {
        expected.error = failure.number;
    }
    if (countsLinked(*reader.row)) {
        oracle::LinkedProfiles linked;
        expected.linked = oracle::recLocCount(screen, linked);
    }
    return expected;
}

const oracle::Collection* pointer(const std::optional<oracle::Collection>& collection) {
    return collection ? &*collection : nullptr;
}

/// One run over all screens: the state of the first, and how the screens are laid out.
struct Run {
    const Reader& reader;
    const std::vector<Item>& given;
    bool hasState;
    const std::vector<Text>& screens;
    std::size_t width;
};

std::shared_ptr<BuiltInCollection> firstState(const Run& run) {
    if (!run.hasState) return nullptr;
    const auto state = std::make_shared<BuiltInCollection>();
    for (const auto& [key, value] : run.given) state->Add(key, value);
    return state;
}

std::string differenceMessage(const Run& run, const Text& screen, const oracle::Collection* state, const Answer& answer,
                              const Expected& expected) {
    std::optional<oracle::Collection> results;
    if (answer.results) results = oracleCollection(*answer.results);
    const std::string name(run.reader.row->name.begin(), run.reader.row->name.end());
    return name + " read " + shown(pointer(results)) + ", error " + std::to_string(answer.error) + ", counted " +
           std::to_string(answer.linked) + "\nexpected " + shown(pointer(expected.results)) + ", error " +
           std::to_string(expected.error) + ", counted " + std::to_string(expected.linked) + "\nwith the state " +
           shown(state) + "\nfor " + drawn(screen, run.width);
}

/// Reads the screens with both implementations and compares screen by screen; collects what was reported.
template <class OfLibrary>
std::string compare(const Run& run, OfLibrary& library, std::vector<std::vector<int>>& reports) {
    const oracle::LineWidth width(static_cast<int>(run.width));
    std::shared_ptr<BuiltInCollection> state = firstState(run);
    std::optional<oracle::Collection> expectedState;
    if (state) expectedState = oracleCollection(*state);
    for (const Text& screen : run.screens) {
        const Expected expected = expectedOf(run.reader, screen, pointer(expectedState));
        const Answer answer = library.read(screen, state);
        reports.push_back(answer.reported);
        if (answer.error != expected.error || answer.linked != expected.linked ||
            !same(answer.results.get(), pointer(expected.results))) {
            return differenceMessage(run, screen, pointer(expectedState), answer, expected);
        }
        if (!answer.pieces.empty()) return answer.pieces + "\nfor " + drawn(screen, run.width);
        if (answer.results && (answer.results == state) != addsToState(*run.reader.row)) {
            return "the wrong collection was returned\n" + drawn(screen, run.width);
        }
        if (!addsToState(*run.reader.row) && !same(state.get(), pointer(expectedState))) {
            return "the state was changed\n" + drawn(screen, run.width);
        }
        if (!answer.results) continue;
        state = answer.results;
        expectedState = expected.results;
    }
    return {};
}

}  // namespace

std::string transactions(Bytes bytes) {
    Input input(bytes);
    const Reader& reader = readers()[input.choose(readers().size())];
    const Layout layout = chosenLayout(input);
    std::vector<Item> given;
    for (const std::string_view field : input.fields()) {
        if (auto item = itemOf(field, stateKeys)) given.push_back(std::move(*item));
    }
    std::vector<Text> screens;
    for (const std::string_view lines : input.screens()) screens.push_back(screenOf(lines, layout));
    const Run run{reader, given, !input.fields().empty(), screens, layout.width};

    std::vector<std::vector<int>> ownReports;
    Library<test::WideTerminal> own(*reader.row, layout.width, layout.width);
    if (std::string message = compare(run, own, ownReports); !message.empty()) return "own lines: " + message;
    if (layout.width != Layout().width) return {};

    std::vector<std::vector<int>> reports;
    Library<BuiltInTerminal> builtIn(*reader.row, layout.width);
    if (std::string message = compare(run, builtIn, reports); !message.empty()) return "built in: " + message;
    return reports == ownReports ? std::string() : "the two terminals received different reports";
}

}  // namespace vantro::fuzz
