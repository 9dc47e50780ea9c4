#include "profile/element_lists.h"

#include "display/families.h"
#include "framework/constants.h"
#include "framework/error_frame.h"
#include "profile/element_parts.h"
#include "readers/extractors.h"
#include "vantro/lists.h"

#include <algorithm>
#include <span>

namespace vantro {

namespace {

void storeLast(TextList& list, std::size_t length, TextView text) {
    list.resize(length - 1);
    list.emplace_back(text);
}

/// Stores every part of an element in its list. Lists are resized only when an element is stored: a call without
/// elements leaves them unchanged.
class ListsSink final : public ElementSink {
public:
    ListsSink(ElementLists& lists, const FamilyFacts& family)
        : lists_(lists), furtherParts_(family.furtherParts()), firstIndex_(family.firstIndex) {}

    void store(Family /*family*/, std::int16_t count, const FoundElement& element) override {
        const std::size_t length = static_cast<std::size_t>(count) + firstIndex_;
        storeLast(lists_.texts(ElementPart::WholeText), length, element.text);
        storeLast(lists_.texts(ElementPart::Number), length, element.number);
        for (const ElementPart part : furtherParts_) storePart(part, length, element);
    }

private:
    void storePart(ElementPart part, std::size_t length, const FoundElement& element) {
        if (part == ElementPart::Asterisk) {
            lists_.asterisks().resize(length);
            lists_.asterisks().back() = element.asterisk;
        } else {
            storeLast(lists_.texts(part), length, element.*rowOf(part).value);
        }
    }

    ElementLists& lists_;
    std::span<const ElementPart> furtherParts_;
    std::size_t firstIndex_;
};

void cutToEntry0(ElementLists& lists) {
    lists.texts(ElementPart::WholeText).resize(1);
    lists.texts(ElementPart::Number).resize(1);
}

/// Cuts the lists before the display is read, if the family's kind needs it.
void prepare(const PrefixedFamily& row, TextView display, ElementLists& lists) {
    // Meant: four families test for an empty display before they cut their lists.
    if (row.cut == ListCut::BeforeEmptyTest || !display.empty()) cutToEntry0(lists);
}
void prepare(const DocumentFamily& /*row*/, TextView /*display*/, ElementLists& lists) { cutToEntry0(lists); }
void prepare(const TransferableFamily& /*row*/, TextView /*display*/, ElementLists& /*lists*/) {}

const ElementListName* findList(TextView name) {
    const auto row = std::ranges::find(elementLists(), name, &ElementListName::name);
    return row == elementLists().end() ? nullptr : &*row;
}

}  // namespace

ElementLists& ProfileLists::listsOf(Family family) const {
    std::unique_ptr<ElementLists>& lists = lists_[indexOf(family)];
    if (!lists) {
        auto made = std::make_unique<ElementLists>();
        if (!isTransferable(family)) cutToEntry0(*made);
        lists = std::move(made);
    }
    return *lists;
}

std::int16_t ProfileLists::refill(Family family, TextView display) {
    return withRow(family, [&](const auto& row) {
        return raiseAs(row.error, description::verifyingProfile, [&]() -> std::int16_t {
            ElementLists& lists = listsOf(family);
            prepare(row, display, lists);
            if (display.empty()) return 0;
            Display lines(terminal_, display);
            Joiner joiner(lines);
            ListsSink sink(lists, factsOf(family));
            return extract(row, joiner, sink);
        });
    });
}

const TextList* ProfileLists::texts(TextView name) const {
    const ElementListName* const row = findList(name);
    return row != nullptr && row->part != ElementPart::Asterisk ? &listsOf(row->family).texts(row->part) : nullptr;
}

const FlagList* ProfileLists::flags(TextView name) const {
    const ElementListName* const row = findList(name);
    return row != nullptr && row->part == ElementPart::Asterisk ? &listsOf(row->family).asterisks() : nullptr;
}

}  // namespace vantro
