// One test case per family and rule for the transferable section, documents and follow-up: count, lists, error number,
// empty display, a second call.
#include "tests/profile/parser.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

const std::string documents = "------- DOCUMENTS";
const std::string transferableData = "------- PNR TRANSFERABLE DATA";

const auto nameOf = [](const auto& test) { return test.param.name; };

Text withoutEnd(const Lines& lines) { return display(lines + Lines{"NEITHER PROMPT NOR END"}); }

// Families of the transferable section

struct TransferableRow {
    std::string name;
    std::string prefix;  // as queries name it
    std::string code;    // before the element's text
    int error;
    std::vector<std::string> furtherLists;

    std::string property() const { return name + "ElementsCount"; }
    std::string line(const std::string& number, const std::string& text) const {
        return transferable('S', number, code + " " + text);
    }
};

// clang-format off
const std::vector<TransferableRow> transferableRows{
    {"Remark",         "RM",  "RM ",  5260, {}},
    {"Contact",        "AP",  "AP ",  5235, {}},
    {"OtherService",   "OS",  "OS ",  5250, {}},
    {"FrequentFlyer",  "FFN", "FFN",  5255, {"Carrier", "Account"}},
    {"ServiceRequest", "SR",  "SR ",  5245, {"Code", "Carrier", "Account", "FreeText"}},
    {"Seat",           "ST",  "ST ",  5240, {}},
    {"RemarkConf",     "RC",  "RC ",  5260, {"Detail"}},
};
// clang-format on

class TransferableFamilyRow : public testing::TestWithParam<TransferableRow> {
protected:
    const TransferableRow& row() const { return GetParam(); }
    int count(const Text& text) { return parser_.count(row().property(), text); }
    Texts texts() const { return parser_.list("str" + row().name + "Text"); }
    Texts numbers() const { return parser_.list("str" + row().name + "Number"); }
    std::string text(const std::string& rest) const { return row().code + " " + rest; }

    Text twoElements() const {
        return ended({transferableData, row().line("1", "FIRST"), transferable('S', "2", "XX OTHER KIND"),
                      row().line("103", "SECOND")});
    }

    Parser parser_;
};

INSTANTIATE_TEST_SUITE_P(Every, TransferableFamilyRow, testing::ValuesIn(transferableRows), nameOf);

TEST(FamilyRows, ThereAre7OfTheTransferableSection) { EXPECT_EQ(transferableRows.size(), 7U); }

TEST_P(TransferableFamilyRow, ANewObjectHasEmptyLists) {
    EXPECT_EQ(texts(), Texts{});
    EXPECT_EQ(numbers(), Texts{});
    for (const std::string& further : row().furtherLists) {
        EXPECT_EQ(parser_.list("str" + row().name + further), Texts{}) << further;
    }
}

TEST_P(TransferableFamilyRow, KeepsElementKAtIndexKMinus1) {
    EXPECT_EQ(count(twoElements()), 2);
    EXPECT_EQ(texts(), (Texts{text("FIRST"), text("SECOND")}));
    EXPECT_EQ(numbers(), (Texts{"1", "103"}));
    for (const std::string& further : row().furtherLists) {
        EXPECT_EQ(parser_.list("str" + row().name + further).size(), 2U) << further;
    }
}

TEST_P(TransferableFamilyRow, ASecondCallWithElementsReplacesTheLists) {
    count(twoElements());
    EXPECT_EQ(count(ended({transferableData, row().line("7", "ONLY")})), 1);
    EXPECT_EQ(texts(), (Texts{text("ONLY")}));
    EXPECT_EQ(numbers(), (Texts{"7"}));
    for (const std::string& further : row().furtherLists) {
        EXPECT_EQ(parser_.list("str" + row().name + further).size(), 1U) << further;
    }
}

TEST_P(TransferableFamilyRow, ACallThatFindsNothingLeavesTheListsAsTheyWere) {
    count(twoElements());
    for (const Text& without :
         {Text(u""), ended({"NO SECTION"}), ended({transferableData, transferable('S', "1", "XX A")})}) {
        EXPECT_EQ(count(without), 0) << drawn(without);
        EXPECT_EQ(texts(), (Texts{text("FIRST"), text("SECOND")})) << drawn(without);
        EXPECT_EQ(numbers(), (Texts{"1", "103"})) << drawn(without);
    }
}

TEST_P(TransferableFamilyRow, ADisplayWithoutAnEndRaisesItsNumber) {
    EXPECT_EQ(raisedBy([&] { count(withoutEnd({"NO SECTION"})); }), verifying(row().error));
    EXPECT_EQ(texts(), Texts{});
}

