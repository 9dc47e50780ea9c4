// The objects of the stand-in: the built-in terminal library under the terminal's identifiers.
#pragma once

#include "server/com/composed_object.h"

namespace vantro::com::standin {

/// A new object of one of the classes that the type library names.
Ptr<IUnknown> newObject(const ClassInfo& info);

/// The number of living objects of all classes except the control's.
long liveObjects();

}  // namespace vantro::com::standin
