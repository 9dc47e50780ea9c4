// What an observer is told of the elements of a family. The call must be observed.
#pragma once

#include "framework/observation.h"
#include "profile/element_lists.h"
#include "readers/extractors.h"

#include <span>

namespace vantro {

/// Passes every part of the elements of a family, which are in the order of the display.
void sayElements(const Watch& watch, const FamilyFacts& family, std::span<const FoundElement> found);

/// Says that the lists of the family contain the elements.
void sayStored(const Watch& watch, const FamilyFacts& family, std::span<const FoundElement> found,
               const ElementLists& lists);

}  // namespace vantro
