#include "transactions/search/list_walk.h"

#include "transactions/marks.h"
#include "transactions/search/locator_list.h"

namespace vantro {

void ListWalk::sayHeader(TextView headerMark, Counter above, bool isFound) const {
    if (number_ == above) {
        watch().decided(rule::listHasNoStart);
        return;
    }
    const bool isContinuation = headerMark.empty();
    // A line with a prompt ends the search, also if it contains the header.
    const int last = isFound || line_.empty() ? number() : number() - 1;
    if (!isContinuation && last > above.value()) {
        const TextView found = isFound ? shownIn(line_, headerMark) : TextView{};
        watch().searched(headerMark, MarkSearch::InLine, (above + 1).value(), last, found);
    }
    if (!isFound) {
        decided(rule::listEndsBeforeHeader);
    } else {
        decided(isContinuation ? rule::listContinuation : rule::listHeader);
    }
}

void ListWalk::sayBlockEnd(const ReadingRule& reason) const {
    if (&reason == &rule::listPrompt) {
        watch().searched(mark::prompt, MarkSearch::InLine, number(), number(), shownIn(line_, mark::prompt));
    }
    decided(reason);
}

void ListWalk::sayBlockEnd(const ReadingRule& reason, Counter first) const {
    watch().searched(mark::endOfBlock, MarkSearch::InLine, first.value(), number(), shownIn(line_, mark::endOfBlock));
    sayBlockEnd(reason);
}

void LocatorList::sayLocatorColumn(bool isSearched) const {
    if (!isSearched) {
        if (!locatorColumn_.found) lines_.decided(rule::locatorColumnFromState);
        return;
    }
    const TextView title = shownIn(lines_.line(), locatorTitle);
    watch().searched(locatorTitle, MarkSearch::InLine, lines_.number(), lines_.number(), title);
    lines_.decided(title.empty() ? rule::locatorColumnMissing : rule::locatorColumnFound);
}

}  // namespace vantro
