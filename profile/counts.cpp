// The names that the terminal knows of the count properties and of the lists they fill.
#include "profile/profile.h"

#include <algorithm>

namespace vantro {

namespace {

template <Family family>
std::int16_t count(ProfileObject& object, const CountRequest& request) {
    return static_cast<CProfile&>(object).count(family, request.text);
}

/// A retired property that terminals still find in the interface: it reads nothing and stores nothing.
std::int16_t countNothing(ProfileObject& /*object*/, const CountRequest& /*request*/) { return 0; }

/// A list by its name: "str", the family's stem, and what the list holds.
struct ListName {
    TextView stem;
    TextView content;
    Family family;
    TextList ElementLists::*list;
};

constexpr TextView text = u"Text";
constexpr TextView number = u"Number";

// clang-format off
constexpr ListName listNames[] = {
    {u"PPR", text, Family::PPR, &ElementLists::text}, {u"PPR", number, Family::PPR, &ElementLists::number},
    {u"PGL", text, Family::PGL, &ElementLists::text}, {u"PGL", number, Family::PGL, &ElementLists::number},
    {u"PPS", text, Family::PPS, &ElementLists::text}, {u"PPS", number, Family::PPS, &ElementLists::number},
    {u"PHI", text, Family::PHI, &ElementLists::text}, {u"PHI", number, Family::PHI, &ElementLists::number},
    {u"PCI", text, Family::PCI, &ElementLists::text}, {u"PCI", number, Family::PCI, &ElementLists::number},
    {u"PPC", text, Family::PPC, &ElementLists::text}, {u"PPC", number, Family::PPC, &ElementLists::number},
    {u"PPH", text, Family::PPH, &ElementLists::text}, {u"PPH", number, Family::PPH, &ElementLists::number},
    {u"PPA", text, Family::PPA, &ElementLists::text}, {u"PPA", number, Family::PPA, &ElementLists::number},
    {u"PPK", text, Family::PPK, &ElementLists::text}, {u"PPK", number, Family::PPK, &ElementLists::number},
    {u"PPI", text, Family::PPI, &ElementLists::text}, {u"PPI", number, Family::PPI, &ElementLists::number},
    {u"PXC", text, Family::PXC, &ElementLists::text}, {u"PXC", number, Family::PXC, &ElementLists::number},
    {u"PXA", text, Family::PXA, &ElementLists::text}, {u"PXA", number, Family::PXA, &ElementLists::number},
    {u"PXK", text, Family::PXK, &ElementLists::text}, {u"PXK", number, Family::PXK, &ElementLists::number},
    {u"PSH", text, Family::PSH, &ElementLists::text}, {u"PSH", number, Family::PSH, &ElementLists::number},
    {u"PSC", text, Family::PSC, &ElementLists::text}, {u"PSC", number, Family::PSC, &ElementLists::number},
    {u"PPT", text, Family::PPT, &ElementLists::text}, {u"PPT", number, Family::PPT, &ElementLists::number},
    {u"PXT", text, Family::PXT, &ElementLists::text}, {u"PXT", number, Family::PXT, &ElementLists::number},
    {u"PAS", text, Family::PAS, &ElementLists::text}, {u"PAS", number, Family::PAS, &ElementLists::number},
    {u"PIV", text, Family::PIV, &ElementLists::text}, {u"PIV", number, Family::PIV, &ElementLists::number},
    {u"PCE", text, Family::PCE, &ElementLists::text}, {u"PCE", number, Family::PCE, &ElementLists::number},
    {u"PID", text, Family::PID, &ElementLists::text}, {u"PID", number, Family::PID, &ElementLists::number},
    {u"PFO", text, Family::PFO, &ElementLists::text}, {u"PFO", number, Family::PFO, &ElementLists::number},

    {u"Remark",         text,         Family::Remark,         &ElementLists::text},
    {u"Remark",         number,       Family::Remark,         &ElementLists::number},
    {u"Contact",        text,         Family::Contact,        &ElementLists::text},
    {u"Contact",        number,       Family::Contact,        &ElementLists::number},
    {u"OtherService",   text,         Family::OtherService,   &ElementLists::text},
    {u"OtherService",   number,       Family::OtherService,   &ElementLists::number},
    {u"FrequentFlyer",  text,         Family::FrequentFlyer,  &ElementLists::text},
    {u"FrequentFlyer",  number,       Family::FrequentFlyer,  &ElementLists::number},
    {u"FrequentFlyer",  u"Carrier",   Family::FrequentFlyer,  &ElementLists::carrier},
    {u"FrequentFlyer",  u"Account",   Family::FrequentFlyer,  &ElementLists::account},
    {u"ServiceRequest", text,         Family::ServiceRequest, &ElementLists::text},
    {u"ServiceRequest", number,       Family::ServiceRequest, &ElementLists::number},
    {u"ServiceRequest", u"Code",      Family::ServiceRequest, &ElementLists::code},
    {u"ServiceRequest", u"Carrier",   Family::ServiceRequest, &ElementLists::carrier},
    {u"ServiceRequest", u"Account",   Family::ServiceRequest, &ElementLists::account},
    {u"ServiceRequest", u"FreeText",  Family::ServiceRequest, &ElementLists::freeText},
    {u"Seat",           text,         Family::Seat,           &ElementLists::text},
    {u"Seat",           number,       Family::Seat,           &ElementLists::number},
    {u"RemarkConf",     text,         Family::RemarkConf,     &ElementLists::text},
    {u"RemarkConf",     number,       Family::RemarkConf,     &ElementLists::number},
    {u"RemarkConf",     u"Detail",    Family::RemarkConf,     &ElementLists::freeText},
};

}  // namespace

constexpr std::array<CountProperty, familyCount + 1> profileCounts{{
    {u"PPRElementsCount",            count<Family::PPR>},
    {u"PGLElementsCount",            count<Family::PGL>},
    {u"PPSElementsCount",            count<Family::PPS>},
    {u"PHIElementsCount",            count<Family::PHI>},
    {u"PCIElementsCount",            count<Family::PCI>},
    {u"PPCElementsCount",            count<Family::PPC>},
    {u"PPHElementsCount",            count<Family::PPH>},
    {u"PPHElementsCountold",         countNothing},
    {u"PPAElementsCount",            count<Family::PPA>},
    {u"PPKElementsCount",            count<Family::PPK>},
    {u"PPIElementsCount",            count<Family::PPI>},
    {u"PXCElementsCount",            count<Family::PXC>},
    {u"PXAElementsCount",            count<Family::PXA>},
    {u"PXKElementsCount",            count<Family::PXK>},
    {u"PSHElementsCount",            count<Family::PSH>},
    {u"PSCElementsCount",            count<Family::PSC>},
    {u"PPTElementsCount",            count<Family::PPT>},
    {u"PXTElementsCount",            count<Family::PXT>},
    {u"RemarkElementsCount",         count<Family::Remark>},
    {u"ContactElementsCount",        count<Family::Contact>},
    {u"OtherServiceElementsCount",   count<Family::OtherService>},
    {u"FrequentFlyerElementsCount",  count<Family::FrequentFlyer>},
    {u"ServiceRequestElementsCount", count<Family::ServiceRequest>},
    {u"SeatElementsCount",           count<Family::Seat>},
    {u"RemarkConfElementsCount",     count<Family::RemarkConf>},
    {u"PASElementsCount",            count<Family::PAS>},
    {u"PIVElementsCount",            count<Family::PIV>},
    {u"PCEElementsCount",            count<Family::PCE>},
    {u"PIDElementsCount",            count<Family::PID>},
    {u"PFOElementsCount",            count<Family::PFO>},
}};
// clang-format on

const TextList* CProfile::list(TextView name) const {
    if (!name.starts_with(u"str")) return nullptr;
    name.remove_prefix(3);
    for (const ListName& row : listNames) {
        if (name.starts_with(row.stem) && name.substr(row.stem.size()) == row.content) {
            return &(listsOf(row.family).*row.list);
        }
    }
    return nullptr;
}

const FlagList* CProfile::flagList(TextView name) const {
    return name == u"blnServiceRequestFlag" ? &listsOf(Family::ServiceRequest).flag : nullptr;
}

}  // namespace vantro
