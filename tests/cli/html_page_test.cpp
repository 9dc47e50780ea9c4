// The page of an explanation: nothing of the screen is markup, and every value is marked where it was read.
#include "cli/explain/html_page.h"
#include "cli/explain/page_model.h"
#include "cli/explain/screen_segments.h"
#include "cli/io/utf.h"
#include "vantro/screen_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace vantro {
namespace {

// Steps as a reader passes them

constexpr ReadingRule firstRule{"first", u"the first rule"};
constexpr ReadingRule secondRule{"second", u"the second rule"};

struct Steps {
    Explanation explanation;

    explicit Steps(TextView screen) { pass({.kind = StepKind::CallBegins, .name = u"VerifyResponse", .text = screen}); }

    void pass(const ReadingStep& step) { explanation.observe(step); }
    void decided(const ReadingRule& rule, int line) {
        pass({.kind = StepKind::Decided, .line = line, .family = Family::PHI, .rule = &rule});
    }
    void read(TextView name, TextView text, std::vector<ValuePiece> pieces, StepKind kind = StepKind::ValueRead) {
        pass({.kind = kind, .name = name, .text = text, .index = 1, .pieces = pieces});
    }
    void query(TextView word, std::optional<Family> family) {
        pass({.kind = StepKind::QueryBegins, .family = family, .name = word});
    }
    void endQuery(TextView word, const Error* error = nullptr) {
        pass({.kind = StepKind::QueryEnds, .name = word, .error = error});
    }

    PageModel model() const { return pageModel(explanation, nullptr); }
    std::string page() const { return htmlPage(explanation, nullptr, "Title"); }
};

Text lines(std::initializer_list<TextView> texts) {
    Text screen;
    for (const TextView text : texts) screen.append(text).append(screenWidth - text.size(), u' ');
    return screen;
}

std::size_t countOf(std::string_view what, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, at + 1)) ++count;
    return count;
}

// The model

TEST(PageModel, TheSameDecisionAboutConsecutiveLinesIsOne) {
    Steps steps(lines({u"A"}));
    for (const int line : {3, 4, 5, 7, 8}) steps.decided(firstRule, line);
    steps.decided(secondRule, 9);
    const PageModel model = steps.model();
    ASSERT_EQ(model.groups.size(), 1U);
    std::vector<std::pair<int, int>> ranges;
    for (const PageDecision& decision : model.groups[0].decisions) {
        ranges.emplace_back(decision.step.line, decision.step.lastLine);
    }
    EXPECT_EQ(ranges, (std::vector<std::pair<int, int>>{{3, 5}, {7, 8}, {9, 9}}));
    EXPECT_EQ(model.groups[0].decisions[0].lines, u"lines 3 to 5");
    EXPECT_EQ(model.groups[0].decisions[2].lines, u"line 9");
}

TEST(PageModel, StepsAreGroupedByQueryAndACallWithoutStepsOfItsOwnIsLeftOut) {
    const Error error(5266, u"source", u"description");
    Steps steps(lines({u"A"}));
    steps.query(u"PHI", Family::PHI);
    steps.read(u"text", u"A", {{u"A", Place{0, 1, 1}}});
    steps.endQuery(u"PHI");
    steps.query(u"PPH", Family::PPH);
    steps.endQuery(u"PPH", &error);
    steps.query(u"NM", {});
    steps.endQuery(u"NM");
    steps.pass({.kind = StepKind::CallEnds});
    const PageModel model = steps.model();
    ASSERT_EQ(model.groups.size(), 3U);
    EXPECT_EQ(model.groups[0].name, u"PHI");
    EXPECT_EQ(model.groups[0].meaning, factsOf(Family::PHI).meaning);
    EXPECT_EQ(model.groups[0].values, std::vector<std::size_t>{0});
    EXPECT_EQ(model.values[0].group, 0U);
    ASSERT_TRUE(model.groups[1].error);
    EXPECT_EQ(model.groups[1].error->number(), 5266);
    EXPECT_FALSE(model.groups[2].error);
    EXPECT_EQ(model.groups[2].meaning, factsOf(OtherQuery::Name).meaning);
}

