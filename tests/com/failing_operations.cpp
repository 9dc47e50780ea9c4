#include "tests/com/failing_operations.h"

#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <algorithm>
#include <ostream>

namespace vantro::test {

namespace {

using Call = Operation::Call;

bool fetches(const std::string& call) { return call.starts_with("ScreenLine ") || call.starts_with("FindMarker "); }

Operation command(const char16_t* className, int number, Entries params, const char* variant = "") {
    return {utf8(className) + variant,
            className,
            Call::Command,
            number,
            std::move(params),
            {},
            number == 0 ? '^' : '!',
            {},
            {}};
}

Operation response(const char16_t* className, int number, std::optional<Entries> params, Text shown, const char* lines,
                   char adds, const char* variant = "") {
    return {utf8(className) + variant,
            className,
            Call::Response,
            number,
            std::move(params),
            std::move(shown),
            number == 0 ? '^' : '!',
            lines,
            adds};
}

// The families of a profile: the prefix that queries one, its count, and where its elements are.
struct Family {
    const char16_t* prefix;
    const char16_t* property;
    int number;
    const char16_t* section;
    const char16_t* element;
};

const Family families[] = {
    {u"SR", u"ServiceRequestElementsCount", 5245, u"------- PNR TRANSFERABLE DATA", u"S     13     SR  FQTVZJ 700112"},
    {u"RM", u"RemarkElementsCount", 5260, u"------- PNR TRANSFERABLE DATA", u"S      7     RM  EARLY TRAIN"},
    {u"AP", u"ContactElementsCount", 5235, u"------- PNR TRANSFERABLE DATA", u"S      5     AP  LIS 21 555 0166-M"},
    {u"OS", u"OtherServiceElementsCount", 5250, u"------- PNR TRANSFERABLE DATA", u"S      9     OS  ZJ GUEST"},
    {u"FFN", u"FrequentFlyerElementsCount", 5255, u"------- PNR TRANSFERABLE DATA", u"S     11     FFN ZJ-70011223"},
    {u"ST", u"SeatElementsCount", 5240, u"------- PNR TRANSFERABLE DATA", u"S     16     ST  NSSW/3A"},
    {u"RC", u"RemarkConfElementsCount", 5260, u"------- PNR TRANSFERABLE DATA", u"S     18     RC  KEEP IT CLOSE"},
    {u"PPR", u"PPRElementsCount", 5266, u"------- PRIORITY", u"  20 PPR/ WINDOW SEAT"},
    {u"PGL", u"PGLElementsCount", 5267, u"------- GLOBAL SEARCH", u"  22 PGL/ MONTEBELLO"},
    {u"PPS", u"PPSElementsCount", 5270, u"------- PRE-STORED ENTRIES", u"  24 PPS/ AN01SEPLISLHR"},
    {u"PHI", u"PHIElementsCount", 5272, u"------- TRAVEL POLICIES - HOTEL", u"  26 PHI/ LAST ROOM RATE"},
    {u"PPH", u"PPHElementsCount", 5273, u"------- TRAVEL POLICIES - HOTEL", u"  28 PPH/ TEJO RIVER HOTELS"},
    {u"PSH", u"PSHElementsCount", 5282, u"------- TRAVEL POLICIES - HOTEL", u"  30 PSH/ NO SPA CHARGES"},
    {u"PCI", u"PCIElementsCount", 5290, u"------- TRAVEL POLICIES - CAR", u"  32 PCI/ FULL COVER"},
    {u"PPC", u"PPCElementsCount", 5285, u"------- TRAVEL POLICIES - CAR", u"  34 PPC/ ALFAMA CARS"},
    {u"PXC", u"PXCElementsCount", 5295, u"------- TRAVEL POLICIES - CAR", u"  36 PXC/ CONVERTIBLES"},
    {u"PSC", u"PSCElementsCount", 5283, u"------- TRAVEL POLICIES - CAR", u"  38 PSC/ CHILD SEAT"},
    {u"PPA", u"PPAElementsCount", 5292, u"------- TRAVEL POLICIES - AIR", u"  40 PPA/ ZJ"},
    {u"PPK", u"PPKElementsCount", 5293, u"------- TRAVEL POLICIES - AIR", u"  42 PPK/ ATLANTIC ALLIANCE"},
    {u"PPI", u"PPIElementsCount", 5280, u"------- TRAVEL POLICIES - AIR", u"  44 PPI/ COVER 88-210"},
    {u"PXA", u"PXAElementsCount", 5296, u"------- TRAVEL POLICIES - AIR", u"  46 PXA/ QV"},
    {u"PXK", u"PXKElementsCount", 5281, u"------- TRAVEL POLICIES - AIR", u"  48 PXK/ EASTERN ALLIANCE"},
    {u"PPT", u"PPTElementsCount", 5284, u"------- TRAVEL POLICIES - AIR", u"  50 PPT/ ECONOMY FLEX"},
    {u"PXT", u"PXTElementsCount", 5286, u"------- TRAVEL POLICIES - AIR", u"  52 PXT/ BASIC FARES"},
    {u"PAS", u"PASElementsCount", 5287, u"------- DOCUMENTS", u"  54 PAS/ N4471200 PRT 09MAY30"},
    {u"PIV", u"PIVElementsCount", 5288, u"------- DOCUMENTS", u"  56 PIV/ CHN BUSINESS 15AUG27"},
    {u"PCE", u"PCEElementsCount", 5289, u"------- DOCUMENTS", u"  58 PCE/ YELLOW FEVER 2024"},
    {u"PID", u"PIDElementsCount", 5290, u"------- DOCUMENTS", u"  60 PID/ PRT CITIZEN CARD 1188"},
    {u"PFO", u"PFOElementsCount", 5291, u"------- FOLLOW UP", u"  62 PFO/ SEND THE NEW CONTRACT"},
};

Text display(const char16_t* section, const char16_t* element) {
    return screen({u"PDR/E2F5KD", u"*T* TRAVELLER PROFILE                    E2F5KD",
                   u"----- ACTIVE   OFFICE                                  LISVN7734",
                   u"   1 NM  MONTEBELLO/RUI CARLOS MR", u"   2 PCN/ AZULEJO CERAMICS", u"   3 PIN/ 5150",
                   u"   4     PSL/ 3", section, element, u"END OF DISPLAY", u">"});
}

Operation count(const char16_t* className, const char16_t* property, int number, Text shown) {
    return {utf8(property), className, Call::Count, number, {}, std::move(shown), '!', "!", {}, property};
}

// The first line that a query fetches is its own, the others are its reader's.
Operation query(const char16_t* prefix, int number, Text shown) {
    const char* const lines = number == 0 ? "^" : "^!";
    return {
        utf8(prefix),     u"CProfile", Call::Elements, number, Entries{{u"strKeyPrefix", prefix}, {u"intKeyIndex", 1}},
        std::move(shown), '^',         lines,          '^'};
}

Text notesDisplay() { return display(u"------- PROFILE NOTES", u"A  COLLECTS TILES"); }

}  // namespace

char Operation::consequence(const std::vector<std::string>& calls) const {
    const std::string& last = calls.back();
    if (last.starts_with("Add ")) return adds;
    if (!fetches(last)) return reads;
    const auto place = static_cast<std::size_t>(std::ranges::count_if(calls, fetches)) - 1;
    return lines[std::min(place, lines.size() - 1)];
}

std::string Operation::description() const {
    if (call == Call::Command) return "An error has occurred while creating a profile command.";
    const bool readsNotes = className == u"CProfileNotes" && call != Call::Response;
    return readsNotes ? "An error has occurred while reading Profile Notes"
                      : "An error has occurred while verifying the profile.";
}

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

// clang-format off
std::vector<Operation> failingCommands() {
    return {
        command(u"CPDTrans", 5000, {{u"strKeyItemNr", u"3"}}),
        command(u"CPXTrans", 5010, {{u"strKeyItemNr", u"3"}}),
        command(u"CPDTTrans", 5020, {}),
        command(u"CPBNTrans", 0, {{u"strKeyIndicator", u"Company"}, {u"strKeyCompany", u"KESTRELLO"}}),
        command(u"CProfileMode", 5040, {{u"blnKeyEnter", true}}),
        command(u"CProfileNotes", 5040, {{u"strCommand", u"PN"}}),
        command(u"CPLTTrans", 5050, {{u"strKeyOfficeID", u"NCEVN3101"}, {u"blnKeyExactMatch", true}}),
        command(u"CPDNTrans", 0, {{u"strKeyName", u"MARTEN"}, {u"blnKeyExactMatch", true}}),
        command(u"CPHTrans", 5080, {{u"strKeyElementNr", u"4"}}),
        command(u"CPDITrans", 5090, {{u"strKeyIndex", u"3"}}),
        command(u"CPDATrans", 0, {{u"strKeyName", u"MARTEN"}}),
        command(u"CPDRTrans", 0, {{u"strKeyRecLoc", u"KQ4R7T"}, {u"strKeyIndicator", u"T"}}),
        command(u"CPTTrans", 0, {{u"blnKeyAllPNR", true}, {u"strKeyElements", u"3"}}),
        command(u"CPTTrans", 0, {{u"intKeyArraySize", u"1"}, {u"strKeyElArray()", TextList{u"3", u"5"}},
                                 {u"strKeySegArray()", TextList{u"", u"2"}},
                                 {u"strKeyPasArray()", TextList{u"1", u""}}}, "_Lists"),
        command(u"CRLPTrans", 0, {}),
        command(u"CPLCTrans", 5135, {{u"strKeyOfficeID", u"NCEVN3101"}}),
        command(u"CPBITrans", 5385, {{u"strKeyIndex", u"2"}, {u"blnKeyAllPNR", true}}),
        command(u"CPCNTrans", 0, {{u"strKeyCompany", u"KESTRELLO"}}),
        command(u"CPDMDTrans", 0, {}),
    };
}

std::vector<Operation> failingResponses() {
    const Text companies = screen({u"PDN/KES", u"SIMILAR COMPANY NAME LIST", u"     COMPANY         RECLOC     ",
                                   u"   1 KESTRELLO       Q2W3E4", u"END OF BLOCK - USE PDMD"});
    const Text linked = screen({u"RLP", u"", u"RP/", u"T/ABC123 /P1", u">"});
    return {
        response(u"CPDTrans", 5005, Entries{}, screen({u"PD3", u"*T*"}), "=", '='),
        response(u"CPXTrans", 5015, {}, screen({u"PX3", u"WILL BE DEACTIVATED"}), "=", '='),
        response(u"CPDTTrans", 5025, {}, screen({u"PDT", u"*T*"}), "!", '!'),
        response(u"CPBNTrans", 5035, {}, screen({u"PBN/K", u"RP/"}), "=", '='),
        response(u"CProfileMode", 5045, Entries{{u"blnKeyEnter", true}}, screen({u"PM", u"*PROFILE MODE*"}), "!", '!'),
        response(u"CProfileNotes", 5045, Entries{{u"strCommand", u"PN"}}, screen({u"PN", u"PNL"}), "!", '!'),
        response(u"CPLTTrans", 5055, {}, screen({u"PLT//K", u"SIMILAR COMPANY NAME LIST", u"", u"     COMPANY     ",
                                                 u"   1 KESTRELLO       Q2W3E4", u">"}), "=", '=', "_Companies"),
        response(u"CPLTTrans", 5055, {}, screen({u"PLT", u"TRAVELLER LIST FOR N", u"",
                                                 u"     NAME                   RECLOC  ",
                                                 u"   1 MARTEN/LOVIS MRS       Q2W3E4", u">"}), "=", '=', "_Travellers"),
        response(u"CPDNTrans", 5075, Entries{{u"blnKeyEndOfBlock", false}, {u"strKeyRecLocPos", u""}}, companies, "=",
                 '!'),
        response(u"CPDNTrans", 5075, {}, screen({u"PDN/-MARTEN", u"", u"*T* MARTEN"}), "=", '!', "_WithoutState"),
        response(u"CPHTrans", 5085, {}, screen({u"PH", u"PROFILE HISTORY", u"LAST PNR TRANSFER  :",
                                                u"PROFILE CREATION   :"}), "=", '='),
        response(u"CPDITrans", 5095, {}, screen({u"PDI/3", u"*T*"}), "=", '='),
        response(u"CPDATrans", 5105, Entries{{u"blnKeyEndOfBlock", false}}, companies, "=", '='),
        response(u"CPDRTrans", 5110, {}, screen({u"PDR/KQ4R7T", u"CHECK INPUT"}), "=", '='),
        response(u"CPTTrans", 5120, {}, screen({u"PT3", u"RP/"}), "=", '='),
        response(u"CRLPTrans", 5130, Entries{{u"strKeyIndex", u"0"}}, linked, "=", '='),
        response(u"CRLPTrans", 5130, Entries{{u"strKeyIndex", u"0"}}, screen({u"RLP", u"NO ELEMENT FOUND"}), "=", '=',
                 "_None"),
        response(u"CPLCTrans", 5140, {}, screen({u"PLC", u"COMPANY NAME LIST"}), "=", '='),
        response(u"CPBITrans", 5390, {}, screen({u"PBI/2", u"RP/"}), "=", '='),
        response(u"CPCNTrans", 0, {}, screen({u"PCN/K", u"*C*"}), "^", '^'),
        response(u"CPDMDTrans", 0, {}, screen({u"PDMD", u"*T*"}), "^", '^'),
    };
}
// clang-format on

std::vector<Operation> failingCounts() {
    std::vector<Operation> operations;
    for (const Family& family : families) {
        operations.push_back(
            count(u"CProfile", family.property, family.number, display(family.section, family.element)));
    }
    operations.push_back(count(u"CProfile", u"PPHElementsCountold", 0, notesDisplay()));
    operations.push_back(count(u"CProfileNotes", u"ProfileNotesElementsCount", 5505, notesDisplay()));
    operations.push_back(count(u"CRLPTrans", u"RecLocCount", 0, screen({u"RLP", u"RP/", u"T/ABC123 /P1", u">"})));
    operations.back().lines = "=";
    return operations;
}

std::vector<Operation> failingQueries() {
    std::vector<Operation> operations;
    for (const Family& family : families) {
        operations.push_back(query(family.prefix, family.number, display(family.section, family.element)));
    }
    const Text header = display(u"------- PNR TRANSFERABLE DATA", u"S      7     RM  EARLY TRAIN");
    for (const char16_t* const prefix : {u"NM", u"RECLOC", u"OFFID", u"PCN", u"PIN", u"PSL", u"ALL", u"XYZ"}) {
        operations.push_back(query(prefix, 0, header));
    }
    Operation notes = query(u"ProfileNotes", 5500, notesDisplay());
    notes.className = u"CProfileNotes";
    notes.adds = '!';
    operations.push_back(notes);
    return operations;
}

}  // namespace vantro::test
