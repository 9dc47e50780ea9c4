// What the contenders of this task make of a display.
#pragma once

#include "common/element_set.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantro::bench {

/// `String` is a view of the display or an owned text, in UTF-16 or (for a contender that reads UTF-8) in bytes.
template <class String>
struct Scanned {
    using Char = typename String::value_type;
    using View = std::basic_string_view<Char>;

    struct Item {
        Item() = default;
        Item(View itsNumber, View itsText) : number(itsNumber), text(itsText) {}
        String number, text;
    };
    struct FlyerParts {
        String carrier, account;
    };
    struct RequestParts {
        String code, carrier, account, freeText;
    };
    struct NoteLine {
        int number;
        String qualifier, text;
    };

    String name, recordLocator, officeIdentifier;
    std::optional<String> companyNumber = String();  ///< empty without a company name, nullopt without a number
    String companyName;
    Item pin;
    std::optional<Item> psl;
    std::array<std::vector<Item>, familyCount> families;
    std::vector<FlyerParts> flyers;      ///< parallel to the frequent flyers
    std::vector<RequestParts> requests;  ///< parallel to the service requests
    std::vector<String> remarkDetails;   ///< parallel to the confidential remarks
    std::vector<NoteLine> notes;

    /// Texts joined from several lines, to which views refer: one piece of memory that never moves.
    std::basic_string<Char> joined;

    /// Clears everything but keeps the memory, for the next display of at most this many characters.
    void prepare(std::size_t displaySize);
};

using ScannedViews = Scanned<std::u16string_view>;
using ScannedTexts = Scanned<std::u16string>;

template <class String>
ElementSet elementSetOf(const Scanned<String>& scanned);

/// Only the numbers and texts of the elements, and the notes: what a contender finds that reads nothing else.
ElementSet elementsOnly(ElementSet set);

}  // namespace vantro::bench
