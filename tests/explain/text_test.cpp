// Whole explanations as text.
#include "tests/support/text.h"
#include "tests/explain/story.h"
#include "tests/support/screens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace vantro::test {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string textOfProfile(const Explanation& explanation) { return utf8(textOf(explanation, findClass(u"CProfile"))); }

TEST(TextOfAnExplanation, WithoutStepsIsEmpty) { EXPECT_EQ(textOfProfile(Explanation()), ""); }

TEST(TextOfAnExplanation, IndentsQueriesAndNamesMeaningsOnce) {
    static constexpr ReadingRule rule{"rule", u"an element"};
    const std::vector<ValuePiece> one{{u"A", Place{0, 10, 1}}};
    const auto read = [&](std::int32_t index) -> ReadingStep {
        return {.kind = StepKind::ValueRead,
                .family = Family::PHI,
                .name = u"text",
                .text = u"A",
                .index = index,
                .pieces = one};
    };
    const auto decided = [](std::int32_t line) -> ReadingStep {
        return {.kind = StepKind::Decided, .line = line, .family = Family::PHI, .rule = &rule};
    };
    const Explanation explanation =
        story(screen({u"   1 PHI/ A"}), {{.kind = StepKind::QueryBegins, .family = Family::PHI, .name = u"PHI"},
                                         decided(0),
                                         decided(1),
                                         decided(2),
                                         decided(5),
                                         decided(6),
                                         decided(noLine),
                                         decided(0),
                                         read(1),
                                         read(2),
                                         {.kind = StepKind::QueryEnds, .family = Family::PHI, .name = u"PHI"}});
    EXPECT_EQ(textOfProfile(explanation),
              "parseProfile begins\n"
              "  query PHI begins (hotel travel policy of the kind PHI)\n"
              "    lines 0 to 2: PHI: each: an element\n"
              "    lines 5 to 6: PHI: each: an element\n"
              "    PHI: an element\n"
              "    line 0: PHI: an element\n"
              "    PHI: element 1: text = \"A\", from line 0, column 10 (the whole text, wrapped lines joined)\n"
              "    PHI: element 2: text = \"A\", from line 0, column 10\n"
              "  PHI: 2 elements\n"
              "parseProfile ends\n");
}

// Two decisions in neighbouring lines are one line of the text only if rule and family are the same.
TEST(TextOfAnExplanation, JoinsOnlyTheSameDecision) {
    static constexpr ReadingRule one{"one", u"one"};
    static constexpr ReadingRule two{"two", u"two"};
    const auto decided = [](const ReadingRule& rule, std::int32_t line, Family family) -> ReadingStep {
        return {.kind = StepKind::Decided, .line = line, .family = family, .rule = &rule};
    };
    const std::string text = utf8(
        textOf(story(u"", {decided(one, 0, Family::PHI), decided(two, 1, Family::PHI), decided(two, 2, Family::PSH),
                           decided(two, 4, Family::PSH), decided(two, 4, Family::PSH)}),
               nullptr));
    EXPECT_EQ(text,
              "parseProfile begins\n"
              "  line 0: PHI: one (hotel travel policy of the kind PHI)\n"
              "  line 1: PHI: two\n"
              "  line 2: PSH: two (hotel travel policy of the kind PSH)\n"
              "  line 4: PSH: two\n"
              "  line 4: PSH: two\n"
              "parseProfile ends\n");
}

TEST(TextOfAnExplanation, SaysWhetherAQueryFoundNothingOrFailed) {
    const Error failed(5272, u"", u"An error has occurred.");
    const auto begins = [](TextView word, std::optional<Family> family) -> ReadingStep {
        return {.kind = StepKind::QueryBegins, .family = family, .name = word};
    };
    const auto ends = [](TextView word, std::optional<Family> family, const Error* error = nullptr) -> ReadingStep {
        return {.kind = StepKind::QueryEnds, .family = family, .name = word, .error = error};
    };
    const ItemValue list = TextList{u"", u"3"};
    const std::string text =
        textOfProfile(story(u"", {begins(u"PHI", Family::PHI),
                                  ends(u"PHI", Family::PHI),
                                  begins(u"PPH", Family::PPH),
                                  ends(u"PPH", Family::PPH, &failed),
                                  begins(u"PSH", Family::PSH),
                                  {.kind = StepKind::ValueRead, .name = u"text", .index = 1},
                                  ends(u"PSH", Family::PSH),
                                  begins(u"NM", {}),
                                  {.kind = StepKind::ValueRead, .name = u"name"},
                                  ends(u"NM", {}),
                                  begins(u"RECLOC", {}),
                                  {.kind = StepKind::ValueRead, .name = u"text", .text = u"KQ4R7T"},
                                  ends(u"RECLOC", {}),
                                  begins(u"OFFID", {}),
                                  {.kind = StepKind::KeyAdded, .name = u"strKeyElement", .text = u"A"},
                                  ends(u"OFFID", {}),
                                  begins(u"PIN", {}),
                                  {.kind = StepKind::KeyRead, .name = u"strKeyPrefix", .text = u"PIN"},
                                  ends(u"PIN", {}),
                                  begins(u"ALL", {}),
                                  {.kind = StepKind::KeyAdded, .name = u"strKeyElNbrsArray", .value = &list},
                                  {.kind = StepKind::EntryAdded, .name = u"strKeyElNbrsArray"},
                                  ends(u"ALL", {}),
                                  begins(u"ProfileNotes", {}),
                                  {.kind = StepKind::ValueRead, .name = u"text", .text = u"A", .index = 3},
                                  ends(u"ProfileNotes", {})}));
    for (const char* const line :
         {"  PHI: no element\n", "  PPH: failed with 5272: An error has occurred\n", "  PSH: 1 element\n",
          "  NM: no value\n", "  RECLOC: a value\n", "  OFFID: a value\n", "  PIN: no value\n", "  ALL: a value\n",
          "  ProfileNotes: 3 elements\n"}) {
        EXPECT_THAT(text, HasSubstr(line));
    }
}

