// What the tool says about parameters that make no command.
#include "cli/classes/missing_keys.h"
#include "tests/cli/process.h"
#include "tests/support/collections.h"
#include "tests/support/parameter_worlds.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <string>

namespace vantro::test {
namespace {

std::string reason(TextView className, const Entries& params) {
    const std::string message = messageOfEmptyCommand(*findClass(className), *collection(params));
    const std::string insufficient = "the parameters are not sufficient and nothing is to be sent: ";
    return message.starts_with(insufficient) ? message.substr(insufficient.size()) : message;
}

std::string reasonOf(int number, TextView className, const Entries& params) {
    return reasonOfFailedCommand(*findClass(className), *collection(params), Error(number, u"", u""));
}

TEST(MissingKeys, AreThoseThatWouldMakeACommand) {
    EXPECT_EQ(reason(u"CPDITrans", {}), "strKeyIndex is missing");
    EXPECT_EQ(reason(u"CPDITrans", {{u"strKeyIndex", u""}}), "strKeyIndex is missing") << "an empty text is none";
    EXPECT_EQ(reason(u"CPDTrans", {{u"blnKeyFromPNR", true}}), "strKeyItemNr (when blnKeyFromPNR is True) is missing");
    EXPECT_EQ(reason(u"CPDNTrans", {{u"strKeyOfficeID", u"NCEVN0900"}}),
              "one of these keys is missing: strKeyName (when strKeyCompany is empty), strKeyCompany (when strKeyName "
              "is empty)");
    EXPECT_EQ(reason(u"CPBNTrans", {{u"strKeyIndicator", u"Traveller"}, {u"strKeyCompany", u"KESTRELLO"}}),
              "strKeyName (when strKeyIndicator is Traveller) is missing");
}

TEST(MissingKeys, CanBeAllTogether) {
    EXPECT_EQ(reason(u"CPBNTrans", {}),
              "these keys are missing: strKeyIndicator, strKeyCompany (when strKeyIndicator is Company), strKeyName "
              "(when strKeyIndicator is Traveller)");
    EXPECT_EQ(reasonOf(91, u"CPTTrans", {{u"intKeyArraySize", u"300"}, {u"strKeySegArray()", TextList(301)}}),
              "these keys are missing: strKeyElArray() (when intKeyArraySize is not empty), strKeyPasArray() (when "
              "intKeyArraySize is not empty)");
}

TEST(MissingKeys, AreNoneWhereTheOthersDoNotGoTogether) {
    EXPECT_EQ(reason(u"CPTTrans", {{u"intKeyArraySize", u"1"}, {u"strKeyElements", u"3"}}),
              "the parameters do not go together and nothing is to be sent. The command is empty when intKeyArraySize "
              "comes with strKeyElements, strKeySegAsso or strKeyPasAsso. See vantro-profile describe CPTTrans");
    EXPECT_NE(reason(u"CProfileMode", {{u"blnKeyEnter", true}, {u"blnKeyExit", true}}).find("do not go together"),
              std::string::npos);
}

TEST(MissingKeys, AreNoneWhereAValueIsWrong) {
    const Entries lists{{u"strKeyElArray()", TextList{u"3"}},
                        {u"strKeySegArray()", TextList{u""}},
                        {u"strKeyPasArray()", TextList{u""}},
                        {u"intKeyArraySize", u"1"}};
    EXPECT_EQ(reasonOf(9, u"CPTTrans", lists), "intKeyArraySize is negative, or beyond the end of a list");
    EXPECT_EQ(reasonOf(4711, u"CPTTrans", lists), "");
}

// A message has either keys or a rule, and a rule only where keys exclude each other.
TEST(MissingKeys, AreNamedForEveryEmptyCommandOfEveryClass) {
    for (const ClassRow& row : classTable()) {
        if (!row.hasProfileTrans) continue;
        forEachGood(row.description.parameters, [&](const Entries& params) {
            BuiltInTerminal terminal;
            bool isEmpty = false;
            try {
                isEmpty = createObject(row, terminal)->profileTrans()->CreateCommand(collection(params)).empty();
            } catch (const Error&) {}
            if (!isEmpty) return;
            const std::string said = messageOfEmptyCommand(row, *collection(params));
            const bool isRule = said.find("do not go together") != std::string::npos;
            EXPECT_EQ(isRule, said.find("missing:") == std::string::npos && !said.ends_with(" is missing")) << said;
            const bool canBeWrong =
                row.name == u"CPTTrans" || row.name == u"CProfileMode" || row.name == u"CProfileNotes";
            EXPECT_TRUE(!isRule || canBeWrong) << utf8(row.name) << ": " << said;
        });
    }
}

TEST(MissingKeys, OfAnEmptyCommandAreStatus3) {
    const Finished run = runTool({"command", "CPDITrans"});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.out, "\n");
    EXPECT_EQ(run.err,
              "vantro-profile: the parameters are not sufficient and nothing is to be sent: strKeyIndex is missing.\n");
}

TEST(MissingKeys, OfAFailedCallAreStatus1) {
    const Finished run = runTool({"command", "CPTTrans", "intKeyArraySize=1", "strKeyElArray()=3"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(linesOf(run.err).size(), 1U) << run.err;
    EXPECT_NE(run.err.find("error 91"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("these keys are missing: strKeySegArray() (when"), std::string::npos) << run.err;
    const Finished wrong = runTool({"command", "CPTTrans", "intKeyArraySize=x"});
    EXPECT_EQ(wrong.status, 1);
    EXPECT_NE(wrong.err.find("intKeyArraySize is no whole number"), std::string::npos) << wrong.err;
}

TEST(StrictCommand, MakesWarningsAFailureAndQuietHidesThem) {
    const std::vector<std::string> command{"command", "CPDNTrans", "strKeyName=SMITH", "strKeyNam=X"};
    const auto with = [&](std::vector<std::string> options) {
        options.insert(options.begin(), command.begin(), command.end());
        return runTool(options);
    };
    EXPECT_EQ(with({"--strict"}).status, 5);
    EXPECT_EQ(with({"--strict"}).out, "PDN/-SMITH\n");
    EXPECT_EQ(with({"--quiet"}).status, 0);
    EXPECT_EQ(with({"--quiet"}).err, "");
    EXPECT_EQ(with({"--quiet", "--strict"}).status, 5);
    EXPECT_EQ(runTool({"command", "CPDITrans", "strX=1", "--strict"}).status, 3);
}

}  // namespace
}  // namespace vantro::test
