// Every family and every header value on displays that differ slightly from one that contains them. The library's
// results are compared with the oracle's.
#include "tests/support/near_misses.h"
#include "tests/profile/effort.h"
#include "tests/profile/oracle_match.h"
#include "tests/profile/scanned_notes.h"
#include "tests/support/own_lines_terminal.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

using test::forEachNearMiss;
using test::Variation;

/// A display that shows a family or a value at its edges, and what is read from it.
struct Shown {
    std::string name;
    Lines lines;
    std::string property = {};  ///< stem of a count property
    std::string prefix = {};    ///< of a query
    std::vector<std::string> planted = {};
};

const auto nameOf = [](const auto& test) { return test.param.name; };

// The rest of a display: the end as most readers recognise it, and as contacts do.
const Lines end{"END OF DISPLAY", ">"};

Shown prefixed(const std::string& family, const std::string& sibling, const std::string& header) {
    return {family,
            {
                "PDR/KQ4R7T",
                header,
                "  1 " + sibling + "/ A SIBLING",
                from(12, "WRAPPED"),
                "  2 " + family + "/ OWN",
                from(11, "ON THE NEXT LINE"),
                from(10, "09:30"),
                " 13      WITHOUT A PREFIX",
                "  4       MORE",
                // Joining the two lines forms the prefix.
                "  5 " + sibling + "/ ENDS IN " + family,
                from(12, "/ A"),
                "  6 " + sibling + "/ ENDS IN " + family.substr(0, 2),
                from(12, family.substr(2) + "/ B"),
                "  7 " + sibling + "/ ENDS IN " + family.substr(0, 1),
                from(12, family.substr(1) + "/ C"),
                family + "/ IN COLUMN 1",
                "  5 " + sibling + "/ ANOTHER SIBLING",
                // Families searched from column 1 join this line with the next one, all others skip it.
                family + "/ IN COLUMN 1",
                from(12, "WRAPPED " + family + "/ AND MORE"),
                "------- FOLLOW UP",
                header,
                " 15 " + family + "/ AGAIN",
            },
            family,
            family,
            {">", "END OF DISPLAY", "-------", "------", family + "/", header, header.substr(0, header.size() - 1),
             " " + header.substr(1)}};
}

std::vector<Shown> prefixedFamilies() {
    const std::string hotel = "------- TRAVEL POLICIES - HOTEL";
    const std::string car = "------- TRAVEL POLICIES - CAR";
    const std::string air = "------- TRAVEL POLICIES - AIR";
    return {prefixed("PPR", "PPS", "------- PRIORITY"),
            prefixed("PGL", "PPR", "------- GLOBAL SEARCH"),
            prefixed("PPS", "PPR", "------- PRE-STORED ENTRIES"),
            prefixed("PHI", "PPH", hotel),
            prefixed("PPH", "PHI", hotel),
            prefixed("PSH", "PPH", hotel),
            prefixed("PCI", "PPC", car),
            prefixed("PPC", "PCI", car),
            prefixed("PXC", "PPC", car),
            prefixed("PSC", "PCI", car),
            prefixed("PPA", "PPK", air),
            prefixed("PPK", "PPI", air),
            prefixed("PPI", "PXA", air),
            prefixed("PXA", "PXK", air),
            prefixed("PXK", "PPT", air),
            prefixed("PPT", "PXT", air),
            prefixed("PXT", "PPA", air)};
}

Shown transferableFamily(const std::string& stem, const std::string& code, const std::string& text) {
    const std::string header = "------- PNR TRANSFERABLE DATA";
    // A contact's code begins a column earlier than the others: it fills columns 12 to 17.
    return {stem,
            {
                "PDR/KQ4R7T",
                header,
                transferable('S', "1", code + " " + text),
                transferable('A', "22", "XX OTHER"),
                from(18, "WRAPPED " + code + " AGAIN"),
                transferable('S', "333", code + " FQTV"),
                from(18, "-ONE"),
                from(18, "-TWO"),
                from(18, "-THREE"),
                transferable('A', "4", code + " *FQTVQV    12-A"),
                "------ PRIORITY",
                header,
                transferable('S', "5", code + " LOST"),
            },
            stem,
            code == "FFN" ? code : code.substr(0, 2),
            {">", "END OF DISPLAY", "------", "-----", " " + code + " ", " " + code, code + " ", header, "    "}};
}

