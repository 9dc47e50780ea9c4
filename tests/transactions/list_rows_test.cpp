// The rows of lists.
#include "vantro/list_rows.h"
#include "tests/support/exchange_file.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"
#include "tests/transactions/row_agreement.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

using Lines = std::vector<std::string>;

// "LINE KIND|column|column|..." for each row, with all columns of the class.
Lines shown(TextView className, const ListRows& found) {
    Lines lines;
    for (const ListRow& row : found.rows) {
        std::string line = std::to_string(row.line) + (row.kind == ProfileKind::Company ? " C" : " T");
        for (const ListColumn& column : findClass(className)->description.columns) {
            line += "|" + utf8(row.*column.cell);
        }
        lines.push_back(line);
    }
    return lines;
}

Lines rowsOf(TextView className, const Text& response, const CollectionPtr& state = {}) {
    const ListRows found = readRows(className, response, state);
    EXPECT_TRUE(found.isList);
    return shown(className, found);
}

CollectionPtr continued(const char16_t* locatorColumn) {
    return collection({{u"blnKeyEndOfBlock", true}, {u"strKeyRecLocPos", locatorColumn}});
}

constexpr TextView companies = u"SIMILAR COMPANY NAME LIST";
constexpr TextView travellers = u"SIMILAR TRAVELLER NAME LIST";
//                                   ....+....1....+....2....+....3....+....4....+....5....+....6
constexpr TextView companyHeader = u"     COMPANY                         RECLOC     OFFICE";
constexpr TextView kestrello = u"   1 KESTRELLO TOOLS                 Q2W3E4     NCEVN0900";
constexpr TextView kesterson = u"  12 KESTERSON MARINE INSURANCE AND  R5T6Y7     NCEVN0901";
constexpr TextView survey = u"     SURVEY";
constexpr TextView travellerHeader = u"     NAME                            RECLOC     COMPANY";
constexpr TextView anna = u"   1 SMITH/ANNA MS                   KQ4R7T     KESTRELLO TOOLS";
constexpr TextView bernard = u"   2 SMITH/BERNARD MR                LW5S8U";
constexpr TextView endOfBlock = u"END OF BLOCK - USE PDMD";

const Lines annaAndBernard{"3 T|1|SMITH/ANNA MS|KQ4R7T|KESTRELLO TOOLS", "4 T|2|SMITH/BERNARD MR|LW5S8U|"};

TEST(ListRows, OfANameSearchForCompaniesHaveLocatorAndOffice) {
    EXPECT_EQ(
        rowsOf(u"CPDNTrans",
               screen({u"PDN/KES", companies, companyHeader, kestrello, kesterson, survey, bernard, u">"})),
        (Lines{"3 C|1|KESTRELLO TOOLS|Q2W3E4||NCEVN0900",
               "4 C|12|KESTERSON MARINE INSURANCE AND SURVEY|R5T6Y7||NCEVN0901", "6 C|2|SMITH/BERNARD MR|LW5S8U||"}));
}

TEST(ListRows, OfANameSearchForTravellersHaveLocatorAndCompany) {
    EXPECT_EQ(rowsOf(u"CPDNTrans", screen({u"PDN/-SMITH", travellers, travellerHeader, anna, bernard, u">"})),
              (Lines{"3 T|1|SMITH/ANNA MS|KQ4R7T|KESTRELLO TOOLS|", "4 T|2|SMITH/BERNARD MR|LW5S8U||"}));
}

TEST(ListRows, OfAListWithoutALocatorColumnHaveTheWholeLineAsName) {
    EXPECT_EQ(rowsOf(u"CPDNTrans", screen({u"PDN/KES", companies, u"     COMPANY     ", kestrello, u">"})),
              (Lines{"3 C|1|KESTRELLO TOOLS                 Q2W3E4     NCEVN0900|||"}));
}

