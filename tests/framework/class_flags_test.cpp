// The screens in the rows of the classes: a mark sets its flag at its position and nowhere else.
#include "tests/support/driven_class.h"
#include "tests/support/parameter_worlds.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

constexpr int width = 80;
constexpr int lastLine = 26;
constexpr int otherLine = 1;  // the line of a second mark; all readers that need one test this line

/// A blank screen on which marks are written; lines from 0, columns from 1.
class Canvas {
public:
    Canvas& at(int line, TextView text, int column = 1) {
        const auto start = static_cast<std::size_t>(line * width + column - 1);
        text_.replace(start, text.size(), text);
        return *this;
    }

    const Text& text() const { return text_; }

private:
    Text text_ = Text(static_cast<std::size_t>((lastLine + 1) * width), u' ');
};

struct FlagCase {
    const ClassRow* row;
    const ScreenFlag* flag;
};

class ScreenFlagOf : public testing::TestWithParam<FlagCase> {
protected:
    const ScreenFlag& flag() const { return *GetParam().flag; }

    /// A screen with the other mark if the flag needs one.
    Canvas canvas() const {
        Canvas blank;
        return flag().other.empty() ? blank : blank.at(otherLine, flag().other);
    }

    bool isTakenByTheOther(int line) const { return line == otherLine && !flag().other.empty(); }

    /// The keys of the flags that the screen sets, for the state that the flag's row needs.
    std::vector<std::string> flagsOn(const Canvas& screen) const {
        DrivenClass driven(GetParam().row->name);
        const auto state = collection(stateFor());
        const CollectionPtr results = driven.read(screen.text(), state);
        std::vector<std::string> flags = flagsOf(results);
        if (results == state) std::erase_if(flags, [&](const std::string& key) { return isState(wide(key)); });
        return flags;
    }

    bool isTrueOn(const Canvas& screen) const { return std::ranges::count(flagsOn(screen), utf8(flag().flag)) == 1; }

private:
    Entries stateFor() const {
        Entries state;
        for (const CommandForm& form : GetParam().row->description.forms) {
            if (form.command == flag().command) state = entriesOf(form.example);
        }
        for (const ParameterRow& row : GetParam().row->description.state) {
            if (row.need == Need::Required) state.emplace_back(row.key, u"0");
        }
        return state;
    }

    bool isState(TextView key) const {
        return std::ranges::count(GetParam().row->description.state, key, &ParameterRow::key) > 0;
    }
};

template <class Predicate>
std::vector<FlagCase> flagsWhere(Predicate fits) {
    std::vector<FlagCase> cases;
    for (const ClassRow& row : classTable()) {
        for (const ScreenFlag& flag : row.description.flags) {
            if (fits(flag)) cases.push_back({&row, &flag});
        }
    }
    return cases;
}

std::vector<FlagCase> flagsAt(std::initializer_list<MarkPosition> positions) {
    return flagsWhere([&](const ScreenFlag& flag) { return std::ranges::count(positions, flag.position) > 0; });
}

std::string nameOfFlag(const testing::TestParamInfo<FlagCase>& test) {
    const auto& [row, flag] = test.param;
    const auto number = flag - row->description.flags.data();
    return className(*row) + "_" + std::to_string(number) + "_" + utf8(flag->flag);
}

class FlagOfALine : public ScreenFlagOf {};
INSTANTIATE_TEST_SUITE_P(, FlagOfALine, testing::ValuesIn(flagsAt({MarkPosition::StartsLine, MarkPosition::InLine})),
                         nameOfFlag);

TEST_P(FlagOfALine, IsSetByItsMarkInTheseLinesOnly) {
    for (int line = 0; line <= lastLine; ++line) {
        if (isTakenByTheOther(line)) continue;
        const bool isTested = line >= flag().firstLine && line <= flag().lastLine && !flag().flag.empty();
        EXPECT_EQ(isTrueOn(canvas().at(line, flag().mark)), isTested) << "line " << line;
    }
}

