// The whole profile is compared with the single queries: each value is what a query on a new object returns.
#include "tests/profile/effort.h"
#include "tests/profile/random_displays.h"
#include "tests/profile/samples.h"
#include "tests/profile/scanned_notes.h"
#include "vantro/profile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vantro {
namespace {

std::string quoted(TextView text) { return "'" + utf8(text) + "'"; }

/// The problem of a query as an error, or no error.
Raised problemOf(const Profile& profile, TextView query) {
    const auto found = std::ranges::find(profile.problems, query, &Problem::query);
    if (found == profile.problems.end()) return {};
    return {found->number, "VantroProfileUtils", utf8(found->description)};
}

/// Compares a profile with the queries on its display.
class Comparison {
public:
    explicit Comparison(const Text& text) : text_(text), profile_(parseProfile(text)) {}

    void run() const {
        SCOPED_TRACE(drawn(text_));
        compareHeader();
        for (const FamilyName& family : familyNames()) compareFamily(family);
        compareNotes();
        compareProblems();
    }

private:
    Answer asked(const std::string& prefix) const { return Parser().query(text_, prefix); }
    Answer askedAt(const std::string& prefix, int index) const {
        return Parser().query(text_, wanting(prefix, ItemValue(static_cast<std::int16_t>(index))));
    }

    /// The entries of a query, or its problem and no entries.
    Answer answered(TextView query, Entries entries) const {
        const Raised raised = problemOf(profile_, query);
        return {.added = raised.number != 0 ? Entries{} : std::move(entries), .raised = raised};
    }

    void compareHeader() const {
        EXPECT_EQ(asked("NM"), answered(u"NM", {{"strKeyElement", quoted(profile_.name)}}));
        EXPECT_EQ(asked("RECLOC"), answered(u"RECLOC", {{"strKeyElement", quoted(profile_.recordLocator)}}));
        EXPECT_EQ(asked("OFFID"), answered(u"OFFID", {{"strKeyElement", quoted(profile_.officeIdentifier)}}));

        Entries company{{"strKeyElement", quoted(profile_.companyName.text)}};
        if (profile_.companyName.number) company.emplace_back("strKeyElementNr", quoted(*profile_.companyName.number));
        EXPECT_EQ(asked("PCN"), answered(u"PCN", company));
        EXPECT_EQ(asked("PIN"), answered(u"PIN", numbered(profile_.pin)));
        EXPECT_EQ(asked("PSL"), answered(u"PSL", profile_.psl ? numbered(*profile_.psl) : Entries{}));
    }

    static Entries numbered(const Element& element) {
        return {{"strKeyElement", quoted(element.text)}, {"strKeyElementNr", quoted(element.number)}};
    }

    static std::set<std::string> single() { return {"SR", "RM", "AP", "OS", "FFN", "ST", "RC"}; }
    static std::set<std::string> indexedWithLists() { return {"PPR", "PPS", "PGL"}; }

    void compareFamily(const FamilyName& family) const {
        const std::string prefix = utf8(family.prefix);
        SCOPED_TRACE(prefix);
        if (single().contains(prefix)) {
            compareSingle(family);
            return;
        }
        const Entries lists = listsOf(family.family);
        EXPECT_EQ(asked(prefix), answered(family.prefix, lists));
        if (!indexedWithLists().contains(prefix)) return;
        int index = 0;
        for (const Element& element : profile_.elements(family.family)) {
            Entries entries = numbered(element);
            entries.insert(entries.end(), lists.begin(), lists.end());
            EXPECT_EQ(askedAt(prefix, ++index), (Answer{.added = entries}));
        }
        EXPECT_NE(askedAt(prefix, index + 1).raised, Raised{});
    }

    Entries listsOf(Family family) const {
        TextList texts{u""};
        TextList numbers{u""};
        for (const Element& element : profile_.elements(family)) {
            texts.emplace_back(element.text);
            numbers.emplace_back(element.number);
        }
        return {{"strKeyElement()", written(texts)}, {"strKeyElementNr()", written(numbers)}};
    }

