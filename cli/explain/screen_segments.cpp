#include "cli/explain/screen_segments.h"

#include "vantro/screen_lines.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace vantro {

namespace {

/// Something in a line, by its columns from 0.
struct Span {
    std::size_t first;
    std::size_t end;
    enum class Kind : std::uint8_t { Value, Mark, Tag } kind;
    std::size_t value = 0;
};

/// What is in each line of a screen.
class Spans {
public:
    explicit Spans(TextView screen) : screen_(screen), lines_((screen.size() + width - 1) / width) {}

    void add(const Place& place, Span::Kind kind, std::size_t value = 0) {
        if (place.line < 0 || place.column < 1 || place.length < 1) return;
        const auto number = static_cast<std::size_t>(place.line);
        if (number >= lines_.size()) return;
        const std::size_t first = static_cast<std::size_t>(place.column) - 1;
        const std::size_t end = std::min(first + static_cast<std::size_t>(place.length), textOf(number).size());
        if (first < end) lines_[number].push_back({first, end, kind, value});
    }

    std::size_t count() const { return lines_.size(); }
    TextView textOf(std::size_t number) const { return screen_.substr(number * width, width); }
    const std::vector<Span>& of(std::size_t number) const { return lines_[number]; }

private:
    static constexpr std::size_t width = screenWidth;
    TextView screen_;
    std::vector<std::vector<Span>> lines_;
};

ScreenSegment segmentOf(TextView line, std::size_t first, std::size_t end, const std::vector<Span>& spans,
                        const PageModel& model) {
    ScreenSegment segment{.text = line.substr(first, end - first), .column = first + 1, .values = {}};
    for (const Span& span : spans) {
        if (span.first > first || span.end < end) continue;
        if (span.kind == Span::Kind::Value) segment.values.push_back(span.value);
        if (span.kind == Span::Kind::Mark) segment.isMark = true;
        if (span.kind == Span::Kind::Tag) segment.isLookAlike = true;
    }
    std::ranges::stable_sort(segment.values, {}, [&](std::size_t value) { return model.values[value].text.size(); });
    return segment;
}

ScreenLine lineOf(TextView text, const std::vector<Span>& spans, const PageModel& model) {
    ScreenLine line;
    line.isBlank = text.find_first_not_of(u' ') == TextView::npos;
    std::set<std::size_t> borders{0, text.size()};
    for (const Span& span : spans) {
        borders.insert({span.first, span.end});
        if (span.kind == Span::Kind::Tag) {
            line.looksAlike = true;
        } else {
            line.isRead = true;
        }
    }
    for (auto border = borders.begin(); std::next(border) != borders.end(); ++border) {
        line.segments.push_back(segmentOf(text, *border, *std::next(border), spans, model));
    }
    return line;
}

}  // namespace

std::vector<ScreenLine> screenLines(const PageModel& model) {
    Spans spans(model.screen);
    for (std::size_t value = 0; value < model.values.size(); ++value) {
        for (const KeptPiece& piece : model.values[value].pieces) {
            if (piece.place) spans.add(*piece.place, Span::Kind::Value, value);
        }
    }
    for (const PageGroup& group : model.groups) {
        for (const PageDecision& decision : group.decisions) {
            for (const KeptPiece& piece : decision.step.pieces) {
                if (piece.place) spans.add(*piece.place, Span::Kind::Mark);
            }
        }
    }
    for (const PageLookAlike& lookAlike : model.lookAlikes) spans.add(lookAlike.found.tag, Span::Kind::Tag);
    std::vector<ScreenLine> lines;
    for (std::size_t number = 0; number < spans.count(); ++number) {
        lines.push_back(lineOf(spans.textOf(number), spans.of(number), model));
    }
    return lines;
}

}  // namespace vantro
