// Every display in samples/profiles is compared with its expected elements in samples/expected.
#include "tests/profile/samples.h"
#include "vantro/families.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

#include <algorithm>
#include <map>
#include <optional>
#include <stdexcept>

namespace vantro {
namespace {

using Json = rapidjson::Value;

/// The fields that a family's elements have besides number and text, as the golden files name them.
std::vector<std::string> furtherFields(const std::string& family) {
    if (family == "SR") return {"kind", "code", "airline", "frequentFlyerNumber", "freeText", "asterisk"};
    if (family == "FFN") return {"kind", "airline", "frequentFlyerNumber"};
    if (family == "RC") return {"kind", "freeText"};
    if (family == "RM" || family == "AP" || family == "OS" || family == "ST") return {"kind"};
    return {};
}

/// Fields by name; a boolean as "true" or "false", null as nullopt.
using Fields = std::map<std::string, std::optional<std::string>>;

Fields fieldsOf(const Json& object) {
    Fields fields;
    for (const auto& member : object.GetObject()) {
        std::optional<std::string>& value = fields[member.name.GetString()];
        if (member.value.IsBool()) value = member.value.GetBool() ? "true" : "false";
        if (member.value.IsString()) value = std::string(member.value.GetString(), member.value.GetStringLength());
        if (!value && !member.value.IsNull()) throw std::runtime_error("a field of another kind");
    }
    return fields;
}

Fields fieldsOf(const Element& element, const std::vector<std::string>& further) {
    const std::map<std::string, std::string> all{{"code", utf8(element.code)},
                                                 {"airline", utf8(element.airline)},
                                                 {"frequentFlyerNumber", utf8(element.frequentFlyerNumber)},
                                                 {"freeText", utf8(element.freeText)},
                                                 {"kind", std::string(element.kind == 0 ? 0U : 1U, char(element.kind))},
                                                 {"asterisk", element.asterisk ? "true" : "false"}};
    Fields fields{{"number", utf8(element.number)}, {"text", utf8(element.text)}};
    for (const std::string& name : further) fields[name] = all.at(name);
    return fields;
}

class GoldenProfile : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        expected_.Parse(expectedJson(GetParam()).c_str());
        ASSERT_FALSE(expected_.HasParseError()) << rapidjson::GetParseError_En(expected_.GetParseError());
        profile_ = parseProfile(sampleDisplay(GetParam()));
    }

    const Json& expected(const char* name) const { return expected_[name]; }
    const Profile& profile() const { return profile_; }

private:
    rapidjson::Document expected_;
    Profile profile_;
};

INSTANTIATE_TEST_SUITE_P(Sample, GoldenProfile, testing::ValuesIn(sampleNames()),
                         [](const auto& test) { return test.param; });

TEST(GoldenFiles, EveryDisplayHasOneAndEveryOneHasADisplay) {
    EXPECT_EQ(sampleNames(), expectedNames());
    EXPECT_GE(sampleNames().size(), 6U);
}

TEST_P(GoldenProfile, HeaderValues) {
    EXPECT_EQ(utf8(profile().name), expected("name").GetString());
    EXPECT_EQ(utf8(profile().recordLocator), expected("recordLocator").GetString());
    EXPECT_EQ(utf8(profile().officeIdentifier), expected("officeIdentifier").GetString());

    Fields company{{"number", std::nullopt}, {"text", utf8(profile().companyName.text)}};
    if (profile().companyName.number) company["number"] = utf8(*profile().companyName.number);
    EXPECT_EQ(company, fieldsOf(expected("companyName")));

    EXPECT_EQ(fieldsOf(profile().pin, {}), fieldsOf(expected("pin")));
    ASSERT_EQ(profile().psl.has_value(), !expected("psl").IsNull());
    if (profile().psl) {
        EXPECT_EQ(fieldsOf(*profile().psl, {}), fieldsOf(expected("psl")));
    }
}

TEST_P(GoldenProfile, Sections) {
    std::vector<std::string> shown;
    for (std::size_t index = 0; index < sectionCount; ++index) {
        const auto section = static_cast<Section>(index);
        if (profile().isShown(section)) shown.push_back(utf8(titleOf(section)));
    }
    std::vector<std::string> golden;
    for (const Json& title : expected("sections").GetArray()) golden.emplace_back(title.GetString());
    EXPECT_EQ(shown, golden);
}

// A family without elements may be left out of the file.
TEST_P(GoldenProfile, Elements) {
    rapidjson::SizeType membersSeen = 0;
    for (const FamilyName& family : familyNames()) {
        const std::string prefix = utf8(family.prefix);
        SCOPED_TRACE(prefix);
        const std::span<const Element> elements = profile().elements(family.family);
        const auto member = expected("elements").FindMember(prefix.c_str());
        if (member == expected("elements").MemberEnd()) {
            EXPECT_TRUE(elements.empty());
            continue;
        }
        ++membersSeen;
        const Json& golden = member->value;
        ASSERT_EQ(elements.size(), golden.Size());
        for (rapidjson::SizeType index = 0; index < golden.Size(); ++index) {
            EXPECT_EQ(fieldsOf(elements[index], furtherFields(prefix)), fieldsOf(golden[index])) << "at " << index;
        }
    }
    EXPECT_EQ(membersSeen, expected("elements").MemberCount()) << "a member is no family";
}

TEST_P(GoldenProfile, Notes) {
    const Json& golden = expected("notes");
    ASSERT_EQ(profile().notes.size(), golden.Size());
    for (rapidjson::SizeType index = 0; index < golden.Size(); ++index) {
        const Note& note = profile().notes[index];
        const Fields fields{
            {"number", std::to_string(note.number)}, {"qualifier", utf8(note.qualifier)}, {"text", utf8(note.text)}};
        EXPECT_EQ(fields, fieldsOf(golden[index])) << "at " << index;
    }
}

TEST_P(GoldenProfile, EveryQueryIsAnswered) {
    for (const Problem& problem : profile().problems)
        ADD_FAILURE() << utf8(problem.query) << " raised " << problem.number;
}

// What the samples must cover

TEST(GoldenFiles, EveryFamilyHasElementsInSomeSample) {
    for (const FamilyName& family : familyNames()) {
        const auto hasElements = [&](const std::string& name) {
            return !parseProfile(sampleDisplay(name)).elements(family.family).empty();
        };
        EXPECT_TRUE(std::ranges::any_of(expectedNames(), hasElements))
            << utf8(family.prefix) << " is in no file of samples/profiles";
    }
}

}  // namespace
}  // namespace vantro
