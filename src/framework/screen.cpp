#include "framework/screen.h"

namespace vantro {

TextView Screen::fetch(std::int16_t line) {
    const auto known = fetched_.find(line);
    if (known != fetched_.end()) return known->second;
    const TextView text = functions_.ScreenLine(response_, line, texts_);
    fetched_.emplace(line, text);
    return text;
}

}  // namespace vantro
