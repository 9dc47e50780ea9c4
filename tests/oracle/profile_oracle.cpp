#include "profile_oracle.h"

#include <stdexcept>

namespace oracle {

// A new reader: the lists with an empty entry 0 have only that entry, the transferable ones have none.
ProfileOracle::ProfileOracle() {
    for (const char* family : {"PPR", "PGL", "PPS", "PHI", "PCI", "PPC", "PPH", "PPA", "PPK", "PPI", "PXC",
                               "PXA", "PXK", "PSH", "PSC", "PPT", "PXT", "PAS", "PIV", "PCE", "PID", "PFO"}) {
        lists["str" + std::string(family) + "Text"] = {Text()};
        lists["str" + std::string(family) + "Number"] = {Text()};
    }
    for (const char* stem :
         {"Remark", "Contact", "OtherService", "FrequentFlyer", "ServiceRequest", "Seat", "RemarkConf"}) {
        lists["str" + std::string(stem) + "Text"] = {};
        lists["str" + std::string(stem) + "Number"] = {};
    }
    lists["strFrequentFlyerCarrier"] = {};
    lists["strFrequentFlyerAccount"] = {};
    lists["strServiceRequestCode"] = {};
    lists["strServiceRequestCarrier"] = {};
    lists["strServiceRequestAccount"] = {};
    lists["strServiceRequestFreeText"] = {};
    lists["strRemarkConfDetail"] = {};
}

int ProfileOracle::count(const std::string& property, const Text& display) {
    using Property = int (ProfileOracle::*)(const Text&);
    static const std::map<std::string, Property> properties = {
        {"PPRElementsCount", &ProfileOracle::PPRElementsCount},
        {"PGLElementsCount", &ProfileOracle::PGLElementsCount},
        {"PPSElementsCount", &ProfileOracle::PPSElementsCount},
        {"PHIElementsCount", &ProfileOracle::PHIElementsCount},
        {"PCIElementsCount", &ProfileOracle::PCIElementsCount},
        {"PPCElementsCount", &ProfileOracle::PPCElementsCount},
        {"PPHElementsCount", &ProfileOracle::PPHElementsCount},
        {"PPHElementsCountold", &ProfileOracle::PPHElementsCountold},
        {"PPAElementsCount", &ProfileOracle::PPAElementsCount},
        {"PPKElementsCount", &ProfileOracle::PPKElementsCount},
        {"PPIElementsCount", &ProfileOracle::PPIElementsCount},
        {"PXCElementsCount", &ProfileOracle::PXCElementsCount},
        {"PXAElementsCount", &ProfileOracle::PXAElementsCount},
        {"PXKElementsCount", &ProfileOracle::PXKElementsCount},
        {"PSHElementsCount", &ProfileOracle::PSHElementsCount},
        {"PSCElementsCount", &ProfileOracle::PSCElementsCount},
        {"PPTElementsCount", &ProfileOracle::PPTElementsCount},
        {"PXTElementsCount", &ProfileOracle::PXTElementsCount},
        {"RemarkElementsCount", &ProfileOracle::RemarkElementsCount},
        {"ContactElementsCount", &ProfileOracle::ContactElementsCount},
        {"OtherServiceElementsCount", &ProfileOracle::OtherServiceElementsCount},
        {"FrequentFlyerElementsCount", &ProfileOracle::FrequentFlyerElementsCount},
        {"ServiceRequestElementsCount", &ProfileOracle::ServiceRequestElementsCount},
        {"SeatElementsCount", &ProfileOracle::SeatElementsCount},
        {"RemarkConfElementsCount", &ProfileOracle::RemarkConfElementsCount},
        {"PASElementsCount", &ProfileOracle::PASElementsCount},
        {"PIVElementsCount", &ProfileOracle::PIVElementsCount},
        {"PCEElementsCount", &ProfileOracle::PCEElementsCount},
        {"PIDElementsCount", &ProfileOracle::PIDElementsCount},
        {"PFOElementsCount", &ProfileOracle::PFOElementsCount},
    };
    const auto it = properties.find(property);
    if (it == properties.end()) {
        throw std::invalid_argument("no property " + property);
    }
    return (this->*it->second)(display);
}

// Cut back to entry 0, which keeps its content.
void ProfileOracle::cutBack(const std::string& family) {
    lists["str" + family + "Text"].resize(1);
    lists["str" + family + "Number"].resize(1);
}

}  // namespace oracle
