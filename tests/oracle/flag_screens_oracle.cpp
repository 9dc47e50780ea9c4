#include "screens_oracle.h"

// The screens from which little more than flags is read:
//
//   PD3
//   *T*  SMITH/ANNA MS                    KQ4R7T     *MRG*

namespace oracle {

namespace {

bool contains(const Text& text, const Text& marker) { return found(text, marker) > 0; }

bool begins(const Text& line, const Text& marker) { return mid(line, 1, static_cast<int>(marker.size())) == marker; }

}  // namespace

// Lines by position, including line 0; the first line that begins with any of the markers decides.
std::optional<Collection> verifyCPDTrans(const Text& response, const Collection*) {
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
    Collection collection;
    collection.add("blnKeyList", list);
    collection.add("blnKeyProfile", profile);
    collection.add("blnKeyMerge", merge);
    collection.add("blnKeyEndOfList", endOfList);
    collection.add("blnKeyError", error);
    collection.add("blnKeyCoProfile", company);
    return collection;
}

std::optional<Collection> verifyCPDITrans(const Text& response, const Collection*) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool company = false;
    bool traveller = false;
    for (int n = 0; n <= 5; ++n) {
        const Text start = mid(screenLine(response, n), 1, 3);
        if (start == u"*C*") {
            company = true;
            break;
        }
        if (start == u"*T*") {
            traveller = true;
            break;
        }
    }
    Collection collection;
    collection.add("blnKeyCoProfile", company);
    collection.add("blnKeyTrProfile", traveller);
    return collection;
}

std::optional<Collection> verifyCPDTTrans(const Text& response, const Collection*) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool traveller = false;
    for (int n = 0; n <= 9; ++n) {
        if (begins(lineByPosition(response, n), u"*T*")) {
            traveller = true;
        }
    }
    Collection collection;
    collection.add("blnKeyProfile", traveller);
    return collection;
}

// The merge mark counts only in the traveller's own line. The refusals may be anywhere; the first in this order counts.
std::optional<Collection> verifyCPDRTrans(const Text& response, const Collection*) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool company = false;
    bool traveller = false;
    bool merged = false;
    bool noLocator = false;
    bool deactivated = false;
    bool badInput = false;
    for (int n = 0; n <= 3; ++n) {
        const Text line = screenLine(response, n);
        if (mid(line, 1, 3) == u"*C*") {
            company = true;
            break;
        }
        if (mid(line, 1, 3) == u"*T*") {
            traveller = true;
            merged = contains(line, u"*MRG*");
            break;
        }
    }
    if (!company && !traveller) {
        if (contains(response, u"RECORD LOCATOR NOT FOUND")) {
            noLocator = true;
        } else if (contains(response, u"DEACTIVATED TRAVELLER PROFILE")) {
            deactivated = true;
        } else if (contains(response, u"CHECK INPUT")) {
            badInput = true;
        }
    }
    Collection collection;
    collection.add("blnKeyCoProfile", company);
    collection.add("blnKeyTrProfile", traveller);
    collection.add("blnKeyErrNoRecLoc", noLocator);
    collection.add("blnKeyErrCheckInput", badInput);
    collection.add("blnKeyMerged", merged);
    collection.add("blnKeyDeactivatedTProfile", deactivated);
    return collection;
}

std::optional<Collection> verifyCPCNTrans(const Text& response, const Collection*) {
    if (response.empty()) {
        return std::nullopt;
    }
    const bool traveller = contains(response, u"*T*");
    const bool company = !traveller && contains(response, u"*C*");
    Collection collection;
    collection.add("blnKeyTrProfile", traveller);
    collection.add("blnKeyCoProfile", company);
    return collection;
}

std::optional<Collection> verifyCPLCTrans(const Text& response, const Collection*) {
    if (response.empty()) {
        return std::nullopt;
    }
    bool list = false;
    bool profile = false;
    for (int n = 1; n <= 9; ++n) {
        const Text line = screenLine(response, n);
        if (contains(line, u"COMPANY NAME LIST")) {
            list = true;
            break;
        }
        if (contains(line, u"*C*")) {
            profile = true;
            break;
        }
    }
    Collection collection;
    collection.add("blnKeyCompanyList", list);
    collection.add("blnKeyProfile", profile);
    return collection;
}

std::optional<Collection> verifyCPTTrans(const Text& response, const Collection*) {
    if (response.empty()) {
        return std::nullopt;
    }
    Collection collection;
    collection.add("blnKeyPNR", contains(response, u"RP/"));
    collection.add("blnKeyPNRCreated", contains(response, u"- PNR CREATED"));
    collection.add("blnKeyPNRUpdated", contains(response, u"- PNR UPDATED"));
    return collection;
}

std::optional<Collection> verifyCPBNTrans(const Text& response, const Collection*) {
    if (response.empty()) {
        return std::nullopt;
    }
    Collection collection;
    collection.add("blnKeyPNR", contains(response, u"RP/"));
    collection.add("blnKeyPNRUpdated", contains(response, u"- PNR UPDATED"));
    return collection;
}

std::optional<Collection> verifyCPBITrans(const Text& response, const Collection* state) {
    return verifyCPBNTrans(response, state);
}

std::optional<Collection> verifyCPXTrans(const Text& response, const Collection*) {
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
    Collection collection;
    collection.add("blnKeyResponseOK", accepted);
    return collection;
}

std::optional<Collection> verifyCPDMDTrans(const Text&, const Collection*) { return std::nullopt; }

}  // namespace oracle
