// The element at an index: together with the whole lists, or alone.
#include "tests/profile/parser.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

const std::string transferableData = "------- PNR TRANSFERABLE DATA";

ItemValue integer(int number) { return static_cast<std::int16_t>(number); }
ItemValue text(const std::string& characters) { return wide(characters); }

Raised failing(Failure failure) {
    return raisedBy([failure] { fail(failure); });
}

struct Row {
    std::string prefix;
    int error;  // for an index beyond the count
    Text three;
    Entries second;  // the keys of the second element
    int extractorError;

    Answer asked(ItemValue index) const { return Parser().query(three, wanting(prefix, std::move(index))); }
};

const auto nameOf = [](const auto& test) { return test.param.prefix; };

Text prefixed(const std::string& header, const std::string& prefix) {
    return ended({header, "  1 " + prefix + "/ A", "  2       B", "  3       C"});
}

const std::vector<Row> withLists{
    {"PPR", 5266, prefixed("------- PRIORITY", "PPR"), {{"strKeyElement", "'B'"}, {"strKeyElementNr", "'2'"}}, 5266},
    {"PGL",
     5266,
     prefixed("------- GLOBAL SEARCH", "PGL"),
     {{"strKeyElement", "'B'"}, {"strKeyElementNr", "'2'"}},
     5267},
    {"PPS",
     5270,
     prefixed("------- PRE-STORED ENTRIES", "PPS"),
     {{"strKeyElement", "'B'"}, {"strKeyElementNr", "'2'"}},
     5270},
};

const Entries wholeLists{{"strKeyElement()", "['', 'A', 'B', 'C']"}, {"strKeyElementNr()", "['', '1', '2', '3']"}};

Entries before(Entries first, const Entries& then) {
    first.insert(first.end(), then.begin(), then.end());
    return first;
}

class IndexedElementWithLists : public testing::TestWithParam<Row> {};
INSTANTIATE_TEST_SUITE_P(Every, IndexedElementWithLists, testing::ValuesIn(withLists), nameOf);

TEST_P(IndexedElementWithLists, WithoutAnIndexOnlyTheListsAreAdded) {
    EXPECT_EQ(Parser().query(GetParam().three, GetParam().prefix), (Answer{.added = wholeLists}));
    EXPECT_EQ(GetParam().asked(text("")), (Answer{.added = wholeLists}));
}

TEST_P(IndexedElementWithLists, AnIndexAddsTheElementBeforeTheLists) {
    for (const ItemValue& two : {integer(2), text("2"), text("+2"), text("  02 ")}) {
        EXPECT_EQ(GetParam().asked(two), (Answer{.added = before(GetParam().second, wholeLists)})) << written(two);
    }
}

TEST_P(IndexedElementWithLists, TheLastElementIsTheCount) {
    const Entries third{{"strKeyElement", "'C'"}, {"strKeyElementNr", "'3'"}};
    EXPECT_EQ(GetParam().asked(integer(3)), (Answer{.added = before(third, wholeLists)}));
}

TEST_P(IndexedElementWithLists, BeyondTheCountRaisesItsNumberAndAddsNothing) {
    for (const int index : {4, 32767}) {
        EXPECT_EQ(GetParam().asked(integer(index)), (Answer{.raised = verifying(GetParam().error)})) << index;
    }
    EXPECT_EQ(Parser().query(ended({"NO SECTION"}), wanting(GetParam().prefix, integer(1))),
              (Answer{.raised = verifying(GetParam().error)}));
}

TEST_P(IndexedElementWithLists, ZeroAndBelowAddOnlyTheLists) {
    for (const int index : {0, -1, -32768}) {
        EXPECT_EQ(GetParam().asked(integer(index)), (Answer{.added = wholeLists})) << index;
        EXPECT_EQ(GetParam().asked(text(std::to_string(index))), (Answer{.added = wholeLists})) << index;
    }
}

TEST_P(IndexedElementWithLists, AValueThatIsNotAnIntegerFailsWithNothingAdded) {
    EXPECT_EQ(GetParam().asked(text("x")), (Answer{.raised = failing(Failure::TypeMismatch)}));
    EXPECT_EQ(GetParam().asked(text(" ")), (Answer{.raised = failing(Failure::TypeMismatch)}));
    EXPECT_EQ(GetParam().asked(text("2.0")), (Answer{.raised = failing(Failure::TypeMismatch)}));
    EXPECT_EQ(GetParam().asked(ItemValue(true)), (Answer{.raised = failing(Failure::TypeMismatch)}));
    EXPECT_EQ(GetParam().asked(ItemValue(TextList{u"2"})), (Answer{.raised = failing(Failure::TypeMismatch)}));
    EXPECT_EQ(GetParam().asked(text("32768")), (Answer{.raised = failing(Failure::Overflow)}));
    EXPECT_EQ(GetParam().asked(text("-32769")), (Answer{.raised = failing(Failure::Overflow)}));
}

