#include "screens_oracle.h"

// The profiles linked to a PNR:
//
//   >RLP
//   RP/NYCVN2345
//   T/ABC123 /P1                                       locator in columns 3-8, passenger after "/P"
//   C/XYZ789

namespace oracle {

namespace {

void readEntryLine(const Text& line, LinkedProfiles& linked, std::size_t c) {
    linked.recordLocators[c] = mid(line, 3, 6);
    const int p = found(line, u"/P", 9);
    if (p > 0) {
        linked.associations[c] = trimmed(mid(line, p + 2, 2));
    }
    if (!isNumeric(mid(linked.associations[c], 2, 1))) {
        linked.associations[c] = mid(linked.associations[c], 1, 1);
    }
}

void resizeLists(LinkedProfiles& linked, std::size_t size) {
    linked.travellers.resize(size);
    linked.companies.resize(size);
    linked.recordLocators.resize(size);
    linked.associations.resize(size);
}

int countLinked(const Text& response, LinkedProfiles& linked) {
    linked = LinkedProfiles();
    resizeLists(linked, 1);
    std::size_t c = 0;
    for (int n = 1; n <= 24; ++n) {
        if (!linked.recordLocators[c].empty()) {
            c = c + 1;
            resizeLists(linked, c + 1);
        }
        const Text line = screenLine(response, n);
        if (mid(line, 1, 2) == u"T/") {
            linked.travellers[c] = true;
        } else if (mid(line, 1, 2) == u"C/") {
            linked.companies[c] = true;
        }
        if (linked.travellers[c] || linked.companies[c]) {
            readEntryLine(line, linked, c);
        }
        if (found(line, u">") > 0 && mid(line, 1, 4) != u">RLP") {
            break;
        }
    }
    return static_cast<int>(linked.recordLocators.size()) - 1;
}

void readLinkedProfile(const Text& response, int index, Collection& collection) {
    bool booking = false;
    for (int n = 1; n <= 4; ++n) {
        const Text line = screenLine(response, n);
        if (mid(line, 1, 3) == u"RP/") {
            booking = true;
            break;
        }
        if (found(line, u"NO ELEMENT FOUND") > 0) {
            collection.add("blnKeyNoElementsFound", true);
            return;
        }
    }
    if (!booking) {
        return;
    }
    LinkedProfiles linked;
    recLocCount(response, linked);
    collection.add("strKeyPasAsso", entry(linked.associations, index));
    collection.add("strKeyRecLoc", entry(linked.recordLocators, index));
    const bool traveller = linked.travellers[static_cast<std::size_t>(index)];
    const bool company = linked.companies[static_cast<std::size_t>(index)];
    collection.add("blnKeyTraveller", traveller);
    collection.add("blnKeyCompany", company);
}

}  // namespace

int recLocCount(const Text& response, LinkedProfiles& linked) {
    try {
        return countLinked(response, linked);
    } catch (const Failure&) {
        return 0;
    }
}

std::optional<Collection> verifyCRLPTrans(const Text& response, const Collection* state) {
    if (response.empty()) {
        return std::nullopt;
    }
    return raising(5130, [&] {
        if (state == nullptr) {
            throw Failure{objectNotSet};
        }
        const int index = toInteger16(Value(itemText(state->item("strKeyIndex"))));
        Collection collection;
        try {
            readLinkedProfile(response, index, collection);
        } catch (const Failure&) {
            // Reported to the terminal; the keys not yet added are missing.
        }
        return std::optional<Collection>(collection);
    });
}

}  // namespace oracle
