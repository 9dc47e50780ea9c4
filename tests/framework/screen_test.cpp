#include "framework/screen.h"

#include "tests/framework/raised.h"
#include "vantro/built_in_terminal.h"

#include <gtest/gtest.h>

#include <vector>

namespace vantro {
namespace {

/// Wraps the built-in terminal, records which lines are fetched and which markers are searched, and makes its own
/// lines, like a remote terminal.
class WatchingTerminal final : public Terminal, private TerminalFunctions {
public:
    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return inner_.errorReporter(); }
    CollectionPtr createCollection() override { return inner_.createCollection(); }

    std::vector<int> linesFetched;
    std::vector<int> markerLines;

private:
    TextView ItemText(const ItemPtr& item, TextStore& store) override {
        return inner_.functions().ItemText(item, store);
    }
    bool ItemBoolean(const ItemPtr& item) override { return inner_.functions().ItemBoolean(item); }
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override {
        linesFetched.push_back(line);
        return store.keep(Text(inner_.functions().ScreenLine(response, line, store)));
    }
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override {
        markerLines.push_back(line);
        return inner_.functions().FindMarker(response, marker, line);
    }
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override {
        return inner_.functions().TextField(text, number, separator, store);
    }

    BuiltInTerminal inner_;
};

/// The lines, each padded with blanks to the width of the screen.
Text screenOf(std::initializer_list<TextView> lines) {
    Text text;
    for (const TextView line : lines) {
        text += line;
        text.append(screenWidth - line.size(), u' ');
    }
    return text;
}

TEST(TextStore, LeavesEveryTextWhereItIs) {
    const std::size_t lengths[] = {0, 1, 7, 8, 80, 1999, 2000, 2001, 5000};
    TextStore store;
    std::vector<std::pair<TextView, Text>> stored;
    for (int round = 0; round < 300; ++round) {
        const Text text(lengths[static_cast<std::size_t>(round) % std::size(lengths)],
                        static_cast<char16_t>(u'A' + round % 26));
        stored.emplace_back(round % 5 == 4 ? store.keep(text) : store.keepCopy(text), text);
    }
    for (const auto& [view, text] : stored) EXPECT_EQ(view, text);
}

TEST(LineByPosition, CutsEvery80Characters) {
    const Text text = Text(80, u'a') + Text(80, u'b') + Text(3, u'c');
    EXPECT_EQ(lineByPosition(text, 0), Text(80, u'a'));
    EXPECT_EQ(lineByPosition(text, 1), Text(80, u'b'));
    EXPECT_EQ(lineByPosition(text, 2), u"ccc");
    EXPECT_EQ(lineByPosition(text, 3), u"");
    EXPECT_EQ(lineByPosition(text, 32767), u"");
}

TEST(ScreenOnTheBuiltInTerminal, LinesAreSlicesOfTheText) {
    BuiltInTerminal terminal;
    const Text text = screenOf({u"PX3", u"SECOND LINE"});
    Screen screen(terminal, text);
    EXPECT_EQ(screen.line(std::int16_t{1}).data(), text.data() + 80);
    EXPECT_EQ(screen.line(std::int16_t{1}).size(), 80U);
    EXPECT_EQ(screen.line(std::int16_t{2}), u"");
    EXPECT_EQ(screen.text().data(), text.data());
}

TEST(ScreenOnTheBuiltInTerminal, ALineBelowZeroRaises5) {
    BuiltInTerminal terminal;
    Screen screen(terminal, u"PX3");
    EXPECT_EQ(raisedNumber([&] { screen.line(std::int16_t{-1}); }), 5);
}

TEST(ScreenOnAnotherTerminal, FetchesEachLineOnce) {
    WatchingTerminal terminal;
    const Text text = screenOf({u"PX3", u"SECOND LINE"});
    Screen screen(terminal, text);
    EXPECT_EQ(trimmed(screen.line(std::int16_t{1})), u"SECOND LINE");
    EXPECT_EQ(trimmed(screen.line(std::int16_t{0})), u"PX3");
    EXPECT_EQ(trimmed(screen.line(Counter(1))), u"SECOND LINE");
    EXPECT_EQ(trimmed(screen.line(Counter(0))), u"PX3");
    EXPECT_EQ(screen.line(std::int16_t{5}), u"");
    EXPECT_EQ(screen.line(std::int16_t{5}), u"");
    EXPECT_EQ(terminal.linesFetched, (std::vector<int>{1, 0, 5}));
}

TEST(ScreenOnAnotherTerminal, FetchedLinesStayValidAsLongAsTheScreen) {
    WatchingTerminal terminal;
    const Text text = screenOf({u"FIRST", u"SECOND"});
    Screen screen(terminal, text);
    const TextView first = screen.line(std::int16_t{0});
    for (std::int16_t line = 1; line < 200; ++line) screen.line(line);
    EXPECT_EQ(trimmed(first), u"FIRST");
}

TEST(ScreenOnAnotherTerminal, ALineBelowZeroIsTheTerminalsFailure) {
    WatchingTerminal terminal;
    Screen screen(terminal, u"PX3");
    EXPECT_EQ(raisedNumber([&] { screen.line(std::int16_t{-1}); }), 5);
    EXPECT_EQ(terminal.linesFetched, std::vector<int>{-1});
}

TEST(ScreenOnAnotherTerminal, PassesMarkersWithTheirLine) {
    WatchingTerminal terminal;
    Screen screen(terminal, u"*T* SMITH");
    EXPECT_TRUE(screen.findMarker(u"*T*", 4));
    EXPECT_FALSE(screen.findMarker(u"RP/", 10));
    EXPECT_EQ(terminal.markerLines, (std::vector<int>{4, 10}));
}

TEST(ScreenTest, AsksTheTerminalForFields) {
    BuiltInTerminal terminal;
    Screen screen(terminal, u"");
    EXPECT_EQ(screen.textField(u"SSR VGML", 2, u" "), u"VGML");
}

enum class Shown : std::uint8_t { Nothing, Traveller, Company };

constexpr ScreenTest<Shown> kinds[] = {
    {u"*T*", Match::LineStart, Shown::Traveller},
    {u"*C*", Match::Anywhere, Shown::Company},
};

TEST(FindShown, TheFirstLineThatMatchesDecides) {
    BuiltInTerminal terminal;
    const Text text = screenOf({u"PD1", u"  *C* TOOLS", u"*T* SMITH"});
    Screen screen(terminal, text);
    const auto seen = findShown(screen, {0, 4}, kinds, Shown::Nothing);
    EXPECT_EQ(seen.shown, Shown::Company) << "although the table names the traveller first";
    EXPECT_EQ(seen.number, 1);
    EXPECT_EQ(trimmed(seen.line), u"*C* TOOLS");
}

TEST(FindShown, OnOneLineTheOrderOfTheTableDecides) {
    BuiltInTerminal terminal;
    Screen screen(terminal, u"*T* AND *C*");
    EXPECT_EQ(findShown(screen, {0, 0}, kinds, Shown::Nothing).shown, Shown::Traveller);
}

TEST(FindShown, AMarkThatMustStartALineIsNotFoundInsideIt) {
    BuiltInTerminal terminal;
    Screen screen(terminal, u" *T*");
    EXPECT_EQ(findShown(screen, {0, 0}, kinds, Shown::Nothing).shown, Shown::Nothing);
}

TEST(FindShown, TestsBothEndsOfTheRangeAndNothingBeyond) {
    BuiltInTerminal terminal;
    const Text text = screenOf({u"*T* A", u"", u"", u"*T* B"});
    Screen screen(terminal, text);
    EXPECT_EQ(findShown(screen, {0, 3}, kinds, Shown::Nothing).number, 0);
    EXPECT_EQ(findShown(screen, {1, 3}, kinds, Shown::Nothing).number, 3);
    EXPECT_EQ(findShown(screen, {1, 2}, kinds, Shown::Nothing).shown, Shown::Nothing);
}

TEST(FindShown, WithoutAMatchTheLastTestedLineIsReturned) {
    BuiltInTerminal terminal;
    const Text text = screenOf({u"A", u"B", u"C", u"D"});
    Screen screen(terminal, text);
    const auto seen = findShown(screen, {1, 2}, kinds, Shown::Nothing);
    EXPECT_EQ(seen.shown, Shown::Nothing);
    EXPECT_EQ(seen.number, 2);
    EXPECT_EQ(trimmed(seen.line), u"C");
}

TEST(FindShown, EndsAtTheLastLineNumber) {
    BuiltInTerminal terminal;
    Screen screen(terminal, u"*T*");
    EXPECT_EQ(findShown(screen, {32'760, 32'767}, kinds, Shown::Nothing).number, 32'767);
}

TEST(FindShown, FetchesLinesUpToTheMatchThroughTheTerminal) {
    WatchingTerminal terminal;
    const Text text = screenOf({u"A", u"*T* B", u"C"});
    Screen screen(terminal, text);
    findShown(screen, {0, 4}, kinds, Shown::Nothing);
    EXPECT_EQ(terminal.linesFetched, (std::vector<int>{0, 1}));
}

TEST(FindShown, TakesLinesByPositionWithoutTheTerminal) {
    WatchingTerminal terminal;
    const Text text = screenOf({u"A", u"*T* B", u"C"});
    Screen screen(terminal, text);
    const auto seen = findShown(screen, {0, 4, LineSource::ByPosition}, kinds, Shown::Nothing);
    EXPECT_EQ(seen.number, 1);
    EXPECT_EQ(seen.line.data(), text.data() + 80);
    EXPECT_TRUE(terminal.linesFetched.empty());
}

}  // namespace
}  // namespace vantro
