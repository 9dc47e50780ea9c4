// Two kinds of list screens of 24 lines, as the host prints them, with some variety.
#pragma once

#include <string>
#include <vector>

namespace vantro::bench {

struct ListScreen {
    std::u16string utf16;
    std::string utf8;
};

/// Answers to a name search: similar company names, some wrapped onto a second line.
const std::vector<ListScreen>& companyScreens();

/// Travellers of an office, some of them of a company.
const std::vector<ListScreen>& travellerScreens();

}  // namespace vantro::bench
