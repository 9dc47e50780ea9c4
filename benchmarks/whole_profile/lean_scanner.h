// The hand-written contender: one pass over the lines, written for speed. A line is trimmed with vector compares, its
// first characters say what it can be, and it is not looked at again. It relies on what the host prints: tags and
// numbers in their columns, each section once, an end in every display.
#pragma once

#include "whole_profile/scanned.h"

namespace vantro::bench {

/// What a scan reads.
enum class Depth : bool {
    /// The floor: numbers and texts of the elements, and the notes. No header values, no parts of elements; the end is
    /// seen only at the beginning of a line; a title is known by four characters.
    Elements,
    /// The exact one: everything that `parseProfile` returns.
    Everything,
};

/// The result must be new or prepared for this display.
template <Depth depth, class String>
void scanLean(std::u16string_view display, Scanned<String>& result);

}  // namespace vantro::bench
