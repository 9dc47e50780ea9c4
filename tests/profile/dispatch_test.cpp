// From the prefix to the reader: every prefix, its near misses, and what the collection receives.
#include "tests/profile/parser.h"
#include "vantro/families.h"
#include "vantro/profile.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vantro {
namespace {

/// A display in which every prefix finds one value that no other prefix finds.
const Text everything = ended({
    "PDR/ABC123",
    "*T* SMITH                                          ABC123",
    "----- ACTIVE  NCEVN0900",
    "  1 NM SMITH/JOHN MR",
    "  2 PCN/ ACME",
    "  3 PIN/ 9017",
    "  4 PSL/ B",
    "------- PNR TRANSFERABLE DATA",
    transferable('S', "5", "SR  FQTVQV 12-GOLD"),
    transferable('A', "6", "RM  REMARK"),
    transferable('S', "7", "AP  CONTACT"),
    transferable('S', "8", "OS  OTHER"),
    transferable('S', "9", "FFN QV 34"),
    transferable('S', "10", "ST  SEAT"),
    transferable('S', "11", "RC  PRIVATE"),
    "------- TRAVEL POLICIES - HOTEL",
    " 12 PHI/ OF PHI",
    " 13 PPH/ OF PPH",
    " 14 PSH/ OF PSH",
    "------- TRAVEL POLICIES - CAR",
    " 15 PCI/ OF PCI",
    " 16 PPC/ OF PPC",
    " 17 PXC/ OF PXC",
    " 18 PSC/ OF PSC",
    "------- TRAVEL POLICIES - AIR",
    " 19 PPA/ OF PPA",
    " 20 PPK/ OF PPK",
    " 21 PPI/ OF PPI",
    " 22 PXA/ OF PXA",
    " 23 PXK/ OF PXK",
    " 24 PPT/ OF PPT",
    " 25 PXT/ OF PXT",
    "------- PRIORITY",
    " 26 PPR/ OF PPR",
    "------- PRE-STORED ENTRIES",
    " 27 PPS/ OF PPS",
    "------- GLOBAL SEARCH",
    " 28 PGL/ OF PGL",
    "------- DOCUMENTS",
    " 29 PAS/ OF PAS",
    " 30 PIV/ OF PIV",
    " 31 PCE/ OF PCE",
    " 32 PID/ OF PID",
    "------- FOLLOW UP",
    " 33 PFO/ OF PFO",
});

enum class Compared { Whole, FirstThree };
using enum Compared;

struct Row {
    std::string prefix;
    Compared compared;
    Entries added;  // for index 1
};

Entries value(const std::string& element) { return {{"strKeyElement", "'" + element + "'"}}; }

Entries numbered(const std::string& element, const std::string& number) {
    return {{"strKeyElement", "'" + element + "'"}, {"strKeyElementNr", "'" + number + "'"}};
}

Entries lists(const std::string& element, const std::string& number) {
    return {{"strKeyElement()", "['', '" + element + "']"}, {"strKeyElementNr()", "['', '" + number + "']"}};
}

Entries operator+(Entries first, const Entries& then) {
    first.insert(first.end(), then.begin(), then.end());
    return first;
}

Entries both(const std::string& element, const std::string& number) {
    return numbered(element, number) + lists(element, number);
}

// clang-format off
const std::vector<Row> rows{
    {"NM",     Whole,      value("SMITH/JOHN MR")},
    {"SR",     Whole,      numbered("SR  FQTVQV 12-GOLD", "5") +
                           Entries{{"strKeyCode", "'FQTV'"}, {"strKeyAirline", "'QV'"}, {"strKeyFFNbr", "'12-GOLD'"},
                                   {"strKeyFreeText", "'GOLD'"}, {"blnKeyAsterix", "False"}}},
    {"RM",     Whole,      numbered("RM  REMARK", "6")},
    {"AP",     Whole,      numbered("AP  CONTACT", "7")},
    {"OS",     Whole,      numbered("OS  OTHER", "8")},
    {"FFN",    Whole,      numbered("FFN QV 34", "9") + Entries{{"strKeyAirline", "'QV'"}, {"strKeyFFNbr", "'34'"}}},
    {"ST",     Whole,      numbered("ST  SEAT", "10")},
    {"RECLOC", Whole,      value("ABC123")},
    {"OFFID",  Whole,      value("NCEVN0900")},
    {"PCN",    FirstThree, numbered("ACME", "2")},
    {"PHI",    FirstThree, lists("OF PHI", "12")},
    {"PPH",    FirstThree, lists("OF PPH", "13")},
    {"PCI",    FirstThree, lists("OF PCI", "15")},
    {"PPC",    FirstThree, lists("OF PPC", "16")},
    {"PIN",    FirstThree, numbered("9017", "3")},
    {"PSL",    FirstThree, numbered("B", "4 PSL/")},
    {"ALL",    Whole,      {{"strKeyElNbrsArray", "['', '6']"}}},  // for the selection below
    {"RC",     Whole,      numbered("RC  PRIVATE", "11") + Entries{{"strKeyFreeText", "'PRIVATE'"}}},
    {"PPR",    FirstThree, both("OF PPR", "26")},
    {"PPS",    FirstThree, both("OF PPS", "27")},
    {"PGL",    FirstThree, both("OF PGL", "28")},
    {"PPA",    FirstThree, lists("OF PPA", "19")},
    {"PPK",    FirstThree, lists("OF PPK", "20")},
    {"PPI",    FirstThree, lists("OF PPI", "21")},
    {"PXC",    FirstThree, lists("OF PXC", "17")},
    {"PXA",    FirstThree, lists("OF PXA", "22")},
    {"PXK",    FirstThree, lists("OF PXK", "23")},
    {"PSH",    FirstThree, lists("OF PSH", "14")},
    {"PSC",    FirstThree, lists("OF PSC", "18")},
    {"PPT",    FirstThree, lists("OF PPT", "24")},
    {"PXT",    FirstThree, lists("OF PXT", "25")},
    {"PAS",    FirstThree, lists("OF PAS", "29")},
    {"PIV",    FirstThree, lists("OF PIV", "30")},
    {"PCE",    FirstThree, lists("OF PCE", "31")},
    {"PID",    FirstThree, lists("OF PID", "32")},
    {"PFO",    FirstThree, lists("OF PFO", "33")},
};
// clang-format on

Answer asked(const std::string& prefix) {
    TextList selection{u"A  RM"};
    Request request = wanting(prefix, ItemValue(std::int16_t{1}));
    request.selection = &selection;
    return Parser().query(everything, request);
}

const Answer unknown{.returnedCollection = true};

TEST(Dispatch, Knows36Prefixes) { EXPECT_EQ(rows.size(), 36U); }

TEST(Dispatch, FamiliesAreNamedInTheOrderOfTheirPrefixes) {
    std::vector<std::string> families;
    for (const Row& row : rows) {
        const bool isHeaderValue = row.prefix == "NM" || row.prefix == "RECLOC" || row.prefix == "OFFID" ||
                                   row.prefix == "PCN" || row.prefix == "PIN" || row.prefix == "PSL";
        if (!isHeaderValue && row.prefix != "ALL") families.push_back(row.prefix);
    }
    std::vector<std::string> named;
    for (const FamilyName& name : familyNames()) named.push_back(utf8(name.prefix));
    EXPECT_EQ(named, families);
}

TEST(Dispatch, ItsDescriptionSaysWhatHappens) {
    ASSERT_EQ(profileQueries().size(), rows.size());
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const QueryFacts& facts = profileQueries()[place];
        const Row& row = rows[place];
        EXPECT_EQ(utf8(facts.word), row.prefix);
        EXPECT_EQ(facts.match, row.compared == Whole ? WordMatch::Whole : WordMatch::FirstThree) << row.prefix;
        EXPECT_TRUE(std::ranges::equal(facts.keys, row.added, [](TextView key, const auto& entry) {
            return utf8(key) == entry.first;
        })) << row.prefix;
        EXPECT_NE(facts.family.has_value(), facts.other.has_value()) << row.prefix;
        EXPECT_FALSE(facts.meaning.empty()) << row.prefix;
    }
}

