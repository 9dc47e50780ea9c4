#include "profile_oracle.h"

// From the requested family to its reader, and from the reader's lists to the request.

namespace oracle {

namespace {

const char* const elementKey = "strKeyElement";
const char* const numberKey = "strKeyElementNr";
const char* const elementListKey = "strKeyElement()";
const char* const numberListKey = "strKeyElementNr()";

bool starts(const Text& prefix, const Text& letters) { return mid(prefix, 1, 3) == letters; }

void companyNameOutput(const Text& working, Collection& request) {
    const Text line = companyNameLine(working);
    const Text number = textField(line, 1, u" ");
    const Text element = trimmed(mid(line, 3));
    request.add(elementKey, element);
    if (number != u"X") {
        request.add(numberKey, number);
    }
}

void pinOutput(const Text& working, Collection& request) {
    Text number;
    const Text element = pinLine(working, number);
    request.add(elementKey, element);
    request.add(numberKey, number);
}

void allOutput(const Text& working, std::vector<Text>* selection, const Text& qualifier, Collection& request) {
    std::vector<Text> output = {Text()};
    scanTransferable(working, selection, qualifier, output);
    request.add("strKeyElNbrsArray", output);
}

}  // namespace

void ProfileOracle::listOutput(const Text& display, const std::string& family, Collection& request) {
    count(family + "ElementsCount", display);
    request.add(elementListKey, lists["str" + family + "Text"]);
    request.add(numberListKey, lists["str" + family + "Number"]);
}

void ProfileOracle::indexedWithLists(const Text& display, const std::string& family, int number, Collection& request) {
    Text indexText = itemText(request.item("intKeyIndex"));
    if (indexText.empty()) {
        indexText = u"0";
    }
    const int elements = count(family + "ElementsCount", display);
    const int index = toInteger16(Value(indexText));
    if (index > elements) {
        throw Failure{number};
    }
    const std::vector<Text>& texts = lists["str" + family + "Text"];
    const std::vector<Text>& numbers = lists["str" + family + "Number"];
    if (index > 0) {
        request.add(elementKey, entry(texts, index));
        request.add(numberKey, entry(numbers, index));
    }
    request.add(elementListKey, texts);
    request.add(numberListKey, numbers);
}

int ProfileOracle::indexedSingle(const Text& display, const std::string& stem, int number, Collection& request) {
    const int index = toInteger16(itemValue(request.item("intKeyIndex")));
    const int elements = count(stem + "ElementsCount", display);
    if (index > elements) {
        throw Failure{number};
    }
    const int p = add16(index, -1);
    request.add(elementKey, entry(lists["str" + stem + "Text"], p));
    request.add(numberKey, entry(lists["str" + stem + "Number"], p));
    return p;
}

void ProfileOracle::serviceRequestOutput(const Text& display, Collection& request) {
    const int p = indexedSingle(display, "ServiceRequest", 5245, request);
    request.add("strKeyCode", entry(lists["strServiceRequestCode"], p));
    request.add("strKeyAirline", entry(lists["strServiceRequestCarrier"], p));
    request.add("strKeyFFNbr", entry(lists["strServiceRequestAccount"], p));
    request.add("strKeyFreeText", entry(lists["strServiceRequestFreeText"], p));
    if (p < 0 || static_cast<std::size_t>(p) >= blnServiceRequestFlag.size()) {
        throw Failure{outOfRange};
    }
    const bool flag = blnServiceRequestFlag[static_cast<std::size_t>(p)];
    request.add("blnKeyAsterix", flag);
}

void ProfileOracle::frequentFlyerOutput(const Text& display, Collection& request) {
    const int p = indexedSingle(display, "FrequentFlyer", 5255, request);
    request.add("strKeyAirline", entry(lists["strFrequentFlyerCarrier"], p));
    request.add("strKeyFFNbr", entry(lists["strFrequentFlyerAccount"], p));
}

void ProfileOracle::confidentialRemarkOutput(const Text& display, Collection& request) {
    const int p = indexedSingle(display, "RemarkConf", 5265, request);
    request.add("strKeyFreeText", entry(lists["strRemarkConfDetail"], p));
}

// The families named by a whole word, up to "OFFID".
bool ProfileOracle::wholeWords(const Text& prefix, const Text& working, Collection& request) {
    if (prefix == u"NM") {
        request.add(elementKey, profileName(working));
    } else if (prefix == u"SR") {
        serviceRequestOutput(working, request);
    } else if (prefix == u"RM") {
        indexedSingle(working, "Remark", 5260, request);
    } else if (prefix == u"AP") {
        indexedSingle(working, "Contact", 5235, request);
    } else if (prefix == u"OS") {
        indexedSingle(working, "OtherService", 5250, request);
    } else if (prefix == u"FFN") {
        frequentFlyerOutput(working, request);
    } else if (prefix == u"ST") {
        indexedSingle(working, "Seat", 5240, request);
    } else if (prefix == u"RECLOC") {
        request.add(elementKey, recordLocator(working));
    } else if (prefix == u"OFFID") {
        request.add(elementKey, officeIdentifier(working));
    } else {
        return false;
    }
    return true;
}

bool ProfileOracle::headerLines(const Text& prefix, const Text& working, Collection& request,
                                std::vector<Text>* selection, const Text& qualifier) {
    if (starts(prefix, u"PCN")) {
        companyNameOutput(working, request);
    } else if (starts(prefix, u"PHI")) {
        listOutput(working, "PHI", request);
    } else if (starts(prefix, u"PPH")) {
        listOutput(working, "PPH", request);
    } else if (starts(prefix, u"PCI")) {
        listOutput(working, "PCI", request);
    } else if (starts(prefix, u"PPC")) {
        listOutput(working, "PPC", request);
    } else if (starts(prefix, u"PIN")) {
        pinOutput(working, request);
    } else if (starts(prefix, u"PSL")) {
        pslLine(working, request);
    } else if (prefix == u"ALL") {
        allOutput(working, selection, qualifier, request);
    } else if (prefix == u"RC") {
        confidentialRemarkOutput(working, request);
    } else {
        return false;
    }
    return true;
}

bool ProfileOracle::elementLists(const Text& prefix, const Text& working, Collection& request) {
    if (starts(prefix, u"PPR")) {
        indexedWithLists(working, "PPR", 5266, request);
    } else if (starts(prefix, u"PPS")) {
        indexedWithLists(working, "PPS", 5270, request);
    } else if (starts(prefix, u"PGL")) {
        // 5266 here, although the extractor's own number is 5267.
        indexedWithLists(working, "PGL", 5266, request);
    } else if (starts(prefix, u"PPA")) {
        listOutput(working, "PPA", request);
    } else if (starts(prefix, u"PPK")) {
        listOutput(working, "PPK", request);
    } else if (starts(prefix, u"PPI")) {
        listOutput(working, "PPI", request);
    } else if (starts(prefix, u"PXC")) {
        listOutput(working, "PXC", request);
    } else if (starts(prefix, u"PXA")) {
        listOutput(working, "PXA", request);
    } else if (starts(prefix, u"PXK")) {
        listOutput(working, "PXK", request);
    } else if (starts(prefix, u"PSH")) {
        listOutput(working, "PSH", request);
    } else if (starts(prefix, u"PSC")) {
        listOutput(working, "PSC", request);
    } else if (starts(prefix, u"PPT")) {
        listOutput(working, "PPT", request);
    } else if (starts(prefix, u"PXT")) {
        listOutput(working, "PXT", request);
    } else if (starts(prefix, u"PAS")) {
        listOutput(working, "PAS", request);
    } else if (starts(prefix, u"PIV")) {
        listOutput(working, "PIV", request);
    } else if (starts(prefix, u"PCE")) {
        listOutput(working, "PCE", request);
    } else if (starts(prefix, u"PID")) {
        listOutput(working, "PID", request);
    } else if (starts(prefix, u"PFO")) {
        listOutput(working, "PFO", request);
    } else {
        return false;
    }
    return true;
}

Outcome ProfileOracle::profileElements(const Text& display, Collection& request, std::vector<Text>* selection,
                                       const Text& qualifier) {
    Text working = display;
    const Text prefix = itemText(request.item("strKeyPrefix"));
    const Text start = mid(trimmed(screenLine(working, 1)), 1, 4);
    if (start == u"4505" || start == u"PF24") {
        working = right(working, static_cast<int>(working.size()) - 80);
    }
    if (prefix.empty()) {
        throw Failure{5065};
    }
    if (wholeWords(prefix, working, request)) {
        return Outcome{false};
    }
    if (headerLines(prefix, working, request, selection, qualifier)) {
        return Outcome{false};
    }
    if (elementLists(prefix, working, request)) {
        return Outcome{false};
    }
    return Outcome{true};
}

}  // namespace oracle
