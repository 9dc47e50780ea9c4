// The terminal's own library, reached through COM by its class identifiers and the names of its operations.
#pragma once

#include "server/com_collection.h"
#include "vantro/terminal.h"

namespace vantro::com {

/// The terminal's library as the objects of this server see it. The helper objects are one a thread: created on
/// first use and kept until the thread's apartment ends or the server is about to be unloaded.
Terminal& comTerminal();

/// The operations of the terminal's own collections, as this thread knows them.
std::shared_ptr<CollectionMembers> terminalMembers();

/// Releases this thread's helper objects when they are the last ones; true when none is left in any thread.
bool releaseLastHelpers();

}  // namespace vantro::com
