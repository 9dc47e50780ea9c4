// Observed calls: the sample exchanges, the marks that set flags, and the values that come from the screen.
#include "tests/support/exchange_file.h"
#include "tests/support/failing_terminal.h"
#include "tests/support/parameter_worlds.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"
#include "tests/transactions/observed_calls.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vantro::test {
namespace {

const std::filesystem::path folder = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "exchanges";

using Visitor = std::function<void(const ExchangeStep& step, const std::optional<Entries>& state)>;

/// Calls `visit` with every step of every sample exchange, and with the state that its screen is read with.
void forEachStep(const Visitor& visit) {
    for (const auto& file : filesIn(folder, ".exchange")) {
        std::optional<Entries> previous;
        for (const ExchangeStep& step : readExchange(file)) {
            SCOPED_TRACE(file.stem().string() + ", step on line " + std::to_string(step.line));
            const std::optional<Entries> state = step.statePrevious ? previous : entriesOf(step.params);
            visit(step, state);
            if (step.screen)
                previous =
                    ObservedClass(step.className, TerminalLines::Slices, false).read(*step.screen, state).entries;
        }
    }
}

bool readsLists(TextView className) { return !findClass(className)->description.columns.empty(); }

TEST(ObservedSamples, HaveTheOutcomeOfOthers) {
    forEachStep([](const ExchangeStep& step, const std::optional<Entries>& state) {
        if (step.command || step.commandRaises) {
            EXPECT_EQ(wrongInCommand(step.className, entriesOf(step.params)), "");
        }
        if (!step.screen) return;
        EXPECT_EQ(wrongInReading(step.className, *step.screen, state), "");
        if (readsLists(step.className)) {
            EXPECT_EQ(wrongInRows(step.className, *step.screen, state), "");
        }
    });
}

std::vector<std::string> callsOf(const ExchangeStep& step, const std::optional<Entries>& state,
                                 ReadingObserver* observer) {
    FailingTerminal terminal;
    ObservedTerminal observed(terminal, observer);
    const auto object = createObject(step.className, observed);
    try {
        object->profileTrans()->VerifyResponse(*step.screen, terminal.watched(state ? collection(*state) : nullptr));
    } catch (const Error&) {
        // A raised error ends the calls.
    }
    return terminal.calls();
}

TEST(ObservedSamples, AskTheTerminalTheSame) {
    forEachStep([](const ExchangeStep& step, const std::optional<Entries>& state) {
        if (!step.screen) return;
        Explanation explanation;
        EXPECT_EQ(callsOf(step, state, &explanation), callsOf(step, state, nullptr));
    });
}

// Commands

TEST(ObservedCommands, AreThoseOfOthersForAllParameters) {
    for (const ClassRow& row : classTable()) {
        if (!row.hasProfileTrans) continue;
        SCOPED_TRACE(className(row));
        const auto check = [&](const Entries& params) { ASSERT_EQ(wrongInCommand(row.name, params), ""); };
        forEachGood(row.description.parameters, check);
        forEachOdd(row.description.parameters, check);
        EXPECT_EQ(wrongInCommand(row.name, std::nullopt), "");
    }
}

TEST(ObservedCommands, AreSaidBeforeTheCallEnds) {
    ObservedClass pdn(u"CPDNTrans", TerminalLines::Slices, true);
    pdn.command(Entries{{u"strKeyName", u"SMITH"}});
    const auto steps = pdn.explanation().steps();
    const KeptStep& command = steps[steps.size() - 2];
    EXPECT_EQ(command.kind, StepKind::ValueRead);
    EXPECT_EQ(command.name, u"command");
    EXPECT_EQ(command.text, u"PDN/-SMITH");
    EXPECT_FALSE(command.isPlaced());
    EXPECT_EQ(steps.back().kind, StepKind::CallEnds);
}

// Counts

TEST(ObservedCount, IsACallOfItsOwn) {
    const Text response = screen({u"RLP", u"RP/", u"T/KQ4R7T /P1", u"C/Q2W3E4", u">"});
    ObservedClass rlp(u"CRLPTrans", TerminalLines::Own, true);
    EXPECT_EQ(rlp.count(response).count, 2);
    const auto steps = rlp.explanation().steps();
    EXPECT_EQ(steps.front().kind, StepKind::CallBegins);
    EXPECT_EQ(steps.front().name, u"RecLocCount");
    EXPECT_EQ(steps.back().kind, StepKind::CallEnds);
    EXPECT_EQ(wrongPieces(rlp.explanation(), response), "");
}

// Values

using ClassAndKey = std::pair<Text, Text>;

bool isText(ValueKind kind) { return kind == ValueKind::String || kind == ValueKind::StringList; }

TEST(ObservedValues, ShowWhereTheTextsOfEveryKeyAre) {
    std::set<ClassAndKey> missing;
    for (const ClassRow& row : classTable()) {
        if (!row.hasProfileTrans) continue;
        for (const ResultRow& result : row.description.results) {
            if (isText(result.kind)) missing.emplace(row.name, result.key);
        }
    }
    EXPECT_EQ(missing.size(), 11U);
    forEachStep([&](const ExchangeStep& step, const std::optional<Entries>& state) {
        if (!step.screen) return;
        ObservedClass object(step.className, TerminalLines::Own, true);
        object.read(*step.screen, state);
        for (const KeptStep& said : object.explanation().steps()) {
            const bool isAdded = said.kind == StepKind::KeyAdded || said.kind == StepKind::EntryAdded;
            if (isAdded && said.isPlaced()) missing.erase({step.className, said.name});
        }
    });
    for (const auto& [name, key] : missing) ADD_FAILURE() << utf8(name) << " " << utf8(key);
}

TEST(ObservedValues, ShowTheTitleOfTheLocatorColumn) {
    const Text response = screen({u"PDN/KES", u"SIMILAR COMPANY NAME LIST", u"     COMPANY         RECLOC     ",
                                  u"   1 KESTRELLO       Q2W3E4", u">"});
    ObservedClass pdn(u"CPDNTrans", TerminalLines::Slices, true);
    const CallOutcome outcome = pdn.read(response, std::nullopt);
    const auto steps = pdn.explanation().steps();
    const auto title = std::ranges::find(steps, Text(u"     RECLOC     "), &KeptStep::text);
    ASSERT_NE(title, steps.end());
    ASSERT_TRUE(title->isPlaced());
    EXPECT_EQ(title->pieces.front().place, (Place{2, 17, 16}));
    EXPECT_EQ(outcome.entries.back(), Entry(u"strKeyRecLocPos", 22));  // five columns further right
}

// Flags

struct FlagCase {
    const ClassRow* row;
    const ScreenFlag* flag;
};

std::vector<FlagCase> allFlags() {
    std::vector<FlagCase> cases;
    for (const ClassRow& row : classTable()) {
        for (const ScreenFlag& flag : row.description.flags) {
            if (!flag.flag.empty()) cases.push_back({&row, &flag});
        }
    }
    return cases;
}

class ObservedFlag : public testing::TestWithParam<FlagCase> {
protected:
    const ScreenFlag& flag() const { return *GetParam().flag; }

