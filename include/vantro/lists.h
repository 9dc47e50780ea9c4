// The lists that the parsers keep between calls, under the names that a terminal knows. A count property refills its
// family's lists; `ProfileObject::list` and `ProfileObject::flagList` return them.
#pragma once

#include "vantro/export.h"
#include "vantro/families.h"
#include "vantro/profile.h"
#include "vantro/text.h"

#include <span>

namespace vantro {

/// A list of `CProfile`: one part of every element of a family. The lists for the part `Asterisk` contain booleans, all
/// others texts. `FamilyFacts::firstIndex` is the index of the first element.
struct ElementListName {
    TextView name;
    Family family;
    ElementPart part;
};

/// All lists of `CProfile`, family by family.
VANTRO_EXPORT std::span<const ElementListName> elementLists() noexcept;

/// The lists of `CProfileNotes`: note k at index k, entry 0 empty.
inline constexpr TextView noteTextList = u"strNoteText";
inline constexpr TextView noteNumberList = u"strNoteNumber";
inline constexpr TextView noteQualifierList = u"strNoteQualifier";

}  // namespace vantro
