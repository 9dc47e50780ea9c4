#include "framework/joined_text.h"

namespace vantro {

void JoinedText::addPart(TextView part, bool isInserted) { parts_.push_back({part, isInserted}); }

void JoinedText::trimParts() {
    const TextView kept = withoutPadding(text_);
    std::size_t atEnd = text_.size() - kept.size();
    std::size_t atBegin = kept.size() - trimmed(kept).size();
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
