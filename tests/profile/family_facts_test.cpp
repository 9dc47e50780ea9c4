// The facts of every family, compared with hand-written expectations and with the results of reading its sample line.
#include "tests/profile/parser.h"
#include "vantro/families.h"
#include "vantro/lists.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace vantro {
namespace {

const std::string hotel = "------- TRAVEL POLICIES - HOTEL";
const std::string car = "------- TRAVEL POLICIES - CAR";
const std::string air = "------- TRAVEL POLICIES - AIR";
const std::string transferableData = "------- PNR TRANSFERABLE DATA";
const std::string documents = "------- DOCUMENTS";

using enum ElementOutput;

/// A further part of a family's elements, after text and number: its key, the end of its list's name, its name in JSON,
/// and its text in the sample.
struct Further {
    std::string key;
    std::string listEnding;
    std::string json;
    std::string inSample;
};

struct Expected {
    Family family;
    std::string word;
    std::string tag;
    std::string section;
    std::string stem;  // the beginning of the names of its count property and its lists
    ElementOutput output;
    int countError;
    int indexError;
    std::string number;  // in the sample
    std::string text;
    std::vector<Further> further = {};
    std::string flag = {};  // the name of its list of booleans
};

// clang-format off
const std::vector<Expected> expectedFamilies{
    {Family::PPR, "PPR", "PPR/", "------- PRIORITY",           "PPR", ElementAndLists, 5266, 5266, "1",  "ALWAYS OFFER AN AISLE SEAT"},
    {Family::PGL, "PGL", "PGL/", "------- GLOBAL SEARCH",      "PGL", ElementAndLists, 5267, 5266, "2",  "HALVORSEN MARINE"},
    {Family::PPS, "PPS", "PPS/", "------- PRE-STORED ENTRIES", "PPS", ElementAndLists, 5270, 5270, "3",  "RM PURCHASE ORDER 4711"},
    {Family::PHI, "PHI", "PHI/", hotel,                        "PHI", Lists,           5272, 0,    "4",  "RATE CEILING 120 EUR IN LYON"},
    {Family::PCI, "PCI", "PCI/", car,                          "PCI", Lists,           5290, 0,    "5",  "COLLISION COVER IS ALWAYS BOUGHT"},
    {Family::PPC, "PPC", "PPC/", car,                          "PPC", Lists,           5285, 0,    "6",  "NORDKAP RENTAL"},
    {Family::PPH, "PPH", "PPH/", hotel,                        "PPH", Lists,           5273, 0,    "7",  "FJELLHEIM HOTELS"},
    {Family::PPA, "PPA", "PPA/", air,                          "PPA", Lists,           5292, 0,    "8",  "XQ"},
    {Family::PPK, "PPK", "PPK/", air,                          "PPK", Lists,           5293, 0,    "9",  "NORTHERN ALLIANCE"},
    {Family::PPI, "PPI", "PPI/", air,                          "PPI", Lists,           5280, 0,    "10", "TRAVEL COVER POLICY 55-1870"},
    {Family::PXC, "PXC", "PXC/", car,                          "PXC", Lists,           5295, 0,    "11", "SPORTS CARS"},
    {Family::PXA, "PXA", "PXA/", air,                          "PXA", Lists,           5296, 0,    "12", "QV"},
    {Family::PXK, "PXK", "PXK/", air,                          "PXK", Lists,           5281, 0,    "13", "EASTERN ALLIANCE"},
    {Family::PSH, "PSH", "PSH/", hotel,                        "PSH", Lists,           5282, 0,    "14", "NO SUITES"},
    {Family::PSC, "PSC", "PSC/", car,                          "PSC", Lists,           5283, 0,    "15", "WINTER TYRES IN JANUARY"},
    {Family::PPT, "PPT", "PPT/", air,                          "PPT", Lists,           5284, 0,    "16", "ECONOMY UNDER FIVE HOURS"},
    {Family::PXT, "PXT", "PXT/", air,                          "PXT", Lists,           5286, 0,    "17", "FIRST CLASS"},
    {Family::Remark,         "RM",  " RM ",   transferableData, "Remark",         Element, 5260, 5260, "1", "RM  PREFERS MORNING FLIGHTS"},
    {Family::Contact,        "AP",  "  AP  ", transferableData, "Contact",        Element, 5235, 5235, "2", "AP  LYS 04 72 55 01 90-B"},
    {Family::OtherService,   "OS",  " OS ",   transferableData, "OtherService",   Element, 5250, 5250, "3", "OS  XQ CORPORATE CONTRACT 7001"},
    {Family::FrequentFlyer,  "FFN", " FFN ",  transferableData, "FrequentFlyer",  Element, 5255, 5255, "4", "FFN QV 1234567",
     {{"strKeyAirline", "Carrier", "airline", "QV"}, {"strKeyFFNbr", "Account", "frequentFlyerNumber", "1234567"}}},
    {Family::ServiceRequest, "SR",  " SR ",   transferableData, "ServiceRequest", Element, 5245, 5245, "5", "SR  FQTVXQ 7654321-GOLD",
     {{"strKeyCode", "Code", "code", "FQTV"}, {"strKeyAirline", "Carrier", "airline", "XQ"},
      {"strKeyFFNbr", "Account", "frequentFlyerNumber", "7654321-GOLD"}, {"strKeyFreeText", "FreeText", "freeText", "GOLD"}},
     "blnServiceRequestFlag"},
    {Family::Seat,           "ST",  " ST ",   transferableData, "Seat",           Element, 5240, 5240, "6", "ST  WINDOW"},
    {Family::RemarkConf,     "RC",  " RC ",   transferableData, "RemarkConf",     Element, 5260, 5265, "7", "RC  CREDIT LIMIT 400000",
     {{"strKeyFreeText", "Detail", "freeText", "CREDIT LIMIT 400000"}}},
    {Family::PAS, "PAS", "PAS/", documents,           "PAS", Lists, 5287, 0, "1", "12345678 FR 01JAN30"},
    {Family::PIV, "PIV", "PIV/", documents,           "PIV", Lists, 5288, 0, "2", "VISA 998877"},
    {Family::PCE, "PCE", "PCE/", documents,           "PCE", Lists, 5289, 0, "3", "VACCINATION 01JAN24"},
    {Family::PID, "PID", "PID/", documents,           "PID", Lists, 5290, 0, "4", "87654321 FR 31DEC28"},
    {Family::PFO, "PFO", "PFO/", "------- FOLLOW UP", "PFO", Lists, 5291, 0, "5", "CONTRACT ENDS 31DEC"},
};
// clang-format on

TEST(FamilyFacts, AreInTheOrderOfThe29Families) {
    ASSERT_EQ(expectedFamilies.size(), 29U);
    ASSERT_EQ(families().size(), 29U);
    for (std::size_t index = 0; index < families().size(); ++index) {
        EXPECT_EQ(families()[index].family, expectedFamilies[index].family) << index;
        EXPECT_EQ(&families()[index], &factsOf(expectedFamilies[index].family)) << index;
    }
}

/// What a travel agent calls one element. A display does not say what a policy's code means.
std::string meaningOf(const Expected& expected) {
    for (const auto& [section, subject] : {std::pair(hotel, "hotel"), std::pair(car, "car"), std::pair(air, "air")}) {
        if (expected.section == section) return subject + (" travel policy of the kind " + expected.word);
    }
    static const std::map<std::string, std::string> others{
        {"PPR", "priority line"},
        {"PGL", "line of the global search"},
        {"PPS", "pre-stored entry"},
        {"RM", "remark"},
        {"AP", "contact"},
        {"OS", "other-service element"},
        {"FFN", "frequent flyer number"},
        {"SR", "special service request"},
        {"ST", "seat request"},
        {"RC", "confidential remark"},
        {"PAS", "passport"},
        {"PIV", "visa"},
        {"PCE", "certificate"},
        {"PID", "identity document"},
        {"PFO", "follow-up element"},
    };
    return others.at(expected.word);
}

/// Beginnings of the sentences that say how the families of a kind are collected and joined.
TEST(FamilyFacts, SayHowTheirLinesAreCollectedAndJoined) {
    const std::string nine = "A line that begins with nine blanks continues the element above. It is trimmed and ";
    const std::string next = "The next line continues the element if it begins with 17 blanks";
    const std::string none = "No line continues an element: ";
    const std::string fromPrefix = "The first line with the prefix is an element. So is every line below it, ";
    const std::string inDocuments = "The first line of the section with the prefix is an element. ";
    const std::map<std::string, std::pair<std::string, std::string>> irregular{
        {"PPR", {fromPrefix, nine + "appended without a blank."}},
        {"PPS", {fromPrefix, nine + "appended, after a blank if its third character is a colon"}},
        {"PGL", {"The line below the section's header is an element if it has the prefix. ", none}},
        {"RM", {"A line of the section is an element if it has the code", next + ", and so does the one after it. "}},
        {"AP", {"A line of the section is an element if it has the code, with two blanks on either side", next + ". "}},
        {"RC", {"A line is an element if it has the code, ", next + ". "}},
    };
    for (const FamilyFacts& family : families()) {
        const std::string word = utf8(family.word);
        auto [lines, joining] = irregular.contains(word) ? irregular.at(word) : std::pair<std::string, std::string>();
        if (lines.empty() && utf8(family.section) == transferableData) {
            lines = "A line of the section is an element if it has the code, between blanks, from column 13 on.";
            joining = next + ". ";
        } else if (lines.empty() && family.countError >= 5287 && family.countError <= 5291 && word != "PCI") {
            lines = inDocuments;
            joining = none;
        } else if (lines.empty()) {
            lines = "A line with the prefix is an element. So is a line with blanks in place of a prefix, ";
            joining = nine + "appended, after a blank if its third character is a colon";
        }
        EXPECT_TRUE(utf8(family.lines).starts_with(lines)) << word << ": " << utf8(family.lines);
        EXPECT_TRUE(utf8(family.joining).starts_with(joining)) << word << ": " << utf8(family.joining);
    }
}

TEST(FamilyFacts, TheMeaningIsWhatATravelAgentCallsOneElement) {
    for (const Expected& expected : expectedFamilies) {
        EXPECT_EQ(utf8(factsOf(expected.family).meaning), meaningOf(expected));
    }
}

class FamilyFactsOf : public testing::TestWithParam<Expected> {
protected:
    const Expected& expected() const { return GetParam(); }
    const FamilyFacts& facts() const { return factsOf(expected().family); }
    bool isTransferable() const { return expected().output == Element; }

