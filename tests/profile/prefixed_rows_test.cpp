// One test case per prefixed family and rule: count, lists, error number, empty display, a second call. Numbers and
// columns are written here independently of the library's tables.
#include "tests/profile/parser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace vantro {
namespace {

const std::string hotel = "------- TRAVEL POLICIES - HOTEL";
const std::string car = "------- TRAVEL POLICIES - CAR";
const std::string air = "------- TRAVEL POLICIES - AIR";

/// What an empty display does to the lists of an earlier call.
enum class EmptyDisplay { Cuts, LeavesAsTheyWere };
using enum EmptyDisplay;

const auto nameOf = [](const auto& test) { return test.param.name; };

Text withoutEnd(const Lines& lines) { return display(lines + Lines{"NEITHER PROMPT NOR END"}); }

// Prefixed families

struct PrefixedRow {
    std::string name;
    std::string header;
    int error;
    EmptyDisplay emptyDisplay;
    int blankColumns;  // from column 3 in a line without a prefix; 0: every line is collected

    std::string property() const { return name + "ElementsCount"; }
    std::string texts() const { return "str" + name + "Text"; }
    std::string numbers() const { return "str" + name + "Number"; }
    std::string line(const std::string& number, const std::string& text) const {
        return "  " + number + " " + name + "/ " + text;
    }
};

// clang-format off
const std::vector<PrefixedRow> prefixedRows{
    {"PPR", "------- PRIORITY",           5266, LeavesAsTheyWere, 0},
    {"PGL", "------- GLOBAL SEARCH",      5267, LeavesAsTheyWere, 5},
    {"PPS", "------- PRE-STORED ENTRIES", 5270, LeavesAsTheyWere, 0},
    {"PHI", hotel,                        5272, LeavesAsTheyWere, 5},
    {"PCI", car,                          5290, Cuts,             5},
    {"PPC", car,                          5285, Cuts,             6},
    {"PPH", hotel,                        5273, Cuts,             5},
    {"PPA", air,                          5292, Cuts,             5},
    {"PPK", air,                          5293, Cuts,             5},
    {"PPI", air,                          5280, Cuts,             5},
    {"PXC", car,                          5295, Cuts,             5},
    {"PXA", air,                          5296, Cuts,             5},
    {"PXK", air,                          5281, Cuts,             5},
    {"PSH", hotel,                        5282, Cuts,             5},
    {"PSC", car,                          5283, Cuts,             5},
    {"PPT", air,                          5284, Cuts,             5},
    {"PXT", air,                          5286, Cuts,             5},
};
// clang-format on

class PrefixedFamilyRow : public testing::TestWithParam<PrefixedRow> {
protected:
    const PrefixedRow& row() const { return GetParam(); }
    int count(const Text& text) { return parser_.count(row().property(), text); }
    Texts texts() const { return parser_.list(row().texts()); }
    Texts numbers() const { return parser_.list(row().numbers()); }

    /// Two elements; the second has no prefix, as the host prints it in each of these sections.
    Text twoElements() const { return ended({row().header, row().line("1", "FIRST"), "  2       SECOND"}); }

