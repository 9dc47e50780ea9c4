// The terminal's own library, reached through COM by its class identifiers and the names of its operations.
#pragma once

#include "server/com_collection.h"
#include "vantro/terminal.h"

namespace vantro::com {

/// The terminal's library for the objects of this server. Each thread has its own helper objects: created on first use
/// and kept until the thread's apartment ends or the server is about to be unloaded.
Terminal& comTerminal();

/// This thread's operations of the terminal's own collections.
std::shared_ptr<CollectionMembers> terminalMembers();

/// Releases this thread's helper objects if no other thread has any; true when none is left in any thread.
bool releaseLastHelpers();

}  // namespace vantro::com
