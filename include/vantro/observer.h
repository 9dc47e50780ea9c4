// What the readers do while they read a screen. An observer receives every step in the order in which it happens, so
// that a result can be explained: which marks were searched for, which rule decided about a line, where a value is on
// the screen. A call that nobody observes does none of this.
//
// Lines count from 0, columns and elements from 1. They are those of the screen or display that was passed in, with the
// line that the host sometimes prints above a display.
#pragma once

#include "vantro/collection.h"
#include "vantro/error.h"
#include "vantro/export.h"
#include "vantro/families.h"
#include "vantro/list_rows.h"
#include "vantro/profile.h"
#include "vantro/terminal.h"
#include "vantro/text.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace vantro {

/// Characters in one line of the screen.
struct Place {
    std::int32_t line = 0;    ///< from 0
    std::int32_t column = 0;  ///< from 1
    std::int32_t length = 0;

    friend bool operator==(const Place&, const Place&) = default;
};

/// A piece of a value. The texts of a value's pieces, joined without anything between them, are the value.
struct ValuePiece {
    TextView text;
    std::optional<Place> place;  ///< nothing for text that the screen does not contain there: a comma between two names
};

using ValuePieces = std::span<const ValuePiece>;

/// A rule by which a reader decides. The rules are constants; two of them differ in their names.
struct ReadingRule {
    std::string_view name;  ///< "otherTag"; it is kept from release to release
    TextView meaning;       ///< a sentence without full stop, about the line or the search
};

/// All rules.
VANTRO_EXPORT std::span<const ReadingRule* const> readingRules() noexcept;

/// Where in the lines a mark is searched for.
enum class MarkSearch : std::uint8_t {
    StartsLine,  ///< in column 1
    InLine,      ///< anywhere in a line
    OnScreen,    ///< anywhere on the screen; the range of lines says nothing
    Terminal,    ///< the terminal answers; the range of lines says nothing
};

/// What a step says.
enum class StepKind : std::uint8_t {
    CallBegins,    ///< of an operation: `name` is its name, `text` the screen
    CallEnds,      ///< `error` if it raised one
    QueryBegins,   ///< of one query of a display: `name` is its word, `family` for a family
    QueryEnds,     ///< `error` if it raised one
    KeyRead,       ///< a parameter or state: `name` is the key, `text` the value as text
    MarkSearched,  ///< `text` is the mark, `search` how it is searched for from `line` to `lastLine`, `pieces` where it
                   ///< was found; empty if it was not
    Decided,       ///< `rule` about `line`, or about the search if that is `noLine`
    ValueRead,  ///< `name` is the value's part ("text", "number"), `index` the element's, `text` and `pieces` the value
    KeyAdded,   ///< `name` is the key, `value` the value; `text` and `pieces` for a text
    EntryAdded,  ///< an entry of the list that was added last: `name` is the key, `index`, `text` and `pieces`
    Reported,    ///< a failure that was reported and not raised: `error`
};

/// The line of a step that is about no line.
inline constexpr std::int32_t noLine = -1;

/// One step. Members that do not apply to its kind are empty. Everything is valid during the call that passes it.
struct ReadingStep {
    StepKind kind = {};
    std::int32_t line = noLine;
    std::int32_t lastLine = noLine;  ///< of a range of lines, inclusive
    std::optional<Family> family = {};
    const ReadingRule* rule = nullptr;
    MarkSearch search = {};
    TextView name = {};
    TextView text = {};
    std::int32_t index = 0;  ///< of an element, a note or a row, from 1; of an entry of a list, from 0; else 0
    ValuePieces pieces = {};
    const ItemValue* value = nullptr;  ///< null for a text
    const Error* error = nullptr;
};

/// Receives the steps. What it throws passes through the call as an error of a terminal would.
class VANTRO_EXPORT ReadingObserver {
public:
    virtual ~ReadingObserver() = default;

    /// Called for every step, in the thread of the call, before the reader goes on.
    virtual void observe(const ReadingStep& step) = 0;

protected:
    ReadingObserver() = default;
    ReadingObserver(const ReadingObserver&) = default;
    ReadingObserver& operator=(const ReadingObserver&) = default;
};

/// A terminal library whose readers are observed. It forwards every operation to another one, which must outlive it.
/// Objects that were created with it are observed while there is an observer.
class VANTRO_EXPORT ObservedTerminal final : public Terminal {
public:
    /// The observer may be null.
    explicit ObservedTerminal(Terminal& terminal, ReadingObserver* observer = nullptr);
    ~ObservedTerminal() override;
    ObservedTerminal(const ObservedTerminal&) = delete;
    ObservedTerminal& operator=(const ObservedTerminal&) = delete;

    /// Changes the observer between two calls; null ends the observation.
    void setObserver(ReadingObserver* observer);

    TerminalFunctions& functions() override { return terminal_.functions(); }
    ErrorReporter& errorReporter() override { return terminal_.errorReporter(); }
    CollectionPtr createCollection() override { return terminal_.createCollection(); }

private:
    Terminal& terminal_;
    std::unique_ptr<Observation> own_;
};

/// `parseProfile`, observed. It reads query by query, as `ProfileElements` does, and returns the same profile.
VANTRO_EXPORT Profile parseProfile(Text display, ReadingObserver& observer);

/// `readRows` (list_rows.h), observed. The step `ValueRead` of a cell has the column's name and the number of its row,
/// from 1.
VANTRO_EXPORT ListRows readRows(const ClassRow& row, TextView screen, const CollectionPtr& state,
                                ReadingObserver& observer);
VANTRO_EXPORT ListRows readRows(TextView className, TextView screen, const CollectionPtr& state,
                                ReadingObserver& observer);

}  // namespace vantro
