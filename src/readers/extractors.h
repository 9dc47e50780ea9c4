// The extractors: each finds its family's section in a display and hands out the elements one by one.
#pragma once

#include "display/joiner.h"

#include <cstdint>

namespace vantro {

/// An element as an extractor finds it: views of the display and of its joined texts.
using FoundElement = Element;

/// Takes the elements of each family in the order of the display. `count` is the element's own, from 1.
class ElementSink {
public:
    virtual void store(Family family, std::int16_t count, const FoundElement& element) = 0;

protected:
    ElementSink() = default;
    ElementSink(const ElementSink&) = default;
    ElementSink& operator=(const ElementSink&) = default;
    ~ElementSink() = default;
};

/// Each gives the number of elements stored and raises 6 where the display has no end: the 16-bit line counter
/// overflows.
std::int16_t extract(const PrefixedFamily& row, Joiner& joiner, ElementSink& sink);
std::int16_t extract(const TransferableFamily& row, Joiner& joiner, ElementSink& sink);
std::int16_t extract(const DocumentFamily& row, Joiner& joiner, ElementSink& sink);

/// The same by family.
std::int16_t extract(Family family, Joiner& joiner, ElementSink& sink);

/// All transferable families in one pass over their lines. Gives the families that fail with 6; what they stored up to
/// then is void. For displays that end well before the line counter does: close to its end remarks, which look two
/// lines ahead, fail earlier than the others.
FamilySet extractTransferable(Joiner& joiner, ElementSink& sink);

}  // namespace vantro
