#include "framework/joined_text.h"

namespace vantro {

void JoinedText::trim() {
    const std::size_t size = text_.size();
    text_.resize(withoutPadding(text_).size());
    const std::size_t atEnd = size - text_.size();
    std::size_t atBegin = 0;
    if (text_.starts_with(u' ')) {
        atBegin = text_.find_first_not_of(u' ');
        text_.erase(0, atBegin);
    }
    if (isObserved_) trimParts(atBegin, atEnd);
}

void JoinedText::trimParts(std::size_t atBegin, std::size_t atEnd) {
    for (; atEnd > 0; parts_.pop_back()) {
        TextView& last = parts_.back().text;
        if (atEnd < last.size()) {
            last.remove_suffix(atEnd);
            break;
        }
        atEnd -= last.size();
    }
    for (JoinedPart& part : parts_) {
        const std::size_t inPart = std::min(atBegin, part.text.size());
        part.text.remove_prefix(inPart);
        atBegin -= inPart;
    }
}

}  // namespace vantro