TEST_P(IndexedElementWithLists, TheDisplayIsReadBeforeTheIndexIsConverted) {
    const Text endless = display({"NO SECTION", "NO END"});
    for (const ItemValue& index : {text("x"), text("32768"), text("99")}) {
        EXPECT_EQ(Parser().query(endless, wanting(GetParam().prefix, index)),
                  (Answer{.raised = verifying(GetParam().extractorError)}));
    }
}

TEST_P(IndexedElementWithLists, AFailedIndexLeavesTheObjectsListsFilled) {
    Parser parser;
    EXPECT_EQ(parser.query(GetParam().three, wanting(GetParam().prefix, text("x"))).raised.number, 13);
    EXPECT_EQ(parser.list("str" + GetParam().prefix + "Text"), (Texts{"", "A", "B", "C"}));
}

TEST_P(IndexedElementWithLists, AnEmptyDisplayReturnsTheListsOfTheEarlierCall) {
    Parser parser;
    parser.query(GetParam().three, GetParam().prefix);
    EXPECT_EQ(parser.query(u"", GetParam().prefix), (Answer{.added = wholeLists}));
    EXPECT_EQ(parser.query(u"", wanting(GetParam().prefix, integer(1))),
              (Answer{.raised = verifying(GetParam().error)}));
    EXPECT_EQ(Parser().query(u"", GetParam().prefix),
              (Answer{.added = {{"strKeyElement()", "['']"}, {"strKeyElementNr()", "['']"}}}));
}

// The element alone

Text three(const std::string& a, const std::string& b, const std::string& c) {
    return ended({transferableData, transferable('S', "1", a), transferable('S', "2", b), transferable('A', "3", c)});
}

const std::vector<Row> alone{
    {"RM", 5260, three("RM  A", "RM  B", "RM  C"), {{"strKeyElement", "'RM  B'"}, {"strKeyElementNr", "'2'"}}, 5260},
    {"AP", 5235, three("AP  A", "AP  B", "AP  C"), {{"strKeyElement", "'AP  B'"}, {"strKeyElementNr", "'2'"}}, 5235},
    {"OS", 5250, three("OS  A", "OS  B", "OS  C"), {{"strKeyElement", "'OS  B'"}, {"strKeyElementNr", "'2'"}}, 5250},
    {"FFN",
     5255,
     three("FFN AA 1", "FFN BB 2", "FFN CC 3"),
     {{"strKeyElement", "'FFN BB 2'"}, {"strKeyElementNr", "'2'"}, {"strKeyAirline", "'BB'"}, {"strKeyFFNbr", "'2'"}},
     5255},
    {"ST", 5240, three("ST  A", "ST  B", "ST  C"), {{"strKeyElement", "'ST  B'"}, {"strKeyElementNr", "'2'"}}, 5240},
    {"SR",
     5245,
     three("SR  WCHR", "SR  FQTVBB 2-X", "SR  VGML"),
     {{"strKeyElement", "'SR  FQTVBB 2-X'"},
      {"strKeyElementNr", "'2'"},
      {"strKeyCode", "'FQTV'"},
      {"strKeyAirline", "'BB'"},
      {"strKeyFFNbr", "'2-X'"},
      {"strKeyFreeText", "'X'"},
      {"blnKeyAsterix", "False"}},
     5245},
    {"RC",
     5265,
     three("RC  A", "RC  B", "RC  C"),
     {{"strKeyElement", "'RC  B'"}, {"strKeyElementNr", "'2'"}, {"strKeyFreeText", "'B'"}},
     5260},
};

class IndexedElement : public testing::TestWithParam<Row> {};
INSTANTIATE_TEST_SUITE_P(Every, IndexedElement, testing::ValuesIn(alone), nameOf);

TEST_P(IndexedElement, AddsTheElementAndItsPartsInOrder) {
    for (const ItemValue& two : {integer(2), text("2"), text("+2"), text("  02 ")}) {
        EXPECT_EQ(GetParam().asked(two), (Answer{.added = GetParam().second})) << written(two);
    }
}

TEST_P(IndexedElement, TheFirstIsAt1AndTheLastAtTheCount) {
    const Answer first = GetParam().asked(integer(1));
    const Answer last = GetParam().asked(integer(3));
    ASSERT_EQ(first.added.size(), GetParam().second.size());
    ASSERT_EQ(last.added.size(), GetParam().second.size());
    EXPECT_EQ(first.added[1], (std::pair<std::string, std::string>("strKeyElementNr", "'1'")));
    EXPECT_EQ(last.added[1], (std::pair<std::string, std::string>("strKeyElementNr", "'3'")));
}

TEST_P(IndexedElement, BeyondTheCountRaisesItsNumberAndAddsNothing) {
    for (const int index : {4, 32767}) {
        EXPECT_EQ(GetParam().asked(integer(index)), (Answer{.raised = verifying(GetParam().error)})) << index;
    }
    for (const Text& nothing : {Text(), ended({"NO SECTION"})}) {
        EXPECT_EQ(Parser().query(nothing, wanting(GetParam().prefix, integer(1))),
                  (Answer{.raised = verifying(GetParam().error)}));
    }
}