TEST_P(TransferableFamilyRow, AFailureKeepsTheElementsStoredBefore) {
    EXPECT_EQ(raisedBy([&] {
                  count(withoutEnd({transferableData, row().line("1", "FIRST")}));
              }),
              verifying(row().error));
    EXPECT_EQ(texts(), (Texts{text("FIRST")}));
    EXPECT_EQ(numbers(), (Texts{"1"}));
}

TEST_P(TransferableFamilyRow, RaisesItsNumberThroughProfileElementsToo) {
    const Request request = wanting(row().prefix, ItemValue(std::int16_t{1}));
    EXPECT_EQ(parser_.query(withoutEnd({"NO SECTION"}), request),
              (Answer{.added = {}, .returnedCollection = false, .raised = verifying(row().error)}));
}

// Documents and follow-up

struct DocumentRow {
    std::string name;
    std::string header;
    int error;

    std::string property() const { return name + "ElementsCount"; }
    std::string line(const std::string& number, const std::string& text) const {
        return "  " + number + " " + name + "/ " + text;
    }
};

const std::vector<DocumentRow> documentRows{
    {"PAS", documents, 5287}, {"PIV", documents, 5288},           {"PCE", documents, 5289},
    {"PID", documents, 5290}, {"PFO", "------- FOLLOW UP", 5291},
};

class DocumentFamilyRow : public testing::TestWithParam<DocumentRow> {
protected:
    const DocumentRow& row() const { return GetParam(); }
    int count(const Text& text) { return parser_.count(row().property(), text); }
    Texts texts() const { return parser_.list("str" + row().name + "Text"); }
    Texts numbers() const { return parser_.list("str" + row().name + "Number"); }
    Text twoElements() const { return ended({"LINE 0", row().header, row().line("1", "FIRST"), "  2      SECOND"}); }

    Parser parser_;
};

INSTANTIATE_TEST_SUITE_P(Every, DocumentFamilyRow, testing::ValuesIn(documentRows), nameOf);

TEST(FamilyRows, ThereAre5OfDocumentsAndFollowUp) { EXPECT_EQ(documentRows.size(), 5U); }

TEST_P(DocumentFamilyRow, ANewObjectHasListsWithOnlyTheEmptyEntry) {
    EXPECT_EQ(texts(), (Texts{""}));
    EXPECT_EQ(numbers(), (Texts{""}));
}

TEST_P(DocumentFamilyRow, KeepsElementKAtIndexKAfterAnEmptyEntry) {
    EXPECT_EQ(count(twoElements()), 2);
    EXPECT_EQ(texts(), (Texts{"", "FIRST", "SECOND"}));
    EXPECT_EQ(numbers(), (Texts{"", "1", "2"}));
}

TEST_P(DocumentFamilyRow, NeedsItsOwnHeader) {
    const std::string other = row().name == "PFO" ? documents : "------- FOLLOW UP";
    EXPECT_EQ(count(ended({"LINE 0", other, row().line("1", "ELSEWHERE")})), 0);
    EXPECT_EQ(texts(), (Texts{""}));
}

TEST_P(DocumentFamilyRow, ASecondCallReplacesTheLists) {
    count(twoElements());
    EXPECT_EQ(count(ended({"LINE 0", row().header, row().line("7", "ONLY")})), 1);
    EXPECT_EQ(texts(), (Texts{"", "ONLY"}));
    EXPECT_EQ(numbers(), (Texts{"", "7"}));
}

TEST_P(DocumentFamilyRow, AnEmptyDisplayReturns0AndCutsTheLists) {
    count(twoElements());
    EXPECT_EQ(count(u""), 0);
    EXPECT_EQ(texts(), (Texts{""}));
    EXPECT_EQ(numbers(), (Texts{""}));
}

TEST_P(DocumentFamilyRow, ADisplayWithoutAnEndRaisesItsNumber) {
    count(twoElements());
    EXPECT_EQ(raisedBy([&] { count(withoutEnd({"NO SECTION"})); }), verifying(row().error));
    EXPECT_EQ(texts(), (Texts{""}));
    EXPECT_EQ(raisedBy([&] { count(withoutEnd({"LINE 0", row().header})); }), verifying(row().error));
}

TEST_P(DocumentFamilyRow, RaisesItsNumberThroughProfileElementsToo) {
    EXPECT_EQ(parser_.query(withoutEnd({"NO SECTION"}), row().name),
              (Answer{.added = {}, .returnedCollection = false, .raised = verifying(row().error)}));
}

}  // namespace
}  // namespace vantro
