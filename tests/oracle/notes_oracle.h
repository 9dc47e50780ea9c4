#pragma once

// The reader of a profile's notes, written step by step.

#include "profile_oracle.h"

namespace oracle {

// One reader object. profileElements throws 5065, 5500 or the failing step's own number.
class NotesOracle {
public:
    NotesOracle();

    // Throws 5505. An empty search text or qualifier filters nothing.
    int ProfileNotesElementsCount(const Text& display, const Text& search, const Text& qualifier);

    Outcome profileElements(const Text& display, Collection& request);

    // "strNoteText", "strNoteNumber" and "strNoteQualifier", each with the empty entry 0.
    std::map<std::string, std::vector<Text>> lists;

private:
    int scan(const Text& display, const Text& search, const Text& qualifier);
    void store(const Text& line, int noteNumber, int count);
};

}  // namespace oracle
