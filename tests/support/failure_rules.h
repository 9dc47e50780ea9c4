// What each operation does when a step fails: one row per operation. A step is one call to the terminal: `Item`,
// `ItemText`, `ItemBoolean`, `Value`, `ScreenLine`, `FindMarker`, `TextField`, `createCollection`, `Add`.
//
// A failing step of the operation itself is raised under the operation's number, or passes unchanged when the operation
// has none. Some steps belong to a private reader, which reports its failures and lets the operation go on; others
// belong to an extractor with its own number. The rules are plain data: each platform's tests make a step fail in their
// own way.
#pragma once

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vantro::test {

/// The steps made so far, in the order in which the terminal receives them ("Item strKeyName", "ScreenLine 3").
using Calls = std::vector<std::string>;

inline constexpr int passes = 0;  ///< instead of a number: the failing step's own error is raised

inline constexpr std::string_view creatingCommand = "An error has occurred while creating a profile command.";
inline constexpr std::string_view verifyingProfile = "An error has occurred while verifying the profile.";
inline constexpr std::string_view readingNotes = "An error has occurred while reading Profile Notes";
inline constexpr std::string_view ownSource = "VantroProfileUtils";

/// How a reported failure is described when it is not one of the numbered errors.
struct Described {
    int number;
    std::string_view description;
};
inline constexpr Described foreignFailure{51, "Internal error"};
inline constexpr Described outOfMemory{7, "Out of memory"};
inline constexpr Described wrongKind{13, "Type mismatch"};

/// What the operation does when a step fails.
enum class Fate {
    Raises,      ///< raises the rule's number; no result
    Passes,      ///< raises the step's own failure; no result
    Stops,       ///< reports; the keys not yet added are missing
    GoesOn,      ///< reports; every key is added
    StopsTwice,  ///< reports; going on leads to a second failure, which is reported too; no key is added
};

struct Consequence {
    Fate fate;
    int number = passes;  ///< of the raised error
    std::string_view description = {};
    bool isInner = false;  ///< the reader is inside another one, which takes over when the report fails too
};

constexpr Consequence inner(Fate fate) { return {fate, passes, {}, true}; }

constexpr Consequence raisesOrPasses(int number, std::string_view description) {
    return number == passes ? Consequence{Fate::Passes} : Consequence{Fate::Raises, number, description};
}

// The transactions

/// Which steps of `VerifyResponse` belong to a private reader.
enum class Reader {
    None,          ///< none: the operation raises every failure
    FillsResults,  ///< the screen lines, the marks searched for, and the adding of keys
    ReadsLines,    ///< the screen lines only; the operation adds the keys
};

struct TransRule {
    std::string_view className;
    int create;
    int verify;
    Reader reader;
    int reported = 0;  ///< the number that the reader passes to its report; 0: none
    /// An inner reader reads the lines after the first one that contains one of these marks; its failures do not stop
    /// the outer reader. Unused marks are empty.
    std::array<std::string_view, 2> innerTitles = {};
};

// clang-format off
inline constexpr std::array<TransRule, 18> transRules{{
    // class           create   verify   reader                reported  inner reader after
    {"CPBITrans",      5385,    5390,    Reader::FillsResults},
    {"CPBNTrans",      passes,  5035,    Reader::FillsResults},
    {"CPCNTrans",      passes,  passes,  Reader::None},
    {"CPDATrans",      passes,  5105,    Reader::FillsResults},
    {"CPDITrans",      5090,    5095,    Reader::FillsResults},
    {"CPDMDTrans",     passes,  passes,  Reader::None},
    {"CPDNTrans",      passes,  5075,    Reader::ReadsLines},
    {"CPDRTrans",      passes,  5110,    Reader::FillsResults},
    {"CPDTrans",       5000,    5005,    Reader::FillsResults},
    {"CPDTTrans",      5020,    5025,    Reader::None},
    {"CPHTrans",       5080,    5085,    Reader::FillsResults},
    {"CPLCTrans",      5135,    5140,    Reader::FillsResults},
    {"CPLTTrans",      5050,    5055,    Reader::FillsResults, 0,        {"TRAVELLER LIST FOR", "TRAVELLER NAME LIST"}},
    {"CProfileMode",   5040,    5045,    Reader::None},
    {"CProfileNotes",  5040,    5045,    Reader::None},
    {"CPTTrans",       passes,  5120,    Reader::FillsResults},
    {"CPXTrans",       5010,    5015,    Reader::FillsResults},
    {"CRLPTrans",      passes,  5130,    Reader::FillsResults, 5130,     {"RP/"}},
}};
// clang-format on

inline const TransRule& transRule(std::string_view className) {
    const auto found = std::find_if(transRules.begin(), transRules.end(),
                                    [&](const TransRule& rule) { return rule.className == className; });
    if (found == transRules.end()) throw std::logic_error("no row in failure_rules.h for " + std::string(className));
    return *found;
}

inline std::string stepName(const std::string& call) { return call.substr(0, call.find(' ')); }

/// The line that a "ScreenLine" step fetches.
inline int stepLine(const std::string& call) { return std::stoi(call.substr(call.find(' '))); }

/// The keys that the steps before `end` add.
inline std::vector<std::string> addedKeys(const Calls& calls, std::size_t end) {
    std::vector<std::string> keys;
    for (std::size_t call = 0; call < end; ++call) {
        if (stepName(calls[call]) == "Add") keys.push_back(calls[call].substr(4));
    }
    return keys;
}

/// The lines of a plain ASCII screen, at most 80 characters each.
using ScreenLines = std::vector<std::string>;

/// True when the step fetches a line that the transaction's inner reader reads.
inline bool isInnerReaders(const TransRule& rule, const Calls& calls, std::size_t failing, const ScreenLines& screen) {
    for (std::size_t call = 0; call < failing; ++call) {
        if (stepName(calls[call]) != "ScreenLine") continue;
        const auto line = static_cast<std::size_t>(stepLine(calls[call]));
        for (const std::string_view title : rule.innerTitles) {
            if (!title.empty() && line < screen.size() && screen[line].find(title) != std::string::npos) return true;
        }
    }
    return false;
}

/// The number of linked profiles begun when the given line is fetched: the line after a profile's entry begins the next
/// one.
inline int linkedEntriesBegun(const ScreenLines& screen, int failingLine) {
    int begun = 1;
    for (int line = 1; line < failingLine && line < static_cast<int>(screen.size()); ++line) {
        const std::string& text = screen[static_cast<std::size_t>(line)];
        if (text.starts_with("T/") || text.starts_with("C/")) ++begun;
    }
    return begun;
}

inline Consequence commandConsequence(const TransRule& rule) { return raisesOrPasses(rule.create, creatingCommand); }

/// The outcome when one step of `VerifyResponse` fails. `calls` are those of a run without a failure, `index` is the
/// requested entry of the linked profiles.
inline Consequence answerConsequence(const TransRule& rule, const Calls& calls, std::size_t failing,
                                     const ScreenLines& screen, int index) {
    const std::string step = stepName(calls[failing]);
    const bool isLine = step == "ScreenLine";
    const bool isReaders = isLine || (rule.reader == Reader::FillsResults && (step == "FindMarker" || step == "Add"));
    if (rule.reader == Reader::None || !isReaders) return raisesOrPasses(rule.verify, verifyingProfile);
    if (rule.reader == Reader::ReadsLines) return {Fate::GoesOn};
    if (!isLine || !isInnerReaders(rule, calls, failing, screen)) return {Fate::Stops};
    const bool isLinked = rule.className == "CRLPTrans";
    if (isLinked && index >= linkedEntriesBegun(screen, stepLine(calls[failing]))) return inner(Fate::StopsTwice);
    return inner(Fate::GoesOn);
}

// The parsers

/// A family: the prefix of its query, and its extractor.
struct FamilyRule {
    std::string_view prefix;
    std::string_view property;
    int number;  ///< raised by the extractor
};

// clang-format off
inline constexpr std::array<FamilyRule, 29> familyRules{{
    {"PPR", "PPRElementsCount",            5266},
    {"PGL", "PGLElementsCount",            5267},
    {"PPS", "PPSElementsCount",            5270},
    {"PHI", "PHIElementsCount",            5272},
    {"PCI", "PCIElementsCount",            5290},
    {"PPC", "PPCElementsCount",            5285},
    {"PPH", "PPHElementsCount",            5273},
    {"PPA", "PPAElementsCount",            5292},
    {"PPK", "PPKElementsCount",            5293},
    {"PPI", "PPIElementsCount",            5280},
    {"PXC", "PXCElementsCount",            5295},
    {"PXA", "PXAElementsCount",            5296},
    {"PXK", "PXKElementsCount",            5281},
    {"PSH", "PSHElementsCount",            5282},
    {"PSC", "PSCElementsCount",            5283},
    {"PPT", "PPTElementsCount",            5284},
    {"PXT", "PXTElementsCount",            5286},
    {"RM",  "RemarkElementsCount",         5260},
    {"AP",  "ContactElementsCount",        5235},
    {"OS",  "OtherServiceElementsCount",   5250},
    {"FFN", "FrequentFlyerElementsCount",  5255},
    {"SR",  "ServiceRequestElementsCount", 5245},
    {"ST",  "SeatElementsCount",           5240},
    {"RC",  "RemarkConfElementsCount",     5260},
    {"PAS", "PASElementsCount",            5287},
    {"PIV", "PIVElementsCount",            5288},
    {"PCE", "PCEElementsCount",            5289},
    {"PID", "PIDElementsCount",            5290},
    {"PFO", "PFOElementsCount",            5291},
}};
// clang-format on

/// The queries that read their value from the display themselves, and those that read nothing: an empty prefix, an
/// unknown one, and the notes' prefix sent to the wrong class. All of them pass their failures unchanged.
inline constexpr std::array<std::string_view, 10> plainQueries{"NM",  "RECLOC", "OFFID", "PCN",     "PIN",
                                                               "PSL", "ALL",    "",      "UNKNOWN", "ProfileNotes"};

/// The outcome when one step of `CProfile`'s `ProfileElements` fails. The query itself fetches the first line to test
/// for a host line; the extractor fetches the others when the prefix has one.
inline Consequence queryConsequence(std::string_view prefix, const Calls& calls, std::size_t failing) {
    const auto family = std::find_if(familyRules.begin(), familyRules.end(),
                                     [&](const FamilyRule& rule) { return rule.prefix == prefix; });
    if (family == familyRules.end() || stepName(calls[failing]) != "ScreenLine") return {Fate::Passes};
    const auto isLine = [](const std::string& call) { return stepName(call) == "ScreenLine"; };
    const bool isFirst = std::none_of(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(failing), isLine);
    if (isFirst) return {Fate::Passes};
    return {Fate::Raises, family->number, verifyingProfile};
}

/// The same for `CProfileNotes`: reading the notes and adding them raise the same number.
inline Consequence notesConsequence(const Calls& calls, std::size_t failing) {
    const auto isLine = [](const std::string& call) { return stepName(call) == "ScreenLine"; };
    const bool isRequest = std::none_of(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(failing), isLine);
    return isRequest ? Consequence{Fate::Passes} : Consequence{Fate::Raises, 5500, readingNotes};
}

/// The count properties: `RecLocCount` reports 5130 and returns 0, the others raise their number.
inline Consequence countConsequence(std::string_view property) {
    if (property == "RecLocCount") return {Fate::Stops};
    if (property == "ProfileNotesElementsCount") return {Fate::Raises, 5505, readingNotes};
    const auto family = std::find_if(familyRules.begin(), familyRules.end(),
                                     [&](const FamilyRule& rule) { return rule.property == property; });
    if (family == familyRules.end()) throw std::logic_error("no row in failure_rules.h for " + std::string(property));
    return {Fate::Raises, family->number, verifyingProfile};
}

}  // namespace vantro::test
