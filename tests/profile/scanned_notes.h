// The result of the count property of the notes.
#pragma once

#include "tests/oracle/notes_oracle.h"
#include "tests/profile/parser.h"

#include <ostream>

namespace vantro {

struct ScannedNotes {
    int count = 0;
    int error = 0;
    Texts texts = {""};
    Texts numbers = {""};
    Texts qualifiers = {""};

    friend bool operator==(const ScannedNotes&, const ScannedNotes&) = default;
};
std::ostream& operator<<(std::ostream& out, const ScannedNotes& notes);

/// The count, or the error of a failing count, and the lists with their empty entry 0.
ScannedNotes countedNotes(Parser& parser, TextView display, TextView search, TextView qualifier);

/// The same on a new object.
ScannedNotes scannedNotes(TextView display, TextView search = {}, TextView qualifier = {});

/// Counts a display's notes with an object and with the oracle; empty when they agree.
std::string matchNotes(const Text& display, const Text& search, const Text& qualifier, Parser& parser,
                       oracle::NotesOracle& known);

}  // namespace vantro
