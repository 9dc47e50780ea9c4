// The class table. A new class is one row here, with its error numbers, and a description in src/class_rows/.
#include "vantro/registry.h"

#include "class_rows/displays.h"
#include "class_rows/maintenance.h"
#include "class_rows/name_search.h"
#include "class_rows/office_lists.h"
#include "class_rows/parsers.h"
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
#include "vantro/observer.h"

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
                      return static_cast<CRLPTrans&>(object).countObserved(request.text);
                  }},
};

// Meant: CProfileMode and CProfileNotes raise the same numbers.
// clang-format off
constexpr std::array<ClassRow, 19> table{{
    // name             interfaces      host      counts         {create, verify}  creator                description
    {u"CPBITrans",      trans, !get,    pbi,      {},            {5385, 5390},     create<CPBITrans>,     rows::pbi},
    {u"CPBNTrans",      trans, !get,    pbn,      {},            {none, 5035},     create<CPBNTrans>,     rows::pbn},
    {u"CPCNTrans",      trans, !get,    pcn,      {},            {none, none},     create<CPCNTrans>,     rows::pcn},
    {u"CPDATrans",      trans, !get,    pda,      {},            {none, 5105},     create<CPDATrans>,     rows::pda},
    {u"CPDITrans",      trans, !get,    pdi,      {},            {5090, 5095},     create<CPDITrans>,     rows::pdi},
    {u"CPDMDTrans",     trans, !get,    pdmd,     {},            {none, none},     create<CPDMDTrans>,    rows::pdmd},
    {u"CPDNTrans",      trans, !get,    pdn,      {},            {none, 5075},     create<CPDNTrans>,     rows::pdn},
    {u"CPDRTrans",      trans, !get,    pdr,      {},            {none, 5110},     create<CPDRTrans>,     rows::pdr},
    {u"CPDTrans",       trans, !get,    pd,       {},            {5000, 5005},     create<CPDTrans>,      rows::pd},
    {u"CPDTTrans",      trans, !get,    pdt,      {},            {5020, 5025},     create<CPDTTrans>,     rows::pdt},
    {u"CPHTrans",       trans, !get,    ph,       {},            {5080, 5085},     create<CPHTrans>,      rows::ph},
    {u"CPLCTrans",      trans, !get,    plc,      {},            {5135, 5140},     create<CPLCTrans>,     rows::plc},
    {u"CPLTTrans",      trans, !get,    plt,      {},            {5050, 5055},     create<CPLTTrans>,     rows::plt},
    {u"CProfileMode",   trans, !get,    mode,     {},            {5040, 5045},     create<CProfileMode>,  rows::mode},
    {u"CPXTrans",       trans, !get,    px,       {},            {5010, 5015},     create<CPXTrans>,      rows::px},
    {u"CRLPTrans",      trans, !get,    rlp,      rlpCounts,     {none, 5130},     create<CRLPTrans>,     rows::rlp},
    {u"CPTTrans",       trans, !get,    pt,       {},            {none, 5120},     create<CPTTrans>,      rows::pt},
    {u"CProfile",       !trans, get,    {},       profileCounts, {none, none},     create<CProfile>,      rows::profile},
    {u"CProfileNotes",  trans, get,     notes,    notesCounts,   {5040, 5045},     create<CProfileNotes>, rows::notes},
}};
// clang-format on

constexpr bool namesAreUnique() {
    for (const ClassRow& row : table) {
        if (std::ranges::count(table, row.name, &ClassRow::name) != 1) return false;
    }
    return true;
}
static_assert(namesAreUnique());

// Descriptions

constexpr bool describesItsInterfaces(const ClassRow& row) {
    const ClassDescription& about = row.description;
    return !about.purpose.empty() && row.hasProfileTrans != about.forms.empty() &&
           row.hasProfileGet != about.request.empty() && row.counts.empty() == about.counts.empty();
}
static_assert(std::ranges::all_of(table, describesItsInterfaces));

constexpr bool flagsAreResults(const ClassRow& row) {
    return std::ranges::all_of(row.description.flags, [&](const ScreenFlag& flag) {
        return flag.flag.empty() || std::ranges::count(row.description.results, flag.flag, &ResultRow::key) == 1;
    });
}
static_assert(std::ranges::all_of(table, flagsAreResults));

constexpr bool examplesAreParameters(const ClassRow& row) {
    for (const CommandForm& form : row.description.forms) {
        for (const ExampleParameter& parameter : form.example) {
            if (std::ranges::count(row.description.parameters, parameter.key, &ParameterRow::key) != 1) return false;
        }
    }
    return true;
}
static_assert(std::ranges::all_of(table, examplesAreParameters));

const ClassRow& existingClass(TextView name) {
    if (const ClassRow* const row = findClass(name)) return *row;
    throw Error(static_cast<int>(Failure::CannotCreateObject), applicationTitle,
                concat({u"There is no class named \"", name, u"\""}));
}

}  // namespace

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
    return createObject(existingClass(name), terminal);
}

ListRows readRows(TextView className, TextView screen, const CollectionPtr& state) {
    return readRows(existingClass(className), screen, state);
}

ListRows readRows(TextView className, TextView screen, const CollectionPtr& state, ReadingObserver& observer) {
    return readRows(existingClass(className), screen, state, observer);
}

}  // namespace vantro
