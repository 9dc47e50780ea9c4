// An explanation of a call: it keeps the steps of the readers and describes them in words. Pass an `Explanation` as the
// observer to an `ObservedTerminal`, to `parseProfile` or to `readRows` (observer.h).
#pragma once

#include "vantro/export.h"
#include "vantro/observer.h"
#include "vantro/registry.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vantro {

/// A piece of a value; see `ValuePiece`.
struct KeptPiece {
    Text text;
    std::optional<Place> place;
};

/// A step with texts of its own; see `ReadingStep`.
struct KeptStep {
    StepKind kind = {};
    std::int32_t line = noLine;
    std::int32_t lastLine = noLine;
    std::optional<Family> family = {};
    const ReadingRule* rule = nullptr;
    MarkSearch search = {};
    Text name = {};
    Text text = {};
    std::int32_t index = 0;
    std::vector<KeptPiece> pieces = {};
    std::optional<ItemValue> value = {};
    std::optional<Error> error = {};

    /// Whether a piece of the step's text is on the screen.
    bool isPlaced() const {
        return std::ranges::any_of(pieces, [](const KeptPiece& piece) { return piece.place.has_value(); });
    }
};

/// Keeps the steps of the calls that it observes, up to `clear`. A step takes about 400 bytes with 64-bit pointers. A
/// profile has some steps per line and family of its sections, so an explanation of an ordinary display takes some
/// hundred kilobytes, and one of 30,000 lines in one section some ten megabytes per family of that section.
class VANTRO_EXPORT Explanation final : public ReadingObserver {
public:
    /// Appends a copy of the step.
    void observe(const ReadingStep& step) override;

    /// Removes the steps and the screen.
    void clear();

    /// The steps in the order in which they happened, valid until the next one or until `clear`.
    std::span<const KeptStep> steps() const { return steps_; }

    /// The screen or display of the first call that was passed one. Call `clear` before a call with another screen.
    const Text& screen() const { return screen_; }

private:
    std::vector<KeptStep> steps_;
    Text screen_;
};

/// A step as a sentence without full stop, with its lines: "line 12: PHI: the tag columns are not blank", "lines 1 to
/// 9: no line begins with "*T*"". Lines count from 0, columns from 1. Control characters of a value are written as
/// "\u000A", so that a sentence has no line end.
VANTRO_EXPORT Text sentenceOf(const KeptStep& step);

/// What the key, mark, value or family of a step means, from the rows of the families and of the class; empty if it
/// has no meaning of its own. The row may be null. It begins with a small letter and has no full stop at its end.
VANTRO_EXPORT Text meaningOf(const KeptStep& step, const ClassRow* row);

/// The whole explanation as plain text, a step per line ("\n"), in the order in which it happened, indented by two
/// blanks inside a call or query; a meaning is in parentheses beside the first step of a query that it belongs to. The
/// same decision about consecutive lines is one line. A query ends with the number of its elements, or with its
/// error. The lines that look like elements and are none follow. Empty for an explanation without steps. The row may
/// be null.
VANTRO_EXPORT Text textOf(const Explanation& explanation, const ClassRow* row);

// Lines from which little or nothing was read

/// Where the decision about a line that looks like an element was made.
enum class DecisionAt : std::uint8_t {
    Line,          ///< about the line itself
    ElementAbove,  ///< about the line in which the element begins whose text contains the line
    SearchEnd,     ///< about a line above: the search ended there
    LineAbove,     ///< about a line above; the search went on in a line below this one
    LineBelow,     ///< about a line below, or about the whole search: it passed over the line
};

/// A line that looks like an element of a family and is none: it contains the family's tag, and no element of the
/// family begins in it.
struct LookAlike {
    std::int32_t line = 0;  ///< from 0
    Family family = {};
    Place tag = {};                     ///< where the line contains the tag first
    const ReadingRule* rule = nullptr;  ///< the decision; never null
    std::int32_t decidedIn = noLine;    ///< the line of that decision; `noLine` if it is about the whole search
    DecisionAt decidedAt = {};
};

/// The lines that look like elements of the families that were asked for, in the order of the display. A family whose
/// query made no decision has none.
VANTRO_EXPORT std::vector<LookAlike> lookAlikes(const Explanation& explanation);

/// "RC in line 31: the search ended in line 9: the header of another section".
VANTRO_EXPORT Text sentenceOf(const LookAlike& lookAlike);

/// The lines of the screen that a step names, in order.
VANTRO_EXPORT std::vector<std::int32_t> linesLookedAt(const Explanation& explanation);

/// The lines of the screen, in order, that are not blank, and in which no value and no mark was found.
VANTRO_EXPORT std::vector<std::int32_t> unreadLines(const Explanation& explanation);

}  // namespace vantro
