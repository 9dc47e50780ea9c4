// The names that the terminal knows of the count properties and of the lists they fill.
#include "profile/element_parser.h"
#include "vantro/lists.h"

#include <algorithm>

namespace vantro {

namespace {

template <Family family>
std::int16_t count(ProfileObject& object, const CountRequest& request) {
    return static_cast<CProfile&>(object).count(family, request.text);
}

/// A retired property that terminals still find in the interface: it reads nothing and stores nothing.
std::int16_t countNothing(ProfileObject& /*object*/, const CountRequest& /*request*/) { return 0; }

const ElementListName* findList(TextView name) {
    const auto row = std::ranges::find(elementListNames, name, &ElementListName::name);
    return row == elementListNames.end() ? nullptr : &*row;
}

const TextList* textsOf(const ElementLists& lists, ListContent content) {
    switch (content) {  // Not covered: every content has its case
        case ListContent::Texts: return &lists.text;
        case ListContent::Numbers: return &lists.number;
        case ListContent::Codes: return &lists.code;
        case ListContent::Carriers: return &lists.carrier;
        case ListContent::Accounts: return &lists.account;
        case ListContent::FreeTexts: return &lists.freeText;
        case ListContent::Flags: break;
    }
    return nullptr;
}

}  // namespace

constexpr std::array<CountProperty, familyCount + 1> profileCounts{{
    {u"PPRElementsCount", count<Family::PPR>},
    {u"PGLElementsCount", count<Family::PGL>},
    {u"PPSElementsCount", count<Family::PPS>},
    {u"PHIElementsCount", count<Family::PHI>},
    {u"PCIElementsCount", count<Family::PCI>},
    {u"PPCElementsCount", count<Family::PPC>},
    {u"PPHElementsCount", count<Family::PPH>},
    {u"PPHElementsCountold", countNothing},
    {u"PPAElementsCount", count<Family::PPA>},
    {u"PPKElementsCount", count<Family::PPK>},
    {u"PPIElementsCount", count<Family::PPI>},
    {u"PXCElementsCount", count<Family::PXC>},
    {u"PXAElementsCount", count<Family::PXA>},
    {u"PXKElementsCount", count<Family::PXK>},
    {u"PSHElementsCount", count<Family::PSH>},
    {u"PSCElementsCount", count<Family::PSC>},
    {u"PPTElementsCount", count<Family::PPT>},
    {u"PXTElementsCount", count<Family::PXT>},
    {u"RemarkElementsCount", count<Family::Remark>},
    {u"ContactElementsCount", count<Family::Contact>},
    {u"OtherServiceElementsCount", count<Family::OtherService>},
    {u"FrequentFlyerElementsCount", count<Family::FrequentFlyer>},
    {u"ServiceRequestElementsCount", count<Family::ServiceRequest>},
    {u"SeatElementsCount", count<Family::Seat>},
    {u"RemarkConfElementsCount", count<Family::RemarkConf>},
    {u"PASElementsCount", count<Family::PAS>},
    {u"PIVElementsCount", count<Family::PIV>},
    {u"PCEElementsCount", count<Family::PCE>},
    {u"PIDElementsCount", count<Family::PID>},
    {u"PFOElementsCount", count<Family::PFO>},
}};
// clang-format on

const TextList* CProfile::list(TextView name) const {
    const ElementListName* const row = findList(name);
    return row != nullptr ? textsOf(listsOf(row->family), row->content) : nullptr;
}

const FlagList* CProfile::flagList(TextView name) const {
    const ElementListName* const row = findList(name);
    return row != nullptr && row->content == ListContent::Flags ? &listsOf(row->family).flag : nullptr;
}

}  // namespace vantro
