// An object that reads the same text again and again, while its lines change or do not.
#include "tests/profile/effort.h"
#include "tests/profile/oracle_match.h"
#include "tests/profile/parser.h"
#include "tests/profile/random_displays.h"
#include "tests/support/own_lines_terminal.h"
#include "vantro/observer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace vantro {
namespace {

constexpr std::size_t width = 80;

/// Replaces a line by another text, padded or cut; the display keeps its size.
void replaceLine(Text& display, std::size_t number, TextView line) {
    const std::size_t size = std::min(width, display.size() - number * width);
    Text padded(line.substr(0, size));
    padded.resize(size, u' ');
    display.replace(number * width, size, padded);
}

Text numbered(const std::vector<std::string>& lines) { return ended(lines); }

std::vector<std::string> texts(Parser& parser, const std::string& family, TextView display) {
    parser.count(family + "ElementsCount", display);
    return parser.list("str" + family + "Text");
}

const Lines twoSections{
    "HEAD",
    "------- PRIORITY",                 // 1
    "   1 PPR/ FIRST",                  // 2
    "------- TRAVEL POLICIES - HOTEL",  // 3
    "   2 PHI/ SECOND",                 // 4
    "         CONTINUED",               // 5
    "   3 PPH/ THIRD",                  // 6
    "------- DOCUMENTS",                // 7
    "   4 PAS/ FOURTH",                 // 8
};

/// A parser that read every family of the display, so that it knows all lines.
class KnownDisplayTest : public testing::Test {
protected:
    void SetUp() override {
        for (int round = 0; round < 2; ++round) {
            for (const char* const family : {"PPR", "PHI", "PPH", "PAS", "Remark"}) texts(parser_, family, display_);
        }
    }

    void change(std::size_t number, TextView line) { replaceLine(display_, number, line); }
    std::vector<std::string> texts(const std::string& family) { return vantro::texts(parser_, family, display_); }

    static std::vector<std::string> texts(Parser& parser, const std::string& family, TextView display) {
        return vantro::texts(parser, family, display);
    }

