// The lists of `CProfile`, which the count properties fill and the queries return.
#pragma once

#include "readers/known_display.h"
#include "vantro/families.h"
#include "vantro/terminal.h"
#include "vantro/text.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>

namespace vantro {

/// The lists of one family: one per part of its elements, all of the same length. Lists of other parts are empty.
/// Element k is at index k after an empty entry 0; in the lists of transferable families it is at index k - 1.
///
/// The lists of texts and numbers are shared with the collections that queries answer in. The next call uses their
/// memory again, unless a collection still has them: then it fills others.
class ElementLists {
public:
    /// Lists whose first element will be at this index. The entries before it are empty.
    explicit ElementLists(std::size_t firstIndex);
    ElementLists(const ElementLists&) = delete;
    ElementLists& operator=(const ElementLists&) = delete;

    const TextList& texts(ElementPart part) const { return *texts_[indexOf(part)]; }

    FlagList& asterisks() { return asterisks_; }
    const FlagList& asterisks() const { return asterisks_; }

    /// The list of texts or numbers. It stays as it is as long as somebody has the pointer.
    std::shared_ptr<const ItemValue> share(ElementPart part);

    /// To be called before each change. Replaces shared lists by others without elements.
    void prepareChange() noexcept;

    /// Replaces the entry at an index, which is at most one beyond the last entry.
    void put(ElementPart part, std::size_t index, TextView text) {
        TextList& list = *texts_[indexOf(part)];
        if (index < list.size()) {
            list[index].assign(text);
        } else {
            add(list, text);
        }
    }

    /// Cuts the lists of these parts to a length, if they are longer.
    void cutTo(std::size_t length, std::span<const ElementPart> parts) noexcept;

private:
    static constexpr std::size_t mostSpare = 64;

    /// The lists that a query returns whole.
    struct WholeLists {
        explicit WholeLists(std::size_t length) : texts(TextList(length)), numbers(TextList(length)) {}

        ItemValue texts;
        ItemValue numbers;
    };

    void use(std::shared_ptr<WholeLists> lists) noexcept;
    void add(TextList& list, TextView text);
    void cut(TextList& list, std::size_t length) noexcept;

    std::size_t firstIndex_;
    TextList spare_;  // texts that were cut off: their memory is used again
    std::shared_ptr<WholeLists> whole_;
    std::shared_ptr<WholeLists> next_;  // replaces them if they are shared; not null then
    std::array<TextList, indexOf(ElementPart::Asterisk)> parts_;
    std::array<TextList*, indexOf(ElementPart::Asterisk)> texts_;  // the two whole lists and the parts
    FlagList asterisks_;
};

/// The lists of all families.
class ProfileLists {
public:
    explicit ProfileLists(Terminal& terminal) : terminal_(terminal), known_(terminal) {}

    /// Reads a family's elements from the display into the family's lists and returns their count. Raises the family's
    /// number with "An error has occurred while verifying the profile."; the lists then contain what was stored before
    /// the failure.
    std::int16_t refill(Family family, TextView display);

    const ElementLists& of(Family family) const { return listsOf(family); }

    /// A family's list of texts or numbers, which stays as it is as long as somebody has the pointer.
    std::shared_ptr<const ItemValue> share(Family family, ElementPart part) { return listsOf(family).share(part); }

    /// The list of texts with this name ("strServiceRequestCode"), or null.
    const TextList* texts(TextView name) const;

    /// The list of booleans with this name, or null.
    const FlagList* flags(TextView name) const;

private:
    std::int16_t read(Family family, TextView display);
    ElementLists& listsOf(Family family) const;

    Terminal& terminal_;
    KnownDisplay known_;
    // Created on first use, because most objects serve few families.
    mutable std::array<std::unique_ptr<ElementLists>, familyCount> lists_;
};

}  // namespace vantro