    void compareSingle(const FamilyName& family) const {
        const std::string prefix = utf8(family.prefix);
        const Raised problem = problemOf(profile_, family.prefix);
        // An index of 0 is outside every list; that is detected only after the display has been read.
        const Raised outside = raisedBy([] { fail(Failure::SubscriptOutOfRange); });
        EXPECT_EQ(askedAt(prefix, 0), (Answer{.raised = problem.number != 0 ? problem : outside}));
        if (problem.number != 0) {
            EXPECT_TRUE(profile_.elements(family.family).empty());
            return;
        }
        int index = 0;
        for (const Element& element : profile_.elements(family.family)) {
            EXPECT_EQ(askedAt(prefix, ++index), (Answer{.added = entriesOf(prefix, element)}));
        }
        EXPECT_NE(askedAt(prefix, index + 1).raised, Raised{});
    }

    static Entries entriesOf(const std::string& prefix, const Element& element) {
        Entries entries = numbered(element);
        if (prefix == "SR") entries.emplace_back("strKeyCode", quoted(element.code));
        if (prefix == "SR" || prefix == "FFN") {
            entries.emplace_back("strKeyAirline", quoted(element.airline));
            entries.emplace_back("strKeyFFNbr", quoted(element.frequentFlyerNumber));
        }
        if (prefix == "SR" || prefix == "RC") entries.emplace_back("strKeyFreeText", quoted(element.freeText));
        if (prefix == "SR") entries.emplace_back("blnKeyAsterix", element.asterisk ? "True" : "False");
        return entries;
    }

    void compareNotes() const {
        const Answer answer = Parser(u"CProfileNotes").query(text_, "ProfileNotes");
        TextList texts{u""};
        TextList numbers{u""};
        TextList qualifiers{u""};
        for (const Note& note : profile_.notes) {
            texts.emplace_back(note.text);
            numbers.push_back(wide(std::to_string(note.number)));
            qualifiers.emplace_back(note.qualifier);
        }
        EXPECT_EQ(answer, answered(u"ProfileNotes", {{"strKeyElement()", written(texts)},
                                                     {"strKeyElementNr()", written(numbers)},
                                                     {"strKeyQualifier()", written(qualifiers)}}));
    }

    /// Every problem belongs to a query, and each is listed once.
    void compareProblems() const {
        std::set<TextView> queries{u"NM", u"RECLOC", u"OFFID", u"PCN", u"PIN", u"PSL", u"ProfileNotes"};
        for (const FamilyName& family : familyNames()) queries.insert(family.prefix);
        for (const Problem& problem : profile_.problems)
            EXPECT_EQ(queries.erase(problem.query), 1U) << utf8(problem.query);
    }

    const Text& text_;
    Profile profile_;
};

class WholeProfileOfASample : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Sample, WholeProfileOfASample, testing::ValuesIn(sampleNames()),
                         [](const auto& test) { return test.param; });

TEST_P(WholeProfileOfASample, EqualsTheSingleQueries) { Comparison(sampleDisplay(GetParam())).run(); }

TEST_P(WholeProfileOfASample, EqualsTheSingleQueriesWhenCutShort) {
    const Text whole = sampleDisplay(GetParam());
    for (const std::size_t percent : {20U, 55U, 90U}) {
        const Text part = whole.substr(0, whole.size() * percent / 100);
        Comparison(part).run();
    }
}

TEST(WholeProfile, OfGeneratedSectionsEqualsTheSingleQueries) {
    RandomDisplays random(21);
    for (std::size_t left = effort(1500); left > 0 && !testing::Test::HasFailure(); --left) {
        const Text text = random.sections();
        Comparison(text).run();
    }
}

TEST(WholeProfile, OfGeneratedSoupEqualsTheSingleQueries) {
    RandomDisplays random(22);
    for (std::size_t left = effort(1500); left > 0 && !testing::Test::HasFailure(); --left) {
        const Text text = random.soup();
        Comparison(text).run();
    }
}