TEST(PageModel, TheSameCharactersUnderTwoNamesAreOneValue) {
    Steps steps(lines({u"AB"}));
    steps.read(u"text", u"A", {{u"A", Place{0, 1, 1}}});
    steps.read(u"strKeyElement()", u"A", {{u"A", Place{0, 1, 1}}}, StepKind::EntryAdded);
    steps.read(u"other", u"B", {{u"B", Place{0, 2, 1}}});
    const PageModel model = steps.model();
    ASSERT_EQ(model.values.size(), 2U);
    EXPECT_EQ(model.values[0].names, (std::vector<Text>{u"text", u"strKeyElement()"}));
}

TEST(PageModel, TheRuleOfAValueIsTheLastOneAboutItsFirstLine) {
    Steps steps(lines({u"A", u"B", u"C"}));
    steps.decided(firstRule, 0);
    steps.decided(secondRule, 0);
    steps.decided(firstRule, 1);
    steps.read(u"text", u"AB", {{u"A", Place{0, 1, 1}}, {u"B", Place{1, 1, 1}}});
    steps.read(u"none", u"C", {{u"C", Place{2, 1, 1}}});
    const PageModel model = steps.model();
    EXPECT_EQ(model.values[0].rule, &secondRule);
    EXPECT_EQ(model.values[1].rule, nullptr);
}

TEST(PageModel, ValuesOfEveryKindAreTexts) {
    Steps steps(lines({u"A"}));
    const ItemValue values[] = {true, std::int16_t{-7}, TextList{u"", u"A"}};
    for (const ItemValue& value : values) steps.pass({.kind = StepKind::KeyAdded, .name = u"key", .value = &value});
    steps.read(u"strKey", u"", {}, StepKind::KeyAdded);
    const PageModel model = steps.model();
    std::vector<Text> texts;
    for (const PageValue& value : model.values) texts.push_back(value.text);
    EXPECT_EQ(texts, (std::vector<Text>{u"True", u"-7", u"2 entries", u""}));
}

TEST(PageModel, AStepOutsideACallAndAnEndWithoutABeginningDoNoHarm) {
    Explanation explanation;
    explanation.observe({.kind = StepKind::QueryEnds});
    explanation.observe({.kind = StepKind::ValueRead, .name = u"text", .text = u"A"});
    EXPECT_EQ(pageModel(explanation, nullptr).values.size(), 1U);
}

// The segments

TEST(ScreenSegments, ValuesThatShareCharactersCutTheLineWhereTheyBeginAndEnd) {
    Steps steps(lines({u"ABCDEF"}));
    steps.read(u"outer", u"ABCDE", {{u"ABCDE", Place{0, 1, 5}}});
    steps.read(u"inner", u"BC", {{u"BC", Place{0, 2, 2}}});
    steps.read(u"crossing", u"CDEF", {{u"CDEF", Place{0, 3, 4}}});
    const PageModel model = steps.model();
    const std::vector<ScreenLine> screen = screenLines(model);
    ASSERT_EQ(screen.size(), 1U);
    std::vector<std::pair<Text, std::vector<std::size_t>>> cut;
    for (const ScreenSegment& segment : screen[0].segments) cut.emplace_back(segment.text, segment.values);
    // The shortest value first.
    EXPECT_EQ(cut,
              (std::vector<std::pair<Text, std::vector<std::size_t>>>{
                  {u"A", {0}}, {u"B", {1, 0}}, {u"C", {1, 2, 0}}, {u"DE", {2, 0}}, {u"F", {2}}, {Text(74, u' '), {}}}));
}

