// A text that is joined from parts of the screen.
#pragma once

#include "framework/observation.h"
#include "framework/text_ops.h"

#include <utility>
#include <vector>

namespace vantro {

/// A text that is joined from several. If the call is observed, it remembers where they were.
class JoinedText {
public:
    explicit JoinedText(const Watch& watch) : watch_(watch) {}

    void reserve(std::size_t size) { text_.reserve(size); }

    /// Begins again with this part.
    void assign(TextView part) {
        text_ = part;
        if (watch_) parts_ = {{part, false}};
    }

    /// Appends a part of the screen.
    void append(TextView part) {
        text_ += part;
        if (watch_) addPart(part, false);
    }

    /// Appends a text that is not on the screen.
    void insert(TextView inserted) {
        text_ += inserted;
        if (watch_) addPart(inserted, true);
    }

    /// The same for a literal of one character, faster.
    void insert(const char16_t (&character)[2]) {
        text_.push_back(character[0]);
        if (watch_) addPart(character, true);
    }

    /// Removes the blanks at both ends.
    void trim() {
        if (watch_) trimParts();
        text_.resize(withoutPadding(text_).size());
        if (text_.starts_with(u' ')) text_.erase(0, text_.find_first_not_of(u' '));
    }

    bool empty() const { return text_.empty(); }
    std::size_t size() const { return text_.size(); }

    /// The text so far; valid until it is changed.
    TextView view() const { return text_; }

    /// The same; where its parts are is known from then on.
    const Text& text() const {
        if (watch_) watch_.joined(text_, parts_);
        return text_;
    }

    /// The text as a result. Its places stay known.
    Text&& take() && {
        text();
        return std::move(text_);
    }

private:
    void addPart(TextView part, bool isInserted);
    void trimParts();

    Watch watch_;
    Text text_;
    std::vector<JoinedPart> parts_;  // empty unless the call is observed
};

}  // namespace vantro