TEST(Dispatch, TheQueriesThatAreNoFamiliesHaveADescription) {
    struct Described {
        OtherQuery query;
        std::string word;
        std::string json;
        std::string meaning;
    };
    const std::vector<Described> described{
        {OtherQuery::Name, "NM", "name", "name of the profile: the traveller's, or else the company's"},
        {OtherQuery::RecordLocator, "RECLOC", "recordLocator", "record locator of the profile"},
        {OtherQuery::OfficeIdentifier, "OFFID", "officeIdentifier", "office identifier of the profile"},
        {OtherQuery::CompanyName, "PCN", "companyName",
         "company name line, without a number key where it has no number"},
        {OtherQuery::Pin, "PIN", "pin", "PIN line"},
        {OtherQuery::Psl, "PSL", "psl", "PSL line, without any key where there is none"},
        {OtherQuery::TransferableNumbers, "ALL", "", "numbers of the transferable elements that the selection names"},
        {OtherQuery::Notes, "ProfileNotes", "notes", "notes of the profile"},
    };
    ASSERT_EQ(described.size(), otherQueryCount);
    for (const Described& expected : described) {
        const QueryFacts& facts = factsOf(expected.query);
        EXPECT_EQ(utf8(facts.word), expected.word);
        EXPECT_EQ(facts.json, expected.json);
        EXPECT_EQ(facts.other, expected.query) << expected.word;
        EXPECT_FALSE(facts.family) << expected.word;
        EXPECT_EQ(utf8(facts.meaning), expected.meaning);
    }
}

