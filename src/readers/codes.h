// Which transferable families a line belongs to by its codes: one look instead of a search for each.
#pragma once

#include "display/family_set.h"
#include "display/line_bits.h"

namespace vantro {

/// The families whose code stands where their elements have it: between blanks from column 13 on, a contact's from
/// column 12.
FamilySet codesIn(TextView text);

/// The same for a text whose blanks are known, those past its end among them.
FamilySet codesIn(TextView text, LineBits blanks);

}  // namespace vantro
