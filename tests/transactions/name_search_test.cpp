// "PDN": the company names of a list, the record locator's column and the paging state.
#include "tests/support/driven_class.h"
#include "tests/support/screens.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace vantro::test {
namespace {

const ItemValue none{Text()};
ItemValue text(const char16_t* characters) { return Text(characters); }
ItemValue number(std::int16_t value) { return value; }

class NameSearch : public testing::Test {
protected:
    // The values that a company list adds.
    void expect(const CollectionPtr& results, const char16_t* names, bool endOfBlock, const ItemValue& column) {
        ASSERT_NE(results, nullptr);
        EXPECT_EQ(keysOf(results).size(), 8U);
        EXPECT_EQ(valueOf(results, u"strKeyCoNames"), text(names));
        EXPECT_EQ(valueOf(results, u"blnKeyEndOfBlock"), ItemValue(endOfBlock));
        EXPECT_EQ(valueOf(results, u"strKeyRecLocPos"), column);
    }

    // The state that a first screen leaves for its continuation.
    static Entries state(bool endOfBlock, ItemValue column) {
        return {{u"blnKeyEndOfBlock", endOfBlock}, {u"strKeyRecLocPos", std::move(column)}};
    }

    DrivenClass pdn{u"CPDNTrans"};
};

constexpr TextView title = u"SIMILAR COMPANY NAME LIST";
//                           ....+....1....+....2....+....3
constexpr TextView header = u"     COMPANY         RECLOC     ";  // the locator's column is 22
constexpr TextView first = u"   1 KESTRELLO       Q2W3E4";
constexpr TextView second = u"   2 KESWICK INKS    J8K9L1";
constexpr TextView endOfBlock = u"END OF BLOCK - USE PDMD";

TEST_F(NameSearch, CollectsTheNamesJoinedByCommas) {
    expect(pdn.read(screen({u"PDN/KES", title, header, first, second, u">"})), u"KESTRELLO,KESWICK INKS", false,
           number(22));
}

TEST_F(NameSearch, StopsAtTheEndOfBlock) {
    expect(pdn.read(screen({u"PDN/KES", title, header, first, endOfBlock, second})), u"KESTRELLO", true, number(22));
}

TEST_F(NameSearch, SkipsLinesBeforeTheHeader) {
    expect(pdn.read(screen({u"PDN/KES", title, u"", first, header, second, u">"})), u"KESWICK INKS", false, number(22));
}

TEST_F(NameSearch, SearchesTheHeaderFromLine2WhereverTheTitleIs) {
    expect(pdn.read(screen({u"PDN/KES", u"X", header, first, u"  ", title, header, second, u">"})), u"KESTRELLO", false,
           number(22));
}

TEST_F(NameSearch, TheColumnIsReturnedAsANumberOnlyWhenThisCallFoundIt) {
    const Text list = screen({u"PDN/KES", title, header, first, endOfBlock});
    expect(pdn.read(list, state(false, none)), u"KESTRELLO", true, number(22));
    expect(pdn.read(list, state(false, text(u"22"))), u"KESTRELLO", true, text(u"22"));
    expect(pdn.read(list, state(false, number(22))), u"KESTRELLO", true, text(u"22"));
}

TEST_F(NameSearch, AnIncomingColumnIsNotSearchedAgain) {
    expect(pdn.read(screen({u"PDN/KES", title, header, first, u">"}), state(false, text(u"14"))), u"KESTREL", false,
           text(u"14"));
}

TEST_F(NameSearch, WithoutALocatorTitleTheColumnIs5AndNamesRunToTheEndOfTheLine) {
    const CollectionPtr results = pdn.read(screen({u"", title, u"     COMPANY     ", first, second, u">"}));
    // The first name is trimmed when the comma is added, the last one at the end.
    expect(results, u"KESTRELLO       Q2W3E4,KESWICK INKS    J8K9L1", false, number(5));
}

TEST_F(NameSearch, TheColumnTitlesNeedFiveBlanksOnBothSides) {
    expect(pdn.read(screen({u"", title, u"    COMPANY      RECLOC", first, u">"})), u"", false, none);
    expect(pdn.read(screen({u"", title, u"     COMPANY     RECLOC    X", first, u">"})), u"KESTRELLO       Q2W3E4",
           false, number(5));
}

TEST_F(NameSearch, TheLocatorTitleMayShareBlanksWithTheCompanyTitle) {
    // Five blanks between the words serve both titles: the "R" is in column 18.
    expect(pdn.read(screen({u"", title, u"     COMPANY     RECLOC     ", u"   1 KESTRELLO   Q2W3E4", u">"})),
           u"KESTRELLO", false, number(18));
}

TEST_F(NameSearch, TheColumnLeftOfTheLocatorIsNeverCopied) {
    // Column 21 contains the last letter: it is tested, but not copied.
    expect(pdn.read(screen({u"", title, header, u"   1 KESTRELLO TOOLERQ2W3E4", u">"})), u"KESTRELLO TOOLE", false,
           number(22));
}

TEST_F(NameSearch, AWrappedNameIsJoinedUnchangedWithoutAComma) {
    expect(pdn.read(screen({u"", title, header, first, u"     TOOLS", second, u">"})),
           u"KESTRELLO      TOOLS,KESWICK INKS", false, number(22));
}

TEST_F(NameSearch, ALetterInTheUncopiedColumnMakesALineAContinuation) {
    // Columns 6 to 20 are blank, column 21 is not: fifteen blanks are appended and trimmed at the end.
    expect(pdn.read(screen({u"", title, header, first, u"                    X", u"   2 ALPHA", u">"})),
           u"KESTRELLO,ALPHA", false, number(22));
}

TEST_F(NameSearch, AContinuationLineBeforeAnyCompanyIsCollectedToo) {
    expect(pdn.read(screen({u"", title, header, u"     TOOLS", first, u">"})), u"TOOLS,KESTRELLO", false, number(22));
}

TEST_F(NameSearch, ALineWithALocatorButNoNumberEndsTheList) {
    expect(pdn.read(screen({u"", title, header, first, u"     KESWICK INKS    J8K9L1", second, u">"})), u"KESTRELLO",
           false, number(22));
}

TEST_F(NameSearch, ABlankLineEndsTheList) {
    expect(pdn.read(screen({u"", title, header, first, u"", second, u">"})), u"KESTRELLO", false, number(22));
}

TEST_F(NameSearch, AListNumberIsDigitsOnly) {
    expect(pdn.read(screen({u"", title, header, u"  1  ALPHA", u"  12 BETA", u"  1. GAMMA", u">"})), u"ALPHA,BETA",
           false, number(22));
    expect(pdn.read(screen({u"", title, header, u"  1.5ALPHA", u">"})), u"", false, number(22));
}

TEST_F(NameSearch, ANumberedCompanyWithoutANameIsStillCounted) {
    // The name is fifteen blanks: the text is not empty, so the next name is preceded by a comma.
    expect(pdn.read(screen({u"", title, header, u"   1                 Q2W3E4", second, u">"})), u",KESWICK INKS",
           false, number(22));
}

TEST_F(NameSearch, APromptInALineEndsTheList) {
    expect(pdn.read(screen({u"", title, header, first, u"   2 KESWICK>        J8K9L1"})), u"KESTRELLO", false,
           number(22));
}

TEST_F(NameSearch, APromptEndsTheListInEveryColumn) {
    const Text list = screen({u"", title, header, first, second});
    const std::size_t lastLine = list.size() - 80;
    expect(pdn.read(list), u"KESTRELLO,KESWICK INKS", false, number(22));
    for (std::size_t place = lastLine; place < list.size(); ++place) {
        Text ended = list;
        ended[place] = u'>';
        expect(pdn.read(ended), u"KESTRELLO", false, number(22));
    }
}

TEST_F(NameSearch, AnEndOfBlockEndsTheListInEveryColumn) {
    const Text list = screen({u"", title, header, first, second});
    for (std::size_t place = list.size() - 80; place <= list.size() - endOfBlock.size(); ++place) {
        Text ended = list;
        ended.replace(place, endOfBlock.size(), endOfBlock);
        expect(pdn.read(ended), u"KESTRELLO", true, number(22));
    }
}

TEST_F(NameSearch, AHyphenIsPartOfAName) {
    expect(pdn.read(screen({u"", title, header, u"   1 KESTREL-LO      Q2W3E4", second})), u"KESTREL-LO,KESWICK INKS",
           false, number(22));
}

TEST_F(NameSearch, AnEndOfBlockInANumberedLineResumesTheHeaderSearch) {
    expect(pdn.read(screen({u"", title, header, first, u"   2 END OF BLOCK - USE PDMD", header, second, u">"})),
           u"KESTRELLO,KESWICK INKS", false, number(22));
    expect(pdn.read(screen({u"", title, header, first, u"   2 END OF BLOCK - USE PDMD", u">"})), u"KESTRELLO", true,
           number(22));
}

TEST_F(NameSearch, AnUnusableTitleLineEndsTheSearchBeforeItBegins) {
    expect(pdn.read(screen({u"", u"SIMILAR COMPANY NAME LIST >", header, first})), u"", false, none);
}

TEST_F(NameSearch, AHeaderWithAPromptIsNotAHeader) {
    expect(pdn.read(screen({u"", title, u"     COMPANY         RECLOC     >", first})), u"", false, none);
}

TEST_F(NameSearch, AContinuationIsReadFromLine2WithTheFirstScreensColumn) {
    // Lines up to 9 must exist: the last line that could have a title is the first one tested.
    const Text continuation = screen({u"PDMD", u"   9 NOT READ", first, second, endOfBlock, u"", u"", u"", u"", u""});
    const CollectionPtr results = pdn.read(continuation, state(true, text(u"22")));
    expect(results, u"KESTRELLO,KESWICK INKS", true, text(u"22"));
    EXPECT_TRUE(flagsOf(results) == std::vector<std::string>{"blnKeyEndOfBlock"});
}

TEST_F(NameSearch, TheResultOfAScreenIsTheStateOfTheNext) {
    const CollectionPtr page = pdn.read(screen({u"", title, header, first, endOfBlock}));
    const Text lines = screen({u"PDMD", header, second, u"", u"", u"", u"", u"", u"", u""});
    expect(pdn.read(lines, page), u"KESWICK INKS", false, text(u"22"));
}

TEST_F(NameSearch, AContinuationWithoutLine9CollectsNothing) {
    expect(pdn.read(screen({u"PDMD", header, first, endOfBlock}), state(true, text(u"22"))), u"", true, text(u"22"));
}

TEST_F(NameSearch, AContinuationWithAPromptOnLine9CollectsNothing) {
    const Text lines = screen({u"PDMD", header, first, second, u"", u"", u"", u"", u"", u">"});
    expect(pdn.read(lines, state(true, text(u"22"))), u"", true, text(u"22"));
}

TEST_F(NameSearch, AContinuationsFirstLineMustBeUsable) {
    const Text lines = screen({u"PDMD", header, u">", second, u"", u"", u"", u"", u"", u""});
    expect(pdn.read(lines, state(true, text(u"22"))), u"", true, text(u"22"));
}

TEST_F(NameSearch, AContinuationThatShowsATitleIsStillReadFromLine2) {
    const CollectionPtr results = pdn.read(screen({u"PDMD", title, first, endOfBlock}), state(true, text(u"22")));
    expect(results, u"KESTRELLO", true, text(u"22"));
    EXPECT_EQ(valueOf(results, u"blnKeyCompanyList"), ItemValue(true));
}

TEST_F(NameSearch, AContinuationWithoutAColumnTakesItFromItsFirstLine) {
    const Text lines = screen({u"PDMD", title, u"   1 KESTRELLO     RECLOC     ", endOfBlock});
    // The line is searched as a header, which finds column 20, and is then read as an entry.
    expect(pdn.read(lines, state(true, none)), u"KESTRELLO", true, number(20));
}

TEST_F(NameSearch, AContinuationReturnsTheFlagAsItCameIn) {
    // After the numbered end line no header is needed: the line after it is the next entry.
    const Text lines = screen({u"PDMD", title, first, u"   7 END OF BLOCK - USE PDMD", second, u">"});
    expect(pdn.read(lines, state(true, text(u"22"))), u"KESTRELLO,KESWICK INKS", false, text(u"22"));
}

TEST_F(NameSearch, AnyOtherScreenPassesTheStateThrough) {
    const Text profile = screen({u"", u"*T* SMITH", first});
    expect(pdn.read(profile, state(false, text(u"abc"))), u"", false, text(u"abc"));
    expect(pdn.read(profile, state(false, none)), u"", false, none);
    EXPECT_TRUE(pdn.reported.empty());
}

TEST_F(NameSearch, AnIncomingColumnIsConvertedOnlyWhenNeeded) {
    const Text list = screen({u"", title, header, first, u">"});
    expect(pdn.read(list, state(false, text(u" 22 "))), u"KESTRELLO", false, text(u" 22 "));
    EXPECT_TRUE(pdn.reported.empty());
    const Text noEntry = screen({u"", title, header, u">"});
    expect(pdn.read(noEntry, state(false, text(u"abc"))), u"", false, text(u"abc"));
    EXPECT_TRUE(pdn.reported.empty());
}

TEST_F(NameSearch, AColumnThatIsNotANumberIsReported) {
    const Text list = screen({u"", title, header, first, endOfBlock});
    expect(pdn.read(list, state(false, text(u"abc"))), u"", false, text(u"abc"));
    ASSERT_EQ(pdn.reported.size(), 1U);
    EXPECT_EQ(pdn.reported[0].number(), 13);
}

TEST_F(NameSearch, AColumnBelow1OrBeyond16BitsIsReported) {
    const Text list = screen({u"", title, header, first, endOfBlock});
    for (const auto& [column, error] : {std::pair(u"0", 5), std::pair(u"-3", 5), std::pair(u"32768", 6)}) {
        pdn.reported.clear();
        expect(pdn.read(list, state(false, text(column))), u"", false, text(column));
        ASSERT_EQ(pdn.reported.size(), 1U);
        EXPECT_EQ(pdn.reported[0].number(), error);
    }
}

TEST_F(NameSearch, AColumnLeftOfTheNamesMeansTheWholeRestOfALine) {
    const Text list = screen({u"", title, header, u"   1 ALPHA BETA", u">"});
    for (const char16_t* const column : {u"1", u"3", u"5"}) {
        expect(pdn.read(list, state(false, text(column))), u"ALPHA BETA", false, text(column));
    }
    // At 6 and 7 there is no room for a name.
    for (const char16_t* const column : {u"6", u"7"}) {
        expect(pdn.read(list, state(false, text(column))), u"", false, text(column));
    }
    expect(pdn.read(list, state(false, text(u"8"))), u"A", false, text(u"8"));
    expect(pdn.read(list, state(false, text(u"32767"))), u"ALPHA BETA", false, text(u"32767"));
    EXPECT_TRUE(pdn.reported.empty());
}

TEST_F(NameSearch, AHeaderSearchBeyondLine32767IsReported) {
    Text endless = screen({u"", title});
    endless.append((std::numeric_limits<std::int16_t>::max() - 1) * std::size_t{80}, u' ');
    expect(pdn.read(endless + screen({header, first, u">"})), u"", false, none);
    ASSERT_EQ(pdn.reported.size(), 1U);
    EXPECT_EQ(pdn.reported[0].number(), 6);
}

}  // namespace
}  // namespace vantro::test
