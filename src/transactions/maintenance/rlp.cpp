//   ....+....1....+....2....+....3
// 0 RLP
// 1 --- RLR ---
// 2 RP/NCEVN3101/
// 3 T/KQ4R7T /P1
// 4 C/Q2W3E4
// 5 >
#include "transactions/maintenance/rlp.h"

#include "transactions/row_writer.h"
#include "transactions/rules.h"

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

constexpr TextView travellerMark = u"T/";
constexpr TextView companyMark = u"C/";
constexpr TextView passengerMark = u"/P";
constexpr std::int16_t firstEntryLine = 1;
constexpr std::int16_t lastEntryLine = 24;

// A prompt ends the list; the echo of the command does not.
bool isEcho(TextView line) { return line.starts_with(u">RLP"); }
bool isPrompt(TextView line) { return contains(line, mark::prompt) && !isEcho(line); }

bool beginsTraveller(TextView line) { return line.starts_with(travellerMark); }
bool beginsCompany(TextView line) { return line.starts_with(companyMark); }

/// Says what the beginning of a line means. `isOpen` is true for an entry with a kind and without a locator.
void sayStart(const Watch& watch, TextView line, Counter number, bool isOpen) {
    const bool isTraveller = beginsTraveller(line);
    const auto say = [&](TextView mark, bool isFound) {
        const TextView found = isFound ? left(line, Width{static_cast<int>(mark.size())}) : TextView{};
        watch.searched(mark, MarkSearch::StartsLine, number.value(), number.value(), found);
    };
    say(travellerMark, isTraveller);
    if (!isTraveller) say(companyMark, beginsCompany(line));
    if (isOpen) watch.decided(rule::linkedLocatorBelow, number);
    if (isTraveller) {
        watch.decided(rule::linkedTraveller, number);
    } else if (beginsCompany(line)) {
        watch.decided(rule::linkedCompany, number);
    } else if (!isOpen) {
        watch.decided(rule::linkedNoProfile, number);
    }
}

/// `found` is the mark of the passenger; empty if the columns of associations do not contain it.
void sayAssociation(const Watch& watch, TextView line, Counter number, TextView found) {
    if (found.empty() && contains(line, passengerMark)) {
        watch.decided(rule::linkedMarkTooFarLeft, number);
    } else {
        watch.searched(passengerMark, MarkSearch::InLine, number.value(), number.value(), found);
    }
}

/// Says whether a line ends the list.
void sayEnd(const Watch& watch, TextView line, Counter number) {
    if (isPrompt(line)) {
        watch.decided(rule::linkedPrompt, number);
    } else if (isEcho(line)) {
        watch.decided(rule::linkedEcho, number);
    } else if (number.value() == lastEntryLine) {
        watch.decided(rule::linkedLastLine, number);
    }
}

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

std::int16_t CRLPTrans::countObserved(TextView response) {
    return observed(&terminal(), u"RecLocCount", response, [&] { return RecLocCount(response); });
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
    RowWriter rows(screen.watch(), found);
    for (const LinkedProfile& entry : profiles) {
        if (!entry.isTraveller && !entry.isCompany) continue;
        rows.begin(entry.isTraveller ? ProfileKind::Traveller : ProfileKind::Company, entry.line);
        rows.set(cell::recordLocator, trimmed(entry.recordLocator));
        rows.set(cell::passenger, entry.passenger);
    }
}

void CRLPTrans::readProfiles(Screen& screen, std::vector<LinkedProfile>& profiles) {
    profiles.reserve(lastEntryLine);  // the entries stay where they are
    profiles.assign(1, LinkedProfile{});
    for (std::int16_t number = firstEntryLine; number <= lastEntryLine; ++number) {
        if (!profiles.back().recordLocator.empty()) profiles.emplace_back();
        const TextView line = screen.line(number);
        profiles.back().line = number;
        readEntry(screen.watch(), line, profiles.back());
        if (screen.watch()) sayEnd(screen.watch(), line, Counter(number));
        if (isPrompt(line)) return;
    }
}

// When a line has the kind but is too short for a locator, the locator is read from the next line.
void CRLPTrans::readEntry(const Watch& watch, TextView line, LinkedProfile& entry) {
    constexpr Column locatorColumn{3};
    constexpr Width locatorWidth{6};
    constexpr Column associationsFrom{9};  // Meant: a "/P" further left is no association
    constexpr Width passengerWidth{2};

    if (watch) sayStart(watch, line, Counter(entry.line), entry.isTraveller || entry.isCompany);
    if (beginsTraveller(line)) {
        entry.isTraveller = true;
    } else if (beginsCompany(line)) {
        entry.isCompany = true;
    }
    if (!entry.isTraveller && !entry.isCompany) return;
    const TextView locator = mid(line, locatorColumn, locatorWidth);
    entry.recordLocator = locator;
    watch.copied(entry.recordLocator, locator);
    const Column found = find(line, passengerMark, associationsFrom);
    const bool isFound = found > Column{0};
    const Width markWidth{static_cast<int>(passengerMark.size())};
    if (watch) sayAssociation(watch, line, Counter(entry.line), isFound ? mid(line, found, markWidth) : TextView{});
    if (!isFound) return;
    const TextView passenger = passengerNumber(trimmed(mid(line, found + markWidth.value, passengerWidth)));
    entry.passenger = passenger;
    watch.copied(entry.passenger, passenger);
}

}  // namespace vantro
