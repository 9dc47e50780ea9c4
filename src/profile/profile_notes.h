// The profile notes: the commands "PN" and "PNE", and the notes in a profile display.
#pragma once

#include "framework/transaction.h"
#include "readers/note_scanner.h"

#include <array>

namespace vantro {

/// The only class with both interfaces. As a transaction it displays the notes of a profile or enters new ones, and
/// returns the passed collection with its results added. As a parser it reads the notes in a display.
class CProfileNotes final : public Transaction, public IProfileGet {
public:
    CProfileNotes(Terminal& terminal, const TransErrors& errors);

    IProfileGet* profileGet() override { return this; }

    /// Reads the notes that pass both filters into the object's lists and returns their count; an empty filter passes
    /// all. Raises 5505 with "An error has occurred while reading Profile Notes".
    std::int16_t ProfileNotesElementsCount(TextView display, TextView searchString, TextView searchQualifier);

    /// The same as an operation of its own, whose steps an observer receives.
    std::int16_t countObserved(const CountRequest& request);

    /// "strNoteText", "strNoteNumber" and "strNoteQualifier": note k at index k, entry 0 empty.
    const TextList* list(TextView name) const override;

private:
    struct NoteLists {
        TextList text;
        TextList number;
        TextList qualifier;

        void cutToEntry0();
    };
    class ListsSink;

    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
    CollectionPtr IProfileGet_ProfileElements(TextView display, const CollectionPtr& collection,
                                              SelectionSource& selection) override;

    std::int16_t scanLists(TextView display, const NoteFilter& filter);
    void addNotes(TextView display, const CollectionPtr& collection, const NoteFilter& filter);

    NoteLists lists_;
};

/// The count property of `CProfileNotes`, for the class table.
extern const std::array<CountProperty, 1> notesCounts;

}  // namespace vantro
