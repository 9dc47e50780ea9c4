// Warnings about keys that a class does not read; what comes out stays the same.
#include "cli/classes/unknown_keys.h"
#include "tests/cli/process.h"
#include "tests/support/collections.h"
#include "tests/support/parameter_worlds.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantro::test {
namespace {

using Texts = std::vector<std::string>;

Texts warnings(TextView className, PassedFor purpose, const Entries& entries) {
    return unknownKeyWarnings(*findClass(className), purpose, *collection(entries));
}

TEST(UnknownKeys, AreNamedOnceInTheirOrderWithTheNearestKey) {
    EXPECT_EQ(warnings(u"CPDNTrans", PassedFor::Command,
                       {{u"blnKeyExactMach", true}, {u"strKeyName", u"A"}, {u"strKeyNam", u"B"}}),
              (Texts{R"(CPDNTrans does not know "blnKeyExactMach"; did you mean "blnKeyExactMatch"?)",
                     R"(CPDNTrans does not know "strKeyNam"; did you mean "strKeyName"?)"}));
}

TEST(UnknownKeys, WithoutANearKeyPointToTheDescription) {
    EXPECT_EQ(warnings(u"CPDNTrans", PassedFor::Command, {{u"strFoo", u"A"}}),
              (Texts{"CPDNTrans does not know \"strFoo\"; 'vantro-profile describe CPDNTrans' lists the "
                     "keys"}));
    EXPECT_EQ(warnings(u"CPDTTrans", PassedFor::Command, {{u"strKeyName", u"A"}}),
              (Texts{"CPDTTrans does not know \"strKeyName\"; 'vantro-profile describe CPDTTrans' lists the "
                     "keys"}));
}

TEST(UnknownKeys, CanBeKnownToTheOtherCall) {
    EXPECT_EQ(warnings(u"CPDNTrans", PassedFor::Command, {{u"blnKeyEndOfBlock", true}}),
              Texts{"CPDNTrans does not know \"blnKeyEndOfBlock\" for a command; it reads it for a screen"});
    EXPECT_EQ(warnings(u"CPXTrans", PassedFor::Screen, {{u"strKeyItemNr", u"3"}}),
              Texts{"CPXTrans does not know \"strKeyItemNr\" for a screen; it reads it for a command"});
}

TEST(UnknownKeys, AreNotThoseThatTheCallReads) {
    for (const ClassRow& row : classTable()) {
        Entries parameters;
        for (const ParameterRow& parameter : row.description.parameters) parameters.emplace_back(parameter.key, u"");
        EXPECT_EQ(unknownKeyWarnings(row, PassedFor::Command, *collection(parameters)), Texts{}) << className(row);

        // The results of the screen before are the state of the next.
        Entries state;
        for (const ParameterRow& parameter : row.description.state) state.emplace_back(parameter.key, u"");
        for (const ResultRow& result : row.description.results) state.emplace_back(result.key, u"");
        EXPECT_EQ(unknownKeyWarnings(row, PassedFor::Screen, *collection(state)), Texts{}) << className(row);
    }
}

TEST(UnknownKeys, AreWarnedAboutAndTheCommandStaysTheSame) {
    const Finished run = runTool({"command", "CPDNTrans", "strKeyName=SMITH", "blnKeyExactMach=true", "strKeyNam=X"});
    EXPECT_EQ(run.out, "PDN/-SMITH\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err,
              "vantro-profile: warning: CPDNTrans does not know \"blnKeyExactMach\"; did you mean "
              "\"blnKeyExactMatch\"?\n"
              "vantro-profile: warning: CPDNTrans does not know \"strKeyNam\"; did you mean \"strKeyName\"?\n");
}

TEST(UnknownKeys, ThatAreListsAreWarnedAboutOnce) {
    const Finished run = runTool({"command", "CPTTrans", "strKeyElementArray()=1", "strKeyElementArray()=2"});
    EXPECT_EQ(run.out, "PT\n");
    EXPECT_EQ(linesOf(run.err).size(), 1U) << run.err;
}

TEST(UnknownKeys, OfTheStateAndOfTheParametersAreWarnedAboutAndTheResultsStayTheSame) {
    const TemporaryFile state(R"({"blnKeyEndOfBlok":true,"blnKeyTrList":false})");
    const Finished run =
        runTool({"verify", "CPDNTrans", "strKeyName=SMITH", "--table", "--state", state.path()}, "PDN\n*T*\n");
    EXPECT_NE(run.out.find("blnKeyTrProfile    True"), std::string::npos) << run.out;
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err,
              "vantro-profile: warning: CPDNTrans does not know \"blnKeyEndOfBlok\"; did you mean "
              "\"blnKeyEndOfBlock\"?\n"
              "vantro-profile: warning: CPDNTrans does not know \"strKeyName\" for a screen; it reads it for a "
              "command.\n");
}

TEST(UnknownKeys, AreWarnedAboutBeforeACallFails) {
    const Finished run = runTool({"verify", "CRLPTrans", "strKeyIndx=1"}, "RLP\n");
    EXPECT_EQ(run.status, 1);
    const auto lines = linesOf(run.err);
    ASSERT_EQ(lines.size(), 2U) << run.err;
    EXPECT_NE(lines[0].find("did you mean \"strKeyIndex\"?"), std::string::npos);
    EXPECT_NE(lines[1].find("5130"), std::string::npos);
}

}  // namespace
}  // namespace vantro::test
