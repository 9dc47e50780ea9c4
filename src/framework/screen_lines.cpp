#include "vantro/screen_lines.h"

#include <utility>

namespace vantro {

namespace {

TextView withoutLineEnd(TextView line) {
    if (line.ends_with(u'\n')) line.remove_suffix(1);
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    return line;
}

class ScreenJoiner {
public:
    /// Appends a line below the others, without its line end.
    void add(TextView lineWithEnd) {
        constexpr std::size_t width = screenWidth;
        const TextView line = withoutLineEnd(lineWithEnd);
        Text& screen = joined_.screen;
        screen.resize(lines_++ * width, u' ');
        screen.append(line.substr(0, width));
        if (line.size() > width) joined_.longLines.push_back({lines_, line.size()});
    }

    JoinedLines take() { return std::move(joined_); }

private:
    JoinedLines joined_;
    std::size_t lines_ = 0;
};

template <class Lines>
JoinedLines joined(const Lines& lines) {
    ScreenJoiner joiner;
    for (const TextView line : lines) joiner.add(line);
    return joiner.take();
}

}  // namespace

JoinedLines joinLines(TextView text) {
    const TextView content = withoutLineEnd(text);
    if (content.find(u'\n') == TextView::npos) return {Text(content), {}};

    ScreenJoiner joiner;
    std::size_t start = 0;
    for (std::size_t end = 0; end != TextView::npos; start = end + 1) {
        end = content.find(u'\n', start);
        joiner.add(content.substr(start, end - start));
    }
    return joiner.take();
}

JoinedLines joinLines(std::span<const TextView> lines) { return joined(lines); }

JoinedLines joinLines(const TextList& lines) { return joined(lines); }

}  // namespace vantro
