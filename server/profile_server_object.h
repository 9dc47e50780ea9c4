// The COM object of a public class.
#pragma once

#include "server/com/composed_object.h"
#include "vantro/registry.h"

namespace vantro::com {

/// A new object of the class, with the interfaces that the type library lists for it.
Ptr<IUnknown> newProfileObject(const ClassInfo& info);

}  // namespace vantro::com
