// The sample exchanges and profiles of samples/, played once with the linked library and once with the registered
// server: one player, two back ends.
#include "tests/com/memory_spy.h"
#include "tests/com/remote_object.h"
#include "tests/com/samples.h"
#include "tests/com/terminal_control.h"
#include "tests/support/exchange_file.h"
#include "tests/support/text.h"
#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace vantro::test {
namespace {

enum class BackEnd { Library, Server };

// Objects of one back end, with a terminal that collects the reported errors.
class Stage {
public:
    explicit Stage(BackEnd backEnd) : backEnd_(backEnd) {}

    ProfileObject& object(TextView name) {
        auto& kept = objects_[Text(name)];
        if (!kept) kept = create(name);
        return *kept;
    }

    int count(TextView name, TextView property, TextView text) {
        const CountRequest request{text};
        ProfileObject& counted = object(name);
        if (backEnd_ == BackEnd::Server) return com::countRemotely(counted, property, request);
        return findCount(*findClass(name), property)->call(counted, request);
    }

    std::vector<int> reported;

private:
    std::unique_ptr<ProfileObject> create(TextView name) {
        const ClassRow& row = *findClass(name);
        return backEnd_ == BackEnd::Server ? com::newRemoteObject(row, terminal_) : createObject(row, terminal_);
    }

    BackEnd backEnd_;
    BuiltInTerminal terminal_{[this](const Error& error) { reported.push_back(error.number()); }};
    std::map<Text, std::unique_ptr<ProfileObject>> objects_;
};

class Player {
public:
    explicit Player(BackEnd backEnd) : stage_(backEnd) {}

    void play(const ExchangeStep& step) {
        SCOPED_TRACE("line " + std::to_string(step.line));
        const CollectionPtr params = collectionOf(step.params);
        playCommand(step, params);
        if (!step.screen) return;
        stage_.reported.clear();
        if (step.count) {
            EXPECT_EQ(stage_.count(step.className, u"RecLocCount", *step.screen), *step.count);
        }
        if (step.results) playScreen(step, step.statePrevious ? previous_ : params);
        EXPECT_EQ(stage_.reported, step.reported);
    }

private:
    void playCommand(const ExchangeStep& step, const CollectionPtr& params) {
        if (!step.command && !step.commandRaises) return;
        try {
            const Text command = stage_.object(step.className).profileTrans()->CreateCommand(params);
            ASSERT_TRUE(step.command) << "no error was raised";
            EXPECT_EQ(utf8(command), utf8(*step.command));
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), step.commandRaises.value_or(0));
        }
    }

    void playScreen(const ExchangeStep& step, const CollectionPtr& state) {
        using Kind = ExchangeResults::Kind;
        const ExchangeResults& expected = *step.results;
        try {
            const CollectionPtr results =
                stage_.object(step.className).profileTrans()->VerifyResponse(*step.screen, state);
            ASSERT_NE(expected.kind, Kind::Raised) << "no error was raised";
            ASSERT_EQ(results != nullptr, expected.kind == Kind::Collection);
            if (!results) return;
            EXPECT_EQ(entriesOf(results), entriesOf(expected.entries));
            previous_ = results;
        } catch (const Error& error) {
            ASSERT_EQ(expected.kind, Kind::Raised) << error.what();
            EXPECT_EQ(error.number(), expected.raised);
        }
    }

    Stage stage_;
    CollectionPtr previous_;
};

std::string fileTestName(const testing::TestParamInfo<std::filesystem::path>& file) { return testName(file.param); }

class SampleExchange : public testing::TestWithParam<std::filesystem::path> {
protected:
    void play(BackEnd backEnd) {
        Player player(backEnd);
        const Exchange exchange = readExchange(GetParam());
        EXPECT_FALSE(exchange.empty());
        for (const ExchangeStep& step : exchange) player.play(step);
    }
};
INSTANTIATE_TEST_SUITE_P(, SampleExchange, testing::ValuesIn(filesIn(samples() / "exchanges", ".exchange")),
                         fileTestName);

TEST_P(SampleExchange, PlaysThroughTheServer) { play(BackEnd::Server); }
TEST_P(SampleExchange, PlaysThroughTheLinkedLibrary) { play(BackEnd::Library); }