TEST(TextOfAnExplanation, EndsWithTheLinesThatLookLikeElements) {
    const std::string text = textOfProfile(explained(screen({
        u"------- TRAVEL POLICIES - HOTEL",
        u"------- FOLLOW UP",
        u"   1 PHI/ A",
        u"END OF DISPLAY",
    })));
    EXPECT_THAT(text,
                testing::EndsWith("parseProfile ends\n"
                                  "lines that contain a family's mark and begin none of its elements:\n"
                                  "  PHI in line 2: the search ended in line 1: seven hyphens: the section ends\n"));
    EXPECT_THAT(text, HasSubstr("  PHI: no element\n"));
}

TEST(TextOfAnExplanation, OfATransactionNamesItsResults) {
    const SampleScreen sample{"", u"CPDNTrans", screen({u"PDN/K", u"*T* SMITH/ANNA"})};
    const std::string text = utf8(textOf(explained(sample), findClass(sample.className)));
    EXPECT_THAT(text, HasSubstr("VerifyResponse begins\n"));
    EXPECT_THAT(text,
                HasSubstr("  line 1, columns 1 to 3: the line begins with \"*T*\" (blnKeyTrProfile: a traveller's "
                          "profile is shown)\n"));
    EXPECT_THAT(text, HasSubstr("  blnKeyTrProfile = True (a traveller's profile is shown)\n"));
    EXPECT_THAT(text, HasSubstr("  blnKeyCoProfile = False (True means: a company's profile is shown)\n"));
    EXPECT_THAT(text, HasSubstr("VerifyResponse ends\n"));
}

TEST(TextOfAnExplanation, OfAFlagThatIsAlwaysFalseSaysSo) {
    const ItemValue no = false;
    const std::string text =
        textOfProfile(story(u"", {{.kind = StepKind::KeyAdded, .name = u"blnKeyAsterix", .value = &no}}));
    EXPECT_THAT(text, HasSubstr("  blnKeyAsterix = False (always False)\n"));
}

// Every line is a sentence: an indentation, words, and no full stop at its end.
void expectSentences(const std::string& text) {
    ASSERT_FALSE(text.empty());
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t begin = line.find_first_not_of(' ');
        ASSERT_NE(begin, std::string::npos);
        EXPECT_EQ(begin % 2, 0U) << line;
        EXPECT_NE(line.find(' ', begin), std::string::npos) << line;
        EXPECT_THAT(line, Not(testing::EndsWith(".")));
        EXPECT_THAT(line, Not(testing::EndsWith(" ")));
    }
}

TEST(TextOfAnExplanation, OfEverySampleDisplayConsistsOfSentences) {
    for (const std::string& name : sampleNames()) {
        SCOPED_TRACE(name);
        expectSentences(textOfProfile(explained(sampleDisplay(name))));
    }
}

TEST(TextOfAnExplanation, OfEverySampleScreenConsistsOfSentences) {
    for (const SampleScreen& sample : sampleScreens()) {
        SCOPED_TRACE(sample.name);
        expectSentences(utf8(textOf(explained(sample), findClass(sample.className))));
    }
}

TEST(TextOfAnExplanation, OfDisplaysWithoutAnEndSaysWhatFails) {
    const Explanation explanation = explained(screen({u"------- TRAVEL POLICIES - HOTEL", u"   1 PHI/ A"}));
    const std::string text = textOfProfile(explanation);
    expectSentences(text);
    EXPECT_THAT(text, HasSubstr("  PHI: failed with 5272: "));
    EXPECT_THAT(text, HasSubstr("  PSH: failed with 5282: "));
}

TEST(TextOfAnExplanation, OfAnEmptyDisplayConsistsOfSentences) {
    for (const TextView text : {u"", u" ", u"PHI/"}) expectSentences(textOfProfile(explained(Text(text))));
}

Text longDisplay(TextView line, int lines) {
    Text display = screen({u"------- TRAVEL POLICIES - HOTEL", u"   1 PHI/ A"});
    for (int added = 0; added < lines; ++added) display += screen({line});
    return display + screen({u"END OF DISPLAY"});
}

// A decision that is the same for many lines is one line of the text.
TEST(TextOfAnExplanation, OfAVeryLongDisplayIsBoundedByItsElements) {
    constexpr int lines = 30'000;
    const std::size_t shortSize = textOfProfile(explained(longDisplay(u"   2 PXX/ B", 3))).size();
    const Text wrapped = longDisplay(u"         B", lines);
    const Explanation explanation = explained(longDisplay(u"   2 PXX/ B", lines));
    EXPECT_LT(textOfProfile(explanation).size(), shortSize + 1000);
    const std::string text = textOfProfile(explained(longDisplay(u"   2      B", lines)));
    EXPECT_LT(text.size(), 200U * lines);
    EXPECT_LT(textOfProfile(explained(wrapped)).size(), 100U * lines);
}

}  // namespace
}  // namespace vantro::test
