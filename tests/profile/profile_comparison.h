// Compares a whole profile with the single queries: each value is what a query on a new object returns.
#pragma once

#include "tests/profile/displays.h"
#include "tests/profile/scanned_notes.h"
#include "vantro/profile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vantro {

inline std::string quoted(TextView text) { return "'" + utf8(text) + "'"; }

/// The problem of a query as an error, or no error.
inline Raised problemOf(const Profile& profile, TextView query) {
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

}  // namespace vantro
