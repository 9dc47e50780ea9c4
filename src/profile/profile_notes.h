// Profile notes: the commands "PN" and "PNE", and the notes in a profile display.
#pragma once

#include "framework/transaction.h"
#include "readers/note_scanner.h"

#include <array>

namespace vantro {

/// The one class with both interfaces. As a transaction it asks for the notes of a profile, and adds its results to the
/// collection that is passed in, which it returns. As a parser it reads the notes of a display.
class CProfileNotes final : public Transaction, public IProfileGet {
public:
    CProfileNotes(Terminal& terminal, const TransErrors& errors);

    IProfileGet* profileGet() override { return this; }

    /// Reads the notes that the two filters keep (empty ones keep all) into the object's lists and returns their
    /// count. Raises 5505 with "An error has occurred while reading Profile Notes".
    std::int16_t ProfileNotesElementsCount(TextView display, TextView searchString, TextView searchQualifier);

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

    void addNotes(TextView display, const CollectionPtr& collection, const NoteFilter& filter);

    NoteLists lists_;
};

/// The count property of `CProfileNotes`, for the class table.
extern const std::array<CountProperty, 1> notesCounts;

}  // namespace vantro
