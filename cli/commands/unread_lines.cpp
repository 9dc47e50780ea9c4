#include "cli/commands/unread_lines.h"

#include "cli/io/ascii.h"
#include "cli/io/screen_input.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace vantro {

namespace {

constexpr TextView anyRule = u"-----";
constexpr TextView sectionStart = u"------- ";
constexpr TextView endText = u"END OF DISPLAY";
constexpr std::size_t continuationIndent = 9;
constexpr std::size_t transferableNumber = 5;  // index of the first column of a transferable element's number

TextView trimmed(TextView text) {
    const std::size_t first = text.find_first_not_of(u' ');
    return first == TextView::npos ? TextView() : text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

/// The same for a line, without a branch for each of its many blanks.
TextView trimmedLine(TextView line) {
    if (line.size() != screenWidth) return trimmed(line);
    const auto others = [line](std::size_t block) {
        return std::uint64_t{~AsciiBlock::narrow(line.data() + block * AsciiBlock::size).equal(' ') & 0xFFFFU};
    };
    const std::uint64_t low = others(0) | others(1) << 16U | others(2) << 32U | others(3) << 48U;
    const std::uint64_t high = others(4);
    const int first = low != 0 ? std::countr_zero(low) : 64 + std::countr_zero(high);
    const int end = high != 0 ? 128 - std::countl_zero(high) : 64 - std::countl_zero(low);
    return low == 0 && high == 0 ? TextView()
                                 : line.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first));
}

// Unlike starts_with, this compares several units at a time.
bool beginsWith(TextView text, TextView beginning) {
    return text.size() >= beginning.size() && std::equal(beginning.begin(), beginning.end(), text.begin());
}

/// The elements that were joined from several lines, found by their number. Their views point to the joined text, which
/// begins with the number, instead of to the display.
class JoinedElements {
public:
    void add(const Element& element) {
        const TextView first = element.number.empty() ? element.text : element.number;
        const TextView last = element.text.empty() ? element.number : element.text;
        if (joined_.empty()) {
            latest_.fill(none);
            joined_.reserve(usual);
        }
        std::size_t& latest = latest_[bucketOf(element.number)];
        const char16_t* const end = last.data() + last.size();
        joined_.push_back({{first.data(), static_cast<std::size_t>(end - first.data())}, latest});
        latest = joined_.size() - 1;
    }

    bool empty() const { return joined_.empty(); }

    /// True if the line is part of an element; `text` is the trimmed line. The lines of an element are asked for in
    /// their order.
    bool contain(TextView line, TextView text) {
        const auto indent = static_cast<std::size_t>(text.data() - line.data());
        if (indent >= continuationIndent) return continues(text);
        if (beginsElement(text, text.substr(0, 2))) return true;
        if (indent + text.size() < transferableNumber) return false;
        const TextView transferable = text.substr(transferableNumber - std::min(indent, transferableNumber));
        return beginsElement(trimmed(transferable), line.substr(transferableNumber, 3));
    }

private:
    struct Joined {
        TextView text;
        std::size_t previous;  // in the same bucket
    };

    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    static constexpr std::size_t buckets = 32;
    static constexpr std::size_t usual = 32;

    static std::size_t bucketOf(TextView number) {
        std::size_t sum = 0;
        for (const char16_t digit : number) sum = digit == u' ' ? sum : 10 * sum + digit;
        return sum % buckets;
    }

    // Some lines are joined after a blank.
    bool continues(TextView text) {
        if (belowHere_.starts_with(u' ')) belowHere_.remove_prefix(1);
        if (!beginsWith(belowHere_, text)) return false;
        belowHere_.remove_prefix(text.size());
        return true;
    }

    // Where a family reads only the beginning of a line, the element is shorter than the line.
    bool beginsElement(TextView text, TextView number) {
        for (std::size_t at = latest_[bucketOf(number)]; at != none; at = joined_[at].previous) {
            const TextView joined = joined_[at].text;
            const std::size_t length = std::min(joined.size(), text.size());
            if (!beginsWith(joined, text.substr(0, length))) continue;
            belowHere_ = joined.substr(length);
            return true;
        }
        return false;
    }

    std::vector<Joined> joined_;
    std::array<std::size_t, buckets> latest_{};
    TextView belowHere_;  // what is left of the element found last
};

/// The lines of a display, those covered by views of it, and the elements that are no such views.
class Coverage {
public:
    explicit Coverage(TextView display) : display_(display), covered_(display.size() / (wordSize * screenWidth) + 1) {}

    void add(const Element& element) {
        if (element.number.empty() && element.text.empty()) return;
        if (!cover(element.number.empty() ? element.text : element.number)) joined_.add(element);
    }

    void add(const Note& note) { cover(note.qualifier); }

    std::vector<std::size_t> unread() {
        std::vector<std::size_t> rows;
        for (std::size_t word = 0; word < covered_.size(); ++word) {
            for (std::uint64_t others = ~covered_[word]; others != 0; others &= others - 1) {
                const std::size_t row = word * wordSize + static_cast<std::size_t>(std::countr_zero(others));
                if (row * screenWidth >= display_.size()) break;
                if (isUnread(display_.substr(row * screenWidth, screenWidth))) rows.push_back(row);
            }
        }
        return rows;
    }

private:
    /// False for a view of another text.
    bool cover(TextView view) {
        const std::uintptr_t offset = addressOf(view) - addressOf(display_);
        const std::size_t row = offset / (screenWidth * sizeof(char16_t));
        if (offset >= display_.size() * sizeof(char16_t)) return false;
        covered_[row / wordSize] |= std::uint64_t{1} << row % wordSize;
        return true;
    }

    static std::uintptr_t addressOf(TextView text) { return reinterpret_cast<std::uintptr_t>(text.data()); }

    static bool isRule(TextView line) {
        constexpr unsigned ruleWidth = 0x1F;
        if (line.size() < AsciiBlock::size) return line.starts_with(anyRule);
        return (~AsciiBlock::narrow(line.data()).equal('-') & ruleWidth) == 0;
    }

    /// Asked for the uncovered lines in their order.
    bool isUnread(TextView line) {
        if (isRule(line)) {
            isInSection_ = isInSection_ || line.starts_with(sectionStart);
            return false;
        }
        if (!isInSection_) return false;
        const TextView text = trimmedLine(line);
        if (text.empty() || (!joined_.empty() && joined_.contain(line, text))) return false;
        return text != u">" && text.find(endText) == TextView::npos;
    }

    static constexpr std::size_t wordSize = 64;

    TextView display_;
    std::vector<std::uint64_t> covered_;  // one bit for each line
    JoinedElements joined_;
    bool isInSection_ = false;
};

}  // namespace

std::vector<std::size_t> unreadRows(const Profile& profile, TextView display) {
    Coverage coverage(display);
    for (const auto& elements : profile.families) {
        for (const Element& element : elements) coverage.add(element);
    }
    for (const Note& note : profile.notes) coverage.add(note);
    return coverage.unread();
}

}  // namespace vantro
