#include "profile/element_parser.h"

#include "framework/constants.h"
#include "framework/error_frame.h"
#include "profile/element_query.h"

namespace vantro {

namespace {

ListCut listCutOf(Family family) {
    const std::size_t index = indexOf(family);
    return index < firstTransferable ? prefixedFamilies[index].cut : ListCut::BeforeEmptyTest;
}

void cutToEntry0(ElementLists& lists) {
    lists.text.resize(1);
    lists.number.resize(1);
}

}  // namespace

CProfile::CProfile(Terminal& terminal, const TransErrors& /*errors*/) : terminal_(terminal) {}

ElementLists& CProfile::listsOf(Family family) const {
    std::unique_ptr<ElementLists>& lists = lists_[indexOf(family)];
    if (!lists) {
        auto made = std::make_unique<ElementLists>();
        if (!isTransferable(family)) cutToEntry0(*made);
        lists = std::move(made);
    }
    return *lists;
}

std::int16_t CProfile::count(Family family, TextView display) {
    return raiseAs(extractorError(family), description::verifyingProfile, [&] { return refill(family, display); });
}

std::int16_t CProfile::refill(Family family, TextView display) {
    ElementLists& lists = listsOf(family);
    if (isTransferable(family)) {
        if (display.empty()) return 0;
        Display lines(terminal_, display);
        const TransferableFamily& row = transferableFamilies[indexOf(family) - firstTransferable];
        Joiner joiner(lines);
        TransferableListsSink sink(lists, row.split);
        return extract(row, joiner, sink);
    }
    // Meant: four families look whether the display is empty before they cut their lists.
    if (listCutOf(family) == ListCut::AfterEmptyTest && display.empty()) return 0;
    cutToEntry0(lists);
    if (display.empty()) return 0;
    Display lines(terminal_, display);
    Joiner joiner(lines);
    NumberedListsSink sink(lists);
    return extract(family, joiner, sink);
}

CollectionPtr CProfile::IProfileGet_ProfileElements(TextView display, const CollectionPtr& collection,
                                                    SelectionSource& selection) {
    return ProfileQuery(*this, terminal_, collection, selection).answer(display);
}

}  // namespace vantro
