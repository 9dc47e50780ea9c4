//   ....+....1....+....2....+....3....+....4
// 0 PT3,5/S2
// 1 --- RLR ---
// 2 RP/NCEVN3101/
// 3 KQ4R7T - PNR UPDATED
#include "transactions/maintenance/pt.h"

#include "transactions/maintenance/pnr_answer.h"

namespace vantro {

namespace {

constexpr TextView groupSeparator = u"//";
constexpr TextView segmentMark = u"/S";
constexpr TextView passengerMark = u"/P";

void appendAssociation(Text& command, TextView associationMark, TextView value) {
    if (value.empty()) return;
    command.append(associationMark);
    command.append(value);
}

// The groups 0 to `highest` of the list form. A first group that adds nothing is followed by no separator.
void appendGroups(Text& command, Parameters& given, Counter highest) {
    if (highest < Counter(0)) fail(Failure::SubscriptOutOfRange);
    for (Counter group; group <= highest; ++group) {
        if (command.size() > code::PT.size()) command.append(groupSeparator);
        command.append(given.readEntry(key::strKeyElArray, group.value()));
        appendAssociation(command, segmentMark, given.readEntry(key::strKeySegArray, group.value()));
        appendAssociation(command, passengerMark, given.readEntry(key::strKeyPasArray, group.value()));
    }
}

constexpr std::int16_t answerLine = 10;  // Meant: the transactions that make a PNR from a profile ask with 6
// clang-format off
constexpr PnrTest answer[] = {
    {mark::pnr,          key::blnKeyPNR},
    {u"- PNR CREATED",   key::blnKeyPNRCreated},
    {mark::pnrUpdated,   key::blnKeyPNRUpdated},
};
// clang-format on

}  // namespace

Text CPTTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters given = parameters(params);
    const bool allPassengers = given.read(key::blnKeyAllPNR);
    const bool overrides = given.read(key::blnKeyOverride);
    const TextView elements = given.read(key::strKeyElements);
    const TextView segments = given.read(key::strKeySegAsso);
    const TextView passengers = given.read(key::strKeyPasAsso);
    const TextView highestGroup = given.read(key::intKeyArraySize);
    const bool isList = !highestGroup.empty();
    if (isList && !(elements.empty() && segments.empty() && passengers.empty())) return {};

    Text command;
    command.reserve(screenWidth);  // an entry rarely fills a line
    command.append(code::PT);
    if (isList) appendGroups(command, given, Counter(toInt16(highestGroup)));
    // Meant: both marks stand directly behind the code in the single form, behind the last group in the list form.
    command.append(onlyIf(overrides, u"O"));
    command.append(onlyIf(allPassengers, u"*"));
    command.append(elements);
    appendAssociation(command, segmentMark, segments);
    appendAssociation(command, passengerMark, passengers);
    return command;
}

CollectionPtr CPTTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(
        response, [](Screen& screen, Results& results) { readPnrAnswer(screen, results, answerLine, answer); });
}

}  // namespace vantro
