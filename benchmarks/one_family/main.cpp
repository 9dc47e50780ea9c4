// One element family of a display: one call, and one call for each of 22 families.
#include "common/alternating.h"
#include "common/displays.h"
#include "common/element_set.h"
#include "common/observing.h"
#include "one_family/lean_family.h"

#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

namespace {

using namespace vantro;
using namespace vantro::bench;

constexpr std::size_t families = 22;

/// A `CProfile`, asked through its count properties or with a collection.
class Library {
public:
    explicit Library(Terminal* terminal = nullptr) {
        const ClassRow& row = *findClass(u"CProfile");
        object_ = createObject(row, terminal != nullptr ? *terminal : terminal_);
        for (std::size_t i = 0; i < families; ++i) counts_[i] = findCount(row, familyRules()[i].count);
    }

    std::int16_t count(std::size_t family, TextView display) { return counts_[family]->call(*object_, {display}); }

    const TextList& list(std::size_t family, TextView content) {
        return *object_->list(Text(u"str").append(familyRules()[family].prefix()).append(content));
    }

    /// A new collection with the family's elements.
    CollectionPtr query(std::size_t family, TextView display) {
        CollectionPtr collection = terminal_.createCollection();
        collection->Add(u"strKeyPrefix", Text(familyRules()[family].prefix()));
        object_->profileGet()->ProfileElements(display, collection);
        return collection;
    }

private:
    BuiltInTerminal terminal_;
    std::unique_ptr<ProfileObject> object_;
    std::array<const CountProperty*, families> counts_{};
};

Library& library() {
    static Library the;
    return the;
}

/// The same with an object for each family: none sees a display twice, so none can keep anything of it.
std::int16_t countAnew(std::size_t family, TextView display) {
    static std::array<Library, families> objects;
    return objects[family].count(family, display);
}

#if VANTRO_BENCH_OBSERVERS
/// The library in a program that can observe it and does not, or that counts the steps.
std::int16_t countThroughObserved(std::size_t family, TextView display, ReadingObserver* observer) {
    static BuiltInTerminal builtIn;
    static ObservedTerminal terminal(builtIn);
    static Library the(&terminal);
    static ReadingObserver* current = nullptr;
    if (current != observer) {
        terminal.setObserver(observer);
        current = observer;
    }
    return the.count(family, display);
}
#endif

template <Depth depth>
const FamilyItems& scan(std::size_t family, TextView display) {
    static FamilyItems found;
    found.prepare(display.size());
    scanFamily<depth>(familyRules()[family], display, found);
    return found;
}

using Lists = std::pair<TextList, TextList>;  // numbers and texts, with an empty entry 0

Lists listsOf(const FamilyItems& found) {
    Lists lists{{Text()}, {Text()}};
    for (const FamilyItem& item : found.items) {
        lists.first.emplace_back(item.number);
        lists.second.emplace_back(item.text);
    }
    return lists;
}

Lists listsOf(const CollectionPtr& results) {
    return {std::get<TextList>(results->Item(u"strKeyElementNr()")->Value()),
            std::get<TextList>(results->Item(u"strKeyElement()")->Value())};
}

Lists libraryLists(std::size_t family, TextView display) {
    library().count(family, display);
    return {library().list(family, u"Number"), library().list(family, u"Text")};
}

void check(Corpus corpus) {
    for (std::size_t i = 0; i < displays(corpus).size(); ++i) {
        const TextView display = displays(corpus)[i].utf16;
        const Display odd = withOddText(displays(corpus)[i]);
        for (std::size_t family = 0; family < families; ++family) {
            const Lists ours = libraryLists(family, display);
            const auto require = [&](const char* contender, const Lists& expected, const Lists& theirs) {
                const std::string problem = toAscii(familyRules()[family].prefix()) + " differs";
                requireEqual(contender, i, theirs == expected ? "" : problem);
            };
            require("ProfileElements", ours, listsOf(library().query(family, display)));
            require("floor", ours, listsOf(scan<Depth::Elements>(family, display)));
            require("exact", ours, listsOf(scan<Depth::Everything>(family, display)));
            require("exact, odd text", libraryLists(family, odd.utf16),
                    listsOf(scan<Depth::Everything>(family, odd.utf16)));
        }
    }
}

void addContenders(Alternating& runner, Corpus corpus) {
    const auto add = [&](const std::string& name, auto call) {
        // Each display is asked for another family, so that sections near the top and far down count equally.
        runner.add(name + ", one call", [corpus, call](std::size_t begin, std::size_t end) {
            for (std::size_t i = begin; i < end; ++i) keep(call(i % families, displays(corpus)[i].utf16));
        });
        runner.add(name + ", 22 calls", [corpus, call](std::size_t begin, std::size_t end) {
            for (std::size_t i = begin; i < end; ++i) {
                for (std::size_t family = 0; family < families; ++family) keep(call(family, displays(corpus)[i].utf16));
            }
        });
    };
    add("floor", [](std::size_t family, TextView display) { return &scan<Depth::Elements>(family, display); });
    add("exact", [](std::size_t family, TextView display) { return &scan<Depth::Everything>(family, display); });
    add("count property", [](std::size_t family, TextView display) { return library().count(family, display); });
    add("count property, read anew", countAnew);
#if VANTRO_BENCH_OBSERVERS
    add("count property, nobody observes",
        [](std::size_t family, TextView display) { return countThroughObserved(family, display, nullptr); });
    add("count property, steps counted", [](std::size_t family, TextView display) {
        static StepCounter counter;
        return countThroughObserved(family, display, &counter);
    });
#endif
    add("ProfileElements", [](std::size_t family, TextView display) { return library().query(family, display); });
}

}  // namespace

int main(int argc, char** argv) {
    Alternating runner("one_family", argc, argv);
    for (const Corpus corpus : corpora) {
        printFigures(corpus);
        check(corpus);
        addContenders(runner, corpus);
        runner.run(nameOf(corpus), displays(corpus).size());
    }
}
