// The error information that is current while the terminal is told of an error.
#pragma once

#include "server/com/ptr.h"
#include "server/com/system.h"
#include "vantro/error.h"

namespace vantro::com {

/// Error information with the error's source and description, and its number for those who ask for
/// `INumberedError`: automation's own error information has no place for it.
Ptr<IErrorInfo> numberedError(const Error& error);

}  // namespace vantro::com
