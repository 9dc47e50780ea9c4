#include "tests/transactions/row_agreement.h"

#include "tests/support/text.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vantro::test {

namespace {

Text trimmedAtBothEnds(const Text& text) {
    const std::size_t first = text.find_first_not_of(u' ');
    return first == Text::npos ? Text() : text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

// The parts between the commas, trimmed. An empty text has one empty part.
TextList partsOf(const Text& joined) {
    TextList parts(1);
    for (const char16_t character : joined) {
        if (character == u',') {
            parts.emplace_back();
        } else {
            parts.back() += character;
        }
    }
    std::ranges::transform(parts, parts.begin(), trimmedAtBothEnds);
    return parts;
}

// "CPDNTrans" and "CPDATrans" write no comma after a blank first name.
TextList withoutBlankStart(TextList names) {
    while (!names.empty() && names.front().empty()) names.erase(names.begin());
    return names;
}

std::string shown(const TextList& texts) {
    std::string text;
    for (const Text& each : texts) text += "'" + utf8(each) + "' ";
    return text;
}

std::string difference(const std::string& what, const TextList& inRows, const TextList& inResults) {
    return inRows == inResults ? "" : what + " in the rows: " + shown(inRows) + "in the results: " + shown(inResults);
}

TextList namesIn(const ListRows& found) {
    TextList names;
    for (const ListRow& row : found.rows) names.push_back(row.name);
    return names;
}

Text textIn(const CollectionPtr& results, TextView key) { return std::get<Text>(valueOf(results, key)); }
bool flagIn(const CollectionPtr& results, TextView key) { return std::get<bool>(valueOf(results, key)); }

std::string differentNames(const ListRows& found, const CollectionPtr& results) {
    return difference("names", withoutBlankStart(namesIn(found)),
                      withoutBlankStart(partsOf(textIn(results, u"strKeyCoNames"))));
}

std::string listMissed(const ListRows& found) { return found.isList ? "" : "the rows miss the list"; }

// "PDN" and "PDA". There are names to compare for a screen with a title, and for a continuation that the class reads.
std::string differsFromNameList(const ListRows& found, const CollectionPtr& results, TextView listFlag) {
    const bool isList = flagIn(results, listFlag);
    if (!isList && textIn(results, u"strKeyCoNames").empty()) return {};
    return (isList ? listMissed(found) : "") + differentNames(found, results);
}

// A continuation of which the class reads nothing, perhaps not even the column in the state.
bool isUnread(const CollectionPtr& results, const CollectionPtr& state) {
    const bool isContinuation =
        state != nullptr && state->Item(u"blnKeyEndOfBlock") && flagIn(state, u"blnKeyEndOfBlock");
    return isContinuation && textIn(results, u"strKeyCoNames").empty();
}

// "PLT". The class collects every line of a block without text from column 35 on, also blank lines and headers.
std::string differsFromOfficeList(const ListRows& found, const CollectionPtr& results) {
    if (flagIn(results, u"blnKeyCompanyList")) {
        const Text names = textIn(results, u"strKeyCoNames");
        if (found.rows.empty() && names.empty()) return listMissed(found);
        return listMissed(found) + difference("names", namesIn(found), partsOf(names));
    }
    if (!flagIn(results, u"blnKeyTravellerList")) return {};
    TextList inRows;
    for (const ListRow& row : found.rows) {
        if (row.company.empty() && !row.recordLocator.empty()) inRows.push_back(row.recordLocator);
    }
    TextList inResults;
    const auto locators = std::get<TextList>(valueOf(results, u"strKeyNoCoAssoArray()"));
    for (const Text& each : locators) {
        const Text locator = trimmedAtBothEnds(each);
        if (!locator.empty() && locator != u"RECLOC") inResults.push_back(locator);
    }
    return listMissed(found) + difference("locators", inRows, inResults);
}

TextList partsOf(const ListRow& row) {
    return {row.recordLocator, row.passenger, row.kind == ProfileKind::Traveller ? u"T" : u"C"};
}

// "RLP": the results of every index. An entry for which the last line alone said the kind has no locator.
std::string differsFromLinkedProfiles(DrivenClass& driven, const ListRows& found, const Text& response) {
    std::string differences;
    TextList inRows;
    TextList inResults;
    for (const ListRow& row : found.rows) std::ranges::copy(partsOf(row), std::back_inserter(inRows));
    const int last = driven.count(u"RecLocCount", response);
    for (int index = 0; index <= last; ++index) {
        const Text number = wide(std::to_string(index));
        const CollectionPtr results = driven.read(response, Entries{{u"strKeyIndex", number}});
        if (keysOf(results).size() != 4) continue;  // no PNR is shown
        const bool isTraveller = flagIn(results, u"blnKeyTraveller");
        if (!isTraveller && !flagIn(results, u"blnKeyCompany")) continue;
        inResults.push_back(trimmedAtBothEnds(textIn(results, u"strKeyRecLoc")));
        inResults.push_back(textIn(results, u"strKeyPasAsso"));
        inResults.emplace_back(isTraveller ? u"T" : u"C");
    }
    return difference("linked profiles", inRows, inResults);
}

std::string differsFromFlag(const ListRows& found, const CollectionPtr& results, TextView flag) {
    return flagIn(results, flag) ? listMissed(found) : "";
}

}  // namespace

std::string disagreement(DrivenClass& driven, TextView className, const Text& response, const CollectionPtr& state) {
    driven.reported.clear();
    if (className == u"CRLPTrans") {
        return differsFromLinkedProfiles(driven, readRows(className, response), response);
    }
    const CollectionPtr results = driven.read(response, state);
    if (results == nullptr || !driven.reported.empty()) return {};
    if (isUnread(results, state)) return {};
    const ListRows found = readRows(className, response, state);
    if (className == u"CPDNTrans") return differsFromNameList(found, results, u"blnKeyCompanyList");
    if (className == u"CPDATrans") return differsFromNameList(found, results, u"blnKeyCoList");
    if (className == u"CPLTTrans") return differsFromOfficeList(found, results);
    if (className == u"CPLCTrans") return differsFromFlag(found, results, u"blnKeyCompanyList");
    return differsFromFlag(found, results, u"blnKeyList");
}

}  // namespace vantro::test