TEST(ScreenSegments, ALineWithoutValueAndMarkIsUnreadUnlessItIsBlank) {
    Steps steps(lines({u"VALUE", u"MARK", u"NEITHER", u""}));
    steps.read(u"text", u"VALUE", {{u"VALUE", Place{0, 1, 5}}});
    const ValuePiece mark{u"MARK", Place{1, 1, 4}};
    steps.pass({.kind = StepKind::MarkSearched, .line = 0, .lastLine = 1, .text = u"MARK", .pieces = {&mark, 1}});
    const PageModel model = steps.model();
    const std::vector<ScreenLine> screen = screenLines(model);
    ASSERT_EQ(screen.size(), 4U);
    EXPECT_FALSE(screen[0].isUnread());
    EXPECT_FALSE(screen[1].isUnread());
    EXPECT_TRUE(screen[1].segments[0].isMark);
    EXPECT_TRUE(screen[2].isUnread());
    EXPECT_FALSE(screen[3].isUnread());
}

TEST(ScreenSegments, APlaceOutsideTheScreenIsIgnoredOrCut) {
    Steps steps(lines({u"A"}).substr(0, 10));
    for (const Place& place : {Place{-1, 1, 1}, Place{1, 1, 1}, Place{0, 0, 1}, Place{0, 11, 1}, Place{0, 1, 0}}) {
        steps.read(u"text", u"A", {{u"A", place}});
    }
    steps.read(u"text", u"B", {{u"B", Place{0, 10, 9}}});
    const PageModel model = steps.model();
    const std::vector<ScreenLine> screen = screenLines(model);
    ASSERT_EQ(screen.size(), 1U);
    ASSERT_EQ(screen[0].segments.size(), 2U);
    EXPECT_TRUE(screen[0].segments[0].values.empty());
    EXPECT_EQ(screen[0].segments[1].column, 10U);
    EXPECT_EQ(screen[0].segments[1].text.size(), 1U);
}

// The page, as a browser takes it apart

struct Tag {
    std::string name;
    std::string attributes;

    std::string attribute(const std::string& attribute) const {
        const std::size_t at = attributes.find(" " + attribute + "=\"");
        if (at == std::string::npos) return {};
        const std::size_t begin = at + attribute.size() + 3;
        return attributes.substr(begin, attributes.find('"', begin) - begin);
    }
};

/// A text and the elements around it.
struct PageText {
    std::string text;
    std::vector<Tag> inside;

    bool isIn(std::string_view className) const {
        return std::ranges::any_of(inside, [&](const Tag& tag) { return tag.attribute("class") == className; });
    }
};

/// The texts of a page in order. A page that is not well-formed fails the test.
std::vector<PageText> textsOf(const std::string& page) {
    std::vector<PageText> texts;
    std::vector<Tag> open;
    std::size_t at = page.find("<html");
    while (at < page.size()) {
        const bool isRaw = !open.empty() && (open.back().name == "script" || open.back().name == "style");
        const std::size_t next = isRaw ? page.find("</" + open.back().name, at) : page.find('<', at);
        if (next != at) texts.push_back({page.substr(at, next - at), open});
        if (next == std::string::npos) break;
        const std::size_t end = page.find('>', next);
        const std::string tag = page.substr(next + 1, end - next - 1);
        at = end + 1;
        if (tag.starts_with('/')) {
            EXPECT_FALSE(open.empty()) << tag;
            if (open.empty()) return texts;
            EXPECT_EQ(tag.substr(1), open.back().name);
            open.pop_back();
        } else if (!tag.ends_with('/')) {
            const std::size_t name = std::min(tag.find(' '), tag.size());
            open.push_back({tag.substr(0, name), tag.substr(name)});
            EXPECT_EQ(countOf("\"", tag) % 2, 0U) << tag;
        }
    }
    EXPECT_TRUE(open.empty());
    return texts;
}

