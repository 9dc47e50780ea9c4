// What a contender found in a display, in one form for all contenders, so that results can be compared.
#pragma once

#include "vantro/profile.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantro::bench {

struct PlainElement {
    std::u16string number, text, code, airline, account, freeText;
    bool operator==(const PlainElement&) const = default;
};

struct PlainNote {
    int number = 0;
    std::u16string qualifier, text;
    bool operator==(const PlainNote&) const = default;
};

struct ElementSet {
    std::u16string name, recordLocator, officeIdentifier;
    std::optional<std::u16string> companyNumber;
    std::u16string companyName;
    PlainElement pin;
    std::optional<PlainElement> psl;
    std::array<std::vector<PlainElement>, familyCount> families;
    std::vector<PlainNote> notes;

    std::size_t elementCount() const;
};

ElementSet elementSetOf(const Profile& profile);

/// The first difference as text, empty when there is none.
std::string difference(const ElementSet& ours, const ElementSet& theirs);

/// Ends the program when a contender's result for a display differs from the library's.
void requireEqual(std::string_view contender, std::size_t display, const std::string& difference);

/// For error messages; everything here is ASCII.
std::string toAscii(std::u16string_view text);
std::u16string widen(std::string_view ascii);
inline std::u16string widen(std::u16string_view text) { return std::u16string(text); }

}  // namespace vantro::bench
