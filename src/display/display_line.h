// One line of a profile display and what it contains.
#pragma once

#include "display/families.h"
#include "display/line_bits.h"
#include "display/sections.h"
#include "framework/text_ops.h"

#include <bit>
#include <bitset>
#include <cstddef>
#include <cstdint>

namespace vantro {

/// The marks that a line contains: they end a display and begin and end its sections. Few lines contain any.
class LineMarks {
public:
    constexpr bool any() const { return bits_ != 0; }

    constexpr bool containsPrompt() const { return (bits_ & prompt) != 0; }
    constexpr bool containsEndText() const { return (bits_ & endText) != 0; }
    constexpr bool containsHeader(Section section) const { return (bits_ & header(section)) != 0; }

    /// The prompt or the end text: a search for a section's header ends there.
    constexpr bool isEndOfDisplay() const { return (bits_ & (prompt | endText)) != 0; }

    /// A section's rule, which is the beginning of every header, or the end text.
    constexpr bool containsRuleOrEndText() const { return (bits_ & (rule | endText)) != 0; }

    /// The sections whose headers these marks are.
    constexpr std::bitset<sectionCount> headers() const { return {bits_ >> firstHeader}; }

    constexpr void addPrompt() { bits_ |= prompt; }
    constexpr void addEndText() { bits_ |= endText; }
    constexpr void addRule() { bits_ |= rule; }
    constexpr void addHeader(Section section) { bits_ |= header(section); }

private:
    static constexpr std::uint32_t prompt = 1;
    static constexpr std::uint32_t endText = 2;
    static constexpr std::uint32_t rule = 4;
    static constexpr unsigned firstHeader = 3;
    static constexpr std::uint32_t header(Section section) { return 1U << (firstHeader + indexOf(section)); }

    std::uint32_t bits_ = 0;
};

/// The marks of a line of at most `LineBits::capacity` characters.
LineMarks marksOf(TextView line);

/// Pre-filter: the first line at or after `from` that may contain a mark, in a display cut into lines of 80 characters.
/// Returns the number of complete lines when there is none, or `from` if that is more.
std::size_t nextLineThatMayContainMark(TextView display, std::size_t from);

/// The same for a line that contains the section's header or ends the display.
std::size_t nextLineWithHeaderOrEnd(Section section, TextView display, std::size_t from);

/// A set of element families.
class FamilySet {
public:
    constexpr FamilySet() = default;
    constexpr explicit FamilySet(Family family) : bits_(bit(family)) {}

    constexpr bool empty() const { return bits_ == 0; }
    constexpr bool contains(Family family) const { return (bits_ & bit(family)) != 0; }

    constexpr void add(Family family) { bits_ |= bit(family); }
    constexpr void remove(Family family) { bits_ &= ~bit(family); }
    /// These families if the condition is true, otherwise none.
    constexpr FamilySet onlyIf(bool condition) const { return FamilySet(bits_ & (0 - std::uint64_t{condition})); }

    constexpr void add(FamilySet families) { bits_ |= families.bits_; }
    constexpr void remove(FamilySet families) { bits_ &= ~families.bits_; }

    friend constexpr FamilySet operator&(FamilySet a, FamilySet b) { return FamilySet(a.bits_ & b.bits_); }
    friend constexpr FamilySet operator|(FamilySet a, FamilySet b) { return FamilySet(a.bits_ | b.bits_); }
    friend constexpr FamilySet operator-(FamilySet a, FamilySet b) { return FamilySet(a.bits_ & ~b.bits_); }

    /// The first family in the order of the enumeration; the set must not be empty.
    constexpr Family first() const { return static_cast<Family>(std::countr_zero(bits_)); }

    /// Calls a function for each family, in the order of the enumeration.
    template <class Use>
    constexpr void forEach(Use use) const {
        for (FamilySet rest = *this; !rest.empty(); rest.remove(rest.first())) use(rest.first());
    }

private:
    friend class PrefixSet;
    constexpr explicit FamilySet(std::uint64_t bits) : bits_(bits) {}

    static constexpr std::uint64_t bit(Family family) { return std::uint64_t{1} << indexOf(family); }
    static_assert(familyCount <= 64);

    std::uint64_t bits_ = 0;
};

/// The tag of an element ("PPR/") or of a header line ("PIN/"): "P", two capitals and a slash.
class Prefix {
public:
    /// The prefix of a family; the family must have one.
    constexpr explicit Prefix(Family family) : Prefix(indexOf(family)) {}

    friend constexpr bool operator==(Prefix, Prefix) = default;

    static const Prefix companyName;  ///< "PCN/"
    static const Prefix pin;          ///< "PIN/"
    static const Prefix psl;          ///< "PSL/"

private:
    friend class PrefixTable;
    constexpr explicit Prefix(std::size_t index) : index_(static_cast<std::uint8_t>(index)) {}

