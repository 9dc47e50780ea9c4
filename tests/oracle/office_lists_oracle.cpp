#include "screens_oracle.h"

// The traveller list of an office:
//
//            1         2         3
//   123456789012345678901234567890123456789
//   TRAVELLER LIST FOR ...
//        NAME                   RECLOC COMPANY
//     1  SMITH/JOHN MR          ABC123                 locator in columns 29-34, company from 35

namespace oracle {

namespace {

bool usable(const Text& line) { return !line.empty() && found(line, u">") == 0; }

struct OfficeList {
    bool travellerList = false;
    bool companyList = false;
    bool profile = false;
    bool merge = false;
    Text names;
    bool noCompany = false;
    bool noTraveller = false;
    std::vector<Text> withoutCompany = {Text()};
};

// Sets the flag of the screen's kind; returns the line that decided it, or line 9.
Text readOfficeKind(const Text& response, OfficeList& result) {
    Text line;
    for (int n = 1; n <= 9; ++n) {
        line = screenLine(response, n);
        if (found(line, u"NO COMPANY PROFILE FOUND") > 0) {
            result.noCompany = true;
            break;
        }
        if (found(line, u"TRAVELLER LIST FOR") > 0 || found(line, u"TRAVELLER NAME LIST") > 0) {
            result.travellerList = true;
            break;
        }
        if (found(line, u"SIMILAR COMPANY NAME LIST") > 0) {
            result.companyList = true;
            break;
        }
        if (found(line, u"NO TRAVELLER PROFILE FOUND") > 0) {
            result.noTraveller = true;
            break;
        }
        if (found(line, u"*T*") > 0) {
            result.profile = true;
            if (found(line, u"*MRG*") > 0) {
                result.merge = true;
            }
            break;
        }
    }
    return line;
}

// The marker line is only tested for being usable; names are read from lines 3, 4, 5 and so on.
Text readCompanyNames(const Text& response, const Text& markerLine) {
    Text names;
    int collected = 0;
    bool inBlock = false;
    int n = 2;
    Text line = markerLine;
    while (usable(line)) {
        n = add16(n, 1);
        line = screenLine(response, n);
        if (!usable(line)) {
            break;
        }
        if (inBlock) {
            if (isNumeric(trimmed(mid(line, 3, 2)))) {
                if (collected > 0) {
                    names = names + u",";
                }
                names = names + trimmed(mid(line, 6));
                collected = add16(collected, 1);
                continue;
            }
            // The line without a list number ends the block and may be the next header.
            inBlock = false;
        }
        if (found(line, u"     COMPANY     ") > 0) {
            inBlock = true;
        }
    }
    return names;
}

void collectNoCompanyRecLocs(const Text& response, std::vector<Text>& locators) {
    Text line = screenLine(response, 1);
    int kept = 0;
    int n = 2;
    while (usable(line)) {
        n = add16(n, 1);
        line = screenLine(response, n);
        if (!usable(line)) {
            return;
        }
        if (found(line, u"RECLOC ") == 0) {
            continue;
        }
        while (true) {
            n = add16(n, 1);
            line = screenLine(response, n);
            if (!usable(line) || found(line, u"END OF BLOCK - USE PDMD") > 0) {
                break;
            }
            if (trimmed(mid(line, 35)).empty()) {
                kept = add16(kept, 1);
                locators.resize(static_cast<std::size_t>(kept) + 1);
                locators.back() = mid(line, 29, 6);
            }
        }
    }
}

void parseOfficeList(const Text& response, Collection& collection) {
    OfficeList result;
    const Text line = readOfficeKind(response, result);
    if (result.companyList) {
        result.names = readCompanyNames(response, line);
    }
    if (result.travellerList) {
        try {
            collectNoCompanyRecLocs(response, result.withoutCompany);
        } catch (const Failure&) {
            // Reported to the terminal; the locators found so far are returned.
        }
    }
    collection.add("blnKeyTravellerList", result.travellerList);
    collection.add("blnKeyCompanyList", result.companyList);
    collection.add("blnKeyProfile", result.profile);
    collection.add("blnKeyMerge", result.merge);
    collection.add("strKeyCoNames", result.names);
    collection.add("blnKeyNoCoFoundString", result.noCompany);
    collection.add("blnKeyNoTrPrFoundString", result.noTraveller);
    collection.add("strKeyNoCoAssoArray()", result.withoutCompany);
}

}  // namespace

std::optional<Collection> verifyCPLTTrans(const Text& response, const Collection*) {
    if (response.empty()) {
        return std::nullopt;
    }
    Collection collection;
    try {
        parseOfficeList(response, collection);
    } catch (const Failure&) {
        // Reported to the terminal; the keys not yet added are missing.
    }
    return collection;
}

}  // namespace oracle
