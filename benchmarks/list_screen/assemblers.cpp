#include "common/units.h"
#include "list_screen/readers.h"

namespace vantro::bench {

void CompanyAssembler::take(int group, View text, int column) {
    switch (group) {
        case listTitle: list.companyList = true; break;
        case listHeader:
            list.locatorColumn = column + 1;
            inBlock = true;
            break;
        case companyName:
            if (!inBlock) break;
            if (!list.names.empty()) {
                trimEnd(list.names);
                list.names += u',';
            }
            list.names += text;
            break;
        case companyRest:
            if (inBlock) list.names += text;
            break;
        default: break;
    }
}

CompanyList CompanyAssembler::finished(bool endOfBlock) {
    list.endOfBlock = inBlock && endOfBlock;
    trimEnd(list.names);
    return std::move(list);
}

void TravellerAssembler::take(int group, View text) {
    if (group == listTitle) list.travellerList = true;
    if (group == listHeader) inBlock = true;
    if (group == travellerLocator && inBlock) list.locators.emplace_back(text);
}

}  // namespace vantro::bench
