// Small worlds of parameters: every combination of a few values of each parameter. The library's command is compared
// with the oracle's.
#include "tests/oracle/commands_oracle.h"
#include "tests/support/driven_class.h"
#include "tests/support/text.h"
#include "tests/transactions/oracle_answers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

/// A parameter and its possible values; nullopt stands for an absent key.
struct Parameter {
    Text key;
    std::vector<std::optional<ItemValue>> values;
};

struct CommandWorld {
    Text className;
    std::vector<Parameter> parameters;
};

void PrintTo(const CommandWorld& world, std::ostream* out) { *out << utf8(world.className); }

ItemValue text(const char16_t* value) { return Text(value); }
ItemValue truth(bool value) { return ItemValue(std::in_place_type<bool>, value); }
ItemValue number(int value) { return static_cast<std::int16_t>(value); }

Parameter texts(const char16_t* key, std::vector<std::optional<ItemValue>> values = {}) {
    if (values.empty()) values = {std::nullopt, text(u""), text(u"A"), text(u" B "), number(7), truth(true)};
    return {key, std::move(values)};
}

Parameter flag(const char16_t* key) {
    return {key, {std::nullopt, truth(false), truth(true), text(u""), text(u"TRUE"), text(u"-1"), text(u"yes")}};
}

Parameter list(const char16_t* key) {
    return {key,
            {std::nullopt, TextList{}, TextList{u"3"}, TextList{u"", u"7"}, TextList{u"1", u"", u"X"}, text(u"3")}};
}

const TextList aList{u"A"};

const std::vector<CommandWorld> worlds{
    {u"CPBITrans", {texts(u"strKeyIndex"), flag(u"blnKeyAllPNR")}},
    {u"CPBNTrans",
     {texts(u"strKeyIndicator", {std::nullopt, text(u""), text(u"Company"), text(u"Traveller"), text(u"company"),
                                 text(u"Compan"), text(u"Traveller "), aList}),
      texts(u"strKeyCompany"),
      texts(u"strKeyName", {std::nullopt, text(u""), text(u"A")}),
      flag(u"blnKeyAllPNR"),
      {u"blnKeyExactMatch", {std::nullopt, truth(true), text(u"x")}}}},
    {u"CPCNTrans", {texts(u"strKeyCompany", {std::nullopt, text(u""), text(u"A"), aList})}},
    {u"CPDATrans", {texts(u"strKeyName"), texts(u"strKeyCompany", {std::nullopt, text(u""), text(u"A"), aList})}},
    {u"CPDITrans", {texts(u"strKeyIndex", {std::nullopt, text(u""), text(u"A"), aList})}},
    {u"CPDMDTrans", {texts(u"strKeyName")}},
    {u"CPDNTrans",
     {texts(u"strKeyName"), texts(u"strKeyCompany"), flag(u"blnKeyExactMatch"),
      texts(u"strKeyOfficeID", {std::nullopt, text(u""), text(u"NCEVN0900"), aList})}},
    {u"CPDRTrans",
     {texts(u"strKeyRecLoc", {std::nullopt, text(u""), text(u"KQ4R7T"), aList}),
      texts(u"strKeyIndicator", {std::nullopt, text(u""), text(u"T"), text(u"C"), text(u"t"), text(u"c"), text(u"TC"),
                                 text(u"T "), aList})}},
    {u"CPDTrans", {texts(u"strKeyItemNr"), flag(u"blnKeyFromPNR")}},
    {u"CPDTTrans", {texts(u"strKeyItemNr")}},
    {u"CPHTrans", {texts(u"strKeyElementNr", {std::nullopt, text(u""), text(u"A"), aList})}},
    {u"CPLCTrans", {texts(u"strKeyOfficeID", {std::nullopt, text(u""), text(u"NCEVN0900"), aList})}},
    {u"CPLTTrans",
     {texts(u"strKeyOfficeID"),
      texts(u"strKeyCompany"),
      {u"blnKeyExactMatch", {std::nullopt, truth(false), truth(true), text(u"x")}}}},
    {u"CProfileMode", {flag(u"blnKeyUpdate"), flag(u"blnKeyExit"), flag(u"blnKeyEnter"), flag(u"blnKeyIgnore")}},
    {u"CPXTrans", {texts(u"strKeyItemNr", {std::nullopt, text(u""), text(u"A"), aList})}},
    {u"CRLPTrans", {texts(u"strKeyIndex")}},
    {u"CPTTrans",
     {{u"blnKeyAllPNR", {std::nullopt, truth(true), text(u"x")}},
      {u"blnKeyOverride", {std::nullopt, truth(true), text(u"x")}},
      texts(u"strKeyElements", {std::nullopt, text(u"3,5"), aList}),
      texts(u"strKeySegAsso", {std::nullopt, text(u"2")}),
      texts(u"strKeyPasAsso", {std::nullopt, text(u"1")}),
      texts(u"intKeyArraySize",
            {std::nullopt, text(u""), text(u"0"), text(u" 1 "), number(2), text(u"-1"), text(u"x"), text(u"32768")}),
      list(u"strKeyElArray()"),
      {u"strKeySegArray()", {std::nullopt, TextList{u"2", u"", u"4"}}},
      {u"strKeyPasArray()", {std::nullopt, TextList{u"", u"1", u""}}}}},
    {u"CProfileNotes",
     {texts(u"strCommand", {std::nullopt, text(u""), text(u"PN"), text(u"PNE"), text(u"PNL"), text(u"pn"),
                            text(u"PNEE"), text(u"P"), text(u" PN"), aList})}},
};

