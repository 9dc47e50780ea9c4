// Creates objects of one class.
#pragma once

#include "server/com/module.h"

namespace vantro::com {

/// The class factory of a class, under the interface that is asked for.
HRESULT classFactory(const ClassInfo& info, REFIID iid, void** factory) noexcept;

}  // namespace vantro::com
