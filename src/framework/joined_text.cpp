#include "framework/joined_text.h"

namespace vantro {

void JoinedText::trim() {
    const std::size_t end = withoutPadding(text_).size();
    std::size_t removed = text_.size() - end;
    text_.resize(end);
    for (; removed > 0 && !parts_.empty(); parts_.pop_back()) {
        TextView& last = parts_.back().text;
        if (removed < last.size()) {
            last.remove_suffix(removed);
            break;
        }
        removed -= last.size();
    }
    if (!text_.starts_with(u' ')) return;
    std::size_t blanks = text_.find_first_not_of(u' ');
    text_.erase(0, blanks);
    for (JoinedPart& part : parts_) {
        const std::size_t inPart = std::min(blanks, part.text.size());
        part.text.remove_prefix(inPart);
        blanks -= inPart;
    }
}

}  // namespace vantro
