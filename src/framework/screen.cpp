#include "framework/screen.h"

namespace vantro {

TextView Screen::fetch(std::int16_t line) {
    if (line < 0) return functions_.ScreenLine(response_, line, texts_);  // raises 5
    const auto index = static_cast<std::size_t>(line);
    if (index >= fetched_.size()) fetched_.resize(index + 1);
    std::optional<TextView>& known = fetched_[index];
    if (!known) {
        known = functions_.ScreenLine(response_, line, texts_);
        watch_.fetched(*known, line);
    }
    return *known;
}

Column Screen::find(TextView mark, Column from) const {
    const Column found = vantro::find(response_, mark, from);
    if (watch_) sayMark(mark, MarkSearch::OnScreen, found);
    return found;
}

// The terminal does not say where the marker is. It is shown where the text contains it first.
void Screen::sayMarker(TextView marker, bool isShown) const {
    sayMark(marker, MarkSearch::Terminal, isShown ? vantro::find(response_, marker) : Column{0});
}

void Screen::sayMark(TextView mark, MarkSearch search, Column found) const {
    const bool isFound = found > Column{0};
    watch_.searched(mark, search, isFound ? mid(response_, found, Width{static_cast<int>(mark.size())}) : TextView{});
}

// A terminal may return a copy of the field.
void Screen::sayField(TextView field, TextView text) const {
    const Column begin = vantro::find(text, field);
    const TextView original = begin > Column{0} ? mid(text, begin, Width{static_cast<int>(field.size())}) : TextView{};
    if (original.data() != field.data()) watch_.copied(field, original);
}

}  // namespace vantro
