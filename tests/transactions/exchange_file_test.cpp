// The reader of exchange files accepts the described format and nothing else.
#include "tests/support/exchange_file.h"

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace vantro::test {
namespace {

const std::string blankLine = "|" + std::string(80, ' ') + "|\n";

TEST(ExchangeFile, IsReadSectionBySection) {
    const Exchange steps = parseExchange(
        "# a comment\n\n== CPDRTrans\nparams:\n  \"strKeyRecLoc\": \"KÅ\"\n  \"a\": [\"\", \"x\"]\n  \"b\": 7\n"
        "command: \"PDR/K\"\nscreen:\n" +
        blankLine +
        "|>|\nresults:\n  \"c\": true\nreported: [6, 13]\n\n== CRLPTrans\ncommand raises: 91\n"
        "screen:\nstate: previous\ncount: 2\nresults: none\n\n== CPXTrans\nscreen:\n|>|\nresults raises: 5015\n");
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[0].line, 3);
    EXPECT_EQ(steps[0].className, u"CPDRTrans");
    const Entries params{{u"strKeyRecLoc", u"KÅ"}, {u"a", TextList{u"", u"x"}}, {u"b", 7}};
    EXPECT_EQ(entriesOf(steps[0].params), params);
    EXPECT_EQ(steps[0].command, u"PDR/K");
    EXPECT_EQ(steps[0].screen, Text(80, u' ') + u">");
    EXPECT_EQ(entriesOf(steps[0].results->entries), (Entries{{u"c", true}}));
    EXPECT_EQ(steps[0].reported, (std::vector<int>{6, 13}));
    EXPECT_EQ(steps[1].commandRaises, 91);
    EXPECT_EQ(steps[1].screen, Text());
    EXPECT_TRUE(steps[1].statePrevious);
    EXPECT_EQ(steps[1].count, 2);
    EXPECT_EQ(steps[1].results->kind, ExchangeResults::Kind::NoCollection);
    EXPECT_FALSE(steps[1].params);
    EXPECT_EQ(steps[2].results->kind, ExchangeResults::Kind::Raised);
    EXPECT_EQ(steps[2].results->raised, 5015);
}

TEST(ExchangeFile, RefusesEverythingElse) {
    const std::string step = "== CPXTrans\n";
    for (const std::string& text : {
             std::string(),                                                      // no step
             step,                                                               // a step that checks nothing
             std::string("command: \"PX\"\n"),                                   // a section before a step
             step + "command: \"PX\"",                                           // no line end
             step + "command: PX\n",                                             // not JSON
             step + "command: 7\n",                                              // not a text
             step + "commands: \"PX\"\n",                                        // not a section
             step + "command: \"PX\"\n# no comment here\n",                      // a comment inside
             step + "command: \"PX\"\nparams:\n",                                // out of order
             step + "command: \"PX\"\ncommand: \"PX\"\n",                        // twice
             step + "screen:\n|>|\n",                                            // a screen without results
             step + "command: \"PX\"\nresults: none\n",                          // results without a screen
             step + "screen:\n|>|\n|>|\nresults: none\n",                        // a short line that is not the last
             step + "screen:\n|" + std::string(81, ' ') + "|\nresults: none\n",  // a long line
             step + "screen:\n|>\nresults: none\n",                              // no right edge
             step + "params:\n  \"a\": 1\n  \"a\": 2\ncommand: \"\"\n",          // a key twice
             step + "params:\n  \"a\": 32768\ncommand: \"\"\n",                  // beyond 16 bits
             step + "params:\n  \"a\": [1]\ncommand: \"\"\n",                    // a list of something else
             step + "params:\n  \"a\": null\ncommand: \"\"\n",                   // no value
         }) {
        EXPECT_THROW(parseExchange(text), std::runtime_error) << text;
    }
    std::string lines;
    for (int line = 0; line < 25; ++line) lines += blankLine;
    EXPECT_THROW(parseExchange(step + "screen:\n" + lines + "results: none\n"), std::runtime_error);
}

TEST(ExchangeFile, NamesTheWrongLine) {
    try {
        parseExchange("# comment\n== CPXTrans\ncommand: PX\n");
        FAIL() << "nothing was raised";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(std::string(error.what()).substr(0, 8), "line 3: ");
    }
}

TEST(Utf8, ConvertsBothWays) {
    for (const char* const text : {"", "PDN", "ÅSTRÖM", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"}) {
        EXPECT_EQ(utf8(wide(text)), text);
    }
    EXPECT_EQ(wide("\xF0\x9F\x98\x80"), u"\xD83D\xDE00");
    EXPECT_EQ(utf8(TextView(u"\xD83D")), "?");
    for (const char* const text : {"\x80", "\xC3", "\xC3(", "\xC0\x80", "\xF8"}) {
        EXPECT_THROW(wide(text), std::runtime_error);
    }
}

}  // namespace
}  // namespace vantro::test