    /// Where the mark is on the screen; nothing for a mark that must be absent.
    std::optional<Place> place() const {
        const auto length = static_cast<std::int32_t>(flag().mark.size());
        switch (flag().position) {
            case MarkPosition::StartsLine:
            case MarkPosition::InLine:
                return Place{std::max<std::int32_t>(flag().firstLine, flag().other.empty() ? 0 : 2), 1, length};
            case MarkPosition::SameLine: return Place{1, 50, length};
            case MarkPosition::OnScreen:
            case MarkPosition::LineLater:
            case MarkPosition::EndsList: return Place{4, 1, length};
            case MarkPosition::NotOnScreen: break;
        }
        return std::nullopt;
    }

    Text screenWithMark() const {
        Text text(10 * std::size_t{80}, u' ');
        const auto write = [&text](const Place& at, TextView mark) {
            text.replace(static_cast<std::size_t>(at.line * 80 + at.column - 1), mark.size(), mark);
        };
        if (flag().position == MarkPosition::EndsList) {
            write({2, 1, 0}, u"     COMPANY                         RECLOC     OFFICE");
            write({3, 1, 0}, u"   1 KESTRELLO TOOLS                 Q2W3E4     NCEVN3101");
        }
        write({1, 1, 0}, flag().other);
        if (place()) write(*place(), flag().mark);
        return text;
    }

    Entries state() const {
        Entries state;
        for (const CommandForm& form : GetParam().row->description.forms) {
            if (form.command == flag().command) state = entriesOf(form.example);
        }
        for (const ParameterRow& row : GetParam().row->description.state) {
            if (row.need == Need::Required) state.emplace_back(row.key, u"0");
        }
        return state;
    }
};

std::string nameOfFlag(const testing::TestParamInfo<FlagCase>& test) {
    const auto& [row, flag] = test.param;
    return className(*row) + "_" + std::to_string(flag - row->description.flags.data()) + "_" + utf8(flag->flag);
}

INSTANTIATE_TEST_SUITE_P(, ObservedFlag, testing::ValuesIn(allFlags()), nameOfFlag);

TEST_P(ObservedFlag, IsTrueForAMarkThatTheStepsShow) {
    for (const TerminalLines lines : {TerminalLines::Slices, TerminalLines::Own}) {
        ObservedClass object(GetParam().row->name, lines, true);
        const CallOutcome outcome = object.read(screenWithMark(), state());
        ASSERT_EQ(std::ranges::count(outcome.entries, Entry(flag().flag, true)), 1);
        const bool isShown = std::ranges::any_of(object.explanation().steps(), [this](const KeptStep& step) {
            if (step.kind != StepKind::MarkSearched || step.text != flag().mark) return false;
            return place() ? step.isPlaced() && step.pieces.front().place == place() : step.pieces.empty();
        });
        EXPECT_TRUE(isShown);
    }
}

/// True if the mark of a flag was found, or searched for in vain where it must be absent.
bool isExplained(const Explanation& explanation, const ClassRow& row, TextView key) {
    return std::ranges::any_of(row.description.flags, [&](const ScreenFlag& flag) {
        return flag.flag == key && std::ranges::any_of(explanation.steps(), [&](const KeptStep& step) {
                   const bool mustBeAbsent = flag.position == MarkPosition::NotOnScreen;
                   return step.kind == StepKind::MarkSearched && step.text == flag.mark &&
                          step.isPlaced() != mustBeAbsent;
               });
    });
}

TEST(ObservedFlags, OfTheSamplesAreExplained) {
    forEachStep([](const ExchangeStep& step, const std::optional<Entries>& state) {
        if (!step.screen) return;
        ObservedClass object(step.className, TerminalLines::Slices, true);
        for (const Entry& entry : object.read(*step.screen, state).entries) {
            const bool isState = state && std::ranges::count(*state, entry) > 0;
            if (entry.value != ItemValue(true) || isState) continue;
            EXPECT_TRUE(isExplained(object.explanation(), *findClass(step.className), entry.key)) << utf8(entry.key);
        }
    });
}

}  // namespace
}  // namespace vantro::test
