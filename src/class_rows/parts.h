// Building blocks for the descriptions of the classes. The kind of a value follows from the type of its key.
#pragma once

#include "framework/constants.h"
#include "framework/keys.h"
#include "vantro/class_description.h"

namespace vantro::rows {

template <class T>
constexpr ValueKind kindOf(const Key<T>& /*key*/) {
    if constexpr (std::is_same_v<T, bool>) return ValueKind::Boolean;
    if constexpr (std::is_same_v<T, std::int16_t>) return ValueKind::Integer;
    if constexpr (std::is_same_v<T, TextList>) return ValueKind::StringList;
    return ValueKind::String;
}

// Parameters

template <class T>
constexpr ParameterRow required(const Key<T>& name, TextView meaning, std::span<const TextView> values = {}) {
    return {name.name, kindOf(name), Need::Required, {}, meaning, values};
}

template <class T>
constexpr ParameterRow needed(const Key<T>& name, TextView when, TextView meaning) {
    return {name.name, kindOf(name), Need::Conditional, when, meaning};
}

template <class T>
constexpr ParameterRow optional(const Key<T>& name, TextView meaning, std::span<const TextView> values = {}) {
    return {name.name, kindOf(name), Need::Optional, {}, meaning, values};
}

// Results

template <class T>
constexpr ResultRow always(const Key<T>& name, TextView meaning) {
    return {name.name, kindOf(name), {}, meaning};
}

template <class T>
constexpr ResultRow sometimes(const Key<T>& name, TextView when, TextView meaning) {
    return {name.name, kindOf(name), when, meaning};
}

// Flags of screens

/// Lines of a screen; `last` is inclusive.
struct Lines {
    std::int16_t first;
    std::int16_t last;
};

constexpr ScreenFlag startsLine(const Key<bool>& flag, TextView mark, Lines lines, TextView other = {}) {
    return {flag.name, mark, MarkPosition::StartsLine, lines.first, lines.last, other};
}

constexpr ScreenFlag inLine(const Key<bool>& flag, TextView mark, Lines lines) {
    return {flag.name, mark, MarkPosition::InLine, lines.first, lines.last};
}

constexpr ScreenFlag onScreen(const Key<bool>& flag, TextView mark, TextView other = {}) {
    return {flag.name, mark, MarkPosition::OnScreen, 0, 0, other};
}

constexpr ScreenFlag sameLine(const Key<bool>& flag, TextView mark, TextView other) {
    return {flag.name, mark, MarkPosition::SameLine, 0, 0, other};
}

constexpr ScreenFlag endsList(const Key<bool>& flag) {
    return {flag.name, mark::endOfBlock, MarkPosition::EndsList, 0, 0, mark::similarCompanies};
}

/// The mark that answers one of several commands.
constexpr ScreenFlag answer(TextView command, const Key<bool>& flag, TextView mark,
                            MarkPosition position = MarkPosition::OnScreen, TextView other = {}) {
    return {flag.name, mark, position, 0, 0, other, command};
}

inline constexpr TextView firstLineDecides =
    u"The lines are searched one by one for these marks, in this order; the first match decides.";

// Shared by the two classes that return the passed collection

inline constexpr TextView asForCommand = u"when the command was built with it";

// clang-format off
inline constexpr ResultRow messageResults[] = {
    always(key::blnKeyResponseOK,  u"the host has accepted the command"),
    always(key::strKeyErrorString, u"the host's message, whether it has accepted the command or not: line 1 of the "
                                   u"screen"),
};
// clang-format on

// Columns of lists

inline constexpr ListColumn listNumberColumn{u"number", &ListRow::number, u"the number of the entry in the list"};
inline constexpr ListColumn listNameColumn{u"name", &ListRow::name, u"the name of the traveller or the company"};
inline constexpr ListColumn locatorColumn{u"recordLocator", &ListRow::recordLocator, u"the profile's record locator"};
inline constexpr ListColumn ownCompanyColumn{u"company", &ListRow::company,
                                             u"the company to which the traveller belongs"};
inline constexpr ListColumn ownOfficeColumn{u"office", &ListRow::office,
                                            u"the office to which the company's profile belongs"};

// Errors of operations without a number of their own

inline constexpr TextView noCollection = u"there is no collection of parameters";
inline constexpr TextView wrongKind = u"a parameter has a kind that cannot be converted";

inline constexpr ErrorRow commandErrors[] = {
    {ClassCall::CreateCommand, 91, noCollection},
    {ClassCall::CreateCommand, 13, wrongKind},
};

// Long lists

inline constexpr TextView pagingRemark =
    u"If blnKeyEndOfBlock is True, the list continues: send PDMD and read the next screen with these results as the "
    u"state.";

}  // namespace vantro::rows
