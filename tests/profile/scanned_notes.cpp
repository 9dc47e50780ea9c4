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

std::string matchNotes(const Text& display, const Text& search, const Text& qualifier, Parser& parser,
                       oracle::NotesOracle& known) {
    const ScannedNotes notes = countedNotes(parser, display, search, qualifier);
    ScannedNotes expected;
    try {
        expected.count = known.ProfileNotesElementsCount(display, search, qualifier);
    } catch (const oracle::Failure& failure) {
        expected.error = failure.number;
    }
    expected.texts = utf8(known.lists["strNoteText"]);
    expected.numbers = utf8(known.lists["strNoteNumber"]);
    expected.qualifiers = utf8(known.lists["strNoteQualifier"]);
    if (notes == expected) return {};
    return testing::PrintToString(notes) + "\n  expected " + testing::PrintToString(expected) + "\n  for " +
           drawn(display);
}

}  // namespace vantro