std::vector<Shown> transferableFamilies() {
    return {transferableFamily("Remark", "RM", "PREFERS MORNINGS"),
            transferableFamily("Contact", "AP ", "LYS 555-0101"),
            transferableFamily("OtherService", "OS", "ZJ GUEST"),
            transferableFamily("FrequentFlyer", "FFN", "XQ 1234567    NOT THIS"),
            transferableFamily("ServiceRequest", "SR", "FQTVXQ 1234567-A-B"),
            transferableFamily("Seat", "ST", "NSSW/3A"),
            transferableFamily("RemarkConf", "RC", "NOT FOR PRINT")};
}

Shown document(const std::string& family, const std::string& sibling, const std::string& header) {
    return {family,
            {
                "PDR/KQ4R7T",
                header,
                "  1 " + sibling + "/ A SIBLING",
                "  2 " + family + "/ OWN/SLASH",
                "  3      INDENTED     GAP",
                " 14      INDENTED",
                " 15     INDENTED LESS",
                "  6 " + family + "/ LOST",
                "----- NEXT",
                header,
                "  7 " + family + "/ LOST TOO",
            },
            family,
            family,
            {">", "END OF DISPLAY", "-----", "----", family + "/", "     ", header}};
}

std::vector<Shown> documentFamilies() {
    const std::string documents = "------- DOCUMENTS";
    return {document("PAS", "PIV", documents), document("PIV", "PAS", documents), document("PCE", "PID", documents),
            document("PID", "PCE", documents), document("PFO", "PAS", "------- FOLLOW UP")};
}

std::vector<Shown> values() {
    const Lines head{"PDRT/KQ4R7T", "*T* SMITH/ANNA MS                 KQ4R7T", "-------------- ACTIVE   NCEVN0900"};
    const Lines companyHead{"PDRC/Q2W3E4", "*C*KESTRELLO TOOLS AND MARINE ENGINES LTD  Q2W3E4", "----- NCEVN0900"};
    const std::string full = "   1 PCN/ " + std::string(54, 'W');
    return {
        {"Name", head + Lines{"   1 NM SMITH/ANNA MS", "   2 NM LOST"}, "", "NM", {" NM ", "NM ", " NM", "*C*"}},
        {"CompanysName", companyHead + Lines{"   1 PCN/ KESTRELLO"}, "", "NM", {"*C*", "C*", " NM "}},
        {"RecordLocator", head, "", "RECLOC", {"4505", "PF24 REQST UMSG", "PF24 REQST UMS"}},
        {"HostLine", Lines{"PF24 REQST UMSG", "PF24 REQST UMSG"} + head, "", "RECLOC", {"4505", "PF24", "450"}},
        {"HostNumber", Lines{"X", "4505 REQST"} + head, "", "NM", {"4505", "PF24", "PF2"}},
        {"Office", head, "", "OFFID", {"*C*", "*T*", "*T", "-----", "----", "NCEVN0900"}},
        {"CompanyName",
         companyHead +
             Lines{"   1 PCN/ KESTRELLO TOOLS", from(15, "AND MARINE"), from(16, "ENGINES"), from(14, "NOT THIS")},
         "",
         "PCN",
         {"PCN/ ", "PCN/", "/", ">", "END OF DISPLAY"}},
        {"FullCompanyName", companyHead + Lines{full, from(15, "WORD"), "   2 NEXT"}, "", "PCN", {"PCN/ ", "/"}},
        {"LateCompanyName",
         companyHead + Lines{"   1 BEFORE THE TAG PCN/ KESTRELLO", from(15, "ABCDEFGHIJKLMNOPQRST")},
         "",
         "PCN",
         {}},
        {"UnnumberedCompanyName", companyHead + Lines{"  PCN/ A", from(15, "B")}, "", "PCN", {}},
        {"Pin",
         head + Lines{"   1 PIN/ 12/34", "   2 PIN/ LOST"},
         "",
         "PIN",
         {"PIN/", "PIN", "/", ">", "END OF DISPLAY"}},
        {"UnnumberedPin", Lines{"  PIN/ 1"}, "", "PIN", {}},
        {"Psl", head + Lines{"00000001 PSL/ 3/4", "2 PSL/ LOST"}, "", "PSL", {"PSL/", "PSL", ">", "END OF DISPLAY"}},
        {"PslOnLine0", Lines{"1 PSL/ 3", "2 PSL/ LOST"}, "", "PSL", {}}};
}

