//   ....+....1....+....2....+....3
// 0 PNE
// 1 TRANSACTION NOT ALLOWED
#include "profile/profile_notes.h"

namespace vantro {

namespace {

// Meant: "PN" needs a mark on the screen, "PNE" needs one to be missing. "PNL" counts inside a word too.
bool areNotesDisplayed(TextView response) { return contains(response, code::PNL); }
bool areNotesAllowed(TextView response) { return !contains(response, u"TRANSACTION NOT ALLOWED"); }

bool isAccepted(TextView command, TextView response) {
    if (command == code::PN) return areNotesDisplayed(response);
    if (command == code::PNE) return areNotesAllowed(response);
    return false;
}

}  // namespace

// Any other text makes no command.
Text CProfileNotes::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView command = input.read(key::strCommand);
    return Text(onlyIf(command == code::PN || command == code::PNE, command));
}

CollectionPtr CProfileNotes::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) {
    if (response.empty()) return {};
    Parameters input = parameters(collection);
    // A search in a text cannot fail, so nothing is reported here.
    const bool accepted = isAccepted(input.read(key::strCommand), response);

    Screen screen(terminal(), response);
    const TextView message = trimmed(screen.line(std::int16_t{1}));
    Results results(*collection, screen.watch());
    results.add(key::blnKeyResponseOK, accepted);
    results.add(key::strKeyErrorString, message);  // the host's message, also for an accepted command
    return collection;
}

}  // namespace vantro