    Text display_ = numbered(twoSections);
    Parser parser_;
};

TEST_F(KnownDisplayTest, AnUnchangedOneIsReadTheSame) {
    EXPECT_EQ(texts("PPR"), (Texts{"", "FIRST"}));
    EXPECT_EQ(texts("PHI"), (Texts{"", "SECONDCONTINUED"}));
    EXPECT_EQ(texts("PPH"), (Texts{"", "THIRD"}));
    EXPECT_EQ(texts("PAS"), (Texts{"", "FOURTH"}));
}

TEST_F(KnownDisplayTest, AChangedElementIsRead) {
    change(4, u"   2 PHI/ CHANGED");
    EXPECT_EQ(texts("PHI"), (Texts{"", "CHANGEDCONTINUED"}));
    EXPECT_EQ(texts("PPH"), (Texts{"", "THIRD"}));
}

TEST_F(KnownDisplayTest, AChangedContinuationIsRead) {
    change(5, u"   3 PHI/ OWN");
    EXPECT_EQ(texts("PHI"), (Texts{"", "SECOND", "OWN"}));
}

TEST_F(KnownDisplayTest, AHeaderThatWentIsNotFound) {
    change(3, u"NO HEADER");
    EXPECT_EQ(texts("PHI"), (Texts{""}));
    EXPECT_EQ(texts("PAS"), (Texts{"", "FOURTH"}));
}

TEST_F(KnownDisplayTest, AHeaderThatMovedUpIsFound) {
    change(0, u"------- TRAVEL POLICIES - HOTEL");
    change(1, u"   1 PHI/ ABOVE");
    EXPECT_EQ(texts("PHI"), (Texts{"", "ABOVE"}));
    EXPECT_EQ(texts("PPR"), (Texts{""}));
}

TEST_F(KnownDisplayTest, AnEndAboveASectionHidesIt) {
    change(2, u"END OF DISPLAY");
    EXPECT_EQ(texts("PHI"), (Texts{""}));
    EXPECT_EQ(texts("PPR"), (Texts{""}));
    change(2, u"   1 PPR/ BACK");
    EXPECT_EQ(texts("PHI"), (Texts{"", "SECONDCONTINUED"}));
    EXPECT_EQ(texts("PPR"), (Texts{"", "BACK"}));
}

TEST_F(KnownDisplayTest, AChangeBelowASectionIsSeenByTheNextOne) {
    change(8, u"   4 PIV/ OTHER");
    EXPECT_EQ(texts("PHI"), (Texts{"", "SECONDCONTINUED"}));
    EXPECT_EQ(texts("PAS"), (Texts{""}));
    EXPECT_EQ(texts("PIV"), (Texts{"", "OTHER"}));
}

// No character above U+00FF decides what a line contains, but elements contain them.
TEST_F(KnownDisplayTest, ACharacterThatIsNotLatinIsReadAgain) {
    change(4, u"   2 PHI/ \u0141\u00D3D\u0179");
    EXPECT_EQ(texts("PHI"), (Texts{"", utf8(u"\u0141\u00D3D\u0179CONTINUED")}));
    change(4, u"   2 PHI/ \u0142\u00D3D\u017A");
    EXPECT_EQ(texts("PHI"), (Texts{"", utf8(u"\u0142\u00D3D\u017ACONTINUED")}));
}

TEST_F(KnownDisplayTest, ADisplayOfAnotherSizeIsReadAnew) {
    const TextView shorter = TextView(display_).substr(0, 5 * width);
    EXPECT_EQ(parser_.count("PPRElementsCount", shorter), 1);
    EXPECT_EQ(raisedBy([&] { parser_.count("PHIElementsCount", shorter); }), verifying(5272));
    EXPECT_EQ(texts("PHI"), (Texts{"", "SECONDCONTINUED"}));
}

TEST_F(KnownDisplayTest, ADisplayWithoutAnEndFailsEachTime) {
    std::ranges::replace(display_, u'>', u' ');
    const std::size_t end = display_.find(u"END OF");
    display_.replace(end, 3, u"AND");
    for (int call = 0; call < 4; ++call) {
        EXPECT_EQ(raisedBy([&] { parser_.count("PXTElementsCount", display_); }), verifying(5286));
        EXPECT_EQ(texts("PHI"), (Texts{"", "SECONDCONTINUED"}));
    }
}

// The last line may be shorter than 80 characters.
TEST_F(KnownDisplayTest, AShortLastLineThatChangedIsRead) {
    Text display = display_.substr(0, 8 * width) + u"   4 PAS/ LAST>";
    for (int call = 0; call < 3; ++call) EXPECT_EQ(texts(parser_, "PAS", display), (Texts{"", "LAST>"}));
    display.replace(display.size() - 5, 4, u"NEXT");
    EXPECT_EQ(texts(parser_, "PAS", display), (Texts{"", "NEXT>"}));
}

// Such a display is longer than what an object keeps.
TEST_F(KnownDisplayTest, AVeryLongOneThatChangedIsRead) {
    Lines lines(1200, "STRAY");
    Text display = numbered(lines + twoSections);
    for (int call = 0; call < 3; ++call) {
        EXPECT_EQ(texts(parser_, "PHI", display), (Texts{"", "SECONDCONTINUED"}));
    }
    replaceLine(display, 1204, u"   2 PHI/ CHANGED");
    EXPECT_EQ(texts(parser_, "PHI", display), (Texts{"", "CHANGEDCONTINUED"}));
}

// Only the families below the section were read before, and the change is far below its header.
TEST_F(KnownDisplayTest, AChangeFarDownASectionIsRead) {
    Lines lines{"HEAD", "------- TRAVEL POLICIES - HOTEL"};
    for (int element = 0; element < 40; ++element) lines.push_back("   1 PHI/ SAME");
    Text display = ended(lines + Lines{"------- DOCUMENTS", "   4 PAS/ FOURTH"});
    for (int call = 0; call < 4; ++call) EXPECT_EQ(texts(parser_, "PAS", display), (Texts{"", "FOURTH"}));
    replaceLine(display, 36, u"   1 PHI/ CHANGED");
    const Texts found = texts(parser_, "PHI", display);
    EXPECT_EQ(found.size(), 41U);
    EXPECT_EQ(std::ranges::find(found, "CHANGED") - found.begin(), 35);
    EXPECT_EQ(std::ranges::count(found, "SAME"), 39);
}

TEST_F(KnownDisplayTest, AnObserverIsToldOfEveryStep) {
    class Counter final : public ReadingObserver {
    public:
        void observe(const ReadingStep& /*step*/) override { ++steps_; }
        int taken() { return std::exchange(steps_, 0); }

    private:
        int steps_ = 0;
    };
    BuiltInTerminal builtIn;
    Counter counter;
    auto observed = std::make_unique<ObservedTerminal>(builtIn, &counter);
    ObservedTerminal& terminal = *observed;
    Parser parser(u"CProfile", std::move(observed));
    texts(parser, "PHI", display_);
    const int expected = counter.taken();
    EXPECT_GT(expected, 0);
    terminal.setObserver(nullptr);
    for (int call = 0; call < 3; ++call) texts(parser, "PHI", display_);
    EXPECT_EQ(counter.taken(), 0);
    terminal.setObserver(&counter);
    for (int call = 0; call < 2; ++call) {
        EXPECT_EQ(texts(parser, "PHI", display_), (Texts{"", "SECONDCONTINUED"}));
        EXPECT_EQ(counter.taken(), expected);
    }
}

// After any number of calls, and for a display whose search no line ends.
TEST_F(KnownDisplayTest, ATerminalThatBeginsToMakeItsOwnLinesIsReadTheSame) {
    const Text endless =
        display({"HEAD", "------- PRIORITY", "   1 PPR/ FIRST", "   2 PPR/ SECOND", "   3 PPR/ THIRD"});
    for (const TextView text : {TextView(display_), TextView(endless)}) {
        const Raised expected = text == endless ? verifying(5266) : Raised{};
        for (int before = 0; before < 4; ++before) {
            bool makesLines = false;
            Parser parser(u"CProfile", std::make_unique<test::SwitchingTerminal>(makesLines));
            const auto count = [&] { parser.count("PPRElementsCount", text); };
            for (int call = 0; call < before; ++call) EXPECT_EQ(raisedBy(count), expected);
            makesLines = true;
            EXPECT_EQ(raisedBy(count), expected);
            makesLines = false;
            EXPECT_EQ(raisedBy(count), expected);
        }
    }
}

/// Changes a few lines of a display: to lines of another one, to each other, or to a single character.
void changeLines(Text& display, RandomDisplays& random) {
    if (display.empty()) return;
    const std::size_t lines = (display.size() + width - 1) / width;
    const Text other = random.oneIn(2) ? random.sections() : random.soup();
    for (std::size_t changes = random.below(3); changes > 0; --changes) {
        const std::size_t number = random.below(lines);
        if (random.oneIn(3)) {
            static constexpr TextView characters = u" >-/PF\u0141\u00DF";
            display[random.below(display.size())] = characters[random.below(characters.size())];
        } else if (random.oneIn(2) && !other.empty()) {
            replaceLine(display, number, TextView(other).substr(random.below(other.size() / width + 1) * width, width));
        } else {
            const Text copy = display.substr(random.below(lines) * width, width);
            replaceLine(display, number, copy);
        }
    }
}

/// Calls count properties and queries in any order, and changes the text between them.
void matchChanging(std::uint32_t seed, std::size_t displays) {
    static const std::vector<std::string> prefixes{"PHI", "PPC", "PPR", "PGL", "PPS", "PXT", "PAS", "PFO"};
    constexpr std::size_t calls = 60;
    RandomDisplays random(seed);
    for (std::size_t number = 0; number < displays; ++number) {
        OracleMatch match(std::make_unique<BuiltInTerminal>());
        Text display = random.oneIn(2) ? random.sections() : random.soup();
        for (std::size_t call = 0; call < calls; ++call) {
            if (random.oneIn(3)) changeLines(display, random);
            const std::string message =
                random.oneIn(4) ? match.query(display, wanting(prefixes[random.below(prefixes.size())]))
                                : match.count(match.properties()[random.below(match.properties().size())], display);
            ASSERT_TRUE(message.empty()) << message << "\nat display " << number << " of seed " << seed;
        }
    }
}

TEST(KnownDisplays, WhoseLinesChangeBetweenCallsAreReadAsTheOracleReadsThem) { matchChanging(7, effort(1500)); }

}  // namespace
}  // namespace vantro
