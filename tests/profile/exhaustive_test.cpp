// Small worlds of displays: every sequence of a few lines of the kinds that matter to a reader. The library's results
// are compared with the oracle's. The objects are reused for the whole search, so that what one display leaves in the
// lists is there for the next.
#include "tests/profile/effort.h"
#include "tests/profile/oracle_match.h"
#include "tests/profile/scanned_notes.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

const Lines end{"END OF DISPLAY", ">"};

/// The length of the longest sequences: four lines, five in an optimised build, one more with ten times the effort.
std::size_t length() {
    std::size_t longest = 4;
    for (std::size_t reach = effort(100); reach > 50; reach /= 10) ++longest;
    return longest;
}

/// A family or reader and the lines that matter to it.
struct World {
    std::string name;
    Lines kinds;
    Lines above = {};  // where a reader begins further down
};

/// The number of sequences of at most `longest` items of this many kinds.
std::size_t sequencesOf(std::size_t kinds, std::size_t longest) {
    std::size_t sequences = 1;
    for (std::size_t length = 0; length < longest; ++length) sequences = sequences * kinds + 1;
    return sequences;
}

/// Calls `visit` with every sequence of at most `longest` lines of a world, followed by the lines of `under`. Stops at
/// the first message.
template <class Visit>
void searchThrough(const World& world, std::size_t longest, const Lines& under, Visit&& visit) {
    std::vector<Text> lines;
    for (const std::string& kind : world.kinds) lines.push_back(display({kind, ""}));
    const Text first = display(world.above + Lines{""});
    const Text last = display(under);
    std::vector<std::size_t> sequence;
    for (std::size_t visited = 1;; ++visited) {
        Text text = first;
        for (const std::size_t kind : sequence) text += lines[kind];
        text += last;
        const std::string message = visit(text);
        ASSERT_TRUE(message.empty()) << message;

        // The next sequence: one line longer, or the last line's next kind.
        if (sequence.size() < longest) {
            sequence.push_back(0);
            continue;
        }
        while (!sequence.empty() && ++sequence.back() == lines.size()) sequence.pop_back();
        if (sequence.empty()) {
            EXPECT_EQ(visited, sequencesOf(lines.size(), longest));
            return;
        }
    }
}

const auto nameOf = [](const auto& test) { return test.param.name; };

/// The lines of a prefixed family: `sibling` is another family of the same section.
World prefixed(const std::string& family, const std::string& sibling, const std::string& header) {
    return {family,
            {
                header,
                "------- FOLLOW UP",
                "  1 " + family + "/ OWN",
                " 12 " + sibling + "/ SIBLING",
                from(12, "WRAPPED"),
                from(10, "09:30"),
                "",
                "END OF DISPLAY",
                ">",
                "  3      FREE",
                family + "/ IN COLUMN 1",
                from(11, "4 " + family + "/ WRAPPED END OF"),
                from(12, "X DISPLAY > IN A LINE"),
            }};
}

World transferableWorld(const std::string& stem, const std::string& code) {
    return {stem,
            {
                "------- PNR TRANSFERABLE DATA",
                "------- FOLLOW UP",
                transferable('S', "1", code + " FQTVQV    12-A"),
                transferable('A', "22", "XX  OTHER " + code),
                from(18, "WRAPPED"),
                from(18, "A " + code + " B"),
                from(18, code.substr(1) + "C"),
                "",
                "END OF DISPLAY",
                ">",
                transferable('S', "3", code + " D > E"),
                from(14, code + " *F-G " + code.substr(0, 1)),
                "-----",
            }};
}

World document(const std::string& family, const std::string& sibling, const std::string& header) {
    return {family,
            {
                header,
                "-----",
                header + " >",
                "  1 " + family + "/ OWN",
                "  2 " + sibling + "/ SIBLING",
                "  3      INDENTED",
                " 14     INDENTED     GAP",
                "  5      SEE " + family + "/ A/B",
                "  6    NOT ENOUGH",
                "",
                "END OF DISPLAY",
                ">",
                family + "/ > IN COLUMN 1",
            },
            {"LINE 0"}};
}

class SmallWorldOfAFamily : public testing::TestWithParam<World> {};

INSTANTIATE_TEST_SUITE_P(
    Family, SmallWorldOfAFamily,
    testing::Values(prefixed("PPR", "PGS", "------- PRIORITY"), prefixed("PPS", "PPR", "------- PRE-STORED ENTRIES"),
                    prefixed("PGL", "REM", "------- GLOBAL SEARCH"),
                    prefixed("PHI", "PPH", "------- TRAVEL POLICIES - HOTEL"),
                    prefixed("PPH", "PHI", "------- TRAVEL POLICIES - HOTEL"),
                    prefixed("PCI", "PPC", "------- TRAVEL POLICIES - CAR"),
                    prefixed("PPC", "PCI", "------- TRAVEL POLICIES - CAR"), transferableWorld("Remark", "RM "),
                    transferableWorld("Contact", "AP "), transferableWorld("FrequentFlyer", "FFN"),
                    transferableWorld("ServiceRequest", "SR "), transferableWorld("RemarkConf", "RC "),
                    document("PAS", "PIV", "------- DOCUMENTS"), document("PFO", "PAX", "------- FOLLOW UP")),
    nameOf);

