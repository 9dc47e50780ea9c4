// How the lines of one element are put together.
#pragma once

#include <cstdint>

namespace vantro {

/// Which lines go on with an element, and how they are joined to it.
enum class JoinRule : std::uint8_t {
    Directly,         ///< all lines with nine blanks in front, one after the other
    ColonAfterBlank,  ///< the same, a blank before a line whose third character is ":"
    OneBelow,         ///< the line below, with seventeen blanks in front
    TwoBelow,         ///< the two lines below, the same
};

}  // namespace vantro
