#include "cli/io/pages.h"

#include "cli/io/display_lines.h"

#include <algorithm>
#include <cstddef>

namespace vantro {

namespace {

class PageJoiner {
public:
    PageJoiner(std::size_t size, std::string_view separator) : separator_(separator) { joined_.reserve(size); }

    /// Adds a line with its line end.
    void add(std::string_view whole) {
        const std::string_view line = withoutCarriageReturn(whole.substr(0, whole.find('\n')));
        if (isSeparator(line, separator_)) {
            isInDisplay_ = hasPageEnded_ = false;
        } else if (isInDisplay_ && isPageBreak(line, hasPageEnded_)) {
            hasPageEnded_ = true;
        } else if (isContent(line)) {
            if (hasPageEnded_) replaceBreak();
            hasPageEnded_ = false;
            isInDisplay_ = !containsEndText(line);
            pageEnd_ = joined_.size() + whole.size();
        }
        joined_ += whole;
    }

    std::string& text() { return joined_; }

private:
    void replaceBreak() {
        const auto count = std::count(joined_.begin() + static_cast<std::ptrdiff_t>(pageEnd_), joined_.end(), '\n');
        joined_.resize(pageEnd_);
        for (std::ptrdiff_t line = 0; line < count; ++line) (joined_ += pageBreakMark) += '\n';
    }

    std::string_view separator_;
    std::string joined_;
    std::size_t pageEnd_ = 0;  // after the last line with content
    bool isInDisplay_ = false;
    bool hasPageEnded_ = false;
};

}  // namespace

std::string joinPages(std::string_view text, std::string_view separator) {
    PageJoiner pages(text.size(), separator);
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
        pages.add(text.substr(0, length));
        text.remove_prefix(length);
    }
    return std::move(pages.text());
}

}  // namespace vantro
