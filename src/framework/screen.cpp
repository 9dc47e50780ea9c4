#include "framework/screen.h"

namespace vantro {

TextView Screen::fetch(std::int16_t line) {
    if (line < 0) return functions_.ScreenLine(response_, line, texts_);
    const auto index = static_cast<std::size_t>(line);
    if (index >= fetched_.size()) fetched_.resize(index + 1);
    std::optional<TextView>& known = fetched_[index];
    if (!known) known = functions_.ScreenLine(response_, line, texts_);
    return *known;
}

}  // namespace vantro