std::string unescaped(std::string text) {
    for (const auto& [escape, character] : {std::pair<std::string, std::string>{"&lt;", "<"},
                                            {"&gt;", ">"},
                                            {"&quot;", "\""},
                                            {"&#39;", "'"},
                                            {"&#8211;", "-"},
                                            {"&amp;", "&"}}) {
        for (std::size_t at = text.find(escape); at != std::string::npos; at = text.find(escape, at + 1)) {
            text.replace(at, escape.size(), character);
        }
    }
    return text;
}

/// The characters of the screen in a page, line by line, and the values that mark each.
struct ShownScreen {
    std::vector<Text> lines;
    std::vector<std::vector<std::string>> values;  // by line and column: the numbers of the values
};

ShownScreen screenOf(const std::string& page) {
    ShownScreen shown;
    for (const PageText& text : textsOf(page)) {
        if (!text.isIn("text") || !text.isIn("lines")) continue;
        std::size_t line = 0;
        for (const Tag& tag : text.inside) {
            if (tag.name == "li") line = std::stoul(tag.attribute("id").substr(5));
        }
        shown.lines.resize(line + 1);
        shown.values.resize(line + 1);
        const Text characters = toUtf16(unescaped(text.text));
        shown.lines[line] += characters;
        shown.values[line].resize(shown.lines[line].size(), " " + text.inside.back().attribute("data-values") + " ");
    }
    return shown;
}

Text sampleDisplay(const char* name) {
    const auto path = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "profiles" / name;
    std::ifstream file(path, std::ios::binary);
    return joinLines(toUtf16(std::string(std::istreambuf_iterator<char>(file), {}))).screen;
}

TEST(HtmlPage, EveryValueIsMarkedWhereItWasRead) {
    for (const char* const name : {"every_family.txt", "long_400.txt", "odd.txt", "wrapped.txt", "minimal.txt"}) {
        const Text display = sampleDisplay(name);
        Explanation explanation;
        parseProfile(display, explanation);
        const PageModel model = pageModel(explanation, nullptr);
        const ShownScreen shown = screenOf(htmlPage(explanation, nullptr, name));
        Text characters;
        for (const Text& line : shown.lines) characters += line;
        EXPECT_EQ(characters, display) << name;
        for (std::size_t value = 0; value < model.values.size(); ++value) {
            const std::string number = " " + std::to_string(value) + " ";
            Text marked;
            for (const KeptPiece& piece : model.values[value].pieces) {
                if (!piece.place) {
                    marked += piece.text;
                    continue;
                }
                const auto line = static_cast<std::size_t>(piece.place->line);
                for (int column = piece.place->column; column < piece.place->column + piece.place->length; ++column) {
                    const auto at = static_cast<std::size_t>(column - 1);
                    EXPECT_NE(shown.values[line][at].find(number), std::string::npos) << name << number;
                    marked += shown.lines[line][at];
                }
            }
            EXPECT_EQ(toUtf8(marked), toUtf8(model.values[value].pieces.empty() ? Text() : model.values[value].text));
        }
    }
}

TEST(HtmlPage, NothingOfTheScreenIsMarkup) {
    Text screen = lines({u"</script><b>&\"'</b>", u"\u0001\u001F\u007F\u0085\u2028\u202E?", u"<!-- <script>"});
    screen[86] = char16_t{0xD83D};
    Steps steps(screen);
    const TextView first = TextView(screen).substr(0, 19);
    const TextView second = TextView(screen).substr(80, 7);
    steps.read(first, first, {{first, Place{0, 1, 19}}});
    steps.read(second, second, {{second, Place{1, 1, 7}}});
    const std::string page = steps.page();
    const ShownScreen shown = screenOf(page);
    ASSERT_EQ(shown.lines.size(), 3U);
    EXPECT_EQ(shown.lines[0].substr(0, 19), u"</script><b>&\"'</b>");
    EXPECT_EQ(shown.lines[1].substr(0, 7), u"\u2401\u241F\u2421\uFFFD\u2424\uFFFD\uFFFD");
    EXPECT_EQ(shown.lines[2].substr(0, 13), u"<!-- <script>");
    EXPECT_EQ(countOf("<script", page), 2U);
    EXPECT_EQ(countOf("</script", page), 2U);
    EXPECT_EQ(countOf("<b>&", page), 0U);
}