// Close to the end of the line counter the transferable families are read one by one.
TEST(WholeProfile, OfADisplayAsLongAsTheLineCounterEqualsTheSingleQueries) {
    const std::size_t filler = std::size_t{32'010} * 80;
    Text above = sampleDisplay("every_family");
    above.resize((above.size() + 79) / 80 * 80, u' ');
    const Text first = above + Text(filler, u'X');
    Comparison(first).run();
    const Text last = Text(filler, u'X') + above;
    Comparison(last).run();
}

TEST(WholeProfile, OfAnEmptyDisplayEqualsTheSingleQueries) {
    const Text empty;
    Comparison(empty).run();
    const Profile profile = parseProfile(empty);
    ASSERT_EQ(profile.problems.size(), 2U);
    EXPECT_EQ(profile.problems[0].query, u"PCN");
    EXPECT_EQ(profile.problems[0].number, 6);
    EXPECT_EQ(profile.problems[1].query, u"PIN");
    EXPECT_EQ(profile.problems[1].number, 6);
}

TEST(WholeProfile, WithoutAnEndEveryQueryThatNeedsOneIsAProblem) {
    const Profile profile = parseProfile(display({"LINE 0", "NO END"}));
    // All but the name, the locator and the office; the notes end at the first blank line.
    EXPECT_EQ(profile.problems.size(), 3U + familyCount);
}

TEST(WholeProfile, AFailingFamilyDoesNotAffectTheOthers) {
    // A priority section without a prefixed line consumes the end text; without a prompt after it the search runs on.
    const Profile profile =
        parseProfile(display({"LINE 0", "------- FOLLOW UP", "  1 PFO/ A", "------- PRIORITY", "END OF DISPLAY"}));
    ASSERT_EQ(profile.problems.size(), 1U);
    EXPECT_EQ(profile.problems[0].query, u"PPR");
    EXPECT_EQ(profile.problems[0].number, 5266);
    EXPECT_EQ(utf8(profile.problems[0].description), "An error has occurred while verifying the profile.");
    ASSERT_EQ(profile.elements(Family::PFO).size(), 1U);
    EXPECT_EQ(profile.elements(Family::PFO)[0].text, u"A");
}

TEST(WholeProfile, TextsStayValidInAMovedOrCopiedProfile) {
    Profile first =
        parseProfile(ended({"LINE 0", "  1 NM SMITH/A", "  2 PCN/ ACME", from(15, "TRADING"), "------- PRIORITY",
                            "  1 PPR/ LONG TEXT THAT GOES", from(10, "ON AND ON AND ON")}));
    const Profile copy = first;
    const Profile moved = std::move(first);
    first = parseProfile(u"");
    for (const Profile& profile : {copy, moved}) {
        EXPECT_EQ(profile.name, u"SMITH/A");
        EXPECT_EQ(profile.companyName.text, u"ACME TRADING");
        ASSERT_EQ(profile.elements(Family::PPR).size(), 1U);
        EXPECT_EQ(profile.elements(Family::PPR)[0].text, u"LONG TEXT THAT GOESON AND ON AND ON");
    }
}

// Tests the generator: searching displays that contain nothing would find nothing.

TEST(RandomDisplays, ContainElementsOfEveryFamilyAndEveryHeaderValue) {
    RandomDisplays random(31);
    std::set<TextView> seen;
    std::set<TextView> seenSeveralTimes;
    std::size_t joined = 0;
    for (int left = 1500; left > 0; --left) {
        const Text text = left % 4 == 0 ? random.soup() : random.sections();
        const Profile profile = parseProfile(text);
        for (const FamilyName& family : familyNames()) {
            if (!profile.elements(family.family).empty()) seen.insert(family.prefix);
            if (profile.elements(family.family).size() > 1) seenSeveralTimes.insert(family.prefix);
            for (const Element& element : profile.elements(family.family)) {
                joined += text.find(element.text) == Text::npos ? 1 : 0;  // joined from several lines
            }
        }
        if (!profile.name.empty()) seen.insert(u"NM");
        if (profile.companyName.number && !profile.companyName.text.empty()) seen.insert(u"PCN");
        if (!profile.pin.text.empty()) seen.insert(u"PIN");
        if (profile.psl) seen.insert(u"PSL");
        if (!profile.officeIdentifier.empty()) seen.insert(u"OFFID");
        if (!profile.notes.empty()) seen.insert(u"ProfileNotes");
    }
    EXPECT_EQ(seen.size(), familyCount + 6);
    for (const FamilyName& family : familyNames())
        EXPECT_TRUE(seenSeveralTimes.contains(family.prefix)) << utf8(family.prefix);
    EXPECT_GT(joined, 100U);
}

}  // namespace
}  // namespace vantro
