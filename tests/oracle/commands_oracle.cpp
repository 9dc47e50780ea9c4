#include "commands_oracle.h"
#include "parameters.h"

#include <map>
#include <stdexcept>

namespace oracle {

namespace {

Text bookingByIndex(const Collection* params) {
    const Text index = text(params, "strKeyIndex");
    if (index.empty()) {
        return Text();
    }
    Text result = u"PBI/" + index;
    // Not read without an index.
    const bool all = flag(params, "blnKeyAllPNR");
    if (all) {
        result = result + u"*";
    }
    return result;
}

Text bookingByName(const Collection* params) {
    const Text indicator = text(params, "strKeyIndicator");
    const Text company = text(params, "strKeyCompany");
    const Text name = text(params, "strKeyName");
    const bool all = flag(params, "blnKeyAllPNR");
    const bool exact = flag(params, "blnKeyExactMatch");
    if (indicator.empty()) {
        return Text();
    }
    Text result = u"PBN/";
    if (indicator == u"Company") {
        if (company.empty()) {
            return Text();
        }
        result = result + company;
    }
    if (indicator == u"Traveller") {
        result = result + u"-";
        if (name.empty()) {
            return Text();
        }
        result = result + name;
    }
    if (exact) {
        result = result + u"/";
    }
    if (all) {
        result = result + u"*";
    }
    return result;
}

Text companyNameCheck(const Collection* params) { return u"PCN/" + text(params, "strKeyCompany"); }

Text similarNames(const Collection* params) {
    const Text name = text(params, "strKeyName");
    const Text company = text(params, "strKeyCompany");
    if (name.empty() && company.empty()) {
        return Text();
    }
    Text result = u"PDA/";
    if (!company.empty() && name.empty()) {
        result = result + company;
    }
    if (company.empty() && !name.empty()) {
        result = result + u"-" + name;
    }
    // With both, nothing follows the slash.
    return result;
}

Text displayByIndex(const Collection* params) {
    const Text index = text(params, "strKeyIndex");
    if (index.empty()) {
        return Text();
    }
    return u"PDI/" + index;
}

Text moveDown(const Collection*) { return u"PDMD"; }

Text nameSearch(const Collection* params) {
    const Text name = text(params, "strKeyName");
    const Text company = text(params, "strKeyCompany");
    const bool exact = flag(params, "blnKeyExactMatch");
    const Text office = text(params, "strKeyOfficeID");
    if (name.empty() && company.empty()) {
        return Text();
    }
    Text result = u"PDN/";
    if (!office.empty()) {
        result = result + office + u"/";
    }
    if (!company.empty() && !name.empty()) {
        result = result + company + u"-" + name;
    } else if (!company.empty()) {
        result = result + company;
    } else {
        result = result + u"-" + name;
    }
    if (exact) {
        result = result + u"/";
    }
    return result;
}

Text displayByLocator(const Collection* params) {
    const Text locator = text(params, "strKeyRecLoc");
    const Text indicator = text(params, "strKeyIndicator");
    if (locator.empty()) {
        return Text();
    }
    Text result = u"PDR";
    if (indicator == u"T") {
        result = result + u"T";
    }
    if (indicator == u"C") {
        result = result + u"C";
    }
    return result + u"/" + locator;
}

Text displayByItem(const Collection* params) {
    const Text number = text(params, "strKeyItemNr");
    const bool fromBooking = flag(params, "blnKeyFromPNR");
    if (!fromBooking) {
        return u"PD" + number;
    }
    if (number.empty()) {
        return Text();
    }
    return u"PD/" + number;
}

Text travellerOfCompany(const Collection*) { return u"PDT"; }

Text history(const Collection* params) { return u"PH" + text(params, "strKeyElementNr"); }

Text companiesOfOffice(const Collection* params) {
    const Text office = text(params, "strKeyOfficeID");
    Text result = u"PLC";
    if (!office.empty()) {
        result = result + u"/" + office;
    }
    return result;
}

Text travellersOfOffice(const Collection* params) {
    const Text office = text(params, "strKeyOfficeID");
    const Text company = text(params, "strKeyCompany");
    const bool exact = flag(params, "blnKeyExactMatch");
    Text result = u"PLT";
    if (office.empty()) {
        if (!company.empty()) {
            result = result + u"/" + u"/" + company;
        }
    } else {
        result = result + u"/" + office;
        if (!company.empty()) {
            result = result + u"/" + company;
        }
    }
    if (!company.empty() && exact) {
        result = result + u"/";
    }
    return result;
}

Text profileMode(const Collection* params) {
    const bool update = flag(params, "blnKeyUpdate");
    const bool exit = flag(params, "blnKeyExit");
    const bool enter = flag(params, "blnKeyEnter");
    const bool ignore = flag(params, "blnKeyIgnore");
    if (!update && !exit && enter && !ignore) {
        return u"PM";
    }
    if (!update && exit && !enter && !ignore) {
        return u"PME";
    }
    if (update && !exit && !enter && !ignore) {
        return u"PE";
    }
    if (update && exit && !enter && !ignore) {
        return u"PEE";
    }
    if (!update && !exit && !enter && ignore) {
        return u"PI";
    }
    if (!update && exit && !enter && ignore) {
        return u"PIE";
    }
    return Text();
}

Text notes(const Collection* params) {
    const Text wanted = text(params, "strCommand");
    if (wanted == u"PN") {
        return u"PN";
    }
    if (wanted == u"PNE") {
        return u"PNE";
    }
    return Text();
}

Text deactivation(const Collection* params) { return u"PX" + text(params, "strKeyItemNr"); }

Text linkedProfiles(const Collection*) { return u"RLP"; }

struct Builder {
    Text (*build)(const Collection* params);
    // 0 for a class without a number: the failing step's own passes.
    int number;
};

const std::map<std::string, Builder>& builders() {
    static const std::map<std::string, Builder> all = {
        {"CPBITrans", {bookingByIndex, 5385}},
        {"CPBNTrans", {bookingByName, 0}},
        {"CPCNTrans", {companyNameCheck, 0}},
        {"CPDATrans", {similarNames, 0}},
        {"CPDITrans", {displayByIndex, 5090}},
        {"CPDMDTrans", {moveDown, 0}},
        {"CPDNTrans", {nameSearch, 0}},
        {"CPDRTrans", {displayByLocator, 0}},
        {"CPDTrans", {displayByItem, 5000}},
        {"CPDTTrans", {travellerOfCompany, 5020}},
        {"CPHTrans", {history, 5080}},
        {"CPLCTrans", {companiesOfOffice, 5135}},
        {"CPLTTrans", {travellersOfOffice, 5050}},
        {"CProfileMode", {profileMode, 5040}},
        {"CProfileNotes", {notes, 5040}},
        {"CPTTrans", {transferCommand, 0}},
        {"CPXTrans", {deactivation, 5010}},
        {"CRLPTrans", {linkedProfiles, 0}},
    };
    return all;
}

}  // namespace

Text command(const std::string& className, const Collection* params) {
    const auto it = builders().find(className);
    if (it == builders().end()) {
        throw std::invalid_argument("commands_oracle.cpp has no command for " + className);
    }
    const Builder& builder = it->second;
    if (builder.number == 0) {
        return builder.build(params);
    }
    return raising(builder.number, [&] { return builder.build(params); });
}

}  // namespace oracle
