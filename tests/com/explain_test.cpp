// Explanations through the registered server, with either terminal library: for every sample they are those of the
// linked library, whose terminal makes its own lines as a registered one does.
#include "server/com/error.h"
#include "tests/com/remote_object.h"
#include "tests/com/samples.h"
#include "tests/support/exchange_file.h"
#include "tests/support/own_lines_terminal.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"
#include "vantro/built_in_terminal.h"
#include "vantro/explanation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>

namespace vantro::test {
namespace {

using com::Recording;

// Objects of the linked library, of which the last call is explained.
class Linked {
public:
    ProfileObject& object(TextView name) {
        auto& kept = objects_[Text(name)];
        if (!kept) kept = createObject(*findClass(name), observed_);
        return *kept;
    }

    void beginCall() { explanation_.clear(); }
    Text explained(TextView name) const { return textOf(explanation_, findClass(name)); }

private:
    Explanation explanation_;
    WideTerminal terminal_{80};
    ObservedTerminal observed_{terminal_, &explanation_};
    std::map<Text, std::unique_ptr<ProfileObject>> objects_;
};

class Registered {
public:
    ProfileObject& object(TextView name) {
        auto& kept = objects_[Text(name)];
        if (!kept) {
            kept = com::newRemoteObject(*findClass(name), terminal_);
            com::explained(*kept, Recording::On);
        }
        return *kept;
    }

    // Scripts get their own line ends.
    Text explained(TextView name) {
        Text text = com::explained(object(name));
        std::size_t lines = 0;
        for (std::size_t at = text.find(u"\r\n"); at != Text::npos; at = text.find(u"\r\n", at)) {
            text.erase(at, 1);
            ++lines;
        }
        EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(text, u'\n')), lines);
        EXPECT_EQ(text.find(u'\r'), Text::npos);
        return text;
    }

private:
    BuiltInTerminal terminal_;
    std::map<Text, std::unique_ptr<ProfileObject>> objects_;
};

// The same call of both: its explanations are the same and not empty.
class Both {
public:
    using Call = std::function<void(ProfileObject&)>;

    void explain(TextView name, const Call& call, const Call& remoteCall) {
        linked_.beginCall();
        attempt(call, linked_.object(name));
        attempt(remoteCall, registered_.object(name));
        const Text expected = linked_.explained(name);
        EXPECT_FALSE(expected.empty());
        EXPECT_EQ(utf8(registered_.explained(name)), utf8(expected));
    }
    void explain(TextView name, const Call& call) { explain(name, call, call); }

    void explainCount(TextView name, TextView property, const CountRequest& request) {
        explain(
            name, [&](ProfileObject& object) { findCount(*findClass(name), property)->call(object, request); },
            [&](ProfileObject& object) { com::countRemotely(object, property, request); });
    }

private:
    static void attempt(const Call& call, ProfileObject& object) {
        try {
            call(object);
        } catch (const Error&) {}
    }

    Linked linked_;
    Registered registered_;
};

std::string fileTestName(const testing::TestParamInfo<std::filesystem::path>& file) { return testName(file.param); }

class ExplainedExchange : public testing::TestWithParam<std::filesystem::path> {};
INSTANTIATE_TEST_SUITE_P(, ExplainedExchange, testing::ValuesIn(filesIn(samples() / "exchanges", ".exchange")),
                         fileTestName);

TEST_P(ExplainedExchange, SaysWhatTheLinkedLibrarySays) {
    Both both;
    for (const ExchangeStep& step : readExchange(GetParam())) {
        SCOPED_TRACE("line " + std::to_string(step.line));
        const auto given = [&] { return collectionOf(step.params); };
        if (step.command || step.commandRaises) {
            both.explain(step.className, [&](ProfileObject& object) { object.profileTrans()->CreateCommand(given()); });
        }
        if (!step.screen) continue;
        both.explain(step.className,
                     [&](ProfileObject& object) { object.profileTrans()->VerifyResponse(*step.screen, given()); });
        if (step.count) both.explainCount(step.className, u"RecLocCount", {*step.screen});
    }
}

class ExplainedProfile : public testing::TestWithParam<std::filesystem::path> {};
INSTANTIATE_TEST_SUITE_P(, ExplainedProfile, testing::ValuesIn(filesIn(samples() / "profiles", ".txt")), fileTestName);