class DispatchRow : public testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(Every, DispatchRow, testing::ValuesIn(rows),
                         [](const auto& test) { return test.param.prefix; });

TEST_P(DispatchRow, ReturnsNoObjectAndAddsItsKeysInOrder) {
    EXPECT_EQ(asked(GetParam().prefix), Answer{.added = GetParam().added});
}

TEST_P(DispatchRow, LettersAfterThePrefixMatterForWholeWordsOnly) {
    const Answer answer{.added = GetParam().added};
    for (const std::string after : {" ", "/", "/ ", "X", "XYZ", "X/ TEXT"}) {
        EXPECT_EQ(asked(GetParam().prefix + after), GetParam().compared == Whole ? unknown : answer) << after;
    }
}

TEST_P(DispatchRow, LowerCaseIsUnknown) {
    std::string lower = GetParam().prefix;
    for (char& letter : lower) letter = static_cast<char>(letter - 'A' + 'a');
    EXPECT_EQ(asked(lower), unknown);
    EXPECT_EQ(asked(GetParam().prefix.substr(0, 2) + lower.substr(2) + "x"), unknown);
}

TEST_P(DispatchRow, ALeadingBlankIsUnknown) { EXPECT_EQ(asked(" " + GetParam().prefix), unknown); }

TEST_P(DispatchRow, ItsFirstTwoLettersAreUnknown) {
    if (GetParam().prefix.size() > 2) {
        EXPECT_EQ(asked(GetParam().prefix.substr(0, 2)), unknown);
    }
    EXPECT_EQ(asked(GetParam().prefix.substr(0, 1)), unknown);
}

TEST(Dispatch, UnknownPrefixesReturnTheCollectionWithNothingAdded) {
    for (const std::string prefix :
         {"XYZ", "RCX", "RECLO", "ALLX", "AL", "FF", "FFNX", "NMX", "PP", "P", " ", "PR", "PRP", "ProfileNotes"}) {
        EXPECT_EQ(asked(prefix), unknown) << prefix;
    }
}

TEST(Dispatch, ThreeLetterRowsIgnoreWhatFollows) {
    EXPECT_EQ(asked("PCNXYZ"), (Answer{.added = numbered("ACME", "2")}));
    EXPECT_EQ(asked("PHI/ ANYTHING"), (Answer{.added = lists("OF PHI", "12")}));
}

// The prefix itself

