// Copies collections of the built-in terminal library into the registered terminal's and back.
#pragma once

#include "server/com/late_call.h"
#include "vantro/built_in_terminal.h"

namespace vantro::com {

/// A new object of a registered class, by name.
Ptr<IDispatch> newRegistered(TextView className);

/// The terminal's collection with the same entries; null for no collection.
Ptr<IDispatch> copiedOut(const CollectionPtr& collection);

/// Adds the entries of the terminal's collection.
void copyBack(IDispatch* source, KeyedCollection& collection);

}  // namespace vantro::com