    /// A display with only the sample in its section.
    Text sample() const { return ended({"LINE 0", utf8(facts().section), utf8(facts().sample)}); }

    /// A list with one element, after an empty entry 0 if the family's lists have one.
    Texts listed(const std::string& value) const { return isTransferable() ? Texts{value} : Texts{"", value}; }

    Entries element() const {
        Entries entries{{"strKeyElement", "'" + expected().text + "'"},
                        {"strKeyElementNr", "'" + expected().number + "'"}};
        for (const Further& part : expected().further) entries.emplace_back(part.key, "'" + part.inSample + "'");
        if (!expected().flag.empty()) entries.emplace_back("blnKeyAsterix", "False");
        return entries;
    }

    Entries lists() const {
        return {{"strKeyElement()", "['', '" + expected().text + "']"},
                {"strKeyElementNr()", "['', '" + expected().number + "']"}};
    }

    /// The entries that a query for the first element adds.
    Entries added() const {
        Entries entries = expected().output == Lists ? Entries{} : element();
        if (expected().output != Element) {
            const Entries whole = lists();
            entries.insert(entries.end(), whole.begin(), whole.end());
        }
        return entries;
    }
};

INSTANTIATE_TEST_SUITE_P(Every, FamilyFactsOf, testing::ValuesIn(expectedFamilies),
                         [](const auto& test) { return test.param.word; });

TEST_P(FamilyFactsOf, DescribeItsQueryAndItsLines) {
    EXPECT_EQ(utf8(facts().word), expected().word);
    EXPECT_EQ(facts().match, isTransferable() ? WordMatch::Whole : WordMatch::FirstThree);
    EXPECT_EQ(utf8(facts().tag), expected().tag);
    EXPECT_EQ(utf8(facts().section), expected().section);
    EXPECT_EQ(facts().output, expected().output);
    EXPECT_EQ(facts().family, expected().family);
    EXPECT_FALSE(facts().other);
    EXPECT_EQ(facts().json, "");
}

TEST_P(FamilyFactsOf, NameItsErrorNumbers) {
    EXPECT_EQ(facts().countError, expected().countError);
    EXPECT_EQ(facts().indexError, expected().indexError);
}

TEST_P(FamilyFactsOf, NameItsKeysPartsAndLists) {
    Texts keys;
    for (const auto& [key, value] : added()) keys.push_back(key);
    Texts factKeys;
    for (const TextView key : facts().keys) factKeys.push_back(utf8(key));
    EXPECT_EQ(factKeys, keys);

    Texts listEndings{"Text", "Number"};
    Texts names{"text", "number"};
    for (const Further& part : expected().further) {
        listEndings.push_back(part.listEnding);
        names.push_back(part.json);
    }
    if (!expected().flag.empty()) {
        listEndings.push_back("Flag");
        names.push_back("asterisk");
    }
    Texts factEndings;
    Texts factNames;
    for (const ElementPart part : facts().parts) {
        factEndings.push_back(utf8(factsOf(part).listEnding));
        factNames.emplace_back(factsOf(part).json);
    }
    EXPECT_EQ(factEndings, listEndings);
    EXPECT_EQ(factNames, names);
    EXPECT_EQ(utf8(facts().countProperty), expected().stem + "ElementsCount");
    EXPECT_EQ(facts().firstIndex, isTransferable() ? 0U : 1U);
}

TEST_P(FamilyFactsOf, NameExactlyItsLists) {
    Texts named;
    for (const ElementListName& list : elementLists()) {
        if (list.family == expected().family) named.push_back(utf8(list.name));
    }
    Texts names{"str" + expected().stem + "Text", "str" + expected().stem + "Number"};
    for (const Further& part : expected().further) names.push_back("str" + expected().stem + part.listEnding);
    if (!expected().flag.empty()) names.push_back(expected().flag);
    EXPECT_EQ(named, names);
}

// Reading the sample line

TEST_P(FamilyFactsOf, TheSampleIsALineWithItsTag) {
    EXPECT_LE(facts().sample.size(), 80U);
    EXPECT_NE(facts().sample.back(), u' ');
    EXPECT_NE(facts().sample.find(facts().tag), TextView::npos);
}

TEST_P(FamilyFactsOf, TheCountStoresTheSampleInTheLists) {
    Parser parser;
    ASSERT_EQ(parser.count(expected().stem + "ElementsCount", sample()), 1);
    EXPECT_EQ(parser.list("str" + expected().stem + "Text"), listed(expected().text));
    EXPECT_EQ(parser.list("str" + expected().stem + "Number"), listed(expected().number));
    for (const Further& part : expected().further) {
        EXPECT_EQ(parser.list("str" + expected().stem + part.listEnding), listed(part.inSample)) << part.listEnding;
    }
    if (!expected().flag.empty()) {
        EXPECT_EQ(*parser.object().flagList(wide(expected().flag)), FlagList{false});
    }
}

TEST_P(FamilyFactsOf, TheQueryReturnsTheSample) {
    const Request request = wanting(expected().word, ItemValue(std::int16_t{1}));
    EXPECT_EQ(Parser().query(sample(), request), Answer{.added = added()});
}

TEST_P(FamilyFactsOf, TheSampleIsTheOnlyElementOfAWholeProfile) {
    const Text display = sample();
    const Profile profile = parseProfile(display);
    for (const FamilyFacts& family : families()) {
        EXPECT_EQ(profile.elements(*family.family).size(), &family == &facts() ? 1U : 0U) << utf8(family.word);
    }
    ASSERT_EQ(profile.elements(expected().family).size(), 1U);
    const vantro::Element& element = profile.elements(expected().family)[0];
    EXPECT_EQ(utf8(element.number), expected().number);
    EXPECT_EQ(utf8(element.text), expected().text);
    for (const ElementPart part : facts().furtherParts()) {
        if (part == ElementPart::Asterisk) continue;
        const auto found = std::ranges::find(expected().further, factsOf(part).json, &Further::json);
        ASSERT_NE(found, expected().further.end());
        EXPECT_EQ(utf8(element.*factsOf(part).value), found->inSample) << found->json;
    }
    EXPECT_FALSE(element.asterisk);
}

// Raising the error numbers

TEST_P(FamilyFactsOf, TheCountRaisesItsNumber) {
    const Text endless = display({"LINE 0", "NO END"});
    Parser parser;
    EXPECT_EQ(raisedBy([&] { parser.count(expected().stem + "ElementsCount", endless); }),
              verifying(expected().countError));
}

TEST_P(FamilyFactsOf, AnIndexBeyondTheCountRaisesItsNumberIfThereIsOne) {
    const Answer answer = Parser().query(sample(), wanting(expected().word, ItemValue(std::int16_t{2})));
    if (expected().indexError == 0) {
        EXPECT_EQ(answer, Answer{.added = lists()});
    } else {
        EXPECT_EQ(answer, Answer{.raised = verifying(expected().indexError)});
    }
}

// Parts

struct ExpectedPart {
    ElementPart part;
    std::string key;
    std::string listKey;
    std::string listEnding;
    std::string json;
    std::string label;
    std::string meaning;
};

// clang-format off
const std::vector<ExpectedPart> expectedParts{
    {ElementPart::WholeText,           "strKeyElement",   "strKeyElement()",   "Text",     "text",                "", "the whole text, wrapped lines joined"},
    {ElementPart::Number,              "strKeyElementNr", "strKeyElementNr()", "Number",   "number",              "", "number of the element in the profile"},
    {ElementPart::Code,                "strKeyCode",      "",                  "Code",     "code",                "code", "code of a service request"},
    {ElementPart::Airline,             "strKeyAirline",   "",                  "Carrier",  "airline",             "airline", "airline of a frequent flyer number"},
    {ElementPart::FrequentFlyerNumber, "strKeyFFNbr",     "",                  "Account",  "frequentFlyerNumber", "number", "frequent flyer number"},
    {ElementPart::FreeText,            "strKeyFreeText",  "",                  "FreeText", "freeText",            "text", "free text of a service request"},
    {ElementPart::Detail,              "strKeyFreeText",  "",                  "Detail",   "freeText",            "text", "text of a confidential remark"},
    {ElementPart::Asterisk,            "blnKeyAsterix",   "",                  "Flag",     "asterisk",            "", "never set by a display"},
};
// clang-format on

TEST(PartFacts, NameEveryPartInEveryOutput) {
    ASSERT_EQ(expectedParts.size(), elementPartCount);
    for (const ExpectedPart& expected : expectedParts) {
        const PartFacts& facts = factsOf(expected.part);
        EXPECT_EQ(facts.part, expected.part) << expected.key;
        EXPECT_EQ(utf8(facts.key), expected.key);
        EXPECT_EQ(utf8(facts.listKey), expected.listKey) << expected.key;
        EXPECT_EQ(utf8(facts.listEnding), expected.listEnding) << expected.key;
        EXPECT_EQ(facts.json, expected.json) << expected.key;
        EXPECT_EQ(facts.label, expected.label) << expected.key;
        EXPECT_EQ(utf8(facts.meaning), expected.meaning) << expected.key;
        EXPECT_EQ(facts.value == nullptr, expected.part == ElementPart::Asterisk) << expected.key;
    }
}

}  // namespace
}  // namespace vantro
