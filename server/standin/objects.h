// The objects of the stand-in: the built-in terminal library behind the terminal's identifiers.
#pragma once

#include "server/com/composed_object.h"

namespace vantro::com::standin {

/// A new object of one of the classes that the type library names.
Ptr<IUnknown> newObject(const ClassInfo& info);

/// How many objects of all classes but the control's are alive.
long liveObjects();

}  // namespace vantro::com::standin