const char16_t* const prefixes[] = {u"NM",  u"SR",  u"RM",  u"AP",  u"OS",  u"FFN", u"ST",  u"RECLOC", u"OFFID", u"PCN",
                                    u"PHI", u"PPH", u"PCI", u"PPC", u"PIN", u"PSL", u"ALL", u"RC",     u"PPR",   u"PPS",
                                    u"PGL", u"PPA", u"PPK", u"PPI", u"PXC", u"PXA", u"PXK", u"PSH",    u"PSC",   u"PPT",
                                    u"PXT", u"PAS", u"PIV", u"PCE", u"PID", u"PFO", u"XYZ", u""};

// Everything that one request returns, or the error that it raises, in a form that can be compared.
struct Answer {
    Entries entries;
    TextList selection;
    int raised = 0;
    bool gaveCollection = false;

    friend bool operator==(const Answer&, const Answer&) = default;
};

Answer ask(Stage& stage, TextView className, TextView display, const Entries& request) {
    Answer answer;
    answer.selection = {u"rm", u"s  ap", u"a  sr"};
    const CollectionPtr asked = collection(request);
    try {
        const CollectionPtr unknown =
            stage.object(className).profileGet()->ProfileElements(display, asked, &answer.selection, {});
        answer.gaveCollection = unknown != nullptr;
    } catch (const Error& error) {
        answer.raised = error.number();
    }
    answer.entries = entriesOf(asked);
    return answer;
}

class SampleProfile : public testing::TestWithParam<std::filesystem::path> {};
INSTANTIATE_TEST_SUITE_P(, SampleProfile, testing::ValuesIn(filesIn(samples() / "profiles", ".txt")), fileTestName);

TEST_P(SampleProfile, ReturnsTheSameElementsThroughBothBackEnds) {
    Stage library(BackEnd::Library);
    Stage server(BackEnd::Server);
    const Text display = displayIn(GetParam());
    for (const char16_t* const prefix : prefixes) {
        for (const int index : {0, 1, 2}) {
            const Entries request{{u"strKeyPrefix", prefix}, {u"intKeyIndex", index}};
            EXPECT_EQ(ask(server, u"CProfile", display, request), ask(library, u"CProfile", display, request))
                << utf8(prefix) << " " << index;
        }
    }
    const Entries notes{{u"strKeyPrefix", u"ProfileNotes"}};
    EXPECT_EQ(ask(server, u"CProfileNotes", display, notes), ask(library, u"CProfileNotes", display, notes));
}

TEST_P(SampleProfile, ReturnsTheSameCountsAndListsThroughBothBackEnds) {
    Stage library(BackEnd::Library);
    Stage server(BackEnd::Server);
    const Text display = displayIn(GetParam());
    for (const CountProperty& property : findClass(u"CProfile")->counts) {
        EXPECT_EQ(server.count(u"CProfile", property.name, display), library.count(u"CProfile", property.name, display))
            << utf8(property.name);
    }
    for (const char16_t* const name : {u"strPPRText", u"strPPRNumber", u"strRemarkText", u"strServiceRequestCode",
                                       u"strFrequentFlyerAccount", u"strPASText", u"strPFONumber"}) {
        EXPECT_EQ(*server.object(u"CProfile").list(name), *library.object(u"CProfile").list(name)) << utf8(name);
    }
}

// Playing everything repeatedly leaves no text, array, task memory or terminal object allocated.
TEST(SampleExchanges, LeaveNothingAllocated) {
    const auto playAll = [] {
        for (const auto& file : filesIn(samples() / "exchanges", ".exchange")) {
            Player player(BackEnd::Server);
            for (const ExchangeStep& step : readExchange(file)) player.play(step);
        }
        Stage server(BackEnd::Server);
        const Text display = displayIn(samples() / "profiles" / "every_family.txt");
        for (const char16_t* const prefix : prefixes) {
            ask(server, u"CProfile", display, {{u"strKeyPrefix", prefix}, {u"intKeyIndex", 1}});
        }
    };
    playAll();
    TerminalControl control;
    const long objects = control.liveObjects();
    const std::size_t blocks = MemorySpy::outstanding();
    for (int round = 0; round < 3; ++round) playAll();
    EXPECT_EQ(control.liveObjects(), objects);
    EXPECT_EQ(MemorySpy::outstanding(), blocks);
}

}  // namespace
}  // namespace vantro::test
