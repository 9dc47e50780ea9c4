//   ....+....1....+....2....+....3
// 0 RLP
// 1 --- RLR ---
// 2 RP/NCEVN3101/
// 3 T/KQ4R7T /P1
// 4 C/Q2W3E4
// 5 >
#include "transactions/maintenance/rlp.h"

namespace vantro {

namespace {

enum class Shown : std::uint8_t { Nothing, Pnr, NoElements };

constexpr LineRange titleLines{1, 4};
// clang-format off
constexpr ScreenTest<Shown> titles[] = {
    {mark::pnr,           Match::LineStart, Shown::Pnr},
    {u"NO ELEMENT FOUND", Match::Anywhere,  Shown::NoElements},
};
// clang-format on

constexpr std::int16_t firstEntryLine = 1;
constexpr std::int16_t lastEntryLine = 24;

// A prompt ends the list; the echo of the command does not.
bool isPrompt(TextView line) { return contains(line, mark::prompt) && !line.starts_with(u">RLP"); }

// A passenger number of two digits, or else the first character.
TextView passengerNumber(TextView association) {
    constexpr Width one{1};
    return isNumeric(mid(association, Column{2}, one)) ? association : left(association, one);
}

}  // namespace

Text CRLPTrans::IProfileTrans_CreateCommand(const CollectionPtr& /*params*/) { return Text(code::RLP); }

CollectionPtr CRLPTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) {
    if (response.empty()) return {};
    const std::int16_t index = toInt16(parameters(collection).read(key::strKeyIndex));
    CollectionPtr added = terminal().createCollection();
    Results results(*added, Watch(terminal()));
    reportOwnError([&] { readLinkedProfile(response, index, results); });
    return added;
}

void CRLPTrans::readLinkedProfile(TextView response, std::int16_t index, Results& results) {
    Screen screen(terminal(), response);
    const Shown shown = findShown(screen, titleLines, titles, Shown::Nothing).shown;
    if (shown == Shown::NoElements) results.add(key::blnKeyNoElementsFound, true);
    if (shown != Shown::Pnr) return;

    RecLocCount(response);
    if (index < 0 || static_cast<std::size_t>(index) >= profiles_.size()) fail(Failure::SubscriptOutOfRange);
    const LinkedProfile& entry = profiles_[static_cast<std::size_t>(index)];
    results.add(key::strKeyPasAsso, entry.passenger);
    results.add(key::strKeyRecLoc, entry.recordLocator);
    results.add(key::blnKeyTraveller, entry.isTraveller);
    results.add(key::blnKeyCompany, entry.isCompany);
}

std::int16_t CRLPTrans::RecLocCount(TextView response) {
    std::int16_t highest = 0;
    reportOwnError([&] {
        Screen screen(terminal(), response);
        readProfiles(screen, profiles_);
        highest = toInt16(static_cast<long long>(profiles_.size()) - 1);
    });
    return highest;
}

void CRLPTrans::readRows(Screen& screen, Parameters& /*state*/, ListRows& found) {
    if (findShown(screen, titleLines, titles, Shown::Nothing).shown != Shown::Pnr) return;
    found.isList = true;
    std::vector<LinkedProfile> profiles;
    readProfiles(screen, profiles);
    for (const LinkedProfile& entry : profiles) {
        if (!entry.isTraveller && !entry.isCompany) continue;
        found.rows.push_back({.line = entry.line,
                              .kind = entry.isTraveller ? ProfileKind::Traveller : ProfileKind::Company,
                              .recordLocator = Text(trimmed(entry.recordLocator)),
                              .passenger = entry.passenger});
    }
}

void CRLPTrans::readProfiles(Screen& screen, std::vector<LinkedProfile>& profiles) {
    profiles.assign(1, LinkedProfile{});
    for (std::int16_t number = firstEntryLine; number <= lastEntryLine; ++number) {
        if (!profiles.back().recordLocator.empty()) profiles.emplace_back();
        const TextView line = screen.line(number);
        profiles.back().line = number;
        readEntry(line, profiles.back());
        if (isPrompt(line)) return;
    }
}

// When a line has the kind but is too short for a locator, the locator is read from the next line.
void CRLPTrans::readEntry(TextView line, LinkedProfile& entry) {
    constexpr Column locatorColumn{3};
    constexpr Width locatorWidth{6};
    constexpr Column associationsFrom{9};  // Meant: a "/P" further left is no association
    constexpr TextView passengerMark = u"/P";
    constexpr Width passengerWidth{2};

    if (line.starts_with(u"T/")) {
        entry.isTraveller = true;
    } else if (line.starts_with(u"C/")) {
        entry.isCompany = true;
    }
    if (!entry.isTraveller && !entry.isCompany) return;
    entry.recordLocator = mid(line, locatorColumn, locatorWidth);
    if (const Column found = find(line, passengerMark, associationsFrom); found > Column{0}) {
        const int markWidth = static_cast<int>(passengerMark.size());
        entry.passenger = passengerNumber(trimmed(mid(line, found + markWidth, passengerWidth)));
    }
}

}  // namespace vantro