TEST(HtmlPage, TheTitleIsEscapedWhereverItIs) {
    const std::string page = htmlPage(Steps(lines({u"A"})).explanation, nullptr, "A </title> & \"B\"");
    EXPECT_EQ(countOf("A &lt;/title&gt; &amp; &quot;B&quot;", page), 2U);
}

TEST(HtmlPage, ItsDataAreJson) {
    Steps steps(lines({u"</script>\"\\\u2028"}));
    steps.read(u"text", u"</script>\"\\\u2028", {{u"</script>\"\\\u2028", Place{0, 1, 12}}});
    steps.decided(firstRule, 0);
    for (const PageText& text : textsOf(steps.page())) {
        if (!text.inside.empty() && text.inside.back().attribute("id") == "data") {
            EXPECT_EQ(text.text,
                      "{\"groups\":[{\"name\":\"VerifyResponse\",\"meaning\":\"\"}],\"values\":[{\"names\":[\"text\"],"
                      "\"index\":1,\"group\":0,\"meaning\":\"\",\"rule\":\"\","
                      "\"text\":\"\\u003C/script>\\\"\\\\\xE2\x80\xA8\",\"pieces\":[{"
                      "\"text\":\"\\u003C/script>\\\"\\\\\xE2\x80\xA8\",\"line\":0,\"column\":1,\"length\":12}]}],"
                      "\"decisions\":[{\"group\":0,\"first\":0,\"last\":0,\"isSearch\":false,\"found\":[]}]}");
            return;
        }
    }
    ADD_FAILURE() << "no data";
}

TEST(HtmlPage, EmptyAndFailedAreTwoThings) {
    const Error error(5266, u"source", u"A <description>");
    Steps steps(lines({u"A"}));
    steps.query(u"PHI", Family::PHI);
    steps.endQuery(u"PHI", &error);
    steps.query(u"PPH", Family::PPH);
    steps.endQuery(u"PPH");
    const std::string page = steps.page();
    EXPECT_EQ(countOf("<strong class=\"failed\">failed: error 5266, A &lt;description&gt;</strong>", page), 1U);
    EXPECT_EQ(countOf("<em class=\"empty\">empty</em>", page), 1U);
    EXPECT_EQ(countOf("Of 2 queries, 1 found nothing and <span class=\"failed\">1 failed</span>.", page), 1U);
}

TEST(HtmlPage, LinesThatNothingWasReadFromAreListedAsRanges) {
    Steps steps(lines({u"A", u"B", u"VALUE", u"C", u"", u"D"}));
    steps.read(u"text", u"VALUE", {{u"VALUE", Place{2, 1, 5}}});
    std::vector<std::string> listed;
    for (const PageText& text : textsOf(steps.page())) {
        if (text.isIn("unread-lines") && text.inside.back().name == "a") listed.push_back(unescaped(text.text));
    }
    EXPECT_EQ(listed, (std::vector<std::string>{"0-1", "3", "5"}));
}

TEST(HtmlPage, ItNeedsNoOtherFileAndNoNetwork) {
    const std::string page = Steps(lines({u"A"})).page();
    for (const char* const reference : {"src=", "<link", "url(", "@import", "http:", "https:", "//# source"}) {
        EXPECT_EQ(page.find(reference), std::string::npos) << reference;
    }
    EXPECT_NE(page.find("default-src 'none'"), std::string::npos);
}

TEST(HtmlPage, AnExplanationWithoutStepsIsAPageToo) {
    const std::string page = htmlPage(Explanation(), nullptr, "Nothing");
    textsOf(page);
    EXPECT_NE(page.find("The screen is empty."), std::string::npos);
}

}  // namespace
}  // namespace vantro
