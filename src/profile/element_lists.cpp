#include "profile/element_lists.h"

#include "display/families.h"
#include "framework/constants.h"
#include "framework/error_frame.h"
#include "profile/element_parts.h"
#include "profile/element_steps.h"
#include "readers/extractors.h"
#include "vantro/lists.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <span>
#include <utility>

namespace vantro {

namespace {

/// The size up to which a text needs no allocation.
const std::size_t shortText = Text().capacity();

template <class Lists>
bool isShared(const std::shared_ptr<Lists>& lists) {
    if (lists.use_count() > 1) return true;
    // Another thread may have had them: what it read, it read before what follows here.
    std::atomic_thread_fence(std::memory_order_acquire);
    return false;
}

}  // namespace

ElementLists::ElementLists(std::size_t firstIndex) : firstIndex_(firstIndex) {
    spare_.reserve(mostSpare);
    for (std::size_t part = 0; part < parts_.size(); ++part) texts_[part] = &parts_[part];
    use(std::make_shared<WholeLists>(firstIndex));
}

void ElementLists::use(std::shared_ptr<WholeLists> lists) noexcept {
    next_ = std::exchange(whole_, std::move(lists));
    texts_[indexOf(ElementPart::WholeText)] = std::get_if<TextList>(&whole_->texts);
    texts_[indexOf(ElementPart::Number)] = std::get_if<TextList>(&whole_->numbers);
}

std::shared_ptr<const ItemValue> ElementLists::share(ElementPart part) {
    if (!next_ || isShared(next_)) next_ = std::make_shared<WholeLists>(firstIndex_);
    return {whole_, part == ElementPart::WholeText ? &whole_->texts : &whole_->numbers};
}

void ElementLists::prepareChange() noexcept {
    if (!isShared(whole_)) return;
    use(std::move(next_));
    cutTo(firstIndex_, detail::wholeParts);
}

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
            cut(*texts_[indexOf(part)], length);
        }
    }
}

namespace {

/// Stores every part of the elements in its list. The entries of earlier elements are replaced, which saves
/// allocations. Lists stay unchanged when there is no element.
class ListsWriter {
public:
    ListsWriter(ElementLists& lists, const FamilyFacts& family)
        : lists_(lists),
          parts_(family.parts),
          firstIndex_(family.firstIndex),
          isSplit_(isTransferable(*family.family)) {}

    /// When memory runs out, the lists contain the elements before that one.
    void store(std::span<const FoundElement> found) {
        if (found.empty()) return;
        lists_.prepareChange();
        std::size_t stored = 0;
        try {
            for (; stored < found.size(); ++stored) {
                const std::size_t index = stored + firstIndex_;
                isSplit_ ? storeParts(split(found[stored]), index) : store(found[stored], index);
            }
        } catch (...) {
            lists_.cutTo(stored + firstIndex_, parts_);
            throw;
        }
        lists_.cutTo(stored + firstIndex_, parts_);
    }

private:
    void store(const FoundElement& found, std::size_t index) {
        lists_.put(ElementPart::WholeText, index, found.text());
        lists_.put(ElementPart::Number, index, found.number());
    }

    void storeParts(const Element& element, std::size_t index) {
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
    bool isSplit_;  // all other families have a text and a number alone
};

void cutToEntry0(ElementLists& lists) {
    lists.prepareChange();
    lists.cutTo(1, detail::wholeParts);
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

/// Returns true if the search reached its end. Otherwise the elements are those found before it ended or failed,
/// whatever the failure: the caller raises the family's number.
bool readElements(Family family, Joiner& joiner, FoundElements& found) {
    try {
        return extract(FamilySet(family), joiner, found).empty();
    } catch (...) {
        return false;
    }
}

/// One call of a count property.
class Refill {
public:
    Refill(Terminal& terminal, Family family, TextView display, ElementLists& lists)
        : terminal_(terminal),
          family_(family),
          display_(display),
          lists_(lists),
          cut_(withRow(family, [&](const auto& row) { return isCutWithoutElements(row, display); }) ? &lists
                                                                                                    : nullptr) {}

    /// Reads a display that is not empty. Returns the number of elements.
    std::int16_t run(KnownDisplay& known) {
        KnownReading* const reading = known.find(display_);
        if (reading == nullptr) return readOnce(known);
        const bool isComplete = readElements(family_, reading->joiner(), reading->found());
        if (isComplete) known.keep();
        return store(reading->found(), isComplete, {});
    }

private:
    // A function of its own, because its memory for lines is much to set up.
    std::int16_t readOnce(KnownDisplay& known) {
        Display lines(terminal_, display_);
        known.remember(lines);
        std::array<char16_t, 1024> texts;  // not initialised
        Joiner joiner(lines, texts);
        FoundElements found(lines.scratchMemory());
        found.reserve(usualElements);
        const bool isComplete = readElements(family_, joiner, found);
        return store(found, isComplete, lines.watch());
    }

    std::int16_t store(const FoundElements& found, bool isComplete, const Watch& watch) {
        if (!found.empty()) cut_.cancel();
        const FamilyFacts& facts = factsOf(family_);
        if (watch) sayElements(watch, facts, found);
        ListsWriter(lists_, facts).store(found);
        if (watch) sayStored(watch, facts, found, lists_);
        if (!isComplete) fail(Failure::Overflow);
        return toInt16(static_cast<long long>(found.size()));
    }

    Terminal& terminal_;
    const Family family_;
    const TextView display_;
    ElementLists& lists_;
    CutAtExit cut_;
};

const ElementListName* findList(TextView name) {
    const auto row = std::ranges::find(elementLists(), name, &ElementListName::name);
    return row == elementLists().end() ? nullptr : &*row;
}

}  // namespace

ElementLists& ProfileLists::listsOf(Family family) const {
    std::unique_ptr<ElementLists>& lists = lists_[indexOf(family)];
    if (!lists) lists = std::make_unique<ElementLists>(factsOf(family).firstIndex);
    return *lists;
}

std::int16_t ProfileLists::refill(Family family, TextView display) {
    const int error = withRow(family, [](const auto& row) { return row.error; });
    return observedQuery(Watch(terminal_), factsOf(family).word, family, [&] {
        return raiseAs(error, description::verifyingProfile, [&] { return read(family, display); });
    });
}

std::int16_t ProfileLists::read(Family family, TextView display) {
    Refill refill(terminal_, family, display, listsOf(family));
    return display.empty() ? std::int16_t{0} : refill.run(known_);
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
