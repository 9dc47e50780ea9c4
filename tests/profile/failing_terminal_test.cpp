// A terminal library that fails at one of its calls, each call in its turn.
#include "tests/support/failing_terminal.h"
#include "tests/profile/parser.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vantro {
namespace {

const Raised terminalsOwn{1004, "TerminalLibrary", "The terminal's own failure"};

const Text shown = ended({
    "LINE 0",
    "LINE 1",
    "  1 PCN/ ACME",
    "------- PNR TRANSFERABLE DATA",
    transferable('S', "1", "SR  FQTVQV 12-A"),
    "------- PRIORITY",
    "  1 PPR/ A",
    "------- DOCUMENTS",
    "  1 PAS/ A",
});

/// What a call with a failing terminal gives: the error, the calls made, and the keys that stand in the end.
struct Outcome {
    Raised raised;
    std::vector<std::string> calls;
    std::vector<std::string> keys;
};

Outcome queried(TextView className, const std::string& prefix, int failAt) {
    test::FailingTerminal terminal(failAt);
    const auto object = createObject(*findClass(className), terminal);
    const auto inner = std::make_shared<BuiltInCollection>();
    inner->Add(u"strKeyPrefix", ItemValue(wide(prefix)));
    inner->Add(u"intKeyIndex", ItemValue(std::int16_t{1}));
    TextList selection{u"SR"};
    Outcome run;
    run.raised =
        raisedBy([&] { object->profileGet()->ProfileElements(shown, terminal.watched(inner), &selection, u"SR"); });
    run.calls = terminal.calls();
    for (const BuiltInCollection::Entry& entry : inner->entries()) run.keys.push_back(utf8(entry.key()));
    EXPECT_TRUE(terminal.reports().empty());
    return run;
}

/// The place (from 0) of the first call of that name; -1 without one.
std::ptrdiff_t firstCall(const std::vector<std::string>& calls, const std::string& name) {
    const auto found = std::ranges::find_if(calls, [&](const auto& call) { return call.starts_with(name); });
    return found == calls.end() ? -1 : found - calls.begin();
}

struct FailingQuery {
    TextView className;
    std::string prefix;
    Raised extractor;  // what a failing line of the extractor raises; the terminal's own error for a header value
};

const Raised notesFailed{5500, "VantroProfileUtils", "An error has occurred while reading Profile Notes"};

class FailingTerminalQuery : public testing::TestWithParam<FailingQuery> {};

INSTANTIATE_TEST_SUITE_P(
    Of, FailingTerminalQuery,
    testing::Values(FailingQuery{u"CProfile", "NM", terminalsOwn}, FailingQuery{u"CProfile", "RECLOC", terminalsOwn},
                    FailingQuery{u"CProfile", "OFFID", terminalsOwn}, FailingQuery{u"CProfile", "PCN", terminalsOwn},
                    FailingQuery{u"CProfile", "PIN", terminalsOwn}, FailingQuery{u"CProfile", "PSL", terminalsOwn},
                    FailingQuery{u"CProfile", "ALL", terminalsOwn}, FailingQuery{u"CProfile", "PPR", verifying(5266)},
                    FailingQuery{u"CProfile", "PHI", verifying(5272)},
                    FailingQuery{u"CProfile", "PAS", verifying(5287)}, FailingQuery{u"CProfile", "SR", verifying(5245)},
                    FailingQuery{u"CProfileNotes", "ProfileNotes", notesFailed}),
    [](const auto& test) { return test.param.prefix; });

TEST_P(FailingTerminalQuery, EveryFailureComesOutAsItShould) {
    const Outcome whole = queried(GetParam().className, GetParam().prefix, 0);
    ASSERT_EQ(whole.raised, Raised{});
    ASSERT_GT(whole.calls.size(), 3U);
    const bool isNotes = GetParam().className == u"CProfileNotes";
    for (std::size_t failing = 0; failing < whole.calls.size(); ++failing) {
        const Outcome run = queried(GetParam().className, GetParam().prefix, static_cast<int>(failing) + 1);
        const std::string& call = whole.calls[failing];
        const auto place = static_cast<std::ptrdiff_t>(failing);
        // The first line fetched is the entry's own look for a host line; the lines after it are the extractor's.
        const bool isExtractors = call.starts_with("ScreenLine") && place > firstCall(whole.calls, "ScreenLine");
        const bool isNotesAdding = isNotes && call.starts_with("Add");
        EXPECT_EQ(run.raised, isExtractors || isNotesAdding ? GetParam().extractor : terminalsOwn) << call;
        // Nothing is done after the failure, and the keys added before it stay.
        EXPECT_EQ(run.calls, std::vector<std::string>(whole.calls.begin(), whole.calls.begin() + place + 1)) << call;
        const auto added = std::count_if(whole.calls.begin(), whole.calls.begin() + place,
                                         [](const std::string& earlier) { return earlier.starts_with("Add"); });
        EXPECT_EQ(run.keys.size(), 2U + static_cast<std::size_t>(added)) << call;
    }
}

TEST(FailingTerminalCount, AFailingLineIsTheFamilysNumber) {
    const std::vector<std::pair<TextView, int>> properties{{u"PPRElementsCount", 5266},
                                                           {u"PGLElementsCount", 5267},
                                                           {u"PASElementsCount", 5287},
                                                           {u"SeatElementsCount", 5240}};
    for (const auto& [property, number] : properties) {
        test::FailingTerminal terminal(3);
        const auto object = createObject(*findClass(u"CProfile"), terminal);
        const auto count = [&, name = property] {
            findCount(*findClass(u"CProfile"), name)->call(*object, CountRequest{shown});
        };
        EXPECT_EQ(raisedBy(count), verifying(number)) << utf8(property);
        EXPECT_EQ(terminal.calls().back().substr(0, 11), "ScreenLine ") << utf8(property);
    }
}

TEST(FailingTerminalCount, AnEmptyDisplayAsksTheTerminalNothing) {
    for (const CountProperty& property : findClass(u"CProfile")->counts) {
        test::FailingTerminal terminal(1);
        const auto object = createObject(*findClass(u"CProfile"), terminal);
        EXPECT_EQ(property.call(*object, CountRequest{}), 0) << utf8(property.name);
        EXPECT_TRUE(terminal.calls().empty()) << utf8(property.name);
    }
}

// A terminal that makes lines of its own

/// Shows a host line as line 1 of any display.
class HostLineTerminal final : public Terminal, private TerminalFunctions {
public:
    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return inner_.errorReporter(); }
    CollectionPtr createCollection() override { return inner_.createCollection(); }

private:
    TextView ItemText(const ItemPtr& item, TextStore& store) override {
        return inner_.functions().ItemText(item, store);
    }
    bool ItemBoolean(const ItemPtr& item) override { return inner_.functions().ItemBoolean(item); }
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override {
        return line == 1 ? TextView(u" PF24 X") : inner_.functions().ScreenLine(response, line, store);
    }
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override {
        return inner_.functions().FindMarker(response, marker, line);
    }
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override {
        return inner_.functions().TextField(text, number, separator, store);
    }

