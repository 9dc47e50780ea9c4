// The extractors: each finds its family's section in a display and passes the elements to a sink one by one.
#pragma once

#include "display/joiner.h"

#include <cstdint>

namespace vantro {

/// An element as an extractor finds it: views of the display and of the joiner's texts.
using FoundElement = Element;

/// Receives the elements of each family in the order of the display. `count` is the element's position, from 1.
class ElementSink {
public:
    virtual void store(Family family, std::int16_t count, const FoundElement& element) = 0;

protected:
    ElementSink() = default;
    ElementSink(const ElementSink&) = default;
    ElementSink& operator=(const ElementSink&) = default;
    ~ElementSink() = default;
};

/// Returns the number of elements stored. Raises 6 for a display without an end: the 16-bit line counter overflows.
std::int16_t extract(const PrefixedFamily& row, Joiner& joiner, ElementSink& sink);
std::int16_t extract(const TransferableFamily& row, Joiner& joiner, ElementSink& sink);
std::int16_t extract(const DocumentFamily& row, Joiner& joiner, ElementSink& sink);

/// The same for the row of a family.
std::int16_t extract(Family family, Joiner& joiner, ElementSink& sink);

/// Extracts all transferable families in one pass over their lines. Returns the families that fail with 6; the caller
/// must drop what they stored. Only for displays that end well before the line counter does: near its end remarks,
/// which look two lines ahead, fail earlier than the others.
FamilySet extractTransferable(Joiner& joiner, ElementSink& sink);

}  // namespace vantro
