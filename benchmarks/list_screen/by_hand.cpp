// Written for speed: one look at each line, with vector compares, finds a prompt in it and, for travellers, the end of
// its text.
#include "common/host_format.h"
#include "list_screen/readers.h"

#include <algorithm>

namespace vantro::bench {

namespace {

constexpr View blockEnd = u"END OF BLOCK - USE PDMD";

bool begins(const char16_t* line, View text) {
    return std::memcmp(line, text.data(), text.size() * sizeof(char16_t)) == 0;
}

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

/// A screen of whole lines and the piece after them.
struct Lines {
    explicit Lines(View screen)
        : begin(screen.data()),
          end(begin + screen.size() / lineUnits * lineUnits),
          rest(screen.substr(static_cast<std::size_t>(end - begin))) {}

    const char16_t* line(std::size_t number) const { return std::min(begin + number * lineUnits, end); }

    const char16_t* begin;
    const char16_t* end;
    View rest;
};

/// The numbered lines and those that continue a name, from the line below the header.
void collectCompanies(const Lines& lines, const char16_t* line, CompanyList& list) {
    const auto column = static_cast<std::size_t>(list.locatorColumn);
    list.names.reserve((column - 6) * static_cast<std::size_t>(lines.end - line) / lineUnits);
    for (; line != lines.end && !begins(line, blockEnd); line += lineUnits) {
        if (hasPrompt(line)) return;
        if (isDigit(line[3]) && (line[2] == u' ' || isDigit(line[2]))) {
            if (!list.names.empty()) {
                trimEnd(list.names);
                list.names += u',';
            }
        } else if (!eightBlanks(line + column - 1) || line[2] != u' ' || line[3] != u' ' || line[5] == u' ') {
            return;
        }
        list.names.append(line + 5, column - 7);
    }
    list.endOfBlock = line != lines.end || lines.rest.starts_with(blockEnd);
}

}  // namespace

CompanyList companiesByHand(View screen) {
    const Lines lines(screen);
    CompanyList list;
    for (const char16_t* line = lines.line(1); line != lines.line(10); line += lineUnits) {
        if (line[0] == u'S') {
            list.companyList = begins(line, u"SIMILAR COMPANY NAME LIST");
            list.travellerList = begins(line, u"SIMILAR TRAVELLER NAME LIST");
        } else if (line[0] == u'*' && line[2] == u'*') {
            list.companyProfile = line[1] == u'C';
            list.travellerProfile = line[1] == u'T';
        }
        if (list.travellerList || list.companyList || list.companyProfile || list.travellerProfile) break;
    }
    list.merged = list.travellerProfile && screen.find(u"*MRG*") != View::npos;
    if (!list.companyList) return list;
    for (const char16_t* line = lines.line(2); line != lines.end; line += lineUnits) {
        if (hasPrompt(line)) break;
        if (!begins(line, u"     COMPANY     ")) continue;
        const std::size_t title = View(line, lineUnits).find(u"     RECLOC     ", 17);
        list.locatorColumn = title == View::npos ? 5 : static_cast<int>(title) + 6;
        collectCompanies(lines, line + lineUnits, list);
        trimEnd(list.names);
        break;
    }
    return list;
}

TravellerList travellersByHand(View screen) {
    const Lines lines(screen);
    TravellerList list{.locators = {std::u16string()}};
    for (const char16_t* line = lines.line(1); line != lines.line(10); line += lineUnits) {
        const View text(line, lineUnits);
        list.noCompany = text.starts_with(u"NO COMPANY PROFILE FOUND");
        list.travellerList = text.starts_with(u"TRAVELLER LIST FOR") || text.starts_with(u"TRAVELLER NAME LIST");
        list.companyList = text.starts_with(u"SIMILAR COMPANY NAME LIST");
        list.noTraveller = text.starts_with(u"NO TRAVELLER PROFILE FOUND");
        list.profile = text.starts_with(u"*T*");
        list.merged = list.profile && text.find(u"*MRG*") != View::npos;
        if (list.noCompany || list.travellerList || list.companyList || list.noTraveller || list.profile) break;
    }
    if (!list.travellerList) return list;
    bool inBlock = false;
    list.locators.reserve(static_cast<std::size_t>(lines.end - lines.begin) / lineUnits);
    for (const char16_t* line = lines.line(3); line != lines.end && !begins(line, blockEnd); line += lineUnits) {
        const LineLook look = lookAt(line);
        if (look.mayEndDisplay && hasPrompt(line)) break;
        if (!inBlock) {
            inBlock = View(line, look.end + 1).find(u"RECLOC ") != View::npos;
        } else if (look.end <= 34) {
            list.locators.emplace_back(line + 28, 6);
        }
    }
    return list;
}

}  // namespace vantro::bench