// The host's own line width and those of terminals with wider lines: up to 128 characters a line is read at once, a
// longer one is not.
struct Terminals {
    const char* name;
    std::size_t width;
    bool areSlices;
};

constexpr Terminals terminals[] = {
    {"BuiltIn", 80, true}, {"Copying", 80, false}, {"Wide", 120, false}, {"VeryWide", 150, false}};

std::unique_ptr<Terminal> terminalOf(const Terminals& kind) {
    if (kind.areSlices) return std::make_unique<BuiltInTerminal>();
    return std::make_unique<test::WideTerminal>(kind.width);
}

/// Lines of this width, joined without separators.
Text concatLines(const Lines& lines, std::size_t width) {
    Text text;
    for (const std::string& line : lines) {
        text += wide(line);
        text.resize((text.size() + width - 1) / width * width, u' ');
    }
    return text;
}

Variation variationOf(const Shown& shown, const Terminals& kind) {
    Variation variation{.width = kind.width, .wholeLines = end.size()};
    for (const std::string& mark : shown.planted) variation.planted.push_back(wide(mark));
    variation.every = (kind.areSlices ? 1 : 7) * share();
    return variation;
}

class NearMiss : public testing::TestWithParam<Shown> {};

INSTANTIATE_TEST_SUITE_P(Prefixed, NearMiss, testing::ValuesIn(prefixedFamilies()), nameOf);
INSTANTIATE_TEST_SUITE_P(Transferable, NearMiss, testing::ValuesIn(transferableFamilies()), nameOf);
INSTANTIATE_TEST_SUITE_P(Document, NearMiss, testing::ValuesIn(documentFamilies()), nameOf);
INSTANTIATE_TEST_SUITE_P(Value, NearMiss, testing::ValuesIn(values()), nameOf);

Request requestFor(const Shown& shown) {
    const bool isIndexed = shown.prefix.size() == 2 || shown.prefix == "FFN";
    return isIndexed ? wanting(shown.prefix, ItemValue(std::int16_t{2})) : wanting(shown.prefix);
}

TEST_P(NearMiss, IsReadAsTheOracleReadsIt) {
    const Shown& shown = GetParam();
    const Request request = requestFor(shown);
    for (const Terminals& kind : terminals) {
        SCOPED_TRACE(kind.name);
        const oracle::LineWidth width(static_cast<int>(kind.width));
        OracleMatch match(terminalOf(kind));
        const MatchedProperty* const property = shown.property.empty() ? nullptr : &match.propertyOf(shown.property);
        std::string message;
        const auto isSame = [&](const Text& text) {
            message = property != nullptr ? match.count(*property, text) : std::string();
            if (message.empty() && kind.areSlices) message = match.query(text, request);
            if (message.empty() && property == nullptr && !kind.areSlices) message = match.query(text, request);
            return message.empty();
        };
        const Text text = concatLines(shown.lines + end, kind.width);
        ASSERT_GT(forEachNearMiss(text, variationOf(shown, kind), isSame), 0U);
        ASSERT_TRUE(message.empty()) << message;
    }
}

// The transferable-element scanner

struct Chosen {
    std::string name;
    TextList selection;
    Text qualifier;
};

class NearMissOfScanner : public testing::TestWithParam<Chosen> {};

INSTANTIATE_TEST_SUITE_P(, NearMissOfScanner,
                         testing::Values(Chosen{"Own", {u"A  rm"}, u""}, Chosen{"Shared", {u"S  RM PREF", u"X"}, u""},
                                         Chosen{"Both", {u"S  x", u"A  y", u"ap"}, u""}, Chosen{"Any", {u""}, u""},
                                         Chosen{"Qualified", {u""}, u"RM"}, Chosen{"None", {}, u""}),
                         nameOf);

