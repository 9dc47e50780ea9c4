// The classes of the foreign terminal.
#pragma once

#include "tests/com/foreign/late_object.h"

namespace foreign {

/// New objects; the first reference is the caller's.
IDispatch* newCollection();
IDispatch* newFunctions();
IDispatch* newReporter();
IDispatch* newControl();

/// The value of an item of this library; null for Nothing. Raises 13 for any other object.
const VARIANT* valueOfItem(IDispatch* item);

}  // namespace foreign