    friend class PrefixSet;
    std::uint8_t index_;
};

/// The header lines' prefixes as the host prints them.
inline constexpr TextView companyNamePrefix = u"PCN/";
inline constexpr TextView pinPrefix = u"PIN/";
inline constexpr TextView pslPrefix = u"PSL/";

inline constexpr Prefix Prefix::companyName{familyCount};
inline constexpr Prefix Prefix::pin{familyCount + 1};
inline constexpr Prefix Prefix::psl{familyCount + 2};

class PrefixSet {
public:
    constexpr void add(Prefix prefix) { bits_ |= bit(prefix); }
    constexpr void addIf(bool condition, Prefix prefix) { bits_ |= std::uint64_t{condition} << prefix.index_; }
    constexpr bool contains(Prefix prefix) const { return (bits_ & bit(prefix)) != 0; }

    constexpr bool any() const { return bits_ != 0; }
    constexpr bool containsAny(PrefixSet prefixes) const { return (bits_ & prefixes.bits_) != 0; }

    /// The families among these whose prefix is in the set.
    constexpr FamilySet among(FamilySet families) const { return families & FamilySet(bits_); }

private:
    static constexpr std::uint64_t bit(Prefix prefix) { return std::uint64_t{1} << prefix.index_; }
    static_assert(familyCount + 3 <= 64);

    std::uint64_t bits_ = 0;
};

/// The prefixes that a trimmed line contains.
struct LinePrefixes {
    PrefixSet anywhere;
    PrefixSet fromColumn3;  ///< those that begin in column 3 or after it
};

/// What is known about a line after it was read.
struct LineFacts {
    /// Where the trimmed text begins and ends, from 0.
    struct Content {
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
    };

    LineBits blanks = {};  ///< of a line of at most 128 characters; positions after its end count as blanks
    Content content = {};
    LineMarks marks = {};
    LinePrefixes prefixes = {};
};

class DisplayLine {
public:
    constexpr DisplayLine() = default;

    /// A line of any length. `makeLines` makes lines of 80 characters faster.
    explicit DisplayLine(TextView text);

    /// The line as read.
    TextView text() const { return text_; }

    TextView trimmed() const { return text_.substr(facts_.content.begin, facts_.content.end - facts_.content.begin); }
    TextView rightTrimmed() const { return text_.substr(0, facts_.content.end); }
    bool isBlank() const { return facts_.content.begin == facts_.content.end; }

    LineMarks marks() const { return facts_.marks; }
    bool isEndOfDisplay() const { return facts_.marks.isEndOfDisplay(); }

    /// The end of a prefixed family's section: a rule, the end text, or a prompt as the first character that is not
    /// blank.
    bool isSectionEnd() const {
        return facts_.marks.any() && (facts_.marks.containsRuleOrEndText() || text_[facts_.content.begin] == u'>');
    }

    /// True when the first `width` characters are blank; characters after the line's end count as blank.
    bool beginsBlank(Width width) const {
        return facts_.content.begin >= static_cast<std::uint32_t>(width.value) || isBlank();
    }

    /// True when the trimmed line contains the prefix, beginning at or after a column.
    bool containsPrefix(Prefix prefix, PrefixFrom from) const {
        return (from == PrefixFrom::Column1 ? facts_.prefixes.anywhere : facts_.prefixes.fromColumn3).contains(prefix);
    }

    /// The families among these whose prefix the trimmed line contains.
    FamilySet prefixed(FamilySet families) const { return facts_.prefixes.anywhere.among(families); }

    /// The column of the blank before a word, or Column{0}. The argument is the word with one blank on either side.
    Column findWord(TextView word) const;

    /// True when these characters of the trimmed line are blank; characters after its end count as blank.
    bool isBlankAt(Column column, Width width) const {
        if (!fitsBits()) return isBlankInText(column, width);
        const std::size_t begin = facts_.content.begin + static_cast<std::size_t>(column.value - 1);
        return !(LineBits::range(begin, static_cast<std::size_t>(width.value)) & ~facts_.blanks).any();
    }

    /// The transferable families whose code the line contains in the columns of their elements.
    FamilySet codes() const;

private:
    explicit DisplayLine(const char16_t* characters);  // 80 of them

    friend std::size_t makeLines(const char16_t* text, std::size_t count, DisplayLine* lines);

    /// True for a line of at most 128 characters.
    bool fitsBits() const { return text_.size() <= LineBits::capacity; }

    bool isBlankInText(Column column, Width width) const;

    TextView text_;
    LineFacts facts_;
};

/// The transferable families whose code a text contains in the columns of their elements: between blanks from column 13
/// on, for contacts in columns 12 to 17.
FamilySet codesIn(TextView text);

/// The same for a text of at most 128 characters whose blanks are known.
FamilySet codesIn(TextView text, LineBits blanks);

/// Makes up to `count` lines of 80 characters each, which follow each other in a text, in memory that is not
/// initialised. Stops after a line with a mark. Returns the number of lines made.
std::size_t makeLines(const char16_t* text, std::size_t count, DisplayLine* lines);

}  // namespace vantro
