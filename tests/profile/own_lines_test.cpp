// The parsers over terminals that show a display in their own way.
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

// A terminal that makes lines of its own

/// Shows a host line as line 1 of any display.
class HostLineTerminal final : public test::OwnLinesTerminal {
    Text lineOf(TextView response, std::int16_t line) override {
        return line == 1 ? Text(u" PF24 X") : Text(hostLine(response, line));
    }
};

Answer underAHostLine(TextView className, const Text& text, const std::string& prefix) {
    return Parser(className, std::make_unique<HostLineTerminal>()).query(text, prefix);
}

TEST(ShortDisplay, ItsFirst80CharactersCannotBeCutOff) {
    const Raised invalid = raisedBy([] { fail(Failure::InvalidProcedureCall); });
    EXPECT_EQ(underAHostLine(u"CProfile", Text(79, u'X'), "RECLOC"), (Answer{.raised = invalid}));
    EXPECT_EQ(underAHostLine(u"CProfile", Text(), "XYZ"), (Answer{.raised = invalid}));
    // The cut comes before the look at the prefix.
    EXPECT_EQ(underAHostLine(u"CProfile", Text(79, u'X'), ""), (Answer{.raised = invalid}));
    EXPECT_EQ(underAHostLine(u"CProfile", Text(80, u'X'), "XYZ"), (Answer{.gaveCollection = true}));
    EXPECT_EQ(underAHostLine(u"CProfile", Text(80, u'X'), "PSL"), Answer{});
}

TEST(ShortDisplay, TheNotesAreReadFromWhatIsLeftOfIt) {
    const Answer nothing{
        .added = {{"strKeyElement()", "['']"}, {"strKeyElementNr()", "['']"}, {"strKeyQualifier()", "['']"}}};
    EXPECT_EQ(underAHostLine(u"CProfileNotes", Text(79, u'X'), "ProfileNotes"), nothing);
    EXPECT_EQ(underAHostLine(u"CProfileNotes", Text(80, u'X'), "ProfileNotes"), nothing);
}

}  // namespace
}  // namespace vantro
