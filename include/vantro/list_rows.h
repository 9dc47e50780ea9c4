// The lists of a screen as rows: the travellers and companies of a name search or of an office, and the profiles linked
// to a PNR.
#pragma once

#include "vantro/collection.h"
#include "vantro/export.h"
#include "vantro/text.h"

#include <cstdint>
#include <vector>

namespace vantro {

struct ClassRow;

/// The two kinds of profiles.
enum class ProfileKind : std::uint8_t { Traveller, Company };

/// One entry of a list. The texts are copies, trimmed; one that its list does not show is empty.
struct ListRow {
    std::int16_t line = 0;  ///< the entry's line on the screen, from 0; of a wrapped name, the first one
    ProfileKind kind = ProfileKind::Traveller;
    Text number = {};         ///< the list number, columns 3 and 4
    Text name = {};           ///< the traveller's or the company's name, a wrapped one joined as the host wrapped it
    Text recordLocator = {};  ///< of the profile
    Text company = {};        ///< to which the traveller belongs
    Text office = {};         ///< to which the company's profile belongs
    Text passenger = {};      ///< the number of the passenger to whom the profile is linked
};

/// A column of a class's rows.
struct ListColumn {
    TextView name;  ///< as in JSON and CSV: "recordLocator"
    Text ListRow::*cell;
    TextView meaning;  ///< begins with a small letter, no full stop at its end
};

/// What a screen lists.
struct ListRows {
    bool isList = false;     ///< the screen shows a list of the class, which may be empty
    bool continues = false;  ///< the list continues: the screen shows "END OF BLOCK - USE PDMD"
    std::vector<ListRow> rows;
};

/// Reads the rows of the list on a screen (lines of 80 characters joined without separators). A class whose
/// `ClassDescription::columns` are empty reads no list.
///
/// Names and record locators are those that `VerifyResponse` returns, in the same order; the list of `CRLPTrans` has
/// its entry "strKeyIndex" k at index k. Rows are also read from lists for which `VerifyResponse` returns flags only.
///
/// A list is recognised by its title or, on a continuation screen, by its column header. A continuation screen without
/// a column header needs the state: the results of `VerifyResponse` for the screen before. For `CPDNTrans` that is
/// "blnKeyEndOfBlock" and "strKeyRecLocPos", for `CPDATrans` "blnKeyEndOfBlock". With the state, the first entry is on
/// line 2 for `CPDNTrans` and on line 1 for `CPDATrans`. A continuation screen may be short: `VerifyResponse` returns
/// no name when it ends before the last line that can contain a title, but its rows are read. A first row without a
/// number is the rest of the last name on the screen before.
///
/// The state may be null, and a collection of any terminal. Raises 5 for a class that reads no list, 13 for a value of
/// the state that cannot be converted, 5 for a column below 1 in it and 6 for a list that goes on after line 32767.
VANTRO_EXPORT ListRows readRows(const ClassRow& row, TextView screen, const CollectionPtr& state = {});

/// The same for the class with exactly this name. Raises 429, with the name in the description, when there is none.
VANTRO_EXPORT ListRows readRows(TextView className, TextView screen, const CollectionPtr& state = {});

}  // namespace vantro
