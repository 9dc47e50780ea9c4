// One element family of a display through the public interface: one call, and one call for each of 22 families.
#include "common/displays.h"
#include "common/element_set.h"
#include "common/run.h"
#include "one_family/scanner.h"

#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <cstdio>

namespace {

using namespace vantro;
using namespace vantro::bench;

constexpr const char* handOne = "by hand, one call";
constexpr const char* handAll = "by hand, 22 calls";
constexpr const char* lineByLineOne = "line-by-line scan, one call";
constexpr const char* lineByLineAll = "line-by-line scan, 22 calls";
constexpr const char* oursOne = "count property, one call";
constexpr const char* oursAll = "count property, 22 calls";
constexpr const char* oursLists = "count property and lists, one call";

/// A `CProfile` and its count properties for the 22 families.
class Counter {
public:
    Counter() {
        const ClassRow& row = *findClass(u"CProfile");
        object_ = createObject(row, terminal_);
        for (std::size_t i = 0; i < counts_.size(); ++i) counts_[i] = findCount(row, familyRules()[i].count);
    }

    std::int16_t count(std::size_t family, TextView display) { return counts_[family]->call(*object_, {display}); }

    const TextList& list(std::size_t family, TextView content) {
        return *object_->list(Text(u"str").append(familyRules()[family].prefix.substr(0, 3)).append(content));
    }

private:
    BuiltInTerminal terminal_;
    std::unique_ptr<ProfileObject> object_;
    std::array<const CountProperty*, 22> counts_{};
};

Counter& counter() {
    static Counter the;
    return the;
}

using Plain = std::vector<PlainElement>;

template <class Items>
Plain plain(const Items& items) {
    Plain elements;
    for (const auto& item : items) {
        elements.push_back({.number = Text(item.number),
                            .text = Text(item.text),
                            .code = {},
                            .airline = {},
                            .account = {},
                            .freeText = {}});
    }
    return elements;
}

Plain oursFor(std::size_t family, TextView display) {
    const auto count = static_cast<std::size_t>(counter().count(family, display));
    const TextList& numbers = counter().list(family, u"Number");
    const TextList& texts = counter().list(family, u"Text");
    Plain elements;
    for (std::size_t k = 1; k <= count; ++k) {
        elements.push_back(
            {.number = numbers[k], .text = texts[k], .code = {}, .airline = {}, .account = {}, .freeText = {}});
    }
    return elements;
}

void require(const char* contender, std::size_t display, std::size_t family, const Plain& ours, const Plain& theirs) {
    ElementSet a;
    ElementSet b;
    a.families[indexOf(familyRules()[family].family)] = ours;
    b.families[indexOf(familyRules()[family].family)] = theirs;
    requireEqual(contender, display, difference(a, b));
}

void checkAll() {
    for (std::size_t i = 0; i < displays(Corpus::Mixed).size(); ++i) {
        const Display& display = displays(Corpus::Mixed)[i];
        for (std::size_t family = 0; family < familyRules().size(); ++family) {
            const Plain ours = oursFor(family, display.utf16);
            FamilyItems items;
            scanFamily(familyRules()[family], display.utf16, items);
            require(handOne, i, family, ours, plain(items.items));
            require(lineByLineOne, i, family, ours, plain(scanLineByLine(familyRules()[family], display.utf16)));
        }
    }
    std::printf("%zu displays, %zu families each; all contenders agree\n\n", displays(Corpus::Mixed).size(), familyRules().size());
}

// Each display is asked for another family, so that sections near the top and far down are covered equally.
std::size_t familyOf(std::size_t display) { return display % familyRules().size(); }

template <class Call>
auto oneCall(Call call) {
    return [call] {
        for (std::size_t i = 0; i < displays(Corpus::Mixed).size(); ++i) call(familyOf(i), displays(Corpus::Mixed)[i]);
    };
}

template <class Call>
auto allCalls(Call call) {
    return [call] {
        for (const Display& display : displays(Corpus::Mixed)) {
            for (std::size_t family = 0; family < familyRules().size(); ++family) call(family, display);
        }
    };
}

void registerAll() {
    const double count = static_cast<double>(displays(Corpus::Mixed).size());
    const auto hand = [](std::size_t family, const Display& display) {
        static FamilyItems items;
        items.clear();
        scanFamily(familyRules()[family], display.utf16, items);
        benchmark::DoNotOptimize(items.items.data());
    };
    const auto lineByLine = [](std::size_t family, const Display& display) {
        benchmark::DoNotOptimize(scanLineByLine(familyRules()[family], display.utf16));
    };
    const auto ours = [](std::size_t family, const Display& display) {
        benchmark::DoNotOptimize(counter().count(family, display.utf16));
    };
    const auto lists = [ours](std::size_t family, const Display& display) {
        ours(family, display);
        benchmark::DoNotOptimize(counter().list(family, u"Number").data());
        benchmark::DoNotOptimize(counter().list(family, u"Text").data());
    };
    overDisplays(handOne, count, oneCall(hand));
    overDisplays(handAll, count, allCalls(hand));
    overDisplays(lineByLineOne, count, oneCall(lineByLine));
    overDisplays(lineByLineAll, count, allCalls(lineByLine));
    overDisplays(oursOne, count, oneCall(ours));
    overDisplays(oursAll, count, allCalls(ours));
    overDisplays(oursLists, count, oneCall(lists));
}

constexpr Ratio ratios[] = {
    {oursOne, handOne, 2.0},     {oursLists, handOne, 2.0},   {oursAll, handAll, 1.0},
    {oursOne, lineByLineOne, 0}, {oursAll, lineByLineAll, 0},
};

}  // namespace

int main(int argc, char** argv) {
    checkAll();
    registerAll();
    return run("one_family", argc, argv, ratios);
}
