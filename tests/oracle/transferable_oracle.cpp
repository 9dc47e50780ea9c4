#include "profile_oracle.h"

// Elements of the section that is copied into a PNR:
//
//            1         2
//   12345678901234567890123456
//   ------- PNR TRANSFERABLE DATA ----------------
//   S      1     RM WINDOW SEAT PREFERRED            number in columns 6-8, code from column 14
//                    WRAPPED TEXT                    17 blanks: belongs to the line above

namespace oracle {

namespace {

const Text seventeenBlanks(17, u' ');

}  // namespace

// The list resized for one more element, whose entry is empty whatever it contained before.
std::vector<Text>& ProfileOracle::emptied(const std::string& name, int count) {
    std::vector<Text>& list = lists[name];
    list.resize(static_cast<std::size_t>(count) + 1);
    list.back() = Text();
    return list;
}

bool ProfileOracle::isElement(const Text& line, Kind kind) const {
    switch (kind) {
        case Kind::Remark: return found(line, u" RM ", 13) > 0;
        case Kind::Contact: return mid(line, 12, 6) == u"  AP  ";
        case Kind::OtherService: return found(line, u" OS ", 13) > 0;
        case Kind::FrequentFlyer: return found(line, u" FFN ", 13) > 0;
        case Kind::ServiceRequest: return found(line, u" SR ", 13) > 0;
        case Kind::Seat: return found(line, u" ST ", 13) > 0;
        case Kind::RemarkConf: return found(line, u" RC ", 13) > 0;
    }
    return false;
}

void ProfileOracle::storeFrequentFlyer(int count) {
    const std::size_t index = static_cast<std::size_t>(count);
    std::vector<Text>& carriers = emptied("strFrequentFlyerCarrier", count);
    std::vector<Text>& accounts = emptied("strFrequentFlyerAccount", count);
    Text& text = lists["strFrequentFlyerText"][index];
    const int p = found(text, u"    ");
    if (p > 0) {
        text = trimmed(mid(text, 1, p));
    }
    carriers[index] = mid(text, 5, 2);
    accounts[index] = trimmed(mid(text, 8));
}

void ProfileOracle::storeServiceRequest(int count) {
    const std::size_t index = static_cast<std::size_t>(count);
    std::vector<Text>& codes = emptied("strServiceRequestCode", count);
    std::vector<Text>& carriers = emptied("strServiceRequestCarrier", count);
    std::vector<Text>& accounts = emptied("strServiceRequestAccount", count);
    std::vector<Text>& freeTexts = emptied("strServiceRequestFreeText", count);
    blnServiceRequestFlag.resize(index + 1);
    blnServiceRequestFlag[index] = false;

    const Text text = lists["strServiceRequestText"][index];
    codes[index] = mid(text, 5, 4);
    if (mid(codes[index], 1, 1) == u"*") {
        codes[index] = mid(text, 6, 4);
    }
    const int p = found(text, u"-");
    if (p > 0) {
        freeTexts[index] = trimmed(mid(text, p + 1));
    }
    if (codes[index] == u"FQTV") {
        carriers[index] = mid(text, 9, 2);
        accounts[index] = trimmed(mid(text, 12));
    }
}

void ProfileOracle::storeTransferable(const Text& line, Kind kind, int count) {
    std::string stem;
    switch (kind) {
        case Kind::Remark: stem = "strRemark"; break;
        case Kind::Contact: stem = "strContact"; break;
        case Kind::OtherService: stem = "strOtherService"; break;
        case Kind::FrequentFlyer: stem = "strFrequentFlyer"; break;
        case Kind::ServiceRequest: stem = "strServiceRequest"; break;
        case Kind::Seat: stem = "strSeat"; break;
        case Kind::RemarkConf: stem = "strRemarkConf"; break;
    }
    emptied(stem + "Text", count).back() = trimmed(mid(line, 14));
    emptied(stem + "Number", count).back() = trimmed(mid(line, 6, 3));
    if (kind == Kind::RemarkConf) {
        emptied("strRemarkConfDetail", count).back() = trimmed(mid(line, 18));
    }
    if (kind == Kind::FrequentFlyer) {
        storeFrequentFlyer(count);
    }
    if (kind == Kind::ServiceRequest) {
        storeServiceRequest(count);
    }
}

int ProfileOracle::transferable(const Text& display, Kind kind) {
    if (display.empty()) {
        return 0;
    }
    int count = 0;
    int n = 0;
    bool inSection = false;
    while (true) {
        Text line = rightTrimmed(screenLine(display, n));
        if (kind == Kind::Contact) {
            if (line == u">") {
                return count;
            }
        } else if (found(line, u">") > 0) {
            return count;
        }
        if (found(line, u"END OF DISPLAY") > 0) {
            return count;
        }
        const bool containsHeader = found(line, u"------- PNR TRANSFERABLE DATA") > 0;
        // Confidential remarks ignore sections: every line from the top is tested.
        if (kind != Kind::RemarkConf && !containsHeader && !inSection) {
            n = add16(n, 1);
            continue;
        }
        inSection = true;
        if (!containsHeader && mid(line, 1, 6) == u"------") {
            return count;
        }
        const Text following = screenLine(display, add16(n, 1));
        if (mid(following, 1, 17) == seventeenBlanks) {
            line = line + trimmed(following);
            // Only remarks wrap onto a third line.
            if (kind == Kind::Remark) {
                const Text third = screenLine(display, add16(n, 2));
                if (mid(third, 1, 17) == seventeenBlanks) {
                    line = line + trimmed(third);
                }
            }
        }
        if (isElement(line, kind)) {
            storeTransferable(line, kind, count);
            count = add16(count, 1);
        }
        n = add16(n, 1);
    }
}

int ProfileOracle::RemarkElementsCount(const Text& display) {
    return raising(5260, [&] { return transferable(display, Kind::Remark); });
}

int ProfileOracle::ContactElementsCount(const Text& display) {
    return raising(5235, [&] { return transferable(display, Kind::Contact); });
}

int ProfileOracle::OtherServiceElementsCount(const Text& display) {
    return raising(5250, [&] { return transferable(display, Kind::OtherService); });
}

int ProfileOracle::FrequentFlyerElementsCount(const Text& display) {
    return raising(5255, [&] { return transferable(display, Kind::FrequentFlyer); });
}

int ProfileOracle::ServiceRequestElementsCount(const Text& display) {
    return raising(5245, [&] { return transferable(display, Kind::ServiceRequest); });
}

int ProfileOracle::SeatElementsCount(const Text& display) {
    return raising(5240, [&] { return transferable(display, Kind::Seat); });
}

// The number of the plain remarks, not 5265.
int ProfileOracle::RemarkConfElementsCount(const Text& display) {
    return raising(5260, [&] { return transferable(display, Kind::RemarkConf); });
}

}  // namespace oracle
