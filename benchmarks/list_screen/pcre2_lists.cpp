#include "common/units.h"
#include "list_screen/readers.h"

namespace vantro::bench {

namespace {

// Each alternative has one group, the last one in the match.
int groupIn(const Pcre2Expression& expression, View line) {
    const int last = expression.match(line);
    return last > 1 ? last - 1 : 0;
}

}  // namespace

CompanyList Pcre2Lists::companies(View screen) {
    CompanyAssembler assembler;
    const std::size_t end = end_.find(screen);
    for (std::size_t n = 1; n < end / 80; ++n) {
        const View line = screenLine(screen, n);
        if (const int group = groupIn(company_, line); group != 0) {
            assembler.take(group, company_.group(line, group), static_cast<int>(company_.begin(group)));
        }
    }
    return assembler.finished(end < screen.size() && screen[end] == u'E');
}

TravellerList Pcre2Lists::travellers(View screen) {
    TravellerAssembler assembler;
    const std::size_t lines = end_.find(screen) / 80;
    for (std::size_t n = 1; n < lines; ++n) {
        const View line = screenLine(screen, n);
        if (const int group = groupIn(traveller_, line); group != 0) {
            assembler.take(group, traveller_.group(line, group));
        }
    }
    return std::move(assembler.list);
}

}  // namespace vantro::bench
