#include "tests/profile/scanned_notes.h"

#include <gtest/gtest.h>

namespace vantro {

std::ostream& operator<<(std::ostream& out, const ScannedNotes& notes) {
    return out << "count " << notes.count << " error " << notes.error << " texts "
               << testing::PrintToString(notes.texts) << " numbers " << testing::PrintToString(notes.numbers)
               << " qualifiers " << testing::PrintToString(notes.qualifiers);
}

ScannedNotes countedNotes(Parser& parser, TextView display, TextView search, TextView qualifier) {
    ScannedNotes notes;
    notes.error = numberRaisedBy([&] {
        notes.count = parser.count("ProfileNotesElementsCount", CountRequest{display, search, qualifier});
    });
    notes.texts = parser.list("strNoteText");
    notes.numbers = parser.list("strNoteNumber");
    notes.qualifiers = parser.list("strNoteQualifier");
    return notes;
}

ScannedNotes scannedNotes(TextView display, TextView search, TextView qualifier) {
    Parser parser(u"CProfileNotes");
    return countedNotes(parser, display, search, qualifier);
}

}  // namespace vantro
