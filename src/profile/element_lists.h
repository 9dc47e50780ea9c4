// The member lists of `CProfile`: what the count properties leave behind for the queries.
#pragma once

#include "readers/extractors.h"
#include "vantro/text.h"

namespace vantro {

/// The lists of one family, all of the same length. Prefixed, document and follow-up families keep element k at
/// index k under an empty entry 0; transferable ones keep it at index k - 1.
struct ElementLists {
    TextList text;
    TextList number;
    TextList code;
    TextList carrier;
    TextList account;
    TextList freeText;
    FlagList flag;  // service requests only; nothing ever sets an entry
};

/// Fills lists that keep an empty entry 0.
class NumberedListsSink final : public ElementSink {
public:
    explicit NumberedListsSink(ElementLists& lists) : lists_(lists) {}

    void store(Family family, std::int16_t count, const FoundElement& element) override;

private:
    ElementLists& lists_;
};

/// Fills the lists of a transferable family. Lists are only resized when an element is stored: a call that
/// finds none leaves them as the last call did.
class TransferableListsSink final : public ElementSink {
public:
    TransferableListsSink(ElementLists& lists, Split split) : lists_(lists), split_(split) {}

    void store(Family family, std::int16_t count, const FoundElement& element) override;

private:
    ElementLists& lists_;
    Split split_;
};

}  // namespace vantro
