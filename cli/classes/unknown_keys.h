// Warnings about keys that a class does not read.
#pragma once

#include "cli/io/warnings.h"
#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <string>
#include <vector>

namespace vantro {

/// What a collection is passed for.
enum class PassedFor { Command, Screen };

/// A warning for each key of the collection that the class does not read, in the collection's order. For a screen the
/// class knows its results as well: those of the screen before are the state.
std::vector<std::string> unknownKeyWarnings(const ClassRow& row, PassedFor purpose,
                                            const BuiltInCollection& collection);

/// Prints these warnings, one per line.
void warnAboutUnknownKeys(const ClassRow& row, PassedFor purpose, const BuiltInCollection& collection,
                          Warnings& warnings);

}  // namespace vantro
