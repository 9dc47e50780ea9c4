#include "profile/element_parser.h"

#include "display/families.h"
#include "framework/observation.h"
#include "profile/element_query.h"

namespace vantro {

namespace {

template <Family family>
std::int16_t count(ProfileObject& object, const CountRequest& request) {
    return static_cast<CProfile&>(object).count(family, request.text);
}

/// A retired property, kept because terminals expect it in the interface. It reads nothing and stores nothing.
std::int16_t countNothing(ProfileObject& /*object*/, const CountRequest& /*request*/) { return 0; }

template <Family family>
constexpr CountProperty countProperty = {
    withRow(family, [](const auto& row) { return row.about.countProperty; }),
    count<family>,
};

/// In the order of the families; the retired property comes after the one that replaced it.
template <std::size_t... Index>
constexpr auto countProperties(std::index_sequence<Index...> /*families*/) {
    const std::array ofFamilies{countProperty<static_cast<Family>(Index)>...};
    std::array<CountProperty, familyCount + 1> all{};
    std::size_t next = 0;
    for (std::size_t index = 0; index < familyCount; ++index) {
        all[next++] = ofFamilies[index];
        if (index == indexOf(Family::PPH)) all[next++] = {u"PPHElementsCountold", countNothing};
    }
    return all;
}

}  // namespace

constexpr std::array<CountProperty, familyCount + 1> profileCounts =
    countProperties(std::make_index_sequence<familyCount>());

CProfile::CProfile(Terminal& terminal, const TransErrors& /*errors*/)
    : IProfileGet(&terminal), terminal_(terminal), lists_(terminal) {}

std::int16_t CProfile::count(Family family, TextView display) {
    return observed(&terminal_, factsOf(family).countProperty, display, [&] { return lists_.refill(family, display); });
}

CollectionPtr CProfile::IProfileGet_ProfileElements(TextView display, const CollectionPtr& collection,
                                                    SelectionSource& selection) {
    return ProfileQuery(lists_, terminal_, collection, selection).answer(display);
}

}  // namespace vantro
