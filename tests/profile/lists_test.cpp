// Every list that a parser keeps is readable under its name, whatever it contains.
#include "vantro/lists.h"

#include "tests/support/text.h"
#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace vantro {
namespace {

std::string nameOfList(const testing::TestParamInfo<ElementListName>& row) { return test::utf8(row.param.name); }

class ElementListOf : public testing::TestWithParam<ElementListName> {
protected:
    bool keepsEntry0() const {
        constexpr Family transferable[] = {Family::Remark,        Family::Contact,        Family::OtherService,
                                           Family::FrequentFlyer, Family::ServiceRequest, Family::Seat,
                                           Family::RemarkConf};
        return std::ranges::find(transferable, GetParam().family) == std::end(transferable);
    }

    BuiltInTerminal terminal;
    std::unique_ptr<ProfileObject> object = createObject(u"CProfile", terminal);
};

INSTANTIATE_TEST_SUITE_P(Each, ElementListOf, testing::ValuesIn(elementLists()), nameOfList);

TEST_P(ElementListOf, ContainsTheEmptyEntryOrNothingInANewObject) {
    if (GetParam().part == ElementPart::Asterisk) {
        EXPECT_EQ(object->list(GetParam().name), nullptr);
        ASSERT_NE(object->flagList(GetParam().name), nullptr);
        EXPECT_TRUE(object->flagList(GetParam().name)->empty());
        return;
    }
    EXPECT_EQ(object->flagList(GetParam().name), nullptr);
    const TextList* const list = object->list(GetParam().name);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(*list, keepsEntry0() ? TextList(1) : TextList());
}

TEST(ElementLists, HaveAName) {
    // 22 families with two lists; 7 with two lists and eight further ones in all.
    EXPECT_EQ(elementLists().size(), 22U * 2 + 7 * 2 + 2 + 5 + 1);
    for (const ElementListName& row : elementLists()) {
        EXPECT_EQ(std::ranges::count(elementLists(), row.name, &ElementListName::name), 1) << test::utf8(row.name);
    }
}

TEST(ElementLists, OtherNamesReturnNull) {
    BuiltInTerminal terminal;
    const auto object = createObject(u"CProfile", terminal);
    for (const TextView name : {u"", u"str", u"PPRText", u"strPPR", u"strpprtext", u"strPPRTexts", u"strNoteText"}) {
        EXPECT_EQ(object->list(name), nullptr) << test::utf8(name);
        EXPECT_EQ(object->flagList(name), nullptr) << test::utf8(name);
    }
}

TEST(FlagList, HasAFalseEntryPerServiceRequest) {
    Text display(80, u' ');
    for (const TextView line : {u"------- PNR TRANSFERABLE DATA", u"S    1       SR FQTVXQ 123456",
                                u"S    2       SR VGML", u"END OF DISPLAY"}) {
        display.append(line).append(80 - line.size(), u' ');
    }
    BuiltInTerminal terminal;
    const auto object = createObject(u"CProfile", terminal);
    const CountProperty& count = *findCount(*findClass(u"CProfile"), u"ServiceRequestElementsCount");
    ASSERT_EQ(count.call(*object, CountRequest{display}), 2);
    EXPECT_EQ(*object->flagList(u"blnServiceRequestFlag"), FlagList({false, false}));
}

/// A display with this many elements of one family, all with texts of this length.
Text displayWithElements(std::size_t count, std::size_t length) {
    const auto padded = [](Text line) {
        line.resize(80, u' ');
        return line;
    };
    Text display = Text(80, u' ') + padded(u"------- PRIORITY");
    for (std::size_t index = 0; index < count; ++index) {
        display += padded(u"   1 PPR/ " + Text(length, static_cast<char16_t>(u'A' + index % 26)));
    }
    return display + padded(u">") + u">";  // a section without elements ends at one, the display at the next
}

TEST(Lists, OfAnObjectThatReadLongerAndShorterDisplaysAreThoseOfANewOne) {
    BuiltInTerminal terminal;
    const auto used = createObject(u"CProfile", terminal);
    const auto count = [](ProfileObject& object, TextView display) {
        return findCount(*findClass(u"CProfile"), u"PPRElementsCount")->call(object, CountRequest{display, {}, {}});
    };
    for (const std::size_t elements : {90U, 1U, 80U, 0U, 3U, 100U, 2U}) {
        for (const std::size_t length : {5U, 40U, 7U, 8U, 60U}) {
            const Text display = displayWithElements(elements, length);
            const auto fresh = createObject(u"CProfile", terminal);
            ASSERT_EQ(count(*used, display), elements);
            ASSERT_EQ(count(*fresh, display), elements);
            EXPECT_EQ(*used->list(u"strPPRText"), *fresh->list(u"strPPRText"));
            EXPECT_EQ(*used->list(u"strPPRNumber"), *fresh->list(u"strPPRNumber"));
        }
    }
}

TEST(NoteLists, AreNamedInTheHeader) {
    BuiltInTerminal terminal;
    const auto object = createObject(u"CProfileNotes", terminal);
    for (const TextView name : {noteTextList, noteNumberList, noteQualifierList}) {
        ASSERT_NE(object->list(name), nullptr) << test::utf8(name);
        EXPECT_EQ(*object->list(name), TextList(1)) << test::utf8(name);
    }
    EXPECT_EQ(object->list(u"strPPRText"), nullptr);
}

TEST(NoteLists, FetchedBeforeAFailingCountContainWhatItStored) {
    Text endless(80, u' ');
    endless += u"------- PROFILE NOTES";
    endless.resize(160, u' ');
    endless += u"A THE ONE NOTE";
    BuiltInTerminal terminal;
    const ClassRow& row = *findClass(u"CProfileNotes");
    const auto object = createObject(row, terminal);
    const TextList& texts = *object->list(noteTextList);
    const TextList& numbers = *object->list(noteNumberList);
    const TextList& qualifiers = *object->list(noteQualifierList);
    EXPECT_THROW(row.counts[0].call(*object, CountRequest{endless}), Error);
    // Line 2 is note 1, and every line after it an empty note up to line 32767.
    ASSERT_EQ(texts.size(), 32767U);
    ASSERT_EQ(numbers.size(), 32767U);
    ASSERT_EQ(qualifiers.size(), 32767U);
    EXPECT_EQ(texts[1], u"THE ONE NOTE");
    EXPECT_EQ(texts[2], u"");
    EXPECT_EQ(numbers[2], u"2");
    EXPECT_EQ(numbers.back(), u"32766");
    EXPECT_EQ(qualifiers[1], u"A ");
    EXPECT_EQ(qualifiers.back(), u"");
}

/// The built-in terminal, which can lose its helper functions.
class LosingTerminal final : public Terminal {
public:
    TerminalFunctions& functions() override {
        if (isLost) throw Error(429, u"", u"");
        return builtIn_.functions();
    }
    ErrorReporter& errorReporter() override { return builtIn_.errorReporter(); }
    CollectionPtr createCollection() override { return builtIn_.createCollection(); }

