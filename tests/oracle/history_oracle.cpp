#include "screens_oracle.h"

// The history of a profile, a name from column 22 and dates from column 21:
//
//            1         2
//   1234567890123456789012345
//   PROFILE HISTORY                                                KQ4R7T
//   TRAVELLER PROFILE   : SMITH/ANNA MS
//   LAST PNR TRANSFER  : 04MAR24 1610
//   PROFILE CREATION   : 19AUG21 0907

namespace oracle {

namespace {

bool contains(const Text& text, const Text& marker) { return found(text, marker) > 0; }

struct History {
    Text name;
    Text transferDate;
    Text creationDate;
};

History readHistory(const Text& response, int titleLine) {
    History history;
    bool transferFound = false;
    bool creationFound = false;
    for (int n = titleLine + 1; n <= 12; ++n) {
        const Text line = screenLine(response, n);
        if (contains(line, u"TRAVELLER PROFILE   :")) {
            history.name = trimmed(mid(line, 22));
        }
        if (contains(line, u"COMPANY PROFILE")) {
            history.name = trimmed(mid(line, 22));
        }
        if (contains(line, u"LAST PNR TRANSFER  :")) {
            history.transferDate = trimmed(mid(line, 21, 8));
            transferFound = true;
        }
        if (contains(line, u"PROFILE CREATION   :")) {
            history.creationDate = trimmed(mid(line, 21, 8));
            creationFound = true;
        }
        if (transferFound && creationFound) {
            break;
        }
    }
    return history;
}

}  // namespace

std::optional<Collection> verifyCPHTrans(const Text& response, const Collection*) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool profile = false;
    bool endOfList = false;
    History history;
    for (int n = 0; n <= 5; ++n) {
        const Text line = screenLine(response, n);
        if (contains(line, u"PROFILE HISTORY       ")) {
            profile = true;
            history = readHistory(response, n);
            break;
        }
        if (contains(line, u"ELEMENT DOES NOT EXIST")) {
            endOfList = true;
            break;
        }
    }
    Collection collection;
    collection.add("blnKeyProfile", profile);
    collection.add("blnKeyEndOfList", endOfList);
    collection.add("strKeyLastPNRTransDate", history.transferDate);
    collection.add("strKeyName", history.name);
    collection.add("strKeyProfileCreationDate", history.creationDate);
    return collection;
}

}  // namespace oracle