TEST_P(NearMissOfScanner, IsReadAsTheOracleReadsIt) {
    const Shown shown{"All",
                      {"PDR/KQ4R7T", "------- PNR TRANSFERABLE DATA", transferable('S', "1", "RM PREFERS MORNINGS"),
                       from(18, "AND NO STOPS"), from(17, "NOT THIS"), transferable('A', "22", "RM "), from(18, "X"),
                       transferable('A', "333", "ap LYS"), transferable('B', "4", "RM LOST"), "------ PRIORITY",
                       transferable('S', "5", "RM LOST")},
                      "",
                      "ALL",
                      {">", "END OF DISPLAY", "------", "-----", "S", "A"}};
    for (const Terminals& kind : terminals) {
        SCOPED_TRACE(kind.name);
        const oracle::LineWidth width(static_cast<int>(kind.width));
        OracleMatch match(terminalOf(kind));
        TextList selection = GetParam().selection;
        Request request = wanting("ALL");
        request.selection = &selection;
        request.qualifier = GetParam().qualifier;
        std::string message;
        const Text text = concatLines(shown.lines + end, kind.width);
        forEachNearMiss(text, variationOf(shown, kind), [&](const Text& display) {
            message = match.query(display, request);
            return message.empty();
        });
        ASSERT_TRUE(message.empty()) << message;
    }
}

// Near misses of the selection itself, not of the display.
TEST(NearMissOfSelection, IsReadAsTheOracleReadsIt) {
    OracleMatch match;
    const Text text =
        ended({"", "------- PNR TRANSFERABLE DATA", transferable('S', "1", "RM A"), transferable('A', "2", "RM AB"),
               transferable('S', "3", "  RM AB"), transferable('A', "4", "S RM"), transferable('A', "5", "AP RM")});
    for (const Text start : {u"", u" ", u"S", u"S ", u"S  ", u"S   ", u"A  ", u"a  ", u"s  ", u"S X", u"AB ", u"X  "}) {
        for (const Text rest : {u"", u"R", u"RM", u"rm a", u"RM AB", u"RM B", u" RM", u"S RM", u"AP RM"}) {
            for (const Text qualifier : {u"", u"RM", u"R", u"RMX", u"S", u"rm"}) {
                TextList selection{start + rest};
                Request request = wanting("ALL");
                request.selection = &selection;
                request.qualifier = qualifier;
                const std::string message = match.query(text, request);
                ASSERT_TRUE(message.empty()) << message;
            }
        }
    }
}

// Notes

struct Filter {
    std::string name;
    Text search;
    Text qualifier;
};

class NearMissOfNotes : public testing::TestWithParam<Filter> {};

INSTANTIATE_TEST_SUITE_P(, NearMissOfNotes,
                         testing::Values(Filter{"None", u"", u""}, Filter{"Search", u"AISLE", u""},
                                         Filter{"Qualifier", u"", u"B"}, Filter{"Both", u"LE", u"B"}),
                         nameOf);

TEST_P(NearMissOfNotes, IsReadAsTheOracleReadsIt) {
    const Shown shown{"Notes",
                      {"LINE 0", "*T* SMITH", "------- PROFILE NOTES", "A AISLE", "B  AISLE", "BLE", "X ------- X", ">",
                       "BETWEEN", "------- PROFILE NOTES", "B AISLE AGAIN"},
                      "",
                      "",
                      {">", "END OF DISPLAY", "------- PROFILE NOTES", "------- PROFILE NOTE", "AISLE"}};
    for (const Terminals& kind : terminals) {
        SCOPED_TRACE(kind.name);
        const oracle::LineWidth width(static_cast<int>(kind.width));
        Parser parser(u"CProfileNotes", terminalOf(kind));
        oracle::NotesOracle known;
        std::string message;
        const Text text = concatLines(shown.lines + end, kind.width);
        forEachNearMiss(text, variationOf(shown, kind), [&](const Text& display) {
            message = matchNotes(display, GetParam().search, GetParam().qualifier, parser, known);
            return message.empty();
        });
        ASSERT_TRUE(message.empty()) << message;
    }
}

}  // namespace
}  // namespace vantro
