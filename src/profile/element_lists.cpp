#include "profile/element_lists.h"

#include "display/families.h"
#include "framework/constants.h"
#include "framework/error_frame.h"
#include "profile/element_parts.h"
#include "profile/element_steps.h"
#include "readers/extractors.h"
#include "vantro/lists.h"

#include <algorithm>
#include <span>

namespace vantro {

namespace {

/// Replaces the entry at an index, which is at most one beyond the last entry.
void put(TextList& list, std::size_t index, TextView text) {
    if (index < list.size()) {
        list[index].assign(text);
    } else {
        list.emplace_back(text);
    }
}

/// Stores every part of the elements in its list. The entries of earlier elements are replaced, which saves
/// allocations. Lists stay unchanged when there is no element.
class ListsWriter {
public:
    ListsWriter(ElementLists& lists, const FamilyFacts& family)
        : lists_(lists), parts_(family.parts), firstIndex_(family.firstIndex) {}

    /// When memory runs out, the lists contain the elements before that one.
    void store(std::span<const FoundElement> found) {
        if (found.empty()) return;
        std::size_t stored = 0;
        try {
            for (; stored < found.size(); ++stored) {
                store(split(found[stored]), stored + firstIndex_);
            }
        } catch (...) {
            cutTo(stored + firstIndex_);
            throw;
        }
        cutTo(stored + firstIndex_);
    }

private:
    void store(const Element& element, std::size_t index) {
        for (const ElementPart part : parts_) {
            if (part == ElementPart::Asterisk) {
                lists_.asterisks().resize(index);
                lists_.asterisks().push_back(element.asterisk);
            } else {
                put(lists_.texts(part), index, element.*rowOf(part).value);
            }
        }
    }

    /// Cuts longer lists to a length.
    void cutTo(std::size_t length) {
        for (const ElementPart part : parts_) {
            if (part == ElementPart::Asterisk) {
                lists_.asterisks().resize(std::min(lists_.asterisks().size(), length));
            } else {
                TextList& list = lists_.texts(part);
                list.resize(std::min(list.size(), length));
            }
        }
    }

    ElementLists& lists_;
    std::span<const ElementPart> parts_;
    std::size_t firstIndex_;
};

void cutToEntry0(ElementLists& lists) {
    lists.texts(ElementPart::WholeText).resize(1);
    lists.texts(ElementPart::Number).resize(1);
}

/// Cuts lists back to entry 0 at the end of a call that stored no element, also of one that failed before it read a
/// line. The entries stay until then, because elements that are found replace them.
class CutAtExit {
public:
    explicit CutAtExit(ElementLists* lists) : lists_(lists) {}
    ~CutAtExit() {
        if (lists_ != nullptr) cutToEntry0(*lists_);
    }
    CutAtExit(const CutAtExit&) = delete;
    CutAtExit& operator=(const CutAtExit&) = delete;

    void cancel() { lists_ = nullptr; }

private:
    ElementLists* lists_;
};

/// True if a call that finds no element cuts the lists back to entry 0.
bool isCutWithoutElements(const PrefixedFamily& row, TextView display) {
    // Meant: four families test for an empty display before they cut their lists.
    return row.cut == ListCut::BeforeEmptyTest || !display.empty();
}
bool isCutWithoutElements(const DocumentFamily& /*row*/, TextView /*display*/) { return true; }
bool isCutWithoutElements(const TransferableFamily& /*row*/, TextView /*display*/) { return false; }

/// What a search found, and whether it reached its end.
struct ReadElements {
    FoundElements found;
    bool isComplete;
};

/// The elements found before the search ended or failed, whatever the failure: the caller raises the family's number.
ReadElements readElements(Family family, Joiner& joiner) {
    constexpr std::size_t usualElements = 32;
    ReadElements read{FoundElements(joiner.display().scratchMemory()), false};
    read.found.reserve(usualElements);
    try {
        read.isComplete = extract(FamilySet(family), joiner, read.found).empty();
    } catch (...) {
        return read;
    }
    return read;
}

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
    const int error = withRow(family, [](const auto& row) { return row.error; });
    return observedQuery(Watch(terminal_), factsOf(family).word, family, [&] {
        return raiseAs(error, description::verifyingProfile, [&] { return read(family, display); });
    });
}

std::int16_t ProfileLists::read(Family family, TextView display) {
    ElementLists& lists = listsOf(family);
    const bool isCut = withRow(family, [&](const auto& row) { return isCutWithoutElements(row, display); });
    CutAtExit cut(isCut ? &lists : nullptr);
    if (display.empty()) return 0;
    Display lines(terminal_, display);
    Joiner joiner(lines);
    const auto [found, isComplete] = readElements(family, joiner);
    if (!found.empty()) cut.cancel();
    sayElements(lines.watch(), factsOf(family), found);
    ListsWriter(lists, factsOf(family)).store(found);
    sayStored(lines.watch(), factsOf(family), found, lists);
    if (!isComplete) fail(Failure::Overflow);
    return toInt16(static_cast<long long>(found.size()));
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
