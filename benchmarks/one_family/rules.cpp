#include "one_family/lean_family.h"

namespace vantro::bench {

const std::array<FamilyRules, 22>& familyRules() {
    using enum Kind;
    constexpr View hotel = u"------- TRAVEL POLICIES - HOTEL";
    constexpr View car = u"------- TRAVEL POLICIES - CAR";
    constexpr View air = u"------- TRAVEL POLICIES - AIR";
    constexpr View documents = u"------- DOCUMENTS";
    // clang-format off
    static const std::array<FamilyRules, 22> rules{{
        {Family::PPR, u"PPRElementsCount", u"------- PRIORITY",           u"PPR/", Whole},
        {Family::PGL, u"PGLElementsCount", u"------- GLOBAL SEARCH",      u"PGL/", Global},
        {Family::PPS, u"PPSElementsCount", u"------- PRE-STORED ENTRIES", u"PPS/", Colon},
        {Family::PHI, u"PHIElementsCount", hotel,                         u"PHI/", Policy},
        {Family::PCI, u"PCIElementsCount", car,                           u"PCI/", Policy},
        {Family::PPC, u"PPCElementsCount", car,                           u"PPC/", Policy},
        {Family::PPH, u"PPHElementsCount", hotel,                         u"PPH/", Policy},
        {Family::PPA, u"PPAElementsCount", air,                           u"PPA/", Policy},
        {Family::PPK, u"PPKElementsCount", air,                           u"PPK/", Policy},
        {Family::PPI, u"PPIElementsCount", air,                           u"PPI/", Policy},
        {Family::PXC, u"PXCElementsCount", car,                           u"PXC/", Policy},
        {Family::PXA, u"PXAElementsCount", air,                           u"PXA/", Policy},
        {Family::PXK, u"PXKElementsCount", air,                           u"PXK/", Policy},
        {Family::PSH, u"PSHElementsCount", hotel,                         u"PSH/", Policy},
        {Family::PSC, u"PSCElementsCount", car,                           u"PSC/", Policy},
        {Family::PPT, u"PPTElementsCount", air,                           u"PPT/", Policy},
        {Family::PXT, u"PXTElementsCount", air,                           u"PXT/", Policy},
        {Family::PAS, u"PASElementsCount", documents,                     u"PAS/", Separate},
        {Family::PIV, u"PIVElementsCount", documents,                     u"PIV/", Separate},
        {Family::PCE, u"PCEElementsCount", documents,                     u"PCE/", Separate},
        {Family::PID, u"PIDElementsCount", documents,                     u"PID/", Separate},
        {Family::PFO, u"PFOElementsCount", u"------- FOLLOW UP",          u"PFO/", Separate},
    }};
    // clang-format on
    return rules;
}

}  // namespace vantro::bench
