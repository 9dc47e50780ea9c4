// The rules of the notes' transaction, as an observer receives them.
#pragma once

#include "vantro/observer.h"

#include <array>

namespace vantro {

namespace rule {

inline constexpr ReadingRule notesUnknownCommand{"notesUnknownCommand",
                                                 u"strCommand is neither PN nor PNE: nothing is sent or searched for"};

}  // namespace rule

inline constexpr std::array notesTransactionRules{&rule::notesUnknownCommand};

}  // namespace vantro
