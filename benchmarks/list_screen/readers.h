// What the contenders find on a list screen, and the contenders: code written only for these two screens, and regular
// expressions per line.
#pragma once

#include "common/pcre2_expression.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vantro::bench {

/// The answer to a name search.
struct CompanyList {
    bool travellerList = false;
    bool travellerProfile = false;
    bool companyList = false;
    bool companyProfile = false;
    bool merged = false;
    std::u16string names;
    bool endOfBlock = false;
    int locatorColumn = 0;

    bool operator==(const CompanyList&) const = default;
};

/// The answer to a traveller list: entry 0 of the locators is empty.
struct TravellerList {
    bool travellerList = false;
    bool companyList = false;
    bool profile = false;
    bool merged = false;
    std::u16string names = {};  ///< empty on such a screen
    bool noCompany = false;
    bool noTraveller = false;
    std::vector<std::u16string> locators;

    bool operator==(const TravellerList&) const = default;
};

CompanyList companiesByHand(std::u16string_view screen);
TravellerList travellersByHand(std::u16string_view screen);

/// The groups that both line expressions begin with, and those of each.
enum ListGroup : int {
    listTitle = 1,
    otherTitle,
    listHeader,
    companyName,  ///< of a numbered line
    companyRest,  ///< of a line that continues the name above
    companyGroups,
    travellerLocator = companyName,
    travellerGroups
};

/// Searched once per screen: the lines of a list end at the first one that contains this. The host prints one block per
/// screen.
inline constexpr char listEndExpression[] = ">|END OF BLOCK - USE PDMD";

inline constexpr char companyExpression[] =
    "(SIMILAR COMPANY NAME LIST)"
    "|(SIMILAR TRAVELLER NAME LIST|\\*C\\*|\\*T\\*)"
    "|     COMPANY {25}(RECLOC)     "
    "|  (?: \\d|\\d\\d) (.{31}).[A-Z0-9]{6}"
    "|     ([^ ].{30}). {6}";

inline constexpr char travellerExpression[] =
    "(TRAVELLER LIST FOR|TRAVELLER NAME LIST)"
    "|(NO COMPANY PROFILE FOUND|SIMILAR COMPANY NAME LIST|NO TRAVELLER PROFILE FOUND|\\*T\\*)"
    "|     NAME {19}(RECLOC )"
    "|  (?: \\d|\\d\\d) .{23}([A-Z0-9]{6}) *$";

/// Collects the matches of the lines, for either library.
struct CompanyAssembler {
    CompanyList list;
    bool inBlock = false;

    void take(int group, std::u16string_view text, int column);

    /// After the last line.
    CompanyList finished(bool endOfBlock);
};

struct TravellerAssembler {
    TravellerList list{.locators = {std::u16string()}};
    bool inBlock = false;

    void take(int group, std::u16string_view text);
};

class Pcre2Lists {
public:
    CompanyList companies(std::u16string_view screen);
    TravellerList travellers(std::u16string_view screen);

private:
    Pcre2Expression end_{listEndExpression, Pcre2Expression::Anchored::No};
    Pcre2Expression company_{companyExpression, Pcre2Expression::Anchored::Yes};
    Pcre2Expression traveller_{travellerExpression, Pcre2Expression::Anchored::Yes};
};

class Re2Lists {
public:
    Re2Lists();
    ~Re2Lists();
    CompanyList companies(std::string_view screen);
    TravellerList travellers(std::string_view screen);

private:
    struct Expression;
    std::unique_ptr<Expression> end_;
    std::unique_ptr<Expression> company_;
    std::unique_ptr<Expression> traveller_;
};

}  // namespace vantro::bench
