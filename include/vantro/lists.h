// The lists that the parsers keep between calls, by the names that a terminal knows. A count property refills its
// family's lists; `ProfileObject::list` and `ProfileObject::flagList` return them.
#pragma once

#include "vantro/profile.h"
#include "vantro/text.h"

#include <array>
#include <cstdint>

namespace vantro {

/// What a list holds of each element.
enum class ListContent : std::uint8_t {
    Texts,
    Numbers,
    Codes,
    Carriers,
    Accounts,
    FreeTexts,  ///< a service request's free text, a confidential remark's detail
    Flags,      ///< booleans, the others are texts; no display sets one
};

/// A list of `CProfile`. Families that are tagged with a prefix ("PPR") keep element k at index k, entry 0 empty; the
/// transferable ones (remarks to confidential remarks) keep element k at index k - 1.
struct ElementListName {
    TextView name;
    Family family;
    ListContent content;
};

// clang-format off
inline constexpr std::array<ElementListName, 66> elementListNames{{
    {u"strPPRText",                 Family::PPR,            ListContent::Texts},
    {u"strPPRNumber",               Family::PPR,            ListContent::Numbers},
    {u"strPGLText",                 Family::PGL,            ListContent::Texts},
    {u"strPGLNumber",               Family::PGL,            ListContent::Numbers},
    {u"strPPSText",                 Family::PPS,            ListContent::Texts},
    {u"strPPSNumber",               Family::PPS,            ListContent::Numbers},
    {u"strPHIText",                 Family::PHI,            ListContent::Texts},
    {u"strPHINumber",               Family::PHI,            ListContent::Numbers},
    {u"strPCIText",                 Family::PCI,            ListContent::Texts},
    {u"strPCINumber",               Family::PCI,            ListContent::Numbers},
    {u"strPPCText",                 Family::PPC,            ListContent::Texts},
    {u"strPPCNumber",               Family::PPC,            ListContent::Numbers},
    {u"strPPHText",                 Family::PPH,            ListContent::Texts},
    {u"strPPHNumber",               Family::PPH,            ListContent::Numbers},
    {u"strPPAText",                 Family::PPA,            ListContent::Texts},
    {u"strPPANumber",               Family::PPA,            ListContent::Numbers},
    {u"strPPKText",                 Family::PPK,            ListContent::Texts},
    {u"strPPKNumber",               Family::PPK,            ListContent::Numbers},
    {u"strPPIText",                 Family::PPI,            ListContent::Texts},
    {u"strPPINumber",               Family::PPI,            ListContent::Numbers},
    {u"strPXCText",                 Family::PXC,            ListContent::Texts},
    {u"strPXCNumber",               Family::PXC,            ListContent::Numbers},
    {u"strPXAText",                 Family::PXA,            ListContent::Texts},
    {u"strPXANumber",               Family::PXA,            ListContent::Numbers},
    {u"strPXKText",                 Family::PXK,            ListContent::Texts},
    {u"strPXKNumber",               Family::PXK,            ListContent::Numbers},
    {u"strPSHText",                 Family::PSH,            ListContent::Texts},
    {u"strPSHNumber",               Family::PSH,            ListContent::Numbers},
    {u"strPSCText",                 Family::PSC,            ListContent::Texts},
    {u"strPSCNumber",               Family::PSC,            ListContent::Numbers},
    {u"strPPTText",                 Family::PPT,            ListContent::Texts},
    {u"strPPTNumber",               Family::PPT,            ListContent::Numbers},
    {u"strPXTText",                 Family::PXT,            ListContent::Texts},
    {u"strPXTNumber",               Family::PXT,            ListContent::Numbers},
    {u"strRemarkText",              Family::Remark,         ListContent::Texts},
    {u"strRemarkNumber",            Family::Remark,         ListContent::Numbers},
    {u"strContactText",             Family::Contact,        ListContent::Texts},
    {u"strContactNumber",           Family::Contact,        ListContent::Numbers},
    {u"strOtherServiceText",        Family::OtherService,   ListContent::Texts},
    {u"strOtherServiceNumber",      Family::OtherService,   ListContent::Numbers},
    {u"strFrequentFlyerText",       Family::FrequentFlyer,  ListContent::Texts},
    {u"strFrequentFlyerNumber",     Family::FrequentFlyer,  ListContent::Numbers},
    {u"strFrequentFlyerCarrier",    Family::FrequentFlyer,  ListContent::Carriers},
    {u"strFrequentFlyerAccount",    Family::FrequentFlyer,  ListContent::Accounts},
    {u"strServiceRequestText",      Family::ServiceRequest, ListContent::Texts},
    {u"strServiceRequestNumber",    Family::ServiceRequest, ListContent::Numbers},
    {u"strServiceRequestCode",      Family::ServiceRequest, ListContent::Codes},
    {u"strServiceRequestCarrier",   Family::ServiceRequest, ListContent::Carriers},
    {u"strServiceRequestAccount",   Family::ServiceRequest, ListContent::Accounts},
    {u"strServiceRequestFreeText",  Family::ServiceRequest, ListContent::FreeTexts},
    {u"blnServiceRequestFlag",      Family::ServiceRequest, ListContent::Flags},
    {u"strSeatText",                Family::Seat,           ListContent::Texts},
    {u"strSeatNumber",              Family::Seat,           ListContent::Numbers},
    {u"strRemarkConfText",          Family::RemarkConf,     ListContent::Texts},
    {u"strRemarkConfNumber",        Family::RemarkConf,     ListContent::Numbers},
    {u"strRemarkConfDetail",        Family::RemarkConf,     ListContent::FreeTexts},
    {u"strPASText",                 Family::PAS,            ListContent::Texts},
    {u"strPASNumber",               Family::PAS,            ListContent::Numbers},
    {u"strPIVText",                 Family::PIV,            ListContent::Texts},
    {u"strPIVNumber",               Family::PIV,            ListContent::Numbers},
    {u"strPCEText",                 Family::PCE,            ListContent::Texts},
    {u"strPCENumber",               Family::PCE,            ListContent::Numbers},
    {u"strPIDText",                 Family::PID,            ListContent::Texts},
    {u"strPIDNumber",               Family::PID,            ListContent::Numbers},
    {u"strPFOText",                 Family::PFO,            ListContent::Texts},
    {u"strPFONumber",               Family::PFO,            ListContent::Numbers},
}};
// clang-format on

/// The lists of `CProfileNotes`: note k at index k, entry 0 empty.
inline constexpr TextView noteTextList = u"strNoteText";
inline constexpr TextView noteNumberList = u"strNoteNumber";
inline constexpr TextView noteQualifierList = u"strNoteQualifier";

}  // namespace vantro
