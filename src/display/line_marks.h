// The marks of a display line: what ends a display and what opens and ends its sections.
#pragma once

#include "display/sections.h"
#include "vantro/text.h"

#include <cstddef>
#include <cstdint>

namespace vantro {

/// The set of marks that stand somewhere in a line. Few lines have any.
class LineMarks {
public:
    constexpr bool any() const { return bits_ != 0; }

    constexpr bool containsPrompt() const { return (bits_ & prompt) != 0; }
    constexpr bool containsEndText() const { return (bits_ & endText) != 0; }
    constexpr bool isEndOfDisplay() const { return (bits_ & (prompt | endText)) != 0; }
    constexpr bool containsHeader(Section section) const { return (bits_ & header(section)) != 0; }

    /// Seven hyphens in a row, as every header has them, or the end text.
    constexpr bool containsRuleOrEndText() const { return (bits_ & (rule | endText)) != 0; }

    constexpr void addPrompt() { bits_ |= prompt; }
    constexpr void addEndText() { bits_ |= endText; }
    constexpr void addRule() { bits_ |= rule; }
    constexpr void addHeader(Section section) { bits_ |= header(section); }

private:
    static constexpr std::uint32_t prompt = 1;
    static constexpr std::uint32_t endText = 2;
    static constexpr std::uint32_t rule = 4;
    static constexpr std::uint32_t header(Section section) { return 8U << static_cast<unsigned>(section); }

    std::uint32_t bits_ = 0;
};

LineMarks marksOf(TextView line);

/// The first line at or after `from`, in a display that is cut into lines by position, that may hold a mark. Every line
/// before it holds none; a shorter last line, and what is behind it, is always one that may.
std::size_t nextLineThatMayBeMarked(TextView display, std::size_t from);

}  // namespace vantro
