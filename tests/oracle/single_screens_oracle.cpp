#include "single_screens_oracle.h"

namespace oracle {

namespace {

bool contains(const Text& text, const Text& needle) { return found(text, needle) > 0; }

bool begins(const Text& line, const Text& marker) { return mid(line, 1, static_cast<int>(marker.size())) == marker; }

}  // namespace

std::optional<Collection> verifyCPBITrans(const Text& response, const Collection* /*state*/) {
    if (response.empty()) {
        return std::nullopt;
    }
    Collection results;
    results.add("blnKeyPNR", contains(response, u"RP/"));
    results.add("blnKeyPNRUpdated", contains(response, u"- PNR UPDATED"));
    return results;
}

std::optional<Collection> verifyCPBNTrans(const Text& response, const Collection* state) {
    return verifyCPBITrans(response, state);
}

std::optional<Collection> verifyCPTTrans(const Text& response, const Collection* /*state*/) {
    if (response.empty()) {
        return std::nullopt;
    }
    Collection results;
    results.add("blnKeyPNR", contains(response, u"RP/"));
    results.add("blnKeyPNRCreated", contains(response, u"- PNR CREATED"));
    results.add("blnKeyPNRUpdated", contains(response, u"- PNR UPDATED"));
    return results;
}

std::optional<Collection> verifyCPCNTrans(const Text& response, const Collection* /*state*/) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool traveller = false;
    bool company = false;
    if (contains(response, u"*T*")) {
        traveller = true;
    } else if (contains(response, u"*C*")) {
        company = true;
    }
    Collection results;
    results.add("blnKeyTrProfile", traveller);
    results.add("blnKeyCoProfile", company);
    return results;
}

std::optional<Collection> verifyCPDITrans(const Text& response, const Collection* /*state*/) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool company = false;
    bool traveller = false;
    for (int n = 0; n <= 5; ++n) {
        const Text line = screenLine(response, n);
        if (mid(line, 1, 3) == u"*C*") {
            company = true;
            break;
        }
        if (mid(line, 1, 3) == u"*T*") {
            traveller = true;
            break;
        }
    }
    Collection results;
    results.add("blnKeyCoProfile", company);
    results.add("blnKeyTrProfile", traveller);
    return results;
}

// The screen after a move down is read by the transaction that started the list.
std::optional<Collection> verifyCPDMDTrans(const Text& /*response*/, const Collection* /*state*/) {
    return std::nullopt;
}

std::optional<Collection> verifyCPDRTrans(const Text& response, const Collection* /*state*/) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool company = false;
    bool traveller = false;
    bool merged = false;
    for (int n = 0; n <= 3; ++n) {
        const Text line = screenLine(response, n);
        if (mid(line, 1, 3) == u"*C*") {
            company = true;
            break;
        }
        if (mid(line, 1, 3) == u"*T*") {
            traveller = true;
            if (contains(line, u"*MRG*")) {
                merged = true;
            }
            break;
        }
    }
    bool notFound = false;
    bool deactivated = false;
    bool checkInput = false;
    if (!company && !traveller) {
        if (contains(response, u"RECORD LOCATOR NOT FOUND")) {
            notFound = true;
        } else if (contains(response, u"DEACTIVATED TRAVELLER PROFILE")) {
            deactivated = true;
        } else if (contains(response, u"CHECK INPUT")) {
            checkInput = true;
        }
    }
    Collection results;
    results.add("blnKeyCoProfile", company);
    results.add("blnKeyTrProfile", traveller);
    results.add("blnKeyErrNoRecLoc", notFound);
    results.add("blnKeyErrCheckInput", checkInput);
    results.add("blnKeyMerged", merged);
    results.add("blnKeyDeactivatedTProfile", deactivated);
    return results;
}

std::optional<Collection> verifyCPDTrans(const Text& response, const Collection* /*state*/) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool list = false;
    bool profile = false;
    bool merge = false;
    bool endOfList = false;
    bool error = false;
    bool company = false;
    for (int n = 0; n <= 9; ++n) {
        const Text line = lineByPosition(response, n);
        if (begins(line, u"TRAVELLER NAME NOT FOUND")) {
            break;
        }
        if (begins(line, u"SIMILAR TRAVELLER NAME LIST")) {
            list = true;
            break;
        }
        if (begins(line, u"ELEMENT DOES NOT EXIST")) {
            endOfList = true;
            break;
        }
        if (begins(line, u"UNABLE TO PROCESS")) {
            error = true;
            break;
        }
        if (begins(line, u"*T*")) {
            profile = true;
            merge = contains(response, u"*MRG*");
            break;
        }
        if (begins(line, u"*C*")) {
            company = true;
            break;
        }
    }
    Collection results;
    results.add("blnKeyList", list);
    results.add("blnKeyProfile", profile);
    results.add("blnKeyMerge", merge);
    results.add("blnKeyEndOfList", endOfList);
    results.add("blnKeyError", error);
    results.add("blnKeyCoProfile", company);
    return results;
}

std::optional<Collection> verifyCPDTTrans(const Text& response, const Collection* /*state*/) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool traveller = false;
    for (int n = 0; n <= 9 && !traveller; ++n) {
        traveller = begins(lineByPosition(response, n), u"*T*");
    }
    Collection results;
    results.add("blnKeyProfile", traveller);
    return results;
}