TEST(EmptyPrefix, Raises5065) {
    for (const Request& request : {Request{}, wanting("")}) {
        EXPECT_EQ(Parser().query(everything, request), (Answer{.raised = verifying(5065)}));
        EXPECT_EQ(Parser().query(u"", request), (Answer{.raised = verifying(5065)}));
    }
}

TEST(Prefix, MayBeAnyValueThatConvertsToText) {
    Request request{.given = {{"strKeyPrefix", ItemValue(true)}}};
    EXPECT_EQ(Parser().query(everything, request), unknown);
    request.given = {{"strKeyPrefix", ItemValue(TextList{u"NM"})}};
    EXPECT_EQ(Parser().query(everything, request).raised.number, 13);
}

TEST(Prefix, WithoutACollectionReadingFails) {
    Parser parser;
    IProfileGet& profile = *parser.object().profileGet();
    EXPECT_EQ(numberRaisedBy([&] { profile.ProfileElements(everything, nullptr); }), 91);
    EXPECT_EQ(numberRaisedBy([&] { profile.ProfileElements(u"", nullptr); }), 91);
}

TEST(Query, AddsToTheExistingKeys) {
    Request request = wanting("NM");
    request.given.emplace_back("strKeyElement", ItemValue(Text(u"OLD")));
    request.given.emplace_back("strKeyOther", ItemValue(Text(u"KEPT")));
    EXPECT_EQ(Parser().query(everything, request), (Answer{.added = value("SMITH/JOHN MR")}));
}

// The host's own line above the display

TEST(HostLine, ItsMarkAtTheBeginningOfLine1CutsTheFirst80Characters) {
    for (const std::string line : {"PF24 REQST UMSG", "4505 MESSAGE", "   PF24", "  4505", "PF24X", "45051"}) {
        EXPECT_EQ(Parser().query(display({"", line + "  1 NM ON/LINE 0 NOW", "  1 NM ON/LINE 1 NOW"}), "NM"),
                  (Answer{.added = value("ON/LINE 1 NOW")}))
            << line;
        EXPECT_EQ(Parser().query(display({"  9 PIN/ CUT OFF", line, "  1 PIN/ FOUND"}), "PIN"),
                  (Answer{.added = numbered("FOUND", "1")}))
            << line;
    }
}

TEST(HostLine, FurtherRightInLine1ItCutsNothing) {
    for (const std::string line : {"X PF24", "X4505", "PF 24", "pf24", "450"}) {
        EXPECT_EQ(Parser().query(display({"  9 PIN/ FOUND", line, "  1 PIN/ TOO LATE"}), "PIN"),
                  (Answer{.added = numbered("FOUND", "9")}))
            << line;
    }
    EXPECT_EQ(Parser().query(display({"PF24", "  9 PIN/ FOUND"}), "PIN"), (Answer{.added = numbered("FOUND", "9")}));
}

TEST(HostLine, OnlyOneLineIsCut) {
    EXPECT_EQ(Parser().query(display({"CUT OFF", "PF24 PIN/ ON LINE 0", "PF24", "  1 PIN/ LATER"}), "PIN"),
              (Answer{.added = numbered("ON LINE 0", "24")}));
}

TEST(HostLine, TheCountPropertiesCutNothing) {
    Parser parser;
    const Text text = display({"------- PRIORITY", "PF24", "  1 PPR/ A", "END OF DISPLAY", ">"});
    EXPECT_EQ(parser.count("PPRElementsCount", text), 1);
    EXPECT_EQ(parser.query(text, "PPR"),
              (Answer{.added = {{"strKeyElement()", "['']"}, {"strKeyElementNr()", "['']"}}}));
}

TEST(HostLine, EveryPrefixReadsTheCutDisplay) {
    Text shown = everything;
    shown.replace(0, 4, u"PF24");
    for (const Row& row : rows) {
        TextList selection{u"A  RM"};
        Request request = wanting(row.prefix, ItemValue(std::int16_t{1}));
        request.selection = &selection;
        const Text under = Text(80, u' ') + shown;
        EXPECT_EQ(Parser().query(under, request), Parser().query(shown, request)) << row.prefix;
    }
}

}  // namespace
}  // namespace vantro
