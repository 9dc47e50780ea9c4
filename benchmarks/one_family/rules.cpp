#include "one_family/scanner.h"

namespace vantro::bench {

const std::array<FamilyRules, 22>& familyRules() {
    using enum FamilyKind;
    constexpr std::u16string_view hotel = u"------- TRAVEL POLICIES - HOTEL";
    constexpr std::u16string_view car = u"------- TRAVEL POLICIES - CAR";
    constexpr std::u16string_view air = u"------- TRAVEL POLICIES - AIR";
    constexpr std::u16string_view documents = u"------- DOCUMENTS";
    // clang-format off
    static const std::array<FamilyRules, 22> rules{{
        {Family::PPR, u"PPRElementsCount", u"------- PRIORITY",           u"PPR/", Plain},
        {Family::PGL, u"PGLElementsCount", u"------- GLOBAL SEARCH",      u"PGL/", GlobalSearch, 2, 5},
        {Family::PPS, u"PPSElementsCount", u"------- PRE-STORED ENTRIES", u"PPS/", ColonJoining},
        {Family::PHI, u"PHIElementsCount", hotel,                         u"PHI/", Policy, 0, 5},
        {Family::PCI, u"PCIElementsCount", car,                           u"PCI/", Policy, 2, 5},
        {Family::PPC, u"PPCElementsCount", car,                           u"PPC/", Policy, 2, 6},
        {Family::PPH, u"PPHElementsCount", hotel,                         u"PPH/", Policy, 2, 5},
        {Family::PPA, u"PPAElementsCount", air,                           u"PPA/", Policy, 2, 5},
        {Family::PPK, u"PPKElementsCount", air,                           u"PPK/", Policy, 2, 5},
        {Family::PPI, u"PPIElementsCount", air,                           u"PPI/", Policy, 2, 5},
        {Family::PXC, u"PXCElementsCount", car,                           u"PXC/", Policy, 2, 5},
        {Family::PXA, u"PXAElementsCount", air,                           u"PXA/", Policy, 2, 5},
        {Family::PXK, u"PXKElementsCount", air,                           u"PXK/", Policy, 2, 5},
        {Family::PSH, u"PSHElementsCount", hotel,                         u"PSH/", Policy, 2, 5},
        {Family::PSC, u"PSCElementsCount", car,                           u"PSC/", Policy, 2, 5},
        {Family::PPT, u"PPTElementsCount", air,                           u"PPT/", Policy, 2, 5},
        {Family::PXT, u"PXTElementsCount", air,                           u"PXT/", Policy, 2, 5},
        {Family::PAS, u"PASElementsCount", documents,                     u"PAS/", Document},
        {Family::PIV, u"PIVElementsCount", documents,                     u"PIV/", Document},
        {Family::PCE, u"PCEElementsCount", documents,                     u"PCE/", Document},
        {Family::PID, u"PIDElementsCount", documents,                     u"PID/", Document},
        {Family::PFO, u"PFOElementsCount", u"------- FOLLOW UP",          u"PFO/", Document},
    }};
    // clang-format on
    return rules;
}

}  // namespace vantro::bench
