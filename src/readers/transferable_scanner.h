// The scanner for transferable elements: finds those that a selection names.
#pragma once

#include "display/display.h"
#include "vantro/interfaces.h"

namespace vantro {

/// Returns the numbers of the selected transferable elements in the order of the display, after an empty entry 0. An
/// element is selected when its text begins with one of the entries, in any case, and a qualifier that is not empty
/// equals its code. Each entry is converted to upper case and stored back in the selection. "S" or "A" and two blanks
/// at its beginning are removed and restrict the scan to elements of that kind. Raises 6 for a display without an end.
TextList scanTransferable(Display& display, SelectionSource& selection);

}  // namespace vantro
