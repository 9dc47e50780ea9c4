//   ....+....1....+....2....+....3
// 0 PNE
// 1 TRANSACTION NOT ALLOWED
#include "profile/profile_notes.h"

namespace vantro {

namespace {

// Meant: "PN" wants a mark on the screen, "PNE" wants one not to be there. "PNL" counts inside a word as well.
bool areNotesDisplayed(TextView response) { return contains(response, code::PNL); }
bool areNotesAllowed(TextView response) { return !contains(response, u"TRANSACTION NOT ALLOWED"); }

bool isAccepted(TextView command, TextView response) {
    if (command == code::PN) return areNotesDisplayed(response);
    if (command == code::PNE) return areNotesAllowed(response);
    return false;
}

}  // namespace

// No other text is ever passed on to the host.
Text CProfileNotes::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters given = parameters(params);
    const TextView command = given.read(key::strCommand);
    return Text(onlyIf(command == code::PN || command == code::PNE, command));
}

CollectionPtr CProfileNotes::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) {
    if (response.empty()) return {};
    Parameters given = parameters(collection);
    // A substring search cannot fail: there is nothing to report here.
    const bool accepted = isAccepted(given.read(key::strCommand), response);

    Screen screen(terminal(), response);
    const TextView message = trimmed(screen.line(std::int16_t{1}));
    Results results(*collection);
    results.add(key::blnKeyResponseOK, accepted);
    results.add(key::strKeyErrorString, message);  // the host's message, also of a command that was accepted
    return collection;
}

}  // namespace vantro