std::string commandOf(DrivenClass& driven, const Entries& params) {
    try {
        return utf8(driven.command(params));
    } catch (const Error& error) {
        return "error " + std::to_string(error.number());
    }
}

std::string expectedOf(const std::string& className, const Entries& params) {
    const oracle::Collection given = oracleCollection(params);
    try {
        return utf8(oracle::command(className, &given));
    } catch (const oracle::Failure& failure) {
        return "error " + std::to_string(failure.number);
    }
}

/// The parameters that have a value in this choice.
Entries chosen(const CommandWorld& world, const std::vector<std::size_t>& choice) {
    Entries params;
    for (std::size_t index = 0; index < choice.size(); ++index) {
        const auto& value = world.parameters[index].values[choice[index]];
        if (value) params.emplace_back(world.parameters[index].key, *value);
    }
    return params;
}

/// Advances to the next choice of a value for each parameter; false after the last one.
bool advance(const CommandWorld& world, std::vector<std::size_t>& choice) {
    for (std::size_t index = 0; index < choice.size(); ++index) {
        if (++choice[index] < world.parameters[index].values.size()) return true;
        choice[index] = 0;
    }
    return false;
}

class CommandWorldOf : public testing::TestWithParam<CommandWorld> {};

INSTANTIATE_TEST_SUITE_P(, CommandWorldOf, testing::ValuesIn(worlds),
                         [](const auto& test) { return utf8(test.param.className); });

TEST(CommandWorlds, ContainEveryClassThatBuildsCommands) {
    for (const ClassRow& row : classTable()) {
        if (!row.hasProfileTrans) continue;
        EXPECT_EQ(std::ranges::count(worlds, row.name, &CommandWorld::className), 1) << utf8(row.name);
    }
}

TEST_P(CommandWorldOf, IsBuiltAsTheOracleBuildsIt) {
    const CommandWorld& world = GetParam();
    DrivenClass driven(world.className);
    std::vector<std::size_t> choice(world.parameters.size());
    do {
        const Entries params = chosen(world, choice);
        ASSERT_EQ(commandOf(driven, params), expectedOf(utf8(world.className), params))
            << testing::PrintToString(params);
    } while (advance(world, choice));
}

TEST_P(CommandWorldOf, WithoutParametersFailsAsTheOracleDoes) {
    const std::string name = utf8(GetParam().className);
    DrivenClass driven(GetParam().className);
    std::string answer;
    try {
        answer = utf8(driven.command(CollectionPtr()));
    } catch (const Error& error) {
        answer = "error " + std::to_string(error.number());
    }
    std::string expected;
    try {
        expected = utf8(oracle::command(name, nullptr));
    } catch (const oracle::Failure& failure) {
        expected = "error " + std::to_string(failure.number);
    }
    EXPECT_EQ(answer, expected);
}

}  // namespace
}  // namespace vantro::test
