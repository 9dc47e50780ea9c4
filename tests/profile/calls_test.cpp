// Which calls each query and count of a display makes to the terminal: lines that the answer does not need are not
// fetched, and the others are fetched in the order in which they are read.
#include "tests/support/call_summary.h"
#include "tests/support/collections.h"
#include "tests/support/failing_terminal.h"
#include "tests/support/screens.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <string>

namespace vantro::test {
namespace {

//   ....+....1....+....2....+....3....+....4....+....5
const Text display = screen({
    u"PDRT/KQ4R7T",                                      // 0
    u"*T*  SMITH/ANNA MS                       KQ4R7T",  // 1
    u"----------------------------------- NCEVN0900",    // 2
    u"   1 NM SMITH/ANNA MS",                            // 3
    u"   2 PCN/ KESTRELLO TOOLS",                        // 4
    u"   3 PIN/ 1234",                                   // 5
    u"00000001 PSL/ GOLD",                               // 6
    u"------- PRIORITY",                                 // 7
    u"   4 PPR/ CALL FIRST",                             // 8
    u"------- TRAVEL POLICIES - HOTEL",                  // 9
    u"   5 PHI/ NEAR THE STATION",                       // 10
    u"   6 PPH/ NO SMOKING",                             // 11
    u"------- PNR TRANSFERABLE DATA",                    // 12
    u"S    7       RM PREFERS MORNING FLIGHTS",          // 13
    u"------- DOCUMENTS",                                // 14
    u"   8 PAS/ 12345678",                               // 15
    u"------- PROFILE NOTES",                            // 16
    u"A CALL BEFORE TICKETING",                          // 17
    u"END OF DISPLAY",                                   // 18
    u"LOST",                                             // 19
});

struct DisplayCalls {
    std::string name;
    Entries request;
    std::string calls;
    TextView className = u"CProfile";
};

std::string queryName(const testing::TestParamInfo<DisplayCalls>& row) { return row.param.name; }

class QueryCallsOf : public testing::TestWithParam<DisplayCalls> {};

Entries wanting(const char16_t* prefix) { return {{u"strKeyPrefix", prefix}}; }
Entries wanting(const char16_t* prefix, const char16_t* index) {
    return {{u"strKeyPrefix", prefix}, {u"intKeyIndex", index}};
}

// Every query first tests line 1 for a host line.
const std::string entry = "text strKeyPrefix; line 1";
const std::string lists = "; add strKeyElement() strKeyElementNr()";
const std::string single = "; add strKeyElement strKeyElementNr";

INSTANTIATE_TEST_SUITE_P(
    Each, QueryCallsOf,
    testing::Values(DisplayCalls{"NM", wanting(u"NM"), entry + " 1-3; add strKeyElement"},
                    DisplayCalls{"RECLOC", wanting(u"RECLOC"), entry + " 1; add strKeyElement"},
                    DisplayCalls{"OFFID", wanting(u"OFFID"), entry + " 1; field; line 2; add strKeyElement"},
                    DisplayCalls{"PCN", wanting(u"PCN"), entry + " 1-5; field" + single},
                    DisplayCalls{"PIN", wanting(u"PIN"), entry + " 0-5" + single},
                    DisplayCalls{"PSL", wanting(u"PSL"), entry + " 0-6" + single},
                    DisplayCalls{"ALL", wanting(u"ALL"), entry + " 0-14; add strKeyElNbrsArray"},
                    DisplayCalls{"PPR", wanting(u"PPR"), entry + "; text intKeyIndex; line 0-9" + lists},
                    DisplayCalls{
                        "PPRIndexed", wanting(u"PPR", u"1"),
                        entry + "; text intKeyIndex; line 0-9" + single + " strKeyElement() strKeyElementNr()"},
                    DisplayCalls{"PHI", wanting(u"PHI"), entry + " 0-12" + lists},
                    DisplayCalls{"PPH", wanting(u"PPH"), entry + " 0-12" + lists},
                    DisplayCalls{"PPA", wanting(u"PPA"), entry + " 0-18" + lists},
                    DisplayCalls{"RM", wanting(u"RM", u"1"), entry + "; value intKeyIndex; line 0-14" + single},
                    DisplayCalls{"AP", wanting(u"AP", u"1"), entry + "; value intKeyIndex; line 0-14"},
                    // Confidential remarks are searched only above the first section.
                    DisplayCalls{"RC", wanting(u"RC", u"1"), entry + "; value intKeyIndex; line 0-2"},
                    DisplayCalls{"PAS", wanting(u"PAS"), entry + " 1-16" + lists},
                    DisplayCalls{"PIV", wanting(u"PIV"), entry + " 1-16" + lists},
                    DisplayCalls{"PFO", wanting(u"PFO"), entry + " 1-18" + lists},
                    DisplayCalls{"Unknown", wanting(u"XYZ"), entry}, DisplayCalls{"Empty", {}, entry},
                    DisplayCalls{"Notes", wanting(u"ProfileNotes"),
                                 "text strKeyPrefix strSearchString strSearchQualifier; line 1 1-18; "
                                 "add strKeyElement() strKeyElementNr() strKeyQualifier()",
                                 u"CProfileNotes"}),
    queryName);

TEST_P(QueryCallsOf, AreThoseThatItsAnswerNeeds) {
    FailingTerminal terminal;
    const auto object = createObject(GetParam().className, terminal);
    try {
        object->profileGet()->ProfileElements(display, terminal.watched(collection(GetParam().request)));
    } catch (const Error&) {
        // An empty prefix, and an index beyond the count: the calls made before the error count.
    }
    EXPECT_EQ(summaryOf(terminal.calls()), GetParam().calls);
}

TEST(QueryCalls, AQualifierNeedsTheCodeOfEachElement) {
    FailingTerminal terminal;
    TextList selection{u"RM"};
    createObject(u"CProfile", terminal)
        ->profileGet()
        ->ProfileElements(display, terminal.watched(collection(wanting(u"ALL"))), &selection, u"RM");
    EXPECT_EQ(summaryOf(terminal.calls()), entry + " 0-14; field; add strKeyElNbrsArray");
}

struct CountCalls {
    std::string property;
    std::string calls;
    TextView className = u"CProfile";
};

class CountCallsOf : public testing::TestWithParam<CountCalls> {
protected:
    std::string callsFor(TextView text) const {
        FailingTerminal terminal;
        const TextView name = GetParam().className;
        const Text property(GetParam().property.begin(), GetParam().property.end());
        findCount(*findClass(name), property)->call(*createObject(name, terminal), CountRequest{text});
        return summaryOf(terminal.calls());
    }
};

INSTANTIATE_TEST_SUITE_P(
    Each, CountCallsOf,
    testing::Values(CountCalls{"PPRElementsCount", "line 0-9"}, CountCalls{"PGLElementsCount", "line 0-18"},
                    CountCalls{"PPSElementsCount", "line 0-18"}, CountCalls{"PHIElementsCount", "line 0-12"},
                    CountCalls{"PCIElementsCount", "line 0-18"}, CountCalls{"PPCElementsCount", "line 0-18"},
                    CountCalls{"PPHElementsCount", "line 0-12"}, CountCalls{"PPHElementsCountold", ""},
                    CountCalls{"PPAElementsCount", "line 0-18"}, CountCalls{"PPKElementsCount", "line 0-18"},
                    CountCalls{"PPIElementsCount", "line 0-18"}, CountCalls{"PXCElementsCount", "line 0-18"},
                    CountCalls{"PXAElementsCount", "line 0-18"}, CountCalls{"PXKElementsCount", "line 0-18"},
                    CountCalls{"PSHElementsCount", "line 0-12"}, CountCalls{"PSCElementsCount", "line 0-18"},
                    CountCalls{"PPTElementsCount", "line 0-18"}, CountCalls{"PXTElementsCount", "line 0-18"},
                    CountCalls{"RemarkElementsCount", "line 0-14"}, CountCalls{"ContactElementsCount", "line 0-14"},
                    CountCalls{"OtherServiceElementsCount", "line 0-14"},
                    CountCalls{"FrequentFlyerElementsCount", "line 0-14"},
                    CountCalls{"ServiceRequestElementsCount", "line 0-14"},
                    CountCalls{"SeatElementsCount", "line 0-14"}, CountCalls{"RemarkConfElementsCount", "line 0-2"},
                    CountCalls{"PASElementsCount", "line 1-16"}, CountCalls{"PIVElementsCount", "line 1-16"},
                    CountCalls{"PCEElementsCount", "line 1-16"}, CountCalls{"PIDElementsCount", "line 1-16"},
                    CountCalls{"PFOElementsCount", "line 1-18"},
                    CountCalls{"ProfileNotesElementsCount", "line 1-18", u"CProfileNotes"}),
    [](const auto& row) { return row.param.property; });

TEST_P(CountCallsOf, EndAtTheLineThatEndsTheSearch) { EXPECT_EQ(callsFor(display), GetParam().calls); }

TEST_P(CountCallsOf, AreNoneForAnEmptyDisplay) { EXPECT_EQ(callsFor({}), ""); }

}  // namespace
}  // namespace vantro::test