    BuiltInTerminal inner_;
};

Answer underAHostLine(TextView className, const Text& text, const std::string& prefix) {
    return Parser(className, std::make_unique<HostLineTerminal>()).query(text, prefix);
}

TEST(ShortDisplay, ItsFirst80CharactersCannotBeCutOff) {
    const Raised invalid = raisedBy([] { fail(Failure::InvalidProcedureCall); });
    EXPECT_EQ(underAHostLine(u"CProfile", Text(79, u'X'), "RECLOC"), (Answer{.raised = invalid}));
    EXPECT_EQ(underAHostLine(u"CProfile", Text(), "XYZ"), (Answer{.raised = invalid}));
    // The cut comes before the look at the prefix.
    EXPECT_EQ(underAHostLine(u"CProfile", Text(79, u'X'), ""), (Answer{.raised = invalid}));
    EXPECT_EQ(underAHostLine(u"CProfile", Text(80, u'X'), "XYZ"), (Answer{.gaveCollection = true}));
    EXPECT_EQ(underAHostLine(u"CProfile", Text(80, u'X'), "PSL"), Answer{});
}

TEST(ShortDisplay, TheNotesAreReadFromWhatIsLeftOfIt) {
    const Answer nothing{
        .added = {{"strKeyElement()", "['']"}, {"strKeyElementNr()", "['']"}, {"strKeyQualifier()", "['']"}}};
    EXPECT_EQ(underAHostLine(u"CProfileNotes", Text(79, u'X'), "ProfileNotes"), nothing);
    EXPECT_EQ(underAHostLine(u"CProfileNotes", Text(80, u'X'), "ProfileNotes"), nothing);
}

}  // namespace
}  // namespace vantro
