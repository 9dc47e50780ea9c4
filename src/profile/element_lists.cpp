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

/// The size up to which a text needs no allocation.
const std::size_t shortText = Text().capacity();

}  // namespace

void ElementLists::add(TextList& list, TextView text) {
    if (spare_.empty() || text.size() <= shortText) {
        list.emplace_back(text);
    } else {
        list.push_back(std::move(spare_.back()));
        spare_.pop_back();
        list.back().assign(text);
    }
}

void ElementLists::cut(TextList& list, std::size_t length) noexcept {
    for (; list.size() > length; list.pop_back()) {
        Text& last = list.back();
        if (last.capacity() > shortText && spare_.size() < mostSpare) spare_.push_back(std::move(last));
    }
}

void ElementLists::cutTo(std::size_t length, std::span<const ElementPart> parts) noexcept {
    for (const ElementPart part : parts) {
        if (part == ElementPart::Asterisk) {
            asterisks().resize(std::min(asterisks().size(), length));
        } else {
            cut(texts(part), length);
        }
    }
}

namespace {

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
            lists_.cutTo(stored + firstIndex_, parts_);
            throw;
        }
        lists_.cutTo(stored + firstIndex_, parts_);
    }

private:
    void store(const Element& element, std::size_t index) {
        for (const ElementPart part : parts_) {
            if (part == ElementPart::Asterisk) {
                lists_.asterisks().resize(index);
                lists_.asterisks().push_back(element.asterisk);
            } else {
                lists_.put(part, index, element.*rowOf(part).value);
            }
        }
    }

    ElementLists& lists_;
    std::span<const ElementPart> parts_;
    std::size_t firstIndex_;
};

void addEntry0(ElementLists& lists) {
    for (const ElementPart part : detail::wholeParts) lists.texts(part).resize(1);
}

void cutToEntry0(ElementLists& lists) { lists.cutTo(1, detail::wholeParts); }

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
        if (!isTransferable(family)) addEntry0(*made);
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