    Parser parser_;
};

INSTANTIATE_TEST_SUITE_P(Every, PrefixedFamilyRow, testing::ValuesIn(prefixedRows), nameOf);

TEST(FamilyRows, ThereAre17WithAPrefix) { EXPECT_EQ(prefixedRows.size(), 17U); }

TEST_P(PrefixedFamilyRow, ANewObjectHasListsWithOnlyTheEmptyEntry) {
    EXPECT_EQ(texts(), (Texts{""}));
    EXPECT_EQ(numbers(), (Texts{""}));
}

TEST_P(PrefixedFamilyRow, KeepsElementKAtIndexKAfterAnEmptyEntry) {
    EXPECT_EQ(count(twoElements()), 2);
    EXPECT_EQ(texts(), (Texts{"", "FIRST", "SECOND"}));
    EXPECT_EQ(numbers(), (Texts{"", "1", "2"}));
}

TEST_P(PrefixedFamilyRow, NeedsItsOwnHeader) {
    for (const PrefixedRow& other : prefixedRows) {
        if (other.header == row().header) continue;
        EXPECT_EQ(count(ended({other.header, row().line("1", "ELSEWHERE")})), 0) << other.header;
        EXPECT_EQ(texts(), (Texts{""})) << other.header;
    }
}

TEST_P(PrefixedFamilyRow, TheBlankColumnsOfAnUnprefixedLineAreCounted) {
    const std::size_t blanks = static_cast<std::size_t>(row().blankColumns);
    const std::string enough = "12" + std::string(blanks, ' ') + "X";
    const std::string tooFewBlanks = "34" + std::string(blanks - std::min<std::size_t>(blanks, 1), ' ') + "X";
    const bool takesEveryLine = blanks == 0;
    EXPECT_EQ(count(ended({row().header, row().line("1", "FIRST"), enough})), 2);
    EXPECT_EQ(count(ended({row().header, row().line("1", "FIRST"), tooFewBlanks})), takesEveryLine ? 2 : 1);
}

TEST_P(PrefixedFamilyRow, ASecondCallReplacesTheLists) {
    count(twoElements());
    EXPECT_EQ(count(ended({row().header, row().line("7", "ONLY")})), 1);
    EXPECT_EQ(texts(), (Texts{"", "ONLY"}));
    EXPECT_EQ(numbers(), (Texts{"", "7"}));
}

TEST_P(PrefixedFamilyRow, LeavesOtherFamiliesListsUnchanged) {
    count(twoElements());
    for (const PrefixedRow& other : prefixedRows) {
        if (other.name != row().name) parser_.count(other.property(), ended({other.header}));
    }
    EXPECT_EQ(texts(), (Texts{"", "FIRST", "SECOND"}));
    EXPECT_EQ(numbers(), (Texts{"", "1", "2"}));
}

TEST_P(PrefixedFamilyRow, AnEmptyDisplayReturns0AndCutsTheListsOrLeavesThem) {
    count(twoElements());
    EXPECT_EQ(count(u""), 0);
    const bool cut = row().emptyDisplay == Cuts;
    EXPECT_EQ(texts(), cut ? (Texts{""}) : (Texts{"", "FIRST", "SECOND"}));
    EXPECT_EQ(numbers(), cut ? (Texts{""}) : (Texts{"", "1", "2"}));
}

TEST_P(PrefixedFamilyRow, ADisplayWithoutAnEndRaisesItsNumber) {
    count(twoElements());
    EXPECT_EQ(raisedBy([&] { count(withoutEnd({"NO SECTION"})); }), verifying(row().error));
    // The lists are cut before the search begins.
    EXPECT_EQ(texts(), (Texts{""}));
    EXPECT_EQ(numbers(), (Texts{""}));
}

TEST_P(PrefixedFamilyRow, AFailureKeepsTheElementsStoredBefore) {
    const Text text = withoutEnd({row().header, row().line("1", "FIRST"), "  2       LAST"});
    const Raised raised = raisedBy([&] { count(text); });
    // Past the end every line is blank and continues the line above without end: that element is never stored. Only the
    // global search needs no end once its line is found.
    EXPECT_EQ(raised, row().name == "PGL" ? Raised{} : verifying(row().error));
    EXPECT_EQ(texts(), (Texts{"", "FIRST", "LAST"}));
    EXPECT_EQ(numbers(), (Texts{"", "1", "2"}));
}

TEST_P(PrefixedFamilyRow, RaisesItsNumberThroughProfileElementsToo) {
    const Answer answer = parser_.query(withoutEnd({"NO SECTION"}), row().name);
    EXPECT_EQ(answer, (Answer{.added = {}, .returnedCollection = false, .raised = verifying(row().error)}));
}

// The error numbers of the count properties as a whole

TEST(FamilyRows, SharedErrorNumbersAreExactlyTheKnownOnes) {
    std::map<int, std::vector<std::string>> byNumber;
    for (const CountProperty& property : findClass(u"CProfile")->counts) {
        Parser parser;
        const std::string name = utf8(property.name);
        const int number = numberRaisedBy([&] { parser.count(name, withoutEnd({"NO SECTION"})); });
        byNumber[number].push_back(name.substr(0, name.find("ElementsCount")));
    }
    EXPECT_EQ(byNumber[0], (std::vector<std::string>{"PPH"}));  // the retired property, which reads nothing
    byNumber.erase(0);
    std::vector<std::vector<std::string>> shared;
    for (const auto& [number, names] : byNumber) {
        if (names.size() > 1) shared.push_back(names);
    }
    EXPECT_EQ(shared, (std::vector<std::vector<std::string>>{{"Remark", "RemarkConf"}, {"PCI", "PID"}}));
    EXPECT_EQ(byNumber.size(), 27U);
}

}  // namespace
}  // namespace vantro
