// The parts of an element, one row each: a part's meaning and its names in every kind of output.
#pragma once

#include "framework/keys.h"
#include "vantro/families.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vantro {

struct ElementPartRow {
    ElementPart part;
    const Key<Text>* key;          ///< for one element; null for the asterisk
    const Key<TextList>* listKey;  ///< for the whole list; null for a part that is never returned as a list
    TextView listEnding;           ///< end of the list's name in `CProfile`
    std::string_view json;
    std::string_view label;  ///< in printed tables
    TextView Element::*value;
    TextView meaning;
};

// clang-format off
inline constexpr auto elementParts = std::to_array<ElementPartRow>({
    // part                            key                     list key                     list        JSON                   label      member                         meaning
    {ElementPart::WholeText,           &key::strKeyElement,    &key::strKeyElement_list,    u"Text",     "text",                "",        &Element::text,                u"the whole text, wrapped lines joined"},
    {ElementPart::Number,              &key::strKeyElementNr,  &key::strKeyElementNr_list,  u"Number",   "number",              "",        &Element::number,              u"number of the element in the profile"},
    {ElementPart::Code,                &key::strKeyCode,       nullptr,                     u"Code",     "code",                "code",    &Element::code,                u"code of a service request"},
    {ElementPart::Airline,             &key::strKeyAirline,    nullptr,                     u"Carrier",  "airline",             "airline", &Element::airline,             u"airline of a frequent flyer number"},
    {ElementPart::FrequentFlyerNumber, &key::strKeyFFNbr,      nullptr,                     u"Account",  "frequentFlyerNumber", "number",  &Element::frequentFlyerNumber, u"frequent flyer number"},
    {ElementPart::FreeText,            &key::strKeyFreeText,   nullptr,                     u"FreeText", "freeText",            "text",    &Element::freeText,            u"free text of a service request"},
    {ElementPart::Detail,              &key::strKeyFreeText,   nullptr,                     u"Detail",   "freeText",            "text",    &Element::freeText,            u"text of a confidential remark"},
    {ElementPart::Asterisk,            nullptr,                nullptr,                     u"Flag",     "asterisk",            "",        nullptr,                       u"never set by a display"},
});
// clang-format on

/// The parts' names in JSON, as texts.
inline constexpr std::array<TextView, elementPartCount> partNames{
    u"text", u"number", u"code", u"airline", u"frequentFlyerNumber", u"freeText", u"freeText", u"asterisk"};

constexpr TextView nameOf(ElementPart part) { return partNames[indexOf(part)]; }

constexpr const ElementPartRow& rowOf(ElementPart part) { return elementParts[indexOf(part)]; }

static_assert(elementParts.size() == elementPartCount);
static_assert(std::ranges::all_of(elementParts, [](const auto& row) {
    return std::ranges::equal(row.json, nameOf(row.part), [](char a, char16_t b) { return a == static_cast<char>(b); });
}));
static_assert(std::ranges::all_of(elementParts, [](const auto& row) { return &rowOf(row.part) == &row; }));

}  // namespace vantro