TEST(ListRows, ANameThatTouchesTheLocatorLosesItsLastLetterAsInTheResults) {
    EXPECT_EQ(rowsOf(u"CPDNTrans", screen({u"PDN/B", companies, companyHeader,
                                           u"   5 BRAMBLING INDUSTRIAL COATINGS KGF5G6H7", u">"})),
              (Lines{"3 C|5|BRAMBLING INDUSTRIAL COATINGS K|F5G6H7||"}));
}

TEST(ListRows, AContinuationIsRecognisedByItsColumnHeader) {
    EXPECT_EQ(rowsOf(u"CPDNTrans", screen({u"PDMD", companyHeader, kesterson, survey, u">"})),
              (Lines{"2 C|12|KESTERSON MARINE INSURANCE AND SURVEY|R5T6Y7||NCEVN0901"}));
    EXPECT_EQ(rowsOf(u"CPDNTrans", screen({u"PDMD", travellerHeader, bernard, u">"})),
              (Lines{"2 T|2|SMITH/BERNARD MR|LW5S8U||"}));
    EXPECT_EQ(rowsOf(u"CPDATrans", screen({u"PDMD", u"     COMPANY", u"   3 KESWICK INKS", u">"})),
              (Lines{"2 C|3|KESWICK INKS"}));
    EXPECT_EQ(rowsOf(u"CPDATrans", screen({u"PDMD", u"     NAME", u"   3 SMITH/CLARA MS", u">"})),
              (Lines{"2 T|3|SMITH/CLARA MS"}));
    EXPECT_EQ(rowsOf(u"CPDTrans", screen({u"PDMD", travellerHeader, bernard, u">"})),
              (Lines{"2 T|2|SMITH/BERNARD MR|LW5S8U|"}));
    EXPECT_EQ(rowsOf(u"CPLCTrans", screen({u"PDMD", companyHeader, kestrello, u">"})),
              (Lines{"2 C|1|KESTRELLO TOOLS|Q2W3E4|NCEVN0900"}));
    EXPECT_EQ(rowsOf(u"CPLTTrans", screen({u"PDMD", u"     NAME                   RECLOC  COMPANY",
                                           u"   6 FENN/OLE MR            L7K8J9  KESWICK INKS", u">"})),
              (Lines{"2 T|6|FENN/OLE MR|L7K8J9|KESWICK INKS"}));
    EXPECT_EQ(rowsOf(u"CPLTTrans", screen({u"PDMD", u"     COMPANY", u"   6 KESWICK INKS", u">"})),
              (Lines{"2 C|6|KESWICK INKS||"}));
}

TEST(ListRows, AContinuationWithoutAHeaderNeedsTheState) {
    const Text search = screen({u"PDMD", u"     (CONTINUED)", kesterson, survey, kestrello, u">"});
    EXPECT_FALSE(readRows(u"CPDNTrans", search).isList);
    EXPECT_EQ(rowsOf(u"CPDNTrans", search, continued(u"38")),
              (Lines{"2 C|12|KESTERSON MARINE INSURANCE AND SURVEY|R5T6Y7||NCEVN0901",
                     "4 C|1|KESTRELLO TOOLS|Q2W3E4||NCEVN0900"}));

    const Text similar = screen({u"PDMD", u"   5 KESTNER FROZEN FISH", u">"});
    EXPECT_FALSE(readRows(u"CPDATrans", similar).isList);
    EXPECT_EQ(rowsOf(u"CPDATrans", similar, continued(u"")), (Lines{"1 C|5|KESTNER FROZEN FISH"}));
}

TEST(ListRows, TheRestOfANameOnTheScreenBeforeIsARowWithoutANumber) {
    EXPECT_EQ(rowsOf(u"CPDNTrans", screen({u"PDMD", companyHeader, survey, kestrello, u">"}), continued(u"38")),
              (Lines{"2 C||SURVEY|||", "3 C|1|KESTRELLO TOOLS|Q2W3E4||NCEVN0900"}));
}

TEST(ListRows, AContinuationWithoutEntriesIsNoList) {
    const ListRows found = readRows(u"CPDNTrans", screen({u"PDMD", u"UNABLE TO PROCESS", u">"}), continued(u"38"));
    EXPECT_FALSE(found.isList);
    EXPECT_TRUE(found.rows.empty());
}