    bool isLost = false;

private:
    BuiltInTerminal builtIn_;
};

// The lists of prefixed families and documents are cut before the display is read; the others only when an element is
// stored.
TEST(Lists, AreCutWhenTheTerminalFailsBeforeTheFirstLine) {
    const ClassRow& row = *findClass(u"CProfile");
    const auto line = [](TextView text) { return Text(text) + Text(80 - text.size(), u' '); };
    const Text display = line(u"------- PRIORITY") + line(u"  1 PPR/ A") + line(u"------- PNR TRANSFERABLE DATA") +
                         line(u"S      1     RM B") + u"END OF DISPLAY";
    LosingTerminal terminal;
    const auto object = createObject(row, terminal);
    const auto count = [&](TextView property) {
        return findCount(row, property)->call(*object, CountRequest{display});
    };
    ASSERT_EQ(count(u"PPRElementsCount"), 1);
    ASSERT_EQ(count(u"RemarkElementsCount"), 1);
    terminal.isLost = true;
    EXPECT_THROW(count(u"PPRElementsCount"), Error);
    EXPECT_THROW(count(u"RemarkElementsCount"), Error);
    EXPECT_EQ(*object->list(u"strPPRText"), TextList{u""});
    EXPECT_EQ(*object->list(u"strPPRNumber"), TextList{u""});
    EXPECT_EQ(*object->list(u"strRemarkText"), TextList{u"RM B"});
}

}  // namespace
}  // namespace vantro
