#include "commands_oracle.h"

#include <map>
#include <stdexcept>

namespace oracle {

namespace {

class Params {
public:
    explicit Params(const Collection* collection) : collection_(collection) {}

    const Value* item(const std::string& key) const {
        if (collection_ == nullptr) {
            throw Failure{objectNotSet};
        }
        return collection_->item(key);
    }

    Text text(const std::string& key) const { return itemText(item(key)); }
    bool flag(const std::string& key) const { return itemBoolean(item(key)); }

    Text entryOf(const std::string& key, int index) const {
        const Value& value = itemValue(item(key));
        const std::vector<Text>* list = std::get_if<std::vector<Text>>(&value);
        if (list == nullptr) {
            throw Failure{typeMismatch};
        }
        return entry(*list, index);
    }

private:
    const Collection* collection_;
};

Text pbi(const Params& params) {
    const Text index = params.text("strKeyIndex");
    if (index.empty()) {
        return Text();
    }
    Text command = u"PBI/" + index;
    if (params.flag("blnKeyAllPNR")) {
        command = command + u"*";
    }
    return command;
}

Text pbn(const Params& params) {
    const Text indicator = params.text("strKeyIndicator");
    const Text company = params.text("strKeyCompany");
    const Text name = params.text("strKeyName");
    const bool all = params.flag("blnKeyAllPNR");
    const bool exact = params.flag("blnKeyExactMatch");
    if (indicator.empty()) {
        return Text();
    }
    Text command = u"PBN/";
    if (indicator == u"Company") {
        if (company.empty()) {
            return Text();
        }
        command = command + company;
    }
    if (indicator == u"Traveller") {
        command = command + u"-";
        if (name.empty()) {
            return Text();
        }
        command = command + name;
    }
    if (exact) {
        command = command + u"/";
    }
    if (all) {
        command = command + u"*";
    }
    return command;
}

Text pcn(const Params& params) { return u"PCN/" + params.text("strKeyCompany"); }

Text pda(const Params& params) {
    const Text name = params.text("strKeyName");
    const Text company = params.text("strKeyCompany");
    if (name.empty() && company.empty()) {
        return Text();
    }
    Text command = u"PDA/";
    if (!company.empty() && name.empty()) {
        command = command + company;
    } else if (company.empty() && !name.empty()) {
        command = command + u"-" + name;
    }
    return command;
}

Text pdi(const Params& params) {
    const Text index = params.text("strKeyIndex");
    if (index.empty()) {
        return Text();
    }
    return u"PDI/" + index;
}

Text pdmd(const Params& /*params*/) { return u"PDMD"; }

Text pdn(const Params& params) {
    const Text name = params.text("strKeyName");
    const Text company = params.text("strKeyCompany");
    const bool exact = params.flag("blnKeyExactMatch");
    const Text office = params.text("strKeyOfficeID");
    if (name.empty() && company.empty()) {
        return Text();
    }
    Text command = u"PDN/";
    if (!office.empty()) {
        command = command + office + u"/";
    }
    if (!company.empty() && !name.empty()) {
        command = command + company + u"-" + name;
    } else if (!company.empty()) {
        command = command + company;
    } else {
        command = command + u"-" + name;
    }
    if (exact) {
        command = command + u"/";
    }
    return command;
}

Text pdr(const Params& params) {
    const Text locator = params.text("strKeyRecLoc");
    const Text indicator = params.text("strKeyIndicator");
    if (locator.empty()) {
        return Text();
    }
    Text command = u"PDR";
    if (indicator == u"T") {
        command = command + u"T";
    } else if (indicator == u"C") {
        command = command + u"C";
    }
    return command + u"/" + locator;
}

Text pd(const Params& params) {
    const Text item = params.text("strKeyItemNr");
    const bool fromPnr = params.flag("blnKeyFromPNR");
    if (!fromPnr) {
        return u"PD" + item;
    }
    if (item.empty()) {
        return Text();
    }
    return u"PD/" + item;
}

Text pdt(const Params& /*params*/) { return u"PDT"; }

Text ph(const Params& params) { return u"PH" + params.text("strKeyElementNr"); }

Text plc(const Params& params) {
    const Text office = params.text("strKeyOfficeID");
    if (office.empty()) {
        return u"PLC";
    }
    return u"PLC/" + office;
}

Text plt(const Params& params) {
    const Text office = params.text("strKeyOfficeID");
    const Text company = params.text("strKeyCompany");
    const bool exact = params.flag("blnKeyExactMatch");
    Text command = u"PLT";
    if (office.empty()) {
        if (!company.empty()) {
            command = command + u"//" + company;
        }
    } else {
        command = command + u"/" + office;
        if (!company.empty()) {
            command = command + u"/" + company;
        }
    }
    if (!company.empty() && exact) {
        command = command + u"/";
    }
    return command;
}

Text mode(const Params& params) {
    const bool update = params.flag("blnKeyUpdate");
    const bool exit = params.flag("blnKeyExit");
    const bool enter = params.flag("blnKeyEnter");
    const bool ignore = params.flag("blnKeyIgnore");
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

Text px(const Params& params) { return u"PX" + params.text("strKeyItemNr"); }

Text rlp(const Params& /*params*/) { return u"RLP"; }

void appendGroups(Text& command, const Params& params, int highest) {
    if (highest < 0) {
        throw Failure{outOfRange};
    }
    for (int i = 0; i <= highest; ++i) {
        if (command.size() > 2) {
            command = command + u"//";
        }
        command = command + params.entryOf("strKeyElArray()", i);
        const Text segment = params.entryOf("strKeySegArray()", i);
        if (!segment.empty()) {
            command = command + u"/S" + segment;
        }
        const Text passenger = params.entryOf("strKeyPasArray()", i);
        if (!passenger.empty()) {
            command = command + u"/P" + passenger;
        }
    }
}

Text pt(const Params& params) {
    const bool all = params.flag("blnKeyAllPNR");
    const bool override = params.flag("blnKeyOverride");
    const Text elements = params.text("strKeyElements");
    const Text segments = params.text("strKeySegAsso");
    const Text passengers = params.text("strKeyPasAsso");
    const Text size = params.text("intKeyArraySize");
    if (!size.empty() && (!elements.empty() || !segments.empty() || !passengers.empty())) {
        return Text();
    }
    Text command = u"PT";
    if (!size.empty()) {
        appendGroups(command, params, toInteger16(Value(size)));
    }
    if (override) {
        command = command + u"O";
    }
    if (all) {
        command = command + u"*";
    }
    if (!elements.empty()) {
        command = command + elements;
    }
    if (!segments.empty()) {
        command = command + u"/S" + segments;
    }
    if (!passengers.empty()) {
        command = command + u"/P" + passengers;
    }
    return command;
}

Text notes(const Params& params) {
    const Text command = params.text("strCommand");
    if (command == u"PN") {
        return u"PN";
    }
    if (command == u"PNE") {
        return u"PNE";
    }
    return Text();
}

struct Builder {
    Text (*build)(const Params& params);
    int number;  // 0 where the failing step's own number passes
};

const std::map<std::string, Builder> builders = {
    {"CPBITrans", {pbi, 5385}}, {"CPBNTrans", {pbn, 0}},          {"CPCNTrans", {pcn, 0}},  {"CPDATrans", {pda, 0}},
    {"CPDITrans", {pdi, 5090}}, {"CPDMDTrans", {pdmd, 0}},        {"CPDNTrans", {pdn, 0}},  {"CPDRTrans", {pdr, 0}},
    {"CPDTrans", {pd, 5000}},   {"CPDTTrans", {pdt, 5020}},       {"CPHTrans", {ph, 5080}}, {"CPLCTrans", {plc, 5135}},
    {"CPLTTrans", {plt, 5050}}, {"CProfileMode", {mode, 5040}},   {"CPXTrans", {px, 5010}}, {"CRLPTrans", {rlp, 0}},
    {"CPTTrans", {pt, 0}},      {"CProfileNotes", {notes, 5040}},
};

}  // namespace

Text command(const std::string& className, const Collection* params) {
    const auto row = builders.find(className);
    if (row == builders.end()) {
        throw std::invalid_argument("no transaction: " + className);
    }
    const Params given(params);
    if (row->second.number == 0) {
        return row->second.build(given);
    }
    return raising(row->second.number, [&] { return row->second.build(given); });
}

}  // namespace oracle
