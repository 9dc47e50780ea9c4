// Whole profiles.
#include "bindings/c/handles.h"
#include "vantro/families.h"

#include <algorithm>
#include <array>

namespace vantro::c {

namespace {

/// How each value is read; the values are in the order of their numbers.
using ReadValue = TextView (*)(const Profile& profile);

constexpr std::array<ReadValue, 9> values{
    [](const Profile& profile) { return profile.name; },
    [](const Profile& profile) { return profile.recordLocator; },
    [](const Profile& profile) { return profile.officeIdentifier; },
    [](const Profile& profile) { return profile.companyName.text; },
    [](const Profile& profile) { return profile.companyName.number.value_or(TextView()); },
    [](const Profile& profile) { return profile.pin.text; },
    [](const Profile& profile) { return profile.pin.number; },
    [](const Profile& profile) { return profile.psl ? profile.psl->text : TextView(); },
    [](const Profile& profile) { return profile.psl ? profile.psl->number : TextView(); },
};
static_assert(values.size() == VANTRO_PSL_NUMBER + 1);

/// In the order of their numbers.
constexpr std::array<TextView Element::*, 6> parts{
    &Element::text,     &Element::number, &Element::code, &Element::airline, &Element::frequentFlyerNumber,
    &Element::freeText,
};
static_assert(parts.size() == VANTRO_FREE_TEXT + 1);

bool isSection(std::int32_t section) { return section >= 0 && static_cast<std::size_t>(section) < sectionCount; }

bool isFamily(std::int32_t family) { return family >= 0 && static_cast<std::size_t>(family) < familyCount; }

const FamilyFacts* factsOf(std::int32_t family) {
    return isFamily(family) ? &vantro::factsOf(static_cast<Family>(family)) : nullptr;
}

std::span<const Element> elementsOf(const vantro_profile* profile, std::int32_t family) {
    if (profile == nullptr || !isFamily(family)) return {};
    return profile->profile.elements(static_cast<Family>(family));
}

/// The entry at a position from 1, or null.
template <class Entry>
const Entry* entryAt(std::span<const Entry> entries, std::size_t position) {
    return position >= 1 && position <= entries.size() ? &entries[position - 1] : nullptr;
}

const Note* noteAt(const vantro_profile* profile, std::size_t note) {
    return profile != nullptr ? entryAt(profile->profile.notes, note) : nullptr;
}

const Problem* problemAt(const vantro_profile* profile, std::size_t problem) {
    return profile != nullptr ? entryAt(std::span<const Problem>(profile->profile.problems), problem) : nullptr;
}

}  // namespace

}  // namespace vantro::c

using namespace vantro;
using namespace vantro::c;

std::int32_t vantro_profile_parse(vantro_text display, vantro_profile** profile) {
    *profile = nullptr;
    return guarded([&] { *profile = new vantro_profile{parseProfile(TextArgument(display).take())}; });
}

void vantro_profile_free(vantro_profile* profile) { delete profile; }

vantro_view vantro_profile_value(const vantro_profile* profile, vantro_value value) {
    const auto index = static_cast<std::size_t>(value);
    return viewOf(profile != nullptr && index < values.size() ? values[index](profile->profile) : TextView());
}

std::int32_t vantro_profile_has_value(const vantro_profile* profile, vantro_value value) {
    if (profile == nullptr || static_cast<std::size_t>(value) >= values.size()) return 0;
    switch (value) {
        case VANTRO_COMPANY_NUMBER: return profile->profile.companyName.number ? 1 : 0;
        case VANTRO_PSL:
        case VANTRO_PSL_NUMBER: return profile->profile.psl ? 1 : 0;
        default: return 1;
    }
}

std::int32_t vantro_section_count() { return static_cast<std::int32_t>(sectionCount); }

vantro_view vantro_section_title(std::int32_t section) {
    return viewOf(isSection(section) ? titleOf(static_cast<Section>(section)) : TextView());
}

std::int32_t vantro_section_is_shown(const vantro_profile* profile, std::int32_t section) {
    return profile != nullptr && isSection(section) && profile->profile.isShown(static_cast<Section>(section)) ? 1 : 0;
}

std::int32_t vantro_family_count() { return static_cast<std::int32_t>(familyCount); }

vantro_view vantro_family_word(std::int32_t family) {
    const FamilyFacts* const facts = c::factsOf(family);
    return viewOf(facts != nullptr ? facts->word : TextView());
}

vantro_view vantro_family_meaning(std::int32_t family) {
    const FamilyFacts* const facts = c::factsOf(family);
    return viewOf(facts != nullptr ? facts->meaning : TextView());
}

std::int32_t vantro_family_find(vantro_text word) {
    return guardedOr(std::int32_t{-1}, [&] {
        const TextArgument wanted(word);
        const auto found = std::ranges::find(families(), wanted.view(), &FamilyFacts::word);
        return found != families().end() ? static_cast<std::int32_t>(indexOf(*found->family)) : -1;
    });
}

std::size_t vantro_element_count(const vantro_profile* profile, std::int32_t family) {
    return elementsOf(profile, family).size();
}

vantro_view vantro_element_part(const vantro_profile* profile, std::int32_t family, std::size_t element,
                                vantro_part part) {
    const Element* const entry = entryAt(elementsOf(profile, family), element);
    const auto index = static_cast<std::size_t>(part);
    return viewOf(entry != nullptr && index < parts.size() ? entry->*parts[index] : TextView());
}

char vantro_element_kind(const vantro_profile* profile, std::int32_t family, std::size_t element) {
    const Element* const entry = entryAt(elementsOf(profile, family), element);
    return entry != nullptr ? static_cast<char>(entry->kind) : '\0';
}

std::int32_t vantro_family_is_shown(const vantro_profile* profile, std::int32_t family) {
    return profile != nullptr && isFamily(family) && profile->profile.isShown(static_cast<Family>(family)) ? 1 : 0;
}

std::size_t vantro_note_count(const vantro_profile* profile) {
    return profile != nullptr ? profile->profile.notes.size() : 0;
}

std::int32_t vantro_note_number(const vantro_profile* profile, std::size_t note) {
    const Note* const entry = noteAt(profile, note);
    return entry != nullptr ? entry->number : 0;
}

vantro_view vantro_note_qualifier(const vantro_profile* profile, std::size_t note) {
    const Note* const entry = noteAt(profile, note);
    return viewOf(entry != nullptr ? entry->qualifier : TextView());
}

vantro_view vantro_note_text(const vantro_profile* profile, std::size_t note) {
    const Note* const entry = noteAt(profile, note);
    return viewOf(entry != nullptr ? entry->text : TextView());
}

std::size_t vantro_problem_count(const vantro_profile* profile) {
    return profile != nullptr ? profile->profile.problems.size() : 0;
}

vantro_view vantro_problem_query(const vantro_profile* profile, std::size_t problem) {
    const Problem* const entry = problemAt(profile, problem);
    return viewOf(entry != nullptr ? entry->query : TextView());
}

std::int32_t vantro_problem_number(const vantro_profile* profile, std::size_t problem) {
    const Problem* const entry = problemAt(profile, problem);
    return entry != nullptr ? entry->number : 0;
}

vantro_view vantro_problem_description(const vantro_profile* profile, std::size_t problem) {
    const Problem* const entry = problemAt(profile, problem);
    return viewOf(entry != nullptr ? TextView(entry->description) : TextView());
}
