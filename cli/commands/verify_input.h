// What `verify` and `explain` pass to a class.
#pragma once

#include "cli/commands/commands.h"
#include "cli/io/warnings.h"
#include "vantro/built_in_terminal.h"

#include <memory>

namespace vantro {

/// The transaction's collection: the entries of the state, then the parameters, which replace them. Null without
/// either. Raises UsageError and StreamError.
std::shared_ptr<BuiltInCollection> collectionFor(const VerifyOptions& options);

/// The screen in the file. Raises UsageError and StreamError.
Text screenFor(const VerifyOptions& options, Warnings& warnings);

}  // namespace vantro
