// An explanation of a call: the steps of its readers, kept, and in words. Give an `Explanation` as the observer to an
// `ObservedTerminal` or to `parseProfile` (observer.h).
#pragma once

#include "vantro/export.h"
#include "vantro/observer.h"
#include "vantro/registry.h"

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

    /// Whether something was found, read or added that is on the screen.
    bool isPlaced() const;
};

/// Keeps the steps of the calls that it observes, up to `clear`.
class VANTRO_EXPORT Explanation final : public ReadingObserver {
public:
    void observe(const ReadingStep& step) override;
    void clear();

    std::span<const KeptStep> steps() const { return steps_; }

    /// The screen or display of the call that began first.
    const Text& screen() const { return screen_; }

private:
    std::vector<KeptStep> steps_;
    Text screen_;
};

/// A line that looks like an element of a family and is none: it contains the family's tag.
struct LookAlike {
    std::int32_t line = 0;  ///< from 0
    Family family = {};
    Place tag = {};
    const ReadingRule* rule = nullptr;  ///< what decided about the line, or ended the search above it
    std::int32_t decidedIn = noLine;    ///< the line of that decision
};

/// The lines that look like elements of the families that were read, in the order of the display.
VANTRO_EXPORT std::vector<LookAlike> lookAlikes(const Explanation& explanation);

/// A step as a sentence without full stop, with its line: "line 12: PHI: the tag columns are not blank". Lines count
/// from 0, as everywhere.
VANTRO_EXPORT Text sentenceOf(const KeptStep& step);
VANTRO_EXPORT Text sentenceOf(const LookAlike& lookAlike);

/// What the key, mark, value or family of a step means, from the rows of the families and of the class; empty if it
/// has no meaning of its own. The row may be null.
VANTRO_EXPORT Text meaningOf(const KeptStep& step, const ClassRow* row);

/// The whole explanation as plain text, a step per line ("\n"), in the order in which it happened; then the lines that
/// look like elements and are none. The row may be null.
VANTRO_EXPORT Text textOf(const Explanation& explanation, const ClassRow* row);

}  // namespace vantro
