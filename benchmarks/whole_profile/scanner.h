// The hand-written contender: one pass over the lines for all families, header values and notes.
#pragma once

#include "common/element_set.h"

#include <array>
#include <cstdint>
#include <forward_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantro::bench {

/// `String` is a view of the display or an owned text, in UTF-16 or (for a contender that reads UTF-8) in bytes.
template <class String>
struct Scanned {
    struct Item {
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

    /// Joined lines that views refer to.
    std::forward_list<std::basic_string<typename String::value_type>> joined;

    /// Clears everything but keeps the memory, for the next display.
    void clear();
};

using ScannedViews = Scanned<std::u16string_view>;
using ScannedTexts = Scanned<std::u16string>;

/// Reads what the host prints: each section once, the prompt or the end text on its own line, no prefix in a wrapped
/// line.
void scanProfile(std::u16string_view display, ScannedViews& result);
void scanProfile(std::u16string_view display, ScannedTexts& result);

template <class String>
ElementSet elementSetOf(const Scanned<String>& scanned);

}  // namespace vantro::bench
