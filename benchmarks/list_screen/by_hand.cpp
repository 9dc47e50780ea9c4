#include "common/lines.h"
#include "list_screen/readers.h"

namespace vantro::bench {

namespace {

bool isUsable(View line) { return !line.empty() && findUnit(line, u'>') == View::npos; }

bool contains(View line, View mark) { return line.find(mark) != View::npos; }

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

/// Columns 3 and 4: a number of one or two digits.
bool hasListNumber(View line) {
    const View number = trimmed(from(line, 2, 2));
    return !number.empty() && isDigit(number.front()) && isDigit(number.back());
}

void trimInPlace(std::u16string& text) {
    text.resize(rightTrimmed(text).size());
    text.erase(0, text.size() - leftTrimmed(text).size());
}

/// The companies after the header.
void collectCompanies(View screen, std::size_t n, CompanyList& list) {
    const auto column = static_cast<std::size_t>(list.locatorColumn);
    for (;; ++n) {
        const View line = screenLine(screen, n);
        list.endOfBlock = contains(line, u"END OF BLOCK - USE PDMD");
        if (list.endOfBlock || !isUsable(line)) return;
        const bool hasNumber = hasListNumber(line);
        const View name = from(line, 5, column - 7);
        if (!hasNumber) {
            const bool wrapped =
                !isBlank(from(line, 5, column - 6)) && isBlank(from(line, column - 1, 6)) && isBlank(from(line, 2, 2));
            if (!wrapped) return;
            list.names += name;
            continue;
        }
        if (!list.names.empty()) {
            trimInPlace(list.names);
            list.names += u',';
        }
        list.names += name;
    }
}

}  // namespace

CompanyList companiesByHand(View screen) {
    CompanyList list;
    std::size_t n = 1;
    for (; n <= 9; ++n) {
        const View line = screenLine(screen, n);
        list.travellerList = line.starts_with(u"SIMILAR TRAVELLER NAME LIST");
        list.companyList = line.starts_with(u"SIMILAR COMPANY NAME LIST");
        list.companyProfile = line.starts_with(u"*C*");
        list.travellerProfile = line.starts_with(u"*T*");
        if (list.travellerList || list.companyList || list.companyProfile || list.travellerProfile) break;
    }
    list.merged = list.travellerProfile && contains(screen, u"*MRG*");
    if (!list.companyList) return list;
    for (n = 2;; ++n) {
        const View line = screenLine(screen, n);
        if (!isUsable(line)) return list;
        if (!contains(line, u"     COMPANY     ")) continue;
        const std::size_t title = line.find(u"     RECLOC     ");
        list.locatorColumn = title == View::npos ? 5 : static_cast<int>(title) + 6;
        break;
    }
    collectCompanies(screen, n + 1, list);
    trimInPlace(list.names);
    return list;
}

TravellerList travellersByHand(View screen) {
    TravellerList list{.locators = {std::u16string()}};
    for (std::size_t n = 1; n <= 9; ++n) {
        const View line = screenLine(screen, n);
        list.noCompany = contains(line, u"NO COMPANY PROFILE FOUND");
        if (list.noCompany) break;
        list.travellerList = contains(line, u"TRAVELLER LIST FOR") || contains(line, u"TRAVELLER NAME LIST");
        if (list.travellerList) break;
        list.companyList = contains(line, u"SIMILAR COMPANY NAME LIST");
        if (list.companyList) break;
        list.noTraveller = contains(line, u"NO TRAVELLER PROFILE FOUND");
        if (list.noTraveller) break;
        list.profile = contains(line, u"*T*");
        list.merged = list.profile && contains(line, u"*MRG*");
        if (list.profile) break;
    }
    if (!list.travellerList) return list;
    View line = screenLine(screen, 1);
    for (std::size_t n = 3; isUsable(line); ++n) {
        line = screenLine(screen, n);
        if (!isUsable(line)) break;
        if (!contains(line, u"RECLOC ")) continue;
        for (++n;; ++n) {
            line = screenLine(screen, n);
            if (!isUsable(line) || contains(line, u"END OF BLOCK - USE PDMD")) break;
            if (isBlank(from(line, 34))) list.locators.emplace_back(from(line, 28, 6));
        }
    }
    return list;
}

}  // namespace vantro::bench
