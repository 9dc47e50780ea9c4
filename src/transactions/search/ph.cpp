//   ....+....1....+....2....+....3....+....4....+....5....+....6
// 0 PH
// 1 PROFILE HISTORY                                                KQ4R7T
// 2 TRAVELLER PROFILE   : SMITH/ANNA MS
// 3 LAST PNR TRANSFER  : 04MAR24 1610
// 4 PROFILE CREATION   : 19AUG21 0907
#include "transactions/search/ph.h"

#include "transactions/marks.h"
#include "transactions/rules.h"

#include <limits>
#include <optional>

namespace vantro {

namespace {

enum class Shown : std::uint8_t { Nothing, History, EndOfList };

constexpr LineRange titleLines{0, 5};
// clang-format off
constexpr ScreenTest<Shown> titles[] = {
    {u"PROFILE HISTORY       ", Match::Anywhere, Shown::History},
    {mark::noSuchElement,       Match::Anywhere, Shown::EndOfList},
};
// clang-format on

struct History {
    std::optional<TextView> name;
    std::optional<TextView> lastTransfer;
    std::optional<TextView> creation;

    bool hasBothDates() const { return lastTransfer && creation; }
};

struct Label {
    TextView mark;
    Column from;
    Width width;
    std::optional<TextView> History::*value;
};

constexpr std::int16_t lastLabelLine = 12;
constexpr Width toLineEnd{std::numeric_limits<int>::max()};

// Meant: a name begins in column 22, a date in column 21, and the company's label has no colon.
// clang-format off
constexpr Label labels[] = {
    {u"TRAVELLER PROFILE   :", Column{22}, toLineEnd, &History::name},
    {u"COMPANY PROFILE",       Column{22}, toLineEnd, &History::name},
    {u"LAST PNR TRANSFER  :",  Column{21}, Width{8},  &History::lastTransfer},
    {u"PROFILE CREATION   :",  Column{21}, Width{8},  &History::creation},
};
// clang-format on

void readLabels(const Watch& watch, TextView line, std::int16_t number, History& history) {
    for (const Label& label : labels) {
        const TextView found = shownIn(line, label.mark);
        if (!found.empty()) history.*label.value = trimmed(mid(line, label.from, label.width));
        watch.searched(label.mark, MarkSearch::InLine, number, number, found);
    }
}

// Reading ends at the second date, even without a name.
History readHistory(Screen& screen, std::int16_t titleLine) {
    History history;
    std::int16_t number = titleLine;
    while (number < lastLabelLine && !history.hasBothDates()) {
        const TextView line = screen.line(++number);
        readLabels(screen.watch(), line, number, history);
    }
    screen.watch().decided(history.hasBothDates() ? rule::historyComplete : rule::historyLastLine, Counter(number));
    return history;
}

}  // namespace

Text CPHTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView elementNr = input.read(key::strKeyElementNr);
    return concat({code::PH, elementNr});
}

CollectionPtr CPHTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(response, [](Screen& screen, Results& results) {
        const auto seen = findShown(screen, titleLines, titles, Shown::Nothing);
        const History history = seen.shown == Shown::History ? readHistory(screen, seen.number) : History{};
        results.add(key::blnKeyProfile, seen.shown == Shown::History);
        results.add(key::blnKeyEndOfList, seen.shown == Shown::EndOfList);
        results.add(key::strKeyLastPNRTransDate, history.lastTransfer.value_or(TextView{}));
        results.add(key::strKeyName, history.name.value_or(TextView{}));
        results.add(key::strKeyProfileCreationDate, history.creation.value_or(TextView{}));
    });
}

}  // namespace vantro
