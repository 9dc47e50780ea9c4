// The parsers with terminals that make their own lines.
#include "tests/profile/parser.h"
#include "tests/support/failing_terminal.h"
#include "tests/support/own_lines_terminal.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

TEST(WatchedTerminal, AnEmptyDisplayIsCountedWithoutACall) {
    for (const CountProperty& property : findClass(u"CProfile")->counts) {
        test::FailingTerminal terminal;
        const auto object = createObject(*findClass(u"CProfile"), terminal);
        EXPECT_EQ(property.call(*object, CountRequest{}), 0) << utf8(property.name);
        EXPECT_TRUE(terminal.calls().empty()) << utf8(property.name);
    }
}

// A terminal that makes its own lines

/// Shows a host line as line 1 of any display.
class HostLineTerminal final : public test::OwnLinesTerminal {
    Text lineOf(TextView response, std::int16_t line) override {
        return line == 1 ? Text(u" PF24 X") : Text(hostLine(response, line));
    }
};

Answer withHostLine(TextView className, const Text& text, const std::string& prefix) {
    return Parser(className, std::make_unique<HostLineTerminal>()).query(text, prefix);
}

TEST(ShortDisplay, ItsFirst80CharactersCannotBeCutOff) {
    const Raised invalid = raisedBy([] { fail(Failure::InvalidProcedureCall); });
    EXPECT_EQ(withHostLine(u"CProfile", Text(79, u'X'), "RECLOC"), (Answer{.raised = invalid}));
    EXPECT_EQ(withHostLine(u"CProfile", Text(), "XYZ"), (Answer{.raised = invalid}));
    // The display is cut before the prefix is tested.
    EXPECT_EQ(withHostLine(u"CProfile", Text(79, u'X'), ""), (Answer{.raised = invalid}));
    EXPECT_EQ(withHostLine(u"CProfile", Text(80, u'X'), "XYZ"), (Answer{.returnedCollection = true}));
    EXPECT_EQ(withHostLine(u"CProfile", Text(80, u'X'), "PSL"), Answer{});
}

TEST(ShortDisplay, TheNotesAreReadFromWhatRemains) {
    const Answer nothing{
        .added = {{"strKeyElement()", "['']"}, {"strKeyElementNr()", "['']"}, {"strKeyQualifier()", "['']"}}};
    EXPECT_EQ(withHostLine(u"CProfileNotes", Text(79, u'X'), "ProfileNotes"), nothing);
    EXPECT_EQ(withHostLine(u"CProfileNotes", Text(80, u'X'), "ProfileNotes"), nothing);
}

}  // namespace
}  // namespace vantro
