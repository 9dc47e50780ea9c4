// "PT": the outcome when a list form cannot be read.
#include "tests/framework/raised.h"
#include "tests/support/driven_class.h"

#include <gtest/gtest.h>

namespace vantro::test {
namespace {

const TextList two{u"3", u"7"};
const TextList blanks{u"", u""};

int raised(const Entries& params) {
    DrivenClass pt(u"CPTTrans");
    const int number = raisedNumber([&] { pt.command(params); });
    EXPECT_TRUE(pt.reported.empty());
    return number;
}

Entries lists(const char16_t* highest) {
    return {{u"intKeyArraySize", highest},
            {u"strKeyElArray()", two},
            {u"strKeySegArray()", blanks},
            {u"strKeyPasArray()", blanks}};
}

TEST(TransferList, AHighestIndexThatIsNotANumberIsATypeMismatch) {
    for (const char16_t* const highest : {u"x", u" ", u"1.0", u"-", u"1 1"}) EXPECT_EQ(raised(lists(highest)), 13);
}

TEST(TransferList, AHighestIndexBeyond16BitsOverflows) { EXPECT_EQ(raised(lists(u"32768")), 6); }

TEST(TransferList, ANegativeHighestIndexIsOutsideEveryList) { EXPECT_EQ(raised(lists(u"-1")), 9); }

TEST(TransferList, AListShorterThanTheHighestIndexFails) {
    EXPECT_EQ(raised(lists(u"1")), 0);
    EXPECT_EQ(raised(lists(u"2")), 9);
    Entries shortSegments = lists(u"1");
    shortSegments[2].value = TextList{u""};
    EXPECT_EQ(raised(shortSegments), 9);
    Entries shortPassengers = lists(u"1");
    shortPassengers[3].value = TextList{};
    EXPECT_EQ(raised(shortPassengers), 9);
}

TEST(TransferList, AnAbsentListIsAnObjectNotSet) {
    EXPECT_EQ(raised({{u"intKeyArraySize", u"0"}}), 91);
    EXPECT_EQ(raised({{u"intKeyArraySize", u"0"}, {u"strKeyElArray()", two}, {u"strKeySegArray()", two}}), 91);
}

TEST(TransferList, AKeyWithoutAListIsATypeMismatch) {
    Entries text = lists(u"0");
    text[1].value = Text(u"3");
    EXPECT_EQ(raised(text), 13);
}

TEST(TransferList, TheHighestIndexMayBeANumber) {
    DrivenClass pt(u"CPTTrans");
    Entries numbered = lists(u"");
    numbered[0].value = std::int16_t{1};
    EXPECT_EQ(pt.command(numbered), u"PT3//7");
}

TEST(TransferList, AGroupCounterBeyond16BitsOverflows) {
    const TextList all(32768, Text(u"1"));
    const TextList none(32768);
    const auto full = [&](const char16_t* highest) {
        return Entries{{u"intKeyArraySize", highest},
                       {u"strKeyElArray()", all},
                       {u"strKeySegArray()", none},
                       {u"strKeyPasArray()", none}};
    };
    DrivenClass pt(u"CPTTrans");
    // 32767 groups of "1" with "//" between them.
    EXPECT_EQ(pt.command(full(u"32766")).size(), 2U + 32767U + 2U * 32766U);
    EXPECT_EQ(raised(full(u"32767")), 6);
}

}  // namespace
}  // namespace vantro::test