TEST_P(SmallWorldOfAFamily, IsReadAsTheOracleReadsIt) {
    OracleMatch match;
    const MatchedProperty& property = match.propertyOf(GetParam().name);
    searchThrough(GetParam(), length(), end, [&](const Text& text) { return match.count(property, text); });
}

TEST_P(SmallWorldOfAFamily, WithoutAnEndFailsAsTheOracleDoes) {
    OracleMatch match;
    const MatchedProperty& property = match.propertyOf(GetParam().name);
    searchThrough(GetParam(), 1, {"NO END"}, [&](const Text& text) { return match.count(property, text); });
}

// The header values and the transferable scanner, by prefix

class SmallWorldOfAQuery : public testing::TestWithParam<World> {};

const std::string full = "  1 PCN/ " + std::string(55, 'W');

INSTANTIATE_TEST_SUITE_P(
    Query, SmallWorldOfAQuery,
    testing::Values(
        World{"PCN",
              {"  1 PCN/ ACME", "     PCN/ ACME/B", full, full + "W", from(15, "WRAPPED"), from(14, "NOT WRAPPED"), "",
               "A > B", "END OF DISPLAY", " PCN/ CUT", "  2 PCN/NO BLANK", "  A/B PCN/ C", from(15, "X PCN/ D")}},
        World{"PIN",
              {"  1 PIN/ 9017", "     PIN/ 9/7", " PIN/ CUT", "  XPIN/1", "", "A > B", "END OF DISPLAY", "  PF24 X",
               "4505", "  A/B PIN/ C"}},
        World{"PSL",
              {"  1 PSL/ B", "PSL/C", "  A/B PSL/ D", "SLASH/", "", "A > B", "END OF DISPLAY", "  PF24 X", "4505"}},
        World{"NM", {"  1 NM SMITH/A", "  1 NM ", "NM B", "*C*ACME", "AB *C* X", "", ">", "PF24 NM C", "4505"}},
        World{"OFFID",
              {"*T* SMITH", "*C* ACME", "*T*SMITH", "----- NCEVN0900", "-----  LYSVN11", "---- NCEVN0900",
               "-----NCEV 0900", "", ">", "PF24", "4505 *T*"}},
        World{"RECLOC",
              {"*T* SMITH ABC123", "X", "", "X 4505 Y", "PF24 REQST UMSG Z", "X PF24 REQST UMSG LMN456", "  PF24", ">",
               "AB   12"}},
        World{"ALL",
              {"------- PNR TRANSFERABLE DATA", "------", "-----", transferable('S', "1", "RM  A"),
               transferable('A', "22", "RM  B"), transferable('S', "3", "R"), from(18, "M  A"), from(18, "> B"),
               from(17, "NOT WRAPPED"), "", "END OF DISPLAY", ">", "S"}}),
    nameOf);

TEST_P(SmallWorldOfAQuery, IsReadAsTheOracleReadsIt) {
    OracleMatch match;
    Request request = wanting(GetParam().name);
    TextList selection{u"rm", u"S  R"};
    request.selection = &selection;
    searchThrough(GetParam(), length(), end, [&](const Text& text) { return match.query(text, request); });
}

TEST_P(SmallWorldOfAQuery, WithoutAnEndFailsAsTheOracleDoes) {
    OracleMatch match;
    Request request = wanting(GetParam().name);
    TextList selection{u"rm", u"A  R"};
    request.selection = &selection;
    searchThrough(GetParam(), 1, {"NO END"}, [&](const Text& text) { return match.query(text, request); });
}

// Notes

struct Filter {
    std::string name;
    Text search;
    Text qualifier;
};

class SmallWorldOfNotes : public testing::TestWithParam<Filter> {};

INSTANTIATE_TEST_SUITE_P(Filter, SmallWorldOfNotes,
                         testing::Values(Filter{"None", u"", u""}, Filter{"Search", u"LE B", u""},
                                         Filter{"Qualifier", u"", u"A"}, Filter{"BlankQualifier", u"", u" "},
                                         Filter{"LongQualifier", u"", u"A "}, Filter{"Both", u"LE", u"B"}),
                         nameOf);

const World notesWorld{"Notes",
                       {
                           "------- PROFILE NOTES",
                           "------- PROFILE NOTES >",
                           "XX ------- PROFILE NOTES XX",
                           "------- FOLLOW UP",
                           "A AISLE",
                           "B AISLE BUT NOT IN ROW 1",
                           " A NO BLANK IN FRONT",
                           "",
                           "A",
                           ">",
                           "A NOTE > WITH A PROMPT",
                           "END OF DISPLAY",
                           "------- PROFILE NOTES END OF DISPLAY",
                       },
                       {"LINE 0"}};

TEST_P(SmallWorldOfNotes, IsReadAsTheOracleReadsIt) {
    Parser parser(u"CProfileNotes");
    oracle::NotesOracle known;
    searchThrough(notesWorld, length(), end, [&](const Text& text) {
        return matchNotes(text, GetParam().search, GetParam().qualifier, parser, known);
    });
}

TEST_P(SmallWorldOfNotes, WithoutAnEndFailsAsTheOracleDoes) {
    Parser parser(u"CProfileNotes");
    oracle::NotesOracle known;
    searchThrough(notesWorld, 1, {"NO END"}, [&](const Text& text) {
        return matchNotes(text, GetParam().search, GetParam().qualifier, parser, known);
    });
}

}  // namespace
}  // namespace vantro