std::optional<Collection> verifyCPHTrans(const Text& response, const Collection* /*state*/) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool profile = false;
    bool endOfList = false;
    Text transferDate;
    Text name;
    Text creationDate;
    int n = 0;
    for (; n <= 5; ++n) {
        const Text line = screenLine(response, n);
        if (contains(line, u"PROFILE HISTORY       ")) {
            profile = true;
            break;
        }
        if (contains(line, u"ELEMENT DOES NOT EXIST")) {
            endOfList = true;
            break;
        }
    }
    if (profile) {
        bool transferFound = false;
        bool creationFound = false;
        for (n = n + 1; n <= 12; ++n) {
            const Text line = screenLine(response, n);
            if (contains(line, u"TRAVELLER PROFILE   :")) {
                name = trimmed(mid(line, 22));
            }
            if (contains(line, u"COMPANY PROFILE")) {
                name = trimmed(mid(line, 22));
            }
            if (contains(line, u"LAST PNR TRANSFER  :")) {
                transferDate = trimmed(mid(line, 21, 8));
                transferFound = true;
            }
            if (contains(line, u"PROFILE CREATION   :")) {
                creationDate = trimmed(mid(line, 21, 8));
                creationFound = true;
            }
            if (transferFound && creationFound) {
                break;
            }
        }
    }
    Collection results;
    results.add("blnKeyProfile", profile);
    results.add("blnKeyEndOfList", endOfList);
    results.add("strKeyLastPNRTransDate", transferDate);
    results.add("strKeyName", name);
    results.add("strKeyProfileCreationDate", creationDate);
    return results;
}

std::optional<Collection> verifyCPLCTrans(const Text& response, const Collection* /*state*/) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool companyList = false;
    bool profile = false;
    for (int n = 1; n <= 9; ++n) {
        const Text line = screenLine(response, n);
        if (contains(line, u"COMPANY NAME LIST")) {
            companyList = true;
            break;
        }
        if (contains(line, u"*C*")) {
            profile = true;
            break;
        }
    }
    Collection results;
    results.add("blnKeyCompanyList", companyList);
    results.add("blnKeyProfile", profile);
    return results;
}

std::optional<Collection> verifyCPXTrans(const Text& response, const Collection* /*state*/) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool accepted = false;
    for (int n = 0; n <= 4; ++n) {
        if (contains(screenLine(response, n), u"WILL BE DEACTIVATED")) {
            accepted = true;
            break;
        }
    }
    Collection results;
    results.add("blnKeyResponseOK", accepted);
    return results;
}

namespace {

// The exit confirmation stands at least a line further on than the ignore confirmation; the place is a 16-bit integer.
bool isIgnoredAndExited(const Text& response) {
    const int ignored = found(response, u"IGNORED     ");
    if (ignored == 0) {
        return false;
    }
    return found(response, u"PROFILE MODE EXITED     ", add16(ignored, 80)) > 0;
}

bool isConfirmed(const Text& response, bool update, bool exit, bool enter, bool ignore) {
    if (!update && !exit && enter && !ignore) {
        return contains(response, u"*PROFILE MODE*");
    }
    if (!update && exit && !enter && !ignore) {
        return contains(response, u"PROFILE MODE EXITED     ");
    }
    if (update && !exit && !enter && !ignore) {
        return contains(response, u"END OF TRANSACTION COMPLETE");
    }
    if (update && exit && !enter && !ignore) {
        return contains(response, u"PROFILE MODE EXITED     ");
    }
    if (!update && !exit && !enter && ignore) {
        return contains(response, u"IGNORED     ");
    }
    if (!update && exit && !enter && ignore) {
        try {
            return isIgnoredAndExited(response);
        } catch (const Failure&) {
            return false;
        }
    }
    return false;
}

const Collection& present(const Collection* state) {
    if (state == nullptr) {
        throw Failure{objectNotSet};
    }
    return *state;
}

}  // namespace

std::optional<Collection> verifyCProfileMode(const Text& response, const Collection* state) {
    if (response.empty()) {
        return std::nullopt;
    }
    return raising(5045, [&] {
        Collection collection = present(state);
        const bool update = itemBoolean(collection.item("blnKeyUpdate"));
        const bool exit = itemBoolean(collection.item("blnKeyExit"));
        const bool enter = itemBoolean(collection.item("blnKeyEnter"));
        const bool ignore = itemBoolean(collection.item("blnKeyIgnore"));
        const bool confirmed = isConfirmed(response, update, exit, enter, ignore);
        const Text message = trimmed(screenLine(response, 1));
        collection.add("blnKeyResponseOK", confirmed);
        collection.add("strKeyErrorString", message);
        return std::optional<Collection>(collection);
    });
}

std::optional<Collection> verifyCProfileNotes(const Text& response, const Collection* state) {
    if (response.empty()) {
        return std::nullopt;
    }
    return raising(5045, [&] {
        Collection collection = present(state);
        const Text command = itemText(collection.item("strCommand"));
        bool accepted = false;
        if (command == u"PN") {
            accepted = contains(response, u"PNL");
        } else if (command == u"PNE") {
            accepted = !contains(response, u"TRANSACTION NOT ALLOWED");
        }
        const Text message = trimmed(screenLine(response, 1));
        collection.add("blnKeyResponseOK", accepted);
        collection.add("strKeyErrorString", message);
        return std::optional<Collection>(collection);
    });
}

}  // namespace oracle
