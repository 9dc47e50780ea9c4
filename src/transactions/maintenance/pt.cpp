//   ....+....1....+....2....+....3....+....4
// 0 PT3,5/S2
// 1 --- RLR ---
// 2 RP/NCEVN3101/
// 3 KQ4R7T - PNR UPDATED
#include "transactions/maintenance/pt.h"

#include "transactions/maintenance/pnr_answer.h"
#include "transactions/rules.h"

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

// The groups 0 to `highest` of the list form. A separator precedes a group only if an earlier group added something.
void appendGroups(Text& command, Parameters& input, Counter highest) {
    if (highest < Counter(0)) fail(Failure::SubscriptOutOfRange);
    for (Counter group; group <= highest; ++group) {
        if (command.size() > code::PT.size()) command.append(groupSeparator);
        command.append(input.readEntry(key::strKeyElArray, group.value()).text);
        appendAssociation(command, segmentMark, input.readEntry(key::strKeySegArray, group.value()).text);
        appendAssociation(command, passengerMark, input.readEntry(key::strKeyPasArray, group.value()).text);
    }
}

constexpr std::int16_t lineArgument = 10;  // Meant: "PBN" and "PBI" ask with 6
// clang-format off
constexpr PnrTest answer[] = {
    {mark::pnr,          key::blnKeyPNR},
    {u"- PNR CREATED",   key::blnKeyPNRCreated},
    {mark::pnrUpdated,   key::blnKeyPNRUpdated},
};
// clang-format on

}  // namespace

Text CPTTrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const bool allPassengers = input.read(key::blnKeyAllPNR);
    const bool overrides = input.read(key::blnKeyOverride);
    const TextView elements = input.read(key::strKeyElements);
    const TextView segments = input.read(key::strKeySegAsso);
    const TextView passengers = input.read(key::strKeyPasAsso);
    const TextView highestGroup = input.read(key::intKeyArraySize);
    const bool isList = !highestGroup.empty();
    if (isList && !(elements.empty() && segments.empty() && passengers.empty())) {
        return nothingToSend(rule::commandOfOneForm);
    }

    Text command;
    command.reserve(screenWidth);  // few commands are longer than a line
    command.append(code::PT);
    if (isList) appendGroups(command, input, Counter(toInt16(highestGroup)));
    // Meant: both marks follow the code in the single form, and the last group in the list form.
    command.append(onlyIf(overrides, u"O"));
    command.append(onlyIf(allPassengers, u"*"));
    command.append(elements);
    appendAssociation(command, segmentMark, segments);
    appendAssociation(command, passengerMark, passengers);
    return command;
}

CollectionPtr CPTTrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) {
    return reportedResults(
        response, [](Screen& screen, Results& results) { readPnrAnswer(screen, results, lineArgument, answer); });
}

}  // namespace vantro
