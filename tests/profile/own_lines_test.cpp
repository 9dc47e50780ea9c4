// The parsers over terminals that show a display in their own way.
#include "tests/profile/parser.h"
#include "tests/support/failing_terminal.h"

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
class HostLineTerminal final : public Terminal, private TerminalFunctions {
public:
    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return inner_.errorReporter(); }
    CollectionPtr createCollection() override { return inner_.createCollection(); }

private:
    TextView ItemText(const ItemPtr& item, TextStore& store) override {
        return inner_.functions().ItemText(item, store);
    }
    bool ItemBoolean(const ItemPtr& item) override { return inner_.functions().ItemBoolean(item); }
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override {
        return line == 1 ? TextView(u" PF24 X") : inner_.functions().ScreenLine(response, line, store);
    }
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override {
        return inner_.functions().FindMarker(response, marker, line);
    }
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override {
        return inner_.functions().TextField(text, number, separator, store);
    }

    BuiltInTerminal inner_;
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
