//   ....+....1....+....2....+....3
// 0 PNE
// 1 TRANSACTION NOT ALLOWED
#include "profile/notes_rules.h"
#include "profile/profile_notes.h"

namespace vantro {

namespace {

// Meant: "PN" needs a mark on the screen, "PNE" needs one to be missing. "PNL" counts inside a word too.
bool areNotesDisplayed(const Screen& screen) { return screen.contains(code::PNL); }
bool areNotesAllowed(const Screen& screen) { return !screen.contains(u"TRANSACTION NOT ALLOWED"); }

bool isAccepted(TextView command, const Screen& screen) {
    if (command == code::PN) return areNotesDisplayed(screen);
    if (command == code::PNE) return areNotesAllowed(screen);
    screen.watch().decided(rule::notesUnknownCommand);
    return false;
}

}  // namespace

// Any other text makes no command.
Text CProfileNotes::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView command = input.read(key::strCommand);
    if (command != code::PN && command != code::PNE) return nothingToSend(rule::notesUnknownCommand);
    return Text(command);
}

CollectionPtr CProfileNotes::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) {
    if (response.empty()) return {};
    Parameters input = parameters(collection);
    const TextView command = input.read(key::strCommand);
    Screen screen(terminal(), response);
    // A search in a text cannot fail, so nothing is reported here.
    const bool accepted = isAccepted(command, screen);

    const TextView message = trimmed(screen.line(std::int16_t{1}));
    Results results(*collection, screen.watch());
    results.add(key::blnKeyResponseOK, accepted);
    results.add(key::strKeyErrorString, message);  // the host's message, also for an accepted command
    return collection;
}

}  // namespace vantro