TEST(ListRows, OfSimilarNamesAreNumbersAndNames) {
    EXPECT_EQ(rowsOf(u"CPDATrans", screen({u"PDA/KES", companies, u"     COMPANY", kestrello, u"   2  KESWICK", u">"})),
              (Lines{"3 C|1|KESTRELLO TOOLS                 Q2W3E4     NCEVN0900", "4 C|2|KESWICK"}));
    EXPECT_EQ(rowsOf(u"CPDATrans", screen({u"PDA/-S", travellers, u"     NAME", u"   1 SMITH/ANNA MS", endOfBlock})),
              (Lines{"3 T|1|SMITH/ANNA MS"}));
}

TEST(ListRows, OfTheLastListAreItsTravellers) {
    EXPECT_EQ(rowsOf(u"CPDTrans", screen({u"PD", travellers, travellerHeader, anna, bernard, u">"})), annaAndBernard);
    EXPECT_EQ(rowsOf(u"CPDTrans", screen({travellers, u"", travellerHeader, anna, bernard, u">"})), annaAndBernard);
}

TEST(ListRows, OfAnOfficesCompaniesHaveTheOffice) {
    EXPECT_EQ(rowsOf(u"CPLCTrans", screen({u"PLC", u"COMPANY NAME LIST FOR NCEVN0900", companyHeader, kestrello,
                                           kesterson, survey, u">"})),
              (Lines{"3 C|1|KESTRELLO TOOLS|Q2W3E4|NCEVN0900",
                     "4 C|12|KESTERSON MARINE INSURANCE AND SURVEY|R5T6Y7|NCEVN0901"}));
}

TEST(ListRows, OfAnOfficesTravellersComeFromEveryBlock) {
    EXPECT_EQ(
        rowsOf(u"CPLTTrans",
               screen({u"PLT", u"TRAVELLER LIST FOR NCEVN0900", u"", u"     NAME                   RECLOC  COMPANY",
                       u"   1 ABELMANN/IDA MS        H1J2K3", u"", endOfBlock, u"OTHER OFFICES",
                       u"     NAME                   RECLOC  COMPANY", u"   2 BOROVIK/JURI MR        H4J5K6KESTRELLO",
                       u"     NAME                   RECLOC  COMPANY", u"   3 RECLOC /ROY MR", u">"})),
        (Lines{"4 T|1|ABELMANN/IDA MS|H1J2K3|", "9 T|2|BOROVIK/JURI MR|H4J5K6|KESTRELLO", "11 T|3|RECLOC /ROY MR||"}));
}

TEST(ListRows, OfAnOfficeMayLackTheNumberButNotTheLocatorToo) {
    EXPECT_EQ(
        rowsOf(u"CPLTTrans",
               screen({u"PLT/NCEVN0900", u"TRAVELLER NAME LIST", u"", u"     NAME                   RECLOC  COMPANY",
                       u"     ABELMANN/IDA MS        H1J2K3  ", u"     OTHER OFFICES", u"   2 BOROVIK/JURI MR", u">"})),
        (Lines{"4 T||ABELMANN/IDA MS|H1J2K3|", "6 T|2|BOROVIK/JURI MR||"}));
}

TEST(ListRows, OfSimilarCompaniesOfAnOfficeAreNumbersAndNames) {
    EXPECT_EQ(rowsOf(u"CPLTTrans", screen({u"PLT//KES", companies, u"", u"     COMPANY", u"   1 ALPHA",
                                           u"     COMPANY                  OTHER OFFICES", u"   2 BETA", u">"})),
              (Lines{"4 C|1|ALPHA||", "6 C|2|BETA||"}));
}

