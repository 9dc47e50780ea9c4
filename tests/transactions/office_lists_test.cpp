// "PLT": the company names and the record locators of travellers without a company.
#include "tests/support/driven_class.h"
#include "tests/support/screens.h"

#include <gtest/gtest.h>

namespace vantro::test {
namespace {

constexpr TextView companies = u"SIMILAR COMPANY NAME LIST";
constexpr TextView companyHeader = u"     COMPANY     ";
constexpr TextView travellers = u"TRAVELLER LIST FOR NCEVN3101";
//                                    ....+....1....+....2....+....3....+....4
constexpr TextView travellerHeader = u"     NAME                   RECLOC  COMPANY";
constexpr TextView alone = u"   1 ABELMANN/IDA MS        H1J2K3";
constexpr TextView ofCompany = u"   2 BOROVIK/JURI MR        H4J5K6  KES";
constexpr TextView endOfBlock = u"END OF BLOCK - USE PDMD";

class OfficeList : public testing::Test {
protected:
    void expectNames(const Text& response, const char16_t* names) {
        const CollectionPtr results = plt.read(response);
        EXPECT_EQ(valueOf(results, u"strKeyCoNames"), ItemValue(Text(names)));
        EXPECT_EQ(valueOf(results, u"strKeyNoCoAssoArray()"), ItemValue(TextList{u""}));
    }

    void expectLocators(const Text& response, const TextList& locators) {
        const CollectionPtr results = plt.read(response);
        EXPECT_EQ(valueOf(results, u"strKeyNoCoAssoArray()"), ItemValue(locators));
        EXPECT_EQ(valueOf(results, u"strKeyCoNames"), ItemValue(Text()));
    }

    DrivenClass plt{u"CPLTTrans"};
};

TEST_F(OfficeList, NamesAreTrimmedAndJoined) {
    expectNames(screen({u"PLT//KES", companies, u"", companyHeader, u"   1   KESTRELLO  ", u"  12 KESWICK", u">"}),
                u"KESTRELLO,KESWICK");
}

TEST_F(OfficeList, NamesOfTwoBlocksAreOneText) {
    expectNames(screen({u"", companies, u"", companyHeader, u"   1 ALPHA", u"", u"OTHER OFFICES", companyHeader,
                        u"   2 BETA", u">"}),
                u"ALPHA,BETA");
}

TEST_F(OfficeList, NamesBeginOnLine3WhereverTheTitleIs) {
    expectNames(screen({u"", u"X", u"X", companyHeader, u"   1 ALPHA", companies, companyHeader, u"   2 BETA", u">"}),
                u"ALPHA,BETA");
    expectNames(screen({u"", companies, companyHeader, u"   1 ALPHA", u">"}), u"");
}

TEST_F(OfficeList, TheTitleLineIsNeverAHeader) {
    expectNames(screen({u"", u"SIMILAR COMPANY NAME LIST     COMPANY     ", u"", u"   1 ALPHA", u">"}), u"");
}

TEST_F(OfficeList, AnUnusableTitleLineCollectsNothing) {
    expectNames(screen({u"", u"SIMILAR COMPANY NAME LIST >", u"", companyHeader, u"   1 ALPHA"}), u"");
}

TEST_F(OfficeList, TheLineThatEndsABlockMayBeTheNextHeader) {
    expectNames(screen({u"", companies, u"", companyHeader, u"   1 ALPHA", companyHeader, u"   2 BETA", u">"}),
                u"ALPHA,BETA");
    expectNames(screen({u"", companies, u"", companyHeader, companyHeader, u"   2 BETA", u">"}), u"BETA");
}

TEST_F(OfficeList, AHeaderWithANumberIsAnEntryOfItsBlock) {
    expectNames(screen({u"", companies, u"", companyHeader, u"   1      COMPANY     ", u">"}), u"COMPANY");
}

TEST_F(OfficeList, ABlankFirstNameIsFollowedByAComma) {
    expectNames(screen({u"", companies, u"", companyHeader, u"   1", u"   2 BETA", u">"}), u",BETA");
}

TEST_F(OfficeList, APromptEndsTheNames) {
    expectNames(screen({u"", companies, u"", companyHeader, u"   1 ALPHA", u"   2 BETA>", companyHeader, u"   3 G"}),
                u"ALPHA");
    expectNames(screen({u"", companies, u"", u">", companyHeader, u"   1 ALPHA"}), u"");
}

TEST_F(OfficeList, TheEndOfTheTextEndsTheNames) {
    expectNames(screen({u"", companies, u"", companyHeader, u"   1 ALPHA"}), u"ALPHA");
}

TEST_F(OfficeList, TravellersWithoutACompanyAreCollected) {
    expectLocators(screen({u"PLT", travellers, u"", travellerHeader, alone, ofCompany, u">"}), {u"", u"H1J2K3"});
}

TEST_F(OfficeList, AnyTextFromColumn35IsACompany) {
    //                                                               ....+....1....+....2....+....3....+
    const Text at35 = screen({u"PLT", travellers, u"", travellerHeader, u"   1 A                      H1J2K3X", u">"});
    expectLocators(at35, {u""});
    Text atTheEnd = screen({u"PLT", travellers, u"", travellerHeader, alone, u">"});
    atTheEnd[4 * 80 + 79] = u'X';
    expectLocators(atTheEnd, {u""});
}

TEST_F(OfficeList, TheLocatorIsSixCharactersUnchanged) {
    expectLocators(screen({u"PLT", travellers, u"", travellerHeader, u"   1 A                      H1 2", u"X", u">"}),
                   {u"", u"H1 2  ", u"      "});
}

TEST_F(OfficeList, ALineShorterThanTheLocatorIsReadAsFarAsItGoes) {
    Text list = screen({u"PLT", travellers, u"", travellerHeader});
    list += u"   1 A                      H1J";
    expectLocators(list, {u"", u"H1J"});
}

TEST_F(OfficeList, AnEndOfBlockEndsOnlyItsBlock) {
    expectLocators(screen({u"PLT", travellers, u"", travellerHeader, alone, endOfBlock, u"X", travellerHeader,
                           u"   3 C                      L1K2J3", u">"}),
                   {u"", u"H1J2K3", u"L1K2J3"});
}

TEST_F(OfficeList, APromptEndsTheScan) {
    expectLocators(screen({u"PLT", travellers, u"", travellerHeader, alone, u">", travellerHeader, alone}),
                   {u"", u"H1J2K3"});
}

TEST_F(OfficeList, TheScanBeginsOnLine3) {
    expectLocators(screen({u"PLT", travellers, travellerHeader, alone, u">"}), {u""});
}

TEST_F(OfficeList, Line1MustBeUsable) {
    expectLocators(screen({u"PLT", u"TRAVELLER LIST FOR >", u"", travellerHeader, alone}), {u""});
    // The title may be further down: line 1 still counts.
    expectLocators(screen({u"PLT", u">", travellers, travellerHeader, alone}), {u""});
}

TEST_F(OfficeList, TheColumnTitleNeedsItsBlank) {
    expectLocators(screen({u"PLT", travellers, u"", u"     NAME                   RECLOCS", alone, u">"}), {u""});
}

TEST_F(OfficeList, LocatorsAreCollectedForATravellerListOnly) {
    const CollectionPtr results = plt.read(screen({u"PLT", u"*T* SMITH", u"", travellerHeader, alone, u">"}));
    EXPECT_EQ(valueOf(results, u"strKeyNoCoAssoArray()"), ItemValue(TextList{u""}));
}

}  // namespace
}  // namespace vantro::test
