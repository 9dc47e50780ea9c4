// The transferable-element scanner: which displayed elements a selection names.
#pragma once

#include "display/display.h"
#include "vantro/interfaces.h"

namespace vantro {

/// Numbers of the transferable elements that the selection names, in the order of the display, under an empty
/// entry 0. The selection's entries are turned into upper case and stored back one by one; "S" or "A" and two blanks in
/// front of an entry narrow the scan to that kind of element and leave the entry's text alone. A qualifier that is not
/// empty must equal the element's code. Raises 6 for a display without an end.
TextList scanTransferable(Display& display, SelectionSource& selection);

}  // namespace vantro