TEST_P(FlagOfALine, IsSetByItsMarkInTheseColumnsOnly) {
    const int line = isTakenByTheOther(flag().firstLine) ? flag().firstLine + 1 : flag().firstLine;
    const bool isInside = flag().position == MarkPosition::InLine;
    EXPECT_EQ(isTrueOn(canvas().at(line, flag().mark, 2)), isInside);
    EXPECT_EQ(isTrueOn(canvas().at(line, flag().mark, 40)), isInside);
}

class MarkWithoutFlag : public ScreenFlagOf {};
INSTANTIATE_TEST_SUITE_P(, MarkWithoutFlag,
                         testing::ValuesIn(flagsWhere([](const ScreenFlag& flag) { return flag.flag.empty(); })),
                         nameOfFlag);

TEST_P(MarkWithoutFlag, HidesTheMarksBelowIt) {
    const Canvas profile = canvas().at(flag().lastLine, u"*T*");
    EXPECT_FALSE(flagsOn(profile).empty());
    EXPECT_TRUE(flagsOn(Canvas(profile).at(flag().firstLine, flag().mark)).empty());
    EXPECT_FALSE(flagsOn(Canvas(profile).at(flag().firstLine, flag().mark, 2)).empty());
}

class FlagOfAScreen : public ScreenFlagOf {};
INSTANTIATE_TEST_SUITE_P(, FlagOfAScreen, testing::ValuesIn(flagsAt({MarkPosition::OnScreen})), nameOfFlag);

TEST_P(FlagOfAScreen, IsSetByItsMarkAnywhere) {
    EXPECT_FALSE(isTrueOn(canvas()));
    for (const int line : {0, 12, lastLine - 1}) {
        EXPECT_TRUE(isTrueOn(canvas().at(line, flag().mark))) << line;
        EXPECT_TRUE(isTrueOn(canvas().at(line, flag().mark, 75))) << line;
    }
}

class FlagOfTheSameLine : public ScreenFlagOf {};
INSTANTIATE_TEST_SUITE_P(, FlagOfTheSameLine, testing::ValuesIn(flagsAt({MarkPosition::SameLine})), nameOfFlag);

TEST_P(FlagOfTheSameLine, IsSetByItsMarkInTheLineOfTheOther) {
    EXPECT_TRUE(isTrueOn(canvas().at(otherLine, flag().mark, 50)));
    EXPECT_FALSE(isTrueOn(canvas().at(otherLine + 1, flag().mark, 50)));
    EXPECT_FALSE(isTrueOn(canvas().at(otherLine - 1, flag().mark, 50)));
}

class FlagOfALaterLine : public ScreenFlagOf {};
INSTANTIATE_TEST_SUITE_P(, FlagOfALaterLine, testing::ValuesIn(flagsAt({MarkPosition::LineLater})), nameOfFlag);

TEST_P(FlagOfALaterLine, IsSetByItsMark80CharactersAfterTheOther) {
    EXPECT_FALSE(isTrueOn(canvas()));
    EXPECT_FALSE(isTrueOn(canvas().at(otherLine - 1, flag().mark)));
    EXPECT_FALSE(isTrueOn(canvas().at(otherLine, flag().mark, width)));  // 79 after it
    EXPECT_TRUE(isTrueOn(canvas().at(otherLine + 1, flag().mark)));
    EXPECT_TRUE(isTrueOn(canvas().at(lastLine - 1, flag().mark, 30)));
}

class FlagOfAnAbsentMark : public ScreenFlagOf {};
INSTANTIATE_TEST_SUITE_P(, FlagOfAnAbsentMark, testing::ValuesIn(flagsAt({MarkPosition::NotOnScreen})), nameOfFlag);