TEST_P(ExplainedProfile, SaysWhatTheLinkedLibrarySays) {
    Both both;
    const Text display = displayIn(GetParam());
    const auto query = [&](TextView className, const Entries& request) {
        SCOPED_TRACE(testing::PrintToString(request));
        both.explain(className, [&](ProfileObject& object) {
            TextList selection{u"rm", u"s  ap", u"a  sr"};
            object.profileGet()->ProfileElements(display, collection(request), &selection, {});
        });
    };
    for (const char16_t* const prefix : {u"NM", u"SR", u"RM", u"ST", u"RECLOC", u"OFFID", u"PCN", u"PHI", u"PCI",
                                         u"PIN", u"PSL", u"ALL", u"RC", u"PPR", u"PAS", u"XYZ", u""}) {
        query(u"CProfile", {{u"strKeyPrefix", prefix}, {u"intKeyIndex", 1}});
    }
    query(u"CProfileNotes", {{u"strKeyPrefix", u"ProfileNotes"}});
    both.explainCount(u"CProfile", u"PPRElementsCount", {display});
    both.explainCount(u"CProfile", u"RemarkElementsCount", {display});
    both.explainCount(u"CProfileNotes", u"ProfileNotesElementsCount", {display});
}

class Explain : public testing::Test {
protected:
    static std::unique_ptr<ProfileObject> created(TextView name) {
        static BuiltInTerminal terminal;
        return com::newRemoteObject(*findClass(name), terminal);
    }

    static Text command(ProfileObject& object, const char16_t* number) {
        return object.profileTrans()->CreateCommand(collection({{u"strKeyItemNr", number}}));
    }

    static bool has(const Text& text, TextView part) { return text.find(part) != Text::npos; }
};

TEST_F(Explain, IsOffAtFirst) {
    const auto object = created(u"CPXTrans");
    EXPECT_EQ(com::explained(*object), u"");
    EXPECT_EQ(command(*object, u"3"), u"PX3");
    EXPECT_EQ(com::explained(*object), u"");
}

TEST_F(Explain, IsOfTheLastCall) {
    const auto object = created(u"CPXTrans");
    EXPECT_EQ(com::explained(*object, Recording::On), u"");
    EXPECT_EQ(com::explained(*object), u"");
    EXPECT_EQ(command(*object, u"31"), u"PX31");
    const Text first = com::explained(*object);
    EXPECT_TRUE(has(first, u"31"));
    EXPECT_EQ(com::explained(*object), first);
    EXPECT_EQ(command(*object, u"47"), u"PX47");
    EXPECT_TRUE(has(com::explained(*object), u"47"));
    EXPECT_FALSE(has(com::explained(*object), u"31"));
}

TEST_F(Explain, ReturnsWhatThereWasBeforeTheSwitch) {
    const auto object = created(u"CPXTrans");
    com::explained(*object, Recording::On);
    command(*object, u"31");
    const Text kept = com::explained(*object);
    EXPECT_EQ(com::explained(*object, Recording::On), kept);
    EXPECT_EQ(com::explained(*object), kept);
    EXPECT_EQ(com::explained(*object, Recording::Off), kept);
    EXPECT_EQ(com::explained(*object), u"");
    command(*object, u"47");
    EXPECT_EQ(com::explained(*object, Recording::On), u"");
    EXPECT_EQ(com::explained(*object), u"");
    command(*object, u"59");
    EXPECT_TRUE(has(com::explained(*object), u"59"));
}

TEST_F(Explain, IsEachObjectsOwn) {
    const auto recorded = created(u"CPXTrans");
    const auto other = created(u"CPXTrans");
    com::explained(*recorded, Recording::On);
    command(*recorded, u"31");
    command(*other, u"47");
    EXPECT_TRUE(has(com::explained(*recorded), u"31"));
    EXPECT_EQ(com::explained(*other), u"");
}

TEST_F(Explain, NamesTheErrorOfAFailedCall) {
    const auto object = created(u"CPXTrans");
    com::explained(*object, Recording::On);
    EXPECT_THROW(object->profileTrans()->CreateCommand(nullptr), Error);
    EXPECT_TRUE(has(com::explained(*object), u"5010")) << utf8(com::explained(*object));
    EXPECT_EQ(command(*object, u"3"), u"PX3");
    EXPECT_FALSE(has(com::explained(*object), u"5010"));
}

}  // namespace
}  // namespace vantro::test
