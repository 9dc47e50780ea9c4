// The classes that read lists. A new list is one row here, and its columns in the class's description.
#include "vantro/list_rows.h"

#include "framework/access.h"
#include "framework/constants.h"
#include "framework/screen.h"
#include "framework/text_ops.h"
#include "transactions/maintenance/rlp.h"
#include "transactions/search/pd.h"
#include "transactions/search/pda.h"
#include "transactions/search/pdn.h"
#include "transactions/search/plc.h"
#include "transactions/search/plt.h"
#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <algorithm>
#include <array>

namespace vantro {

namespace {

/// Adds the rows of a screen. The state is always a collection, if only an empty one.
using RowReader = void (*)(Screen& screen, Parameters& state, ListRows& found);

struct ListClass {
    TextView name;
    RowReader reader;
};

// clang-format off
constexpr std::array<ListClass, 6> listClasses{{
    {u"CPDATrans", CPDATrans::readRows},
    {u"CPDNTrans", CPDNTrans::readRows},
    {u"CPDTrans",  CPDTrans::readRows},
    {u"CPLCTrans", CPLCTrans::readRows},
    {u"CPLTTrans", CPLTTrans::readRows},
    {u"CRLPTrans", CRLPTrans::readRows},
}};
// clang-format on

RowReader readerOf(const ClassRow& row) {
    const auto entry = std::ranges::find(listClasses, row.name, &ListClass::name);
    if (entry == listClasses.end()) fail(Failure::InvalidProcedureCall);
    return entry->reader;
}

ListRows readRows(Terminal& terminal, RowReader reader, TextView response, const CollectionPtr& collection) {
    Screen screen(terminal, response);
    const CollectionPtr passed = collection ? collection : terminal.createCollection();
    Parameters state(terminal, passed);
    ListRows found;
    reader(screen, state, found);
    found.isList = found.isList || !found.rows.empty();
    found.continues = found.isList && screen.contains(mark::endOfBlock);
    return found;
}

}  // namespace

ListRows readRows(const ClassRow& row, TextView screen, const CollectionPtr& state) {
    BuiltInTerminal terminal;
    return readRows(terminal, readerOf(row), screen, state);
}

ListRows readRows(const ClassRow& row, TextView screen, const CollectionPtr& state, ReadingObserver& observer) {
    const RowReader reader = readerOf(row);
    BuiltInTerminal builtIn;
    ObservedTerminal terminal(builtIn, &observer);
    return observed(&terminal, u"readRows", screen, [&] { return readRows(terminal, reader, screen, state); });
}

}  // namespace vantro
