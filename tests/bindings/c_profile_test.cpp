// Whole profiles and texts through the C interface, compared with the C++ one.
#include "tests/bindings/c_values.h"
#include "tests/support/exchange_file.h"
#include "vantro/families.h"
#include "vantro/profile.h"
#include "vantro/screen_lines.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <sstream>
#include <string>

namespace vantro::test {
namespace {

std::string contentsOf(const std::filesystem::path& file) {
    std::ostringstream contents;
    contents << std::ifstream(file, std::ios::binary).rdbuf();
    return contents.str();
}

Owned<vantro_string> screenOf(std::string_view lines) {
    vantro_string* screen = nullptr;
    EXPECT_EQ(vantro_screen(argument(lines), &screen), 0) << vantro_error_description();
    return Owned<vantro_string>(screen);
}

Owned<vantro_profile> profileOf(TextView display) {
    vantro_profile* profile = nullptr;
    EXPECT_EQ(vantro_profile_parse(argument(display), &profile), 0) << vantro_error_description();
    return Owned<vantro_profile>(profile);
}

void expectElements(const vantro_profile* profile, const Profile& expected, Family family) {
    const auto number = static_cast<std::int32_t>(indexOf(family));
    const auto elements = expected.elements(family);
    ASSERT_EQ(vantro_element_count(profile, number), elements.size());
    EXPECT_EQ(vantro_family_is_shown(profile, number) != 0, expected.isShown(family));
    for (std::size_t index = 0; index < elements.size(); ++index) {
        const Element& element = elements[index];
        const auto part = [&](vantro_part wanted) {
            return viewed(vantro_element_part(profile, number, index + 1, wanted));
        };
        EXPECT_EQ(part(VANTRO_TEXT), element.text);
        EXPECT_EQ(part(VANTRO_NUMBER), element.number);
        EXPECT_EQ(part(VANTRO_CODE), element.code);
        EXPECT_EQ(part(VANTRO_AIRLINE), element.airline);
        EXPECT_EQ(part(VANTRO_FREQUENT_FLYER_NUMBER), element.frequentFlyerNumber);
        EXPECT_EQ(part(VANTRO_FREE_TEXT), element.freeText);
        EXPECT_EQ(vantro_element_kind(profile, number, index + 1), static_cast<char>(element.kind));
    }
    EXPECT_EQ(vantro_element_part(profile, number, 0, VANTRO_TEXT).size, 0U);
    EXPECT_EQ(vantro_element_part(profile, number, elements.size() + 1, VANTRO_TEXT).size, 0U);
}

void expectHeader(const vantro_profile* profile, const Profile& expected) {
    const auto value = [&](vantro_value wanted) { return viewed(vantro_profile_value(profile, wanted)); };
    EXPECT_EQ(value(VANTRO_NAME), expected.name);
    EXPECT_EQ(value(VANTRO_RECORD_LOCATOR), expected.recordLocator);
    EXPECT_EQ(value(VANTRO_OFFICE_IDENTIFIER), expected.officeIdentifier);
    EXPECT_EQ(value(VANTRO_COMPANY_NAME), expected.companyName.text);
    EXPECT_EQ(value(VANTRO_COMPANY_NUMBER), expected.companyName.number.value_or(TextView()));
    EXPECT_EQ(value(VANTRO_PIN), expected.pin.text);
    EXPECT_EQ(value(VANTRO_PIN_NUMBER), expected.pin.number);
    EXPECT_EQ(value(VANTRO_PSL), expected.psl ? expected.psl->text : TextView());
    EXPECT_EQ(value(VANTRO_PSL_NUMBER), expected.psl ? expected.psl->number : TextView());
    for (std::int32_t section = 0; section < vantro_section_count(); ++section) {
        EXPECT_EQ(vantro_section_is_shown(profile, section) != 0, expected.isShown(static_cast<Section>(section)));
    }
}

void expectNotesAndProblems(const vantro_profile* profile, const Profile& expected) {
    ASSERT_EQ(vantro_note_count(profile), expected.notes.size());
    for (std::size_t index = 0; index < expected.notes.size(); ++index) {
        EXPECT_EQ(vantro_note_number(profile, index + 1), expected.notes[index].number);
        EXPECT_EQ(viewed(vantro_note_qualifier(profile, index + 1)), expected.notes[index].qualifier);
        EXPECT_EQ(viewed(vantro_note_text(profile, index + 1)), expected.notes[index].text);
    }
    ASSERT_EQ(vantro_problem_count(profile), expected.problems.size());
    for (std::size_t index = 0; index < expected.problems.size(); ++index) {
        EXPECT_EQ(viewed(vantro_problem_query(profile, index + 1)), expected.problems[index].query);
        EXPECT_EQ(vantro_problem_number(profile, index + 1), expected.problems[index].number);
        EXPECT_EQ(viewed(vantro_problem_description(profile, index + 1)), expected.problems[index].description);
    }
}

void expectSame(TextView display) {
    const Owned<vantro_profile> profile = profileOf(display);
    const Profile expected = parseProfile(Text(display));
    expectHeader(profile.get(), expected);
    for (const FamilyFacts& row : families()) expectElements(profile.get(), expected, *row.family);
    expectNotesAndProblems(profile.get(), expected);
}

TEST(CProfile, EqualsTheProfileOfTheLibraryForEverySample) {
    const auto files = filesIn(std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "profiles", ".txt");
    ASSERT_FALSE(files.empty());
    for (const auto& file : files) {
        SCOPED_TRACE(file.string());
        const Owned<vantro_string> screen = screenOf(contentsOf(file));
        expectSame(viewed(vantro_string_view(screen.get())));
    }
}

// A display without an end: every search for a section fails.
TEST(CProfile, ListsItsProblems) {
    const Text display = Text(u"*T*").append(Text(77, u' '));
    expectSame(display);
    const Owned<vantro_profile> profile = profileOf(display);
    EXPECT_GT(vantro_problem_count(profile.get()), 20U);
    EXPECT_EQ(vantro_problem_number(profile.get(), 0), 0);
}

// The line of the company name has two characters where its number and "PCN/" would be, and no line begins the PSL.
TEST(CProfile, SaysWhichValuesAreNotThere) {
    const auto hasValues = [](const char* sample) {
        const auto file = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "profiles" / sample;
        const Owned<vantro_string> screen = screenOf(contentsOf(file));
        const Owned<vantro_profile> profile = profileOf(viewed(vantro_string_view(screen.get())));
        std::string present;
        for (int value = VANTRO_NAME; value <= VANTRO_PSL_NUMBER; ++value) {
            present += vantro_profile_has_value(profile.get(), static_cast<vantro_value>(value)) != 0 ? '1' : '0';
        }
        return present;
    };
    EXPECT_EQ(hasValues("traveller.txt"), "111111111");
    EXPECT_EQ(hasValues("company.txt"), "111111100");
    EXPECT_EQ(hasValues("header_4505.txt"), "111101100");
    EXPECT_EQ(vantro_profile_has_value(nullptr, VANTRO_NAME), 0);
}

TEST(CSections, AreThoseOfTheLibrary) {
    ASSERT_EQ(vantro_section_count(), static_cast<std::int32_t>(sectionCount));
    for (std::int32_t section = 0; section < vantro_section_count(); ++section) {
        EXPECT_EQ(viewed(vantro_section_title(section)), titleOf(static_cast<Section>(section)));
    }
    EXPECT_EQ(viewed(vantro_section_title(0)), u"PRIORITY");
    EXPECT_EQ(vantro_section_title(-1).size, 0U);
    EXPECT_EQ(vantro_section_title(vantro_section_count()).size, 0U);
    EXPECT_EQ(vantro_section_is_shown(nullptr, 0), 0);
}

TEST(CFamilies, AreThoseOfTheLibrary) {
    ASSERT_EQ(vantro_family_count(), static_cast<std::int32_t>(familyCount));
    for (std::int32_t family = 0; family < vantro_family_count(); ++family) {
        const FamilyFacts& facts = factsOf(static_cast<Family>(family));
        EXPECT_EQ(viewed(vantro_family_word(family)), facts.word);
        EXPECT_EQ(viewed(vantro_family_meaning(family)), facts.meaning);
        EXPECT_EQ(vantro_family_find(argument(facts.word)), family);
    }
    EXPECT_EQ(vantro_family_find(vantro_utf8("XXX")), -1);
    EXPECT_EQ(vantro_family_word(-1).size, 0U);
    EXPECT_EQ(vantro_family_meaning(vantro_family_count()).size, 0U);
}

TEST(CTexts, AreConvertedFromBothEncodings) {
    const Owned<vantro_collection> collection = cCollection({});
    ASSERT_EQ(
        vantro_collection_set_text(collection.get(), vantro_utf8("key"), vantro_utf8("Zo\xC3\xAB \xF0\x9F\x9B\xAB")),
        0);
    EXPECT_EQ(viewed(vantro_collection_text(collection.get(), 0)), u"Zo\u00EB \U0001F6EB");
}

TEST(CTexts, AreCopiedAsFarAsWholeCharactersFit) {
    const TextView text = u"a\u00EB\U0001F6EB";  // one, two and four bytes
    const vantro_view view{reinterpret_cast<const std::uint16_t*>(text.data()), text.size()};
    struct Row {
        std::size_t capacity;
        std::string expected;
    };
    for (const Row& row : {Row{8, "a\xC3\xAB\xF0\x9F\x9B\xAB"}, Row{7, "a\xC3\xAB"}, Row{4, "a\xC3\xAB"}, Row{3, "a"},
                           Row{2, "a"}, Row{1, ""}}) {
        std::array<char, 16> buffer{};
        buffer.fill('#');
        EXPECT_EQ(vantro_to_utf8(view, buffer.data(), row.capacity), 7U);
        EXPECT_EQ(buffer.data(), row.expected) << row.capacity;
        EXPECT_EQ(buffer[row.capacity], '#') << row.capacity;
    }
    EXPECT_EQ(vantro_to_utf8(view, nullptr, 0), 7U);
}

TEST(CTexts, ALongLineIsAnErrorThatNamesIt) {
    vantro_string* screen = nullptr;
    EXPECT_EQ(vantro_screen(argument(std::string("A\n") + std::string(81, 'B') + "\n"), &screen), 5);
    EXPECT_EQ(screen, nullptr);
    EXPECT_EQ(std::string(vantro_error_description()), "Line 2 has 81 characters, more than 80");
}

TEST(CVersion, IsThatOfTheHeader) {
    EXPECT_EQ(vantro_c_version(), VANTRO_C_VERSION);
    EXPECT_FALSE(std::string(vantro_library_version()).empty());
}

}  // namespace
}  // namespace vantro::test
