// "PDA": the company names of a list and the paging state.
#include "tests/support/driven_class.h"
#include "tests/support/screens.h"

#include <gtest/gtest.h>

namespace vantro::test {
namespace {

class SimilarNames : public testing::Test {
protected:
    void expect(const CollectionPtr& results, const char16_t* names, bool endOfBlock) {
        ASSERT_NE(results, nullptr);
        EXPECT_EQ(keysOf(results).size(), 6U);
        EXPECT_EQ(valueOf(results, u"strKeyCoNames"), ItemValue(Text(names)));
        EXPECT_EQ(valueOf(results, u"blnKeyEndOfBlock"), ItemValue(endOfBlock));
    }

    DrivenClass pda{u"CPDATrans"};
    const Entries continued{{u"blnKeyEndOfBlock", true}};
};

constexpr TextView title = u"SIMILAR COMPANY NAME LIST";
constexpr TextView header = u"     COMPANY     ";
constexpr TextView first = u"   1 KESTRELLO TOOLS";
constexpr TextView second = u"   2 KESWICK INKS            NCE";
constexpr TextView endOfBlock = u"END OF BLOCK - USE PDMD";

TEST_F(SimilarNames, AreTrimmedAndJoinedByCommasWithoutBlanks) {
    expect(pda.read(screen({u"PDA/KES", title, header, u"   1   KESTRELLO TOOLS", second, u">"})),
           u"KESTRELLO TOOLS,KESWICK INKS            NCE", false);
}

TEST_F(SimilarNames, EndAtTheEndOfBlock) {
    expect(pda.read(screen({u"PDA/KES", title, header, first, endOfBlock, second})), u"KESTRELLO TOOLS", true);
}

TEST_F(SimilarNames, EndAtALineWithoutAListNumber) {
    expect(pda.read(screen({u"PDA/KES", title, header, first, u"     AND SONS", second, u">"})), u"KESTRELLO TOOLS",
           false);
}

TEST_F(SimilarNames, BeginOnlyAfterTheHeader) {
    expect(pda.read(screen({u"PDA/KES", title, first, u"", header, second, u">"})), u"KESWICK INKS            NCE",
           false);
    expect(pda.read(screen({u"PDA/KES", title, first, u"    COMPANY     ", second, u">"})), u"", false);
}

TEST_F(SimilarNames, AHeaderOnTheTitleLineIsIgnored) {
    expect(pda.read(screen({u"PDA/KES", u"SIMILAR COMPANY NAME LIST     COMPANY     ", first, u">"})), u"", false);
}

TEST_F(SimilarNames, NoCommaFollowsABlankName) {
    // With nothing collected yet, no comma precedes the second name.
    expect(pda.read(screen({u"PDA/KES", title, header, u"   1", u"   2 ALPHA", u"   3", u">"})), u"ALPHA,", false);
}

TEST_F(SimilarNames, AContinuationIsReadFromLine1) {
    // No title: line 5, the last line tested for one, must be usable.
    expect(pda.read(screen({u"PDMD", first, second, endOfBlock, u"", u""}), continued),
           u"KESTRELLO TOOLS,KESWICK INKS            NCE", true);
}

TEST_F(SimilarNames, AContinuationWithAHeaderCollectsNothing) {
    // Line 1 is the header: it has no list number, which ends the list at once.
    expect(pda.read(screen({u"PDMD", header, first, second, u"", u""}), continued), u"", false);
}

TEST_F(SimilarNames, TheResultOfAScreenIsTheStateOfTheNext) {
    const CollectionPtr page = pda.read(screen({u"PDA/KES", title, header, first, endOfBlock}));
    expect(pda.read(screen({u"PDMD", u"   2 ALPHA", u"   3 BETA", u"", u"", u""}), page), u"ALPHA,BETA", false);
}

TEST_F(SimilarNames, AContinuationWithoutLine5PassesTheFlagThrough) {
    expect(pda.read(screen({u"PDMD", first, endOfBlock}), continued), u"", true);
}

TEST_F(SimilarNames, AContinuationsLine2MustBeUsable) {
    expect(pda.read(screen({u"PDMD", first, u">", u"", u"", u""}), continued), u"", true);
}

TEST_F(SimilarNames, OnlyTheFirstRoundOfAContinuationBeginsALineEarlier) {
    // A later round continues on the line after the numbered end line.
    expect(pda.read(screen({u"PDMD", first, u"   7 END OF BLOCK - USE PDMD", u"   8 ALPHA", u"   9 BETA", u""}),
                    continued),
           u"KESTRELLO TOOLS,ALPHA,BETA", false);
}

TEST_F(SimilarNames, AnEndOfBlockInANumberedLineSearchesForAnotherHeader) {
    expect(pda.read(screen({u"", title, header, first, u"   2 END OF BLOCK - USE PDMD", u"   3 ALPHA", header,
                            u"   4 BETA", u">"})),
           u"KESTRELLO TOOLS,BETA", false);
}

TEST_F(SimilarNames, AnotherScreenPassesTheFlagThrough) {
    expect(pda.read(screen({u"PDA/KES", u"*T* SMITH", header, first}), Entries{{u"blnKeyEndOfBlock", false}}), u"",
           false);
    expect(pda.read(screen({u"PDMD", u">"}), continued), u"", true);
}

}  // namespace
}  // namespace vantro::test
