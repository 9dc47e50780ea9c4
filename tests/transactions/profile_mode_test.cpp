// The profile mode cycle: what confirms a step, and what is returned.
#include "tests/framework/raised.h"
#include "tests/support/driven_class.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <array>

namespace vantro::test {
namespace {

struct Mode {
    bool update = false;
    bool exit = false;
    bool enter = false;
    bool ignore = false;
};

constexpr Mode enter{false, false, true, false};
constexpr Mode leave{false, true, false, false};
constexpr Mode update{true, false, false, false};
constexpr Mode updateAndLeave{true, true, false, false};
constexpr Mode ignore{false, false, false, true};
constexpr Mode ignoreAndLeave{false, true, false, true};

Entries flags(const Mode& mode) {
    return {{u"blnKeyUpdate", mode.update},
            {u"blnKeyExit", mode.exit},
            {u"blnKeyEnter", mode.enter},
            {u"blnKeyIgnore", mode.ignore}};
}

bool confirmed(const Mode& mode, const Text& response) {
    DrivenClass driven(u"CProfileMode");
    const CollectionPtr results = driven.read(response, flags(mode));
    EXPECT_TRUE(driven.reported.empty());
    return valueOf(results, u"blnKeyResponseOK") == ItemValue(true);
}

constexpr TextView shown = u"*PROFILE MODE*";
constexpr TextView exited = u"PROFILE MODE EXITED";
constexpr TextView complete = u"END OF TRANSACTION COMPLETE";
constexpr TextView ignored = u"IGNORED";

TEST(ProfileMode, EachStepHasItsConfirmation) {
    EXPECT_TRUE(confirmed(enter, screen({u"PM", shown})));
    EXPECT_TRUE(confirmed(leave, screen({u"PME", exited})));
    EXPECT_TRUE(confirmed(update, screen({u"PE", complete})));
    EXPECT_TRUE(confirmed(updateAndLeave, screen({u"PEE", complete, exited})));
    EXPECT_TRUE(confirmed(ignore, screen({u"PI", ignored})));
    EXPECT_TRUE(confirmed(ignoreAndLeave, screen({u"PIE", ignored, exited})));
}

TEST(ProfileMode, AStepAcceptsNoOtherConfirmation) {
    EXPECT_FALSE(confirmed(enter, screen({u"PM", exited, complete, ignored, exited})));
    EXPECT_FALSE(confirmed(leave, screen({u"PME", shown, complete, ignored})));
    EXPECT_FALSE(confirmed(update, screen({u"PE", shown, exited, ignored})));
    EXPECT_FALSE(confirmed(updateAndLeave, screen({u"PEE", shown, complete, ignored})));
    EXPECT_FALSE(confirmed(ignore, screen({u"PI", shown, complete, exited})));
    EXPECT_FALSE(confirmed(ignoreAndLeave, screen({u"PIE", shown, complete, exited})));
}

TEST(ProfileMode, EveryOtherCombinationIsNeverConfirmed) {
    const Text everything = screen({u"", shown, complete, ignored, exited});
    for (unsigned bits = 0; bits < 16; ++bits) {
        const Mode mode{(bits & 8U) != 0, (bits & 4U) != 0, (bits & 2U) != 0, (bits & 1U) != 0};
        // Enter, ignore, exit, exit and ignore, update, update and exit.
        const bool valid = bits == 2 || bits == 1 || bits == 4 || bits == 5 || bits == 8 || bits == 12;
        EXPECT_EQ(confirmed(mode, everything), valid) << bits;
    }
}

TEST(ProfileMode, ExitAfterAnUpdateNeedsNoEndOfTransaction) {
    EXPECT_TRUE(confirmed(updateAndLeave, screen({u"PEE", exited})));
}

TEST(ProfileMode, ExitAndIgnoredNeedTheirFiveBlanks) {
    EXPECT_FALSE(confirmed(leave, screen({u"PME"}) + u"PROFILE MODE EXITED"));
    EXPECT_FALSE(confirmed(leave, screen({u"PME"}) + u"PROFILE MODE EXITED    "));
    EXPECT_TRUE(confirmed(leave, screen({u"PME"}) + u"PROFILE MODE EXITED     "));
    EXPECT_FALSE(confirmed(updateAndLeave, screen({u"PEE"}) + u"PROFILE MODE EXITED    "));
    EXPECT_FALSE(confirmed(ignore, screen({u"PI"}) + u"IGNORED    "));
    EXPECT_TRUE(confirmed(ignore, screen({u"PI"}) + u"IGNORED     "));
    EXPECT_FALSE(confirmed(ignoreAndLeave, screen({u"PIE", u"IGNORED    X", exited})));
}

TEST(ProfileMode, CaseCounts) { EXPECT_FALSE(confirmed(enter, screen({u"PM", u"*profile mode*"}))); }

TEST(ProfileMode, AMarkMayCrossTheEndOfALine) {
    const Text edge = screen({u"PM"}) + Text(73, u' ') + u"*PROFILE MODE*";
    EXPECT_TRUE(confirmed(enter, edge));
}

TEST(ProfileMode, AnExitTextOnTheLineOfIgnoredDoesNotCount) {
    EXPECT_FALSE(confirmed(ignoreAndLeave, screen({u"PIE", u"IGNORED     PROFILE MODE EXITED     "})));
}

TEST(ProfileMode, TheExitTextCountsFrom80CharactersAfterTheBeginningOfIgnored) {
    // "IGNORED" begins in column 3 of line 1. In column 2 of line 2 the exit text is too early, in column 3 it counts.
    EXPECT_FALSE(confirmed(ignoreAndLeave, screen({u"PIE", u"  IGNORED", u" PROFILE MODE EXITED"})));
    EXPECT_TRUE(confirmed(ignoreAndLeave, screen({u"PIE", u"  IGNORED", u"  PROFILE MODE EXITED"})));
}

TEST(ProfileMode, TheFirstIgnoredCounts) {
    EXPECT_TRUE(confirmed(ignoreAndLeave, screen({u"PIE", ignored, exited, ignored})));
    EXPECT_FALSE(confirmed(ignoreAndLeave, screen({u"PIE", exited, ignored})));
}

TEST(ProfileMode, ThePositionOfIgnoredIsA16BitInteger) {
    // 32687 + 80 is 32767, the highest 16-bit position.
    DrivenClass driven(u"CProfileMode");
    const auto response = [](std::size_t before) {
        return Text(before, u'X') + Text(u"IGNORED     ") + Text(80, u' ') + Text(u"PROFILE MODE EXITED     ");
    };
    CollectionPtr results = driven.read(response(32686), flags(ignoreAndLeave));
    EXPECT_EQ(valueOf(results, u"blnKeyResponseOK"), ItemValue(true));
    EXPECT_TRUE(driven.reported.empty());

    results = driven.read(response(32687), flags(ignoreAndLeave));
    EXPECT_EQ(valueOf(results, u"blnKeyResponseOK"), ItemValue(false));
    EXPECT_EQ(valueOf(results, u"strKeyErrorString"), ItemValue(Text(80, u'X')));
    ASSERT_EQ(driven.reported.size(), 1U);
    EXPECT_EQ(driven.reported[0].number(), 6);
}

TEST(ProfileMode, TheMessageIsLine1OfAConfirmedStepToo) {
    DrivenClass driven(u"CProfileMode");
    const CollectionPtr done = driven.read(screen({u"PM", u"  *PROFILE MODE*  "}), flags(enter));
    EXPECT_EQ(valueOf(done, u"strKeyErrorString"), ItemValue(Text(u"*PROFILE MODE*")));
    const CollectionPtr refused = driven.read(screen({u"PM", u" NOT AUTHORIZED", shown}), flags(leave));
    EXPECT_EQ(valueOf(refused, u"strKeyErrorString"), ItemValue(Text(u"NOT AUTHORIZED")));
    const CollectionPtr bare = driven.read(u"PM", flags(enter));
    EXPECT_EQ(valueOf(bare, u"strKeyErrorString"), ItemValue(Text()));
}

TEST(ProfileMode, AddsToItsParametersAndReturnsThem) {
    DrivenClass driven(u"CProfileMode");
    const CollectionPtr given = collection(flags(enter));
    Entries expected = flags(enter);
    expected.emplace_back(u"blnKeyResponseOK", true);
    expected.emplace_back(u"strKeyErrorString", u"*PROFILE MODE*");
    EXPECT_EQ(driven.read(screen({u"PM", shown}), given), given);
    EXPECT_EQ(entriesOf(given), expected);
}

TEST(ProfileMode, NeedsACollection) {
    DrivenClass driven(u"CProfileMode");
    const auto error = raised([&] { driven.read(screen({u"PM", shown})); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 5045);
    EXPECT_EQ(utf8(error->description()), "An error has occurred while verifying the profile.");
    EXPECT_EQ(utf8(error->source()), "VantroProfileUtils");
    EXPECT_TRUE(driven.reported.empty());
}

}  // namespace
}  // namespace vantro::test