TEST_P(IndexedElement, ZeroAndBelowAreOutsideTheList) {
    for (const int index : {0, -1, -32767}) {
        EXPECT_EQ(GetParam().asked(integer(index)), (Answer{.raised = failing(Failure::SubscriptOutOfRange)})) << index;
        EXPECT_EQ(Parser().query(u"", wanting(GetParam().prefix, integer(index))),
                  (Answer{.raised = failing(Failure::SubscriptOutOfRange)}))
            << index;
    }
    EXPECT_EQ(GetParam().asked(ItemValue(false)), (Answer{.raised = failing(Failure::SubscriptOutOfRange)}));
    EXPECT_EQ(GetParam().asked(ItemValue(true)), (Answer{.raised = failing(Failure::SubscriptOutOfRange)}));
}

TEST_P(IndexedElement, TheLowestIndexOverflows) {
    EXPECT_EQ(GetParam().asked(integer(-32768)), (Answer{.raised = failing(Failure::Overflow)}));
    EXPECT_EQ(GetParam().asked(text("-32768")), (Answer{.raised = failing(Failure::Overflow)}));
}

TEST_P(IndexedElement, AValueThatIsNotAnIntegerFails) {
    EXPECT_EQ(GetParam().asked(text("x")), (Answer{.raised = failing(Failure::TypeMismatch)}));
    EXPECT_EQ(GetParam().asked(text("")), (Answer{.raised = failing(Failure::TypeMismatch)}));
    EXPECT_EQ(GetParam().asked(text("2.0")), (Answer{.raised = failing(Failure::TypeMismatch)}));
    EXPECT_EQ(GetParam().asked(ItemValue(TextList{u"2"})), (Answer{.raised = failing(Failure::TypeMismatch)}));
    EXPECT_EQ(GetParam().asked(text("32768")), (Answer{.raised = failing(Failure::Overflow)}));
    EXPECT_EQ(GetParam().asked(text("-32769")), (Answer{.raised = failing(Failure::Overflow)}));
}

TEST_P(IndexedElement, AnAbsentIndexFails) {
    EXPECT_EQ(Parser().query(GetParam().three, GetParam().prefix), (Answer{.raised = failing(Failure::ObjectNotSet)}));
}

TEST_P(IndexedElement, TheIndexIsConvertedBeforeTheDisplayIsRead) {
    const Text endless = display({"NO SECTION", "NO END"});
    EXPECT_EQ(Parser().query(endless, wanting(GetParam().prefix, text("x"))).raised.number, 13);
    EXPECT_EQ(Parser().query(endless, wanting(GetParam().prefix, text("32768"))).raised.number, 6);
    EXPECT_EQ(Parser().query(endless, GetParam().prefix).raised.number, 91);
    for (const int index : {1, 0, 32767}) {
        EXPECT_EQ(Parser().query(endless, wanting(GetParam().prefix, integer(index))),
                  (Answer{.raised = verifying(GetParam().extractorError)}))
            << index;
    }
}

TEST_P(IndexedElement, TheListsOfAnEarlierCallAreNotReturned) {
    Parser parser;
    parser.query(GetParam().three, wanting(GetParam().prefix, integer(1)));
    EXPECT_EQ(parser.query(ended({"NO SECTION"}), wanting(GetParam().prefix, integer(1))),
              (Answer{.raised = verifying(GetParam().error)}));
}

// Whole lists

TEST(ListOutput, WithoutElementsBothListsAreStillAdded) {
    const Answer emptyLists{.added = {{"strKeyElement()", "['']"}, {"strKeyElementNr()", "['']"}}};
    for (const std::string prefix : {"PHI", "PPH", "PCI", "PPC", "PPA", "PPK", "PPI", "PXC", "PXA", "PXK", "PSH", "PSC",
                                     "PPT", "PXT", "PAS", "PIV", "PCE", "PID", "PFO"}) {
        EXPECT_EQ(Parser().query(ended({"LINE 0", "NO SECTION"}), prefix), emptyLists) << prefix;
        EXPECT_EQ(Parser().query(u"", prefix), emptyLists) << prefix;
    }
}

TEST(ListOutput, AnIndexIsNeitherReadNorNeeded) {
    const Text hotel = prefixed("------- TRAVEL POLICIES - HOTEL", "PPH");
    const Answer both{.added = wholeLists};
    EXPECT_EQ(Parser().query(hotel, "PPH"), both);
    EXPECT_EQ(Parser().query(hotel, wanting("PPH", integer(9))), both);
    EXPECT_EQ(Parser().query(hotel, wanting("PPH", text("x"))), both);
}

}  // namespace
}  // namespace vantro
