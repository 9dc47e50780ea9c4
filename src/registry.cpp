// The class table. A new class is one row: its error numbers stand here and nowhere else.
#include "vantro/registry.h"

#include "framework/constants.h"
#include "framework/text_ops.h"
#include "profile/element_parser.h"
#include "profile/profile_notes.h"
#include "transactions/maintenance/pb.h"
#include "transactions/maintenance/pt.h"
#include "transactions/maintenance/px.h"
#include "transactions/maintenance/rlp.h"
#include "transactions/mode/profile_mode.h"
#include "transactions/search/pd.h"
#include "transactions/search/pda.h"
#include "transactions/search/pdn.h"
#include "transactions/search/pdr.h"
#include "transactions/search/ph.h"
#include "transactions/search/plc.h"
#include "transactions/search/plt.h"

#include <algorithm>
#include <array>

namespace vantro {

namespace {

template <class Object>
std::unique_ptr<ProfileObject> create(Terminal& terminal, const TransErrors& errors) {
    return std::make_unique<Object>(terminal, errors);
}

constexpr int none = TransErrors::passesThrough;

// The host transactions that each class serves.
template <std::size_t N>
using Codes = std::array<TextView, N>;

constexpr Codes<1> pbi{code::PBI};
constexpr Codes<1> pbn{code::PBN};
constexpr Codes<1> pcn{code::PCN};
constexpr Codes<1> pda{code::PDA};
constexpr Codes<1> pdi{code::PDI};
constexpr Codes<1> pdmd{code::PDMD};
constexpr Codes<1> pdn{code::PDN};
constexpr Codes<1> pdr{code::PDR};
constexpr Codes<1> pd{code::PD};
constexpr Codes<1> pdt{code::PDT};
constexpr Codes<1> ph{code::PH};
constexpr Codes<1> plc{code::PLC};
constexpr Codes<1> plt{code::PLT};
constexpr Codes<6> mode{code::PM, code::PME, code::PE, code::PEE, code::PI, code::PIE};
constexpr Codes<1> px{code::PX};
constexpr Codes<1> rlp{code::RLP};
constexpr Codes<1> pt{code::PT};
constexpr Codes<3> notes{code::PN, code::PNE, code::PNL};

constexpr bool trans = true;  // has IProfileTrans
constexpr bool get = true;    // has IProfileGet

constexpr std::array rlpCounts{
    CountProperty{u"RecLocCount",
                  [](ProfileObject& object, const CountRequest& request) {
                      return static_cast<CRLPTrans&>(object).RecLocCount(request.text);
                  }},
};

// Meant: CProfileMode and CProfileNotes share their numbers.
// clang-format off
constexpr std::array<ClassRow, 19> table{{
    // name             interfaces      host      counts         {create, verify}  creator
    {u"CPBITrans",      trans, !get,    pbi,      {},            {5385, 5390},     create<CPBITrans>},
    {u"CPBNTrans",      trans, !get,    pbn,      {},            {none, 5035},     create<CPBNTrans>},
    {u"CPCNTrans",      trans, !get,    pcn,      {},            {none, none},     create<CPCNTrans>},
    {u"CPDATrans",      trans, !get,    pda,      {},            {none, 5105},     create<CPDATrans>},
    {u"CPDITrans",      trans, !get,    pdi,      {},            {5090, 5095},     create<CPDITrans>},
    {u"CPDMDTrans",     trans, !get,    pdmd,     {},            {none, none},     create<CPDMDTrans>},
    {u"CPDNTrans",      trans, !get,    pdn,      {},            {none, 5075},     create<CPDNTrans>},
    {u"CPDRTrans",      trans, !get,    pdr,      {},            {none, 5110},     create<CPDRTrans>},
    {u"CPDTrans",       trans, !get,    pd,       {},            {5000, 5005},     create<CPDTrans>},
    {u"CPDTTrans",      trans, !get,    pdt,      {},            {5020, 5025},     create<CPDTTrans>},
    {u"CPHTrans",       trans, !get,    ph,       {},            {5080, 5085},     create<CPHTrans>},
    {u"CPLCTrans",      trans, !get,    plc,      {},            {5135, 5140},     create<CPLCTrans>},
    {u"CPLTTrans",      trans, !get,    plt,      {},            {5050, 5055},     create<CPLTTrans>},
    {u"CProfileMode",   trans, !get,    mode,     {},            {5040, 5045},     create<CProfileMode>},
    {u"CPXTrans",       trans, !get,    px,       {},            {5010, 5015},     create<CPXTrans>},
    {u"CRLPTrans",      trans, !get,    rlp,      rlpCounts,     {none, 5130},     create<CRLPTrans>},
    {u"CPTTrans",       trans, !get,    pt,       {},            {none, 5120},     create<CPTTrans>},
    {u"CProfile",       !trans, get,    {},       profileCounts, {none, none},     create<CProfile>},
    {u"CProfileNotes",  trans, get,     notes,    notesCounts,   {5040, 5045},     create<CProfileNotes>},
}};
// clang-format on

constexpr bool namesAreUnique() {
    for (const ClassRow& row : table) {
        if (std::ranges::count(table, row.name, &ClassRow::name) != 1) return false;
    }
    return true;
}
static_assert(namesAreUnique());

}  // namespace

const TextList* ProfileObject::list(TextView /*name*/) const { return nullptr; }

const FlagList* ProfileObject::flagList(TextView /*name*/) const { return nullptr; }

std::span<const ClassRow> classTable() { return table; }

const ClassRow* findClass(TextView name) {
    const auto row = std::ranges::find(table, name, &ClassRow::name);
    return row == table.end() ? nullptr : &*row;
}

const CountProperty* findCount(const ClassRow& row, TextView name) {
    const auto property = std::ranges::find(row.counts, name, &CountProperty::name);
    return property == row.counts.end() ? nullptr : &*property;
}

std::unique_ptr<ProfileObject> createObject(const ClassRow& row, Terminal& terminal) {
    if (row.creator == nullptr) fail(Failure::CannotCreateObject);
    return row.creator(terminal, row.errors);
}

std::unique_ptr<ProfileObject> createObject(TextView name, Terminal& terminal) {
    const ClassRow* const row = findClass(name);
    if (row == nullptr) {
        throw Error(static_cast<int>(Failure::CannotCreateObject), applicationTitle,
                    concat({u"There is no class named \"", name, u"\""}));
    }
    return createObject(*row, terminal);
}

}  // namespace vantro
