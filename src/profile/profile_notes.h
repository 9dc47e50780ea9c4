// Profile notes: the commands "PN" and "PNE", and the notes in a profile display.
#pragma once

#include "framework/transaction.h"
#include "readers/note_scanner.h"

#include <array>

namespace vantro {

/// The one class with both interfaces. As a transaction it asks for the notes of a profile, adds to the collection
/// that it is given and gives that one back. As a parser it reads the notes out of a display.
class CProfileNotes final : public Transaction, public IProfileGet {
public:
    CProfileNotes(Terminal& terminal, const TransErrors& errors);

    IProfileGet* profileGet() override { return this; }

    /// Reads the notes that the two filters keep (empty ones keep all) into the object's lists and gives their
    /// count. Raises 5505 with "An error has occurred while reading Profile Notes".
    std::int16_t ProfileNotesElementsCount(TextView display, TextView searchString, TextView searchQualifier);

    /// "strNoteText", "strNoteNumber" and "strNoteQualifier": note k at index k, entry 0 empty. To be asked for anew
    /// after a call that failed.
    const TextList* list(TextView name) const override;

private:
    /// Empty notes in a row.
    struct EmptyNotes {
        std::int16_t firstNumber = 0;
        std::int16_t amount = 0;
    };

    struct NoteLists {
        TextList text;
        TextList number;
        TextList qualifier;
        EmptyNotes emptyNotes;  // stand behind the others and are many: they are written out when one asks for a list

        void cutToEntry0();
        void writeOut();
    };
    class ListsSink;

    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override;
    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override;
    CollectionPtr IProfileGet_ProfileElements(TextView display, const CollectionPtr& collection,
                                              SelectionSource& selection) override;

    void addNotes(TextView display, const CollectionPtr& collection, const NoteFilter& filter);

    mutable NoteLists lists_;
};

/// The count property of `CProfileNotes`, for the class table.
extern const std::array<CountProperty, 1> notesCounts;

}  // namespace vantro