TEST(ListRows, OfAPnrAreTheLinkedProfiles) {
    EXPECT_EQ(rowsOf(u"CRLPTrans", screen({u"RLP", u"RP/NCEVN0900", u"T/KQ4R7T /P1", u"REMARK", u"C/Q2W3E4",
                                           u"T/LW5S8U /P12", u">"})),
              (Lines{"2 T|KQ4R7T|1", "4 C|Q2W3E4|", "5 T|LW5S8U|12"}));
    EXPECT_FALSE(readRows(u"CRLPTrans", screen({u"RLP", u"NO ELEMENT FOUND", u">"})).isList);
}

TEST(ListRows, AListThatContinuesSaysSo) {
    EXPECT_TRUE(readRows(u"CPDNTrans", screen({u"", travellers, travellerHeader, anna, endOfBlock})).continues);
    EXPECT_FALSE(readRows(u"CPDNTrans", screen({u"", travellers, travellerHeader, anna, u">"})).continues);
    EXPECT_FALSE(readRows(u"CPDNTrans", screen({u"", u"*T* SMITH/ANNA MS", endOfBlock})).continues);
}

TEST(ListRows, AListMayBeEmpty) {
    const ListRows found = readRows(u"CPDNTrans", screen({u"PDN/KES", companies, companyHeader, u">"}));
    EXPECT_TRUE(found.isList);
    EXPECT_TRUE(found.rows.empty());
}

TEST(ListRows, AProfileOrAnEmptyScreenIsNoList) {
    for (const ClassRow& row : classTable()) {
        if (row.description.columns.empty()) continue;
        EXPECT_FALSE(readRows(row, u"").isList) << utf8(row.name);
        const ListRows found =
            readRows(row, screen({u"PD1", u"*T* SMITH/ANNA MS", u"*C* KESTRELLO TOOLS", travellerHeader, anna, u">"}));
        EXPECT_FALSE(found.isList) << utf8(row.name);
        EXPECT_TRUE(found.rows.empty()) << utf8(row.name);
    }
}

int errorOfReading(TextView className, const Text& response, const CollectionPtr& state = {}) {
    try {
        readRows(className, response, state);
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

TEST(ListRows, AreReadByTheClassesWithColumnsOnly) {
    for (const ClassRow& row : classTable()) {
        EXPECT_EQ(errorOfReading(row.name, u"X"), row.description.columns.empty() ? 5 : 0) << utf8(row.name);
    }
    EXPECT_EQ(errorOfReading(u"CPYTrans", u"X"), 429);
}

TEST(ListRows, AStateThatCannotBeReadIsAnError) {
    const Text list = screen({u"PDMD", companyHeader, kestrello, u">"});
    EXPECT_EQ(errorOfReading(u"CPDNTrans", list, continued(u"X")), 13);
    EXPECT_EQ(errorOfReading(u"CPDNTrans", list, continued(u"0")), 5);
    EXPECT_EQ(errorOfReading(u"CPDNTrans", list, collection({{u"blnKeyEndOfBlock", u"X"}})), 13);
}

TEST(ListRows, AListWithoutAnEndIsAnError) {
    Text list = screen({u"PDN/KES", companies, companyHeader});
    const Text entry = screen({kestrello});
    for (int line = 3; line <= 32768; ++line) list += entry;
    EXPECT_EQ(errorOfReading(u"CPDNTrans", list), 6);
}

TEST(ListRows, AgreeWithTheResultsOfEverySample) {
    const std::filesystem::path folder = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "exchanges";
    std::size_t lists = 0;
    for (const auto& file : filesIn(folder, ".exchange")) {
        CollectionPtr previous;
        for (const ExchangeStep& step : readExchange(file)) {
            if (!step.screen || findClass(step.className)->description.columns.empty()) continue;
            DrivenClass driven(step.className);
            const CollectionPtr state = step.statePrevious ? previous : nullptr;
            EXPECT_EQ(disagreement(driven, step.className, *step.screen, state), "") << file << ", " << step.line;
            if (readRows(step.className, *step.screen, state).isList) ++lists;
            if (step.className != u"CRLPTrans") previous = driven.read(*step.screen, state);
        }
    }
    EXPECT_GE(lists, 25U);
}

}  // namespace
}  // namespace vantro::test