TEST_P(FlagOfAnAbsentMark, IsSetWithoutTheMark) {
    EXPECT_TRUE(isTrueOn(canvas()));
    for (const int line : {0, 12, lastLine - 1}) EXPECT_FALSE(isTrueOn(canvas().at(line, flag().mark, 75))) << line;
}

class FlagOfAListsEnd : public ScreenFlagOf {};
INSTANTIATE_TEST_SUITE_P(, FlagOfAListsEnd, testing::ValuesIn(flagsAt({MarkPosition::EndsList})), nameOfFlag);

TEST_P(FlagOfAListsEnd, IsSetByItsMarkBelowTheEntries) {
    const Canvas list = canvas()
                            .at(2, u"     COMPANY                         RECLOC     OFFICE")
                            .at(3, u"   1 KESTRELLO TOOLS                 Q2W3E4     NCEVN3101");
    EXPECT_TRUE(isTrueOn(Canvas(list).at(4, flag().mark)));
    EXPECT_TRUE(isTrueOn(Canvas(list).at(4, flag().mark, 20)));
    EXPECT_FALSE(isTrueOn(Canvas(list).at(4, u">").at(5, flag().mark)));
    EXPECT_FALSE(isTrueOn(list));
}

// All positions

class AnyScreenFlag : public ScreenFlagOf {
protected:
    /// A screen with the mark at its position.
    Canvas shown(TextView mark) const {
        switch (flag().position) {
            case MarkPosition::StartsLine:
            case MarkPosition::InLine: return canvas().at(flag().firstLine + (flag().other.empty() ? 0 : 1), mark);
            case MarkPosition::SameLine: return canvas().at(otherLine, mark, 50);
            case MarkPosition::EndsList:
                return canvas()
                    .at(2, u"     COMPANY                         RECLOC     OFFICE")
                    .at(3, u"   1 KESTRELLO TOOLS                 Q2W3E4     NCEVN3101")
                    .at(4, mark);
            case MarkPosition::OnScreen:
            case MarkPosition::LineLater:
            case MarkPosition::NotOnScreen: break;
        }
        return canvas().at(5, mark);
    }
};
INSTANTIATE_TEST_SUITE_P(, AnyScreenFlag,
                         testing::ValuesIn(flagsWhere([](const ScreenFlag& flag) { return !flag.flag.empty(); })),
                         nameOfFlag);

TEST_P(AnyScreenFlag, NeedsExactlyItsMark) {
    const bool expected = flag().position != MarkPosition::NotOnScreen;
    const Text mark(flag().mark);
    EXPECT_EQ(isTrueOn(shown(mark + u"x")), expected) << "the mark is complete";
    EXPECT_EQ(isTrueOn(shown(mark.substr(0, mark.size() - 1) + u"x")), !expected) << "its last character counts";
    EXPECT_EQ(isTrueOn(shown(u"x" + mark.substr(1))), !expected) << "its first character counts";
}

class FlagOfTwoMarks : public AnyScreenFlag {};
INSTANTIATE_TEST_SUITE_P(, FlagOfTwoMarks,
                         testing::ValuesIn(flagsWhere([](const ScreenFlag& flag) { return !flag.other.empty(); })),
                         nameOfFlag);

TEST_P(FlagOfTwoMarks, NeedsTheOtherMarkToo) {
    EXPECT_TRUE(isTrueOn(shown(flag().mark)));
    Canvas without = shown(flag().mark);
    without.at(otherLine, Text(flag().other.size(), u'.'));
    EXPECT_FALSE(isTrueOn(without));
}

TEST(ScreenFlags, NameAMarkForEveryFlagOfEveryClass) {
    for (const ClassRow& row : classTable()) {
        for (const ResultRow& result : row.description.results) {
            const bool hasMark = std::ranges::count(row.description.flags, result.key, &ScreenFlag::flag) > 0;
            EXPECT_EQ(hasMark, result.kind == ValueKind::Boolean) << className(row) << " " << utf8(result.key);
        }
    }
}

}  // namespace
}  // namespace vantro::test
