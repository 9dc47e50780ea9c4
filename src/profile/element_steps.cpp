#include "profile/element_steps.h"

#include "profile/element_parts.h"

namespace vantro {

namespace {

/// Calls a function for each part of the elements that has a text, with the index of its element from 0.
template <class Use>
void forEachPart(const FamilyFacts& family, std::span<const FoundElement> found, Use use) {
    for (std::size_t index = 0; index < found.size(); ++index) {
        const Element element = split(found[index]);
        for (const ElementPart part : family.parts) {
            if (const auto value = rowOf(part).value; value != nullptr) use(index, rowOf(part), element.*value);
        }
    }
}

}  // namespace

void sayElements(const Watch& watch, const FamilyFacts& family, std::span<const FoundElement> found) {
    forEachPart(family, found, [&](std::size_t index, const ElementPartRow& row, TextView value) {
        watch.read(nameOf(row.part), value, static_cast<std::int32_t>(index) + 1, *family.family);
    });
}

void sayStored(const Watch& watch, const FamilyFacts& family, std::span<const FoundElement> found,
               const ElementLists& lists) {
    forEachPart(family, found, [&](std::size_t index, const ElementPartRow& row, TextView value) {
        watch.copied(lists.texts(row.part)[index + family.firstIndex], value);
    });
}

}  // namespace vantro
