// The error information that is current while an error is reported to the terminal.
#pragma once

#include "server/com/ptr.h"
#include "server/com/system.h"
#include "vantro/error.h"

namespace vantro::com {

/// Error information with the error's source and description, and with its number under `INumberedError`: automation's
/// own error information has no number.
Ptr<IErrorInfo> numberedError(const Error& error);

}  // namespace vantro::com
