#include "screens_oracle.h"

// The company name lists of the name search and of the similar-name display:
//
//            1         2
//   12345678901234567890123456
//   SIMILAR COMPANY NAME LIST
//             COMPANY                RECLOC            five blanks on each side of both words
//     1  NORTHWIND TRADING           ABC123            list number in columns 3-4, name from column 6

namespace oracle {

namespace {

const Text endOfBlockMark = u"END OF BLOCK - USE PDMD";
const Text companyHeader = u"     COMPANY     ";
const Text recLocHeader = u"     RECLOC     ";

bool usable(const Text& line) { return !line.empty() && found(line, u">") == 0; }

bool begins(const Text& line, const Text& marker) { return mid(line, 1, static_cast<int>(marker.size())) == marker; }

struct NameSearch {
    bool travellerList = false;
    bool travellerProfile = false;
    bool companyList = false;
    bool companyProfile = false;
    bool merge = false;
    Text names;
    bool endOfBlock = false;
    // The incoming text, or the integer found by this reading.
    Value recLocPos = Text();
};

// Sets the flag of the screen's kind; returns the line that decided it, or line 9.
Text readScreenKind(const Text& response, NameSearch& result) {
    Text line;
    for (int n = 1; n <= 9; ++n) {
        line = screenLine(response, n);
        if (begins(line, u"SIMILAR TRAVELLER NAME LIST")) {
            result.travellerList = true;
            break;
        }
        if (begins(line, u"SIMILAR COMPANY NAME LIST")) {
            result.companyList = true;
            break;
        }
        if (begins(line, u"*C*")) {
            result.companyProfile = true;
            break;
        }
        if (begins(line, u"*T*")) {
            result.travellerProfile = true;
            if (found(response, u"*MRG*") > 0) {
                result.merge = true;
            }
            break;
        }
    }
    return line;
}

// Reads the entries of one block; returns the line that ended it.
Text readSearchEntries(const Text& response, int& n, NameSearch& result) {
    while (true) {
        n = add16(n, 1);
        result.endOfBlock = false;
        const Text line = screenLine(response, n);
        if (found(line, endOfBlockMark) > 0) {
            result.endOfBlock = true;
            return line;
        }
        if (!usable(line)) {
            return line;
        }
        const Text listNumber = trimmed(mid(line, 3, 2));
        const int position = toInteger16(result.recLocPos);
        const Text recLoc = trimmed(mid(line, position, 6));
        const Text company = trimmed(mid(line, 6, add16(position, -6)));
        if (!company.empty() && recLoc.empty() && listNumber.empty()) {
            result.names = result.names + mid(line, 6, add16(position, -7));
            continue;
        }
        if (!isNumeric(listNumber)) {
            return line;
        }
        if (!result.names.empty()) {
            result.names = trimmed(result.names) + u",";
        }
        if (position > 5) {
            result.names = result.names + mid(line, 6, add16(position, -7));
        } else {
            result.names = result.names + mid(line, 6);
        }
    }
}

void parseNameSearch(const Text& response, NameSearch& result) {
    const bool incoming = result.endOfBlock;
    Text line = readScreenKind(response, result);
    if (!incoming && !result.companyList) {
        return;
    }
    int n = 1;
    while (usable(line)) {
        n = add16(n, 1);
        line = screenLine(response, n);
        if (!usable(line)) {
            break;
        }
        if (!incoming && found(line, companyHeader) == 0) {
            continue;
        }
        if (itemText(&result.recLocPos).empty()) {
            result.recLocPos = add16(found(line, recLocHeader), 5);
        }
        if (incoming) {
            n = add16(n, -1);
        }
        line = readSearchEntries(response, n, result);
        if (!isNumeric(trimmed(mid(line, 3, 2)))) {
            break;
        }
    }
    result.names = trimmed(result.names);
}

}  // namespace

std::optional<Collection> verifyCPDNTrans(const Text& response, const Collection* state) {
    if (response.empty()) {
        return std::nullopt;
    }
    return raising(5075, [&] {
        NameSearch result;
        if (state != nullptr) {
            result.endOfBlock = itemBoolean(state->item("blnKeyEndOfBlock"));
            result.recLocPos = itemText(state->item("strKeyRecLocPos"));
        }
        try {
            parseNameSearch(response, result);
        } catch (const Failure&) {
            // Reported to the terminal; what was found so far is returned.
        }
        Collection collection;
        collection.add("blnKeyTrList", result.travellerList);
        collection.add("blnKeyTrProfile", result.travellerProfile);
        collection.add("blnKeyCompanyList", result.companyList);
        collection.add("blnKeyCoProfile", result.companyProfile);
        collection.add("blnKeyMerge", result.merge);
        collection.add("strKeyCoNames", result.names);
        collection.add("blnKeyEndOfBlock", result.endOfBlock);
        collection.add("strKeyRecLocPos", result.recLocPos);
        return std::optional<Collection>(collection);
    });
}

namespace {

struct SimilarNames {
    bool companyProfile = false;
    bool travellerProfile = false;
    bool companyList = false;
    bool travellerList = false;
    Text names;
};

// Sets the flag of the screen's kind; returns the line that decided it, or line 5.
Text readSimilarKind(const Text& response, SimilarNames& result) {
    Text line;
    for (int n = 0; n <= 5; ++n) {
        line = screenLine(response, n);
        if (mid(line, 1, 3) == u"*C*") {
            result.companyProfile = true;
            break;
        }
        if (mid(line, 1, 3) == u"*T*") {
            result.travellerProfile = true;
            break;
        }
        if (found(line, u"SIMILAR COMPANY NAME LIST") > 0) {
            result.companyList = true;
            break;
        }
        if (found(line, u"SIMILAR TRAVELLER NAME LIST") > 0) {
            result.travellerList = true;
            break;
        }
    }
    return line;
}

// Reads the entries of one block; returns the line that ended it.
Text readSimilarEntries(const Text& response, int& n, bool& keepCounter, Text& names, bool& endOfBlock) {
    while (true) {
        if (keepCounter) {
            keepCounter = false;
        } else {
            n = add16(n, 1);
        }
        endOfBlock = false;
        const Text line = screenLine(response, n);
        if (found(line, endOfBlockMark) > 0) {
            endOfBlock = true;
            return line;
        }
        if (!usable(line)) {
            return line;
        }
        if (!isNumeric(trimmed(mid(line, 3, 2)))) {
            return line;
        }
        if (!names.empty()) {
            names = names + u",";
        }
        names = names + trimmed(mid(line, 6));
    }
}

void readSimilarNames(const Text& response, Text line, bool incoming, Text& names, bool& endOfBlock) {
    int n = 1;
    // Only once per call: the first round of a continuation screen reads the line at the counter.
    bool keepCounter = incoming;
    while (usable(line)) {
        n = add16(n, 1);
        line = screenLine(response, n);
        if (!usable(line)) {
            return;
        }
        if (!incoming && found(line, companyHeader) == 0) {
            continue;
        }
        if (incoming) {
            n = add16(n, -1);
        }
        line = readSimilarEntries(response, n, keepCounter, names, endOfBlock);
        if (!isNumeric(trimmed(mid(line, 3, 2)))) {
            return;
        }
    }
}

void parseSimilarNames(const Text& response, Collection& collection, bool& endOfBlock) {
    SimilarNames result;
    const bool incoming = endOfBlock;
    const Text line = readSimilarKind(response, result);
    if (incoming || result.companyList) {
        readSimilarNames(response, line, incoming, result.names, endOfBlock);
    }
    collection.add("blnKeyCoProfile", result.companyProfile);
    collection.add("blnKeyTrProfile", result.travellerProfile);
    collection.add("blnKeyCoList", result.companyList);
    collection.add("strKeyCoNames", result.names);
    collection.add("blnKeyTrList", result.travellerList);
    collection.add("blnKeyEndOfBlock", endOfBlock);
}

}  // namespace

std::optional<Collection> verifyCPDATrans(const Text& response, const Collection* state) {
    return raising(5105, [&] {
        Collection collection;
        bool endOfBlock = false;
        // The flag is read before the response is tested.
        if (state != nullptr) {
            endOfBlock = itemBoolean(state->item("blnKeyEndOfBlock"));
        }
        if (response.empty()) {
            return std::optional<Collection>();
        }
        try {
            parseSimilarNames(response, collection, endOfBlock);
        } catch (const Failure&) {
            // Reported to the terminal; the keys not yet added are missing.
        }
        return std::optional<Collection>(collection);
    });
}

}  // namespace oracle
