// Descriptions of the public classes as data, for help, bindings and reference pages: what a class is for, its
// parameters and its results.
#pragma once

#include "vantro/list_rows.h"
#include "vantro/text.h"

#include <cstdint>
#include <span>

namespace vantro {

/// The kind of value under a key.
enum class ValueKind : std::uint8_t {
    String,  ///< a text
    Boolean,
    Integer,          ///< 16 bits
    StringList,       ///< a list of texts, indexed from 0
    IntegerOrString,  ///< a number that the call found, or the text that was passed in
};

/// Whether a key must be present.
enum class Need : std::uint8_t {
    Optional,     ///< an absent key counts as empty or False
    Conditional,  ///< needed in the case that the row's `when` names
    Required,     ///< without it the command is empty or the call fails
};

/// A key that a call reads.
struct ParameterRow {
    TextView key;
    ValueKind kind;
    Need need;
    TextView when;     ///< when a conditional key is needed, as the end of a sentence; empty for other keys
    TextView meaning;  ///< begins with a small letter, no full stop at its end
    std::span<const TextView> values = {};  ///< the texts that the class knows; empty when it accepts any text
};

/// A key that a call adds.
struct ResultRow {
    TextView key;
    ValueKind kind;
    TextView when;     ///< when it is added, as the end of a sentence; empty for a key that is always added
    TextView meaning;  ///< begins with a small letter, no full stop at its end
};

/// A parameter of an example, written as on a command line: "True" for a boolean. The entries of a list, from entry 0,
/// repeat the list's key.
struct ExampleParameter {
    TextView key;
    TextView value;
};

/// One form of a class's command.
struct CommandForm {
    /// A lower-case word is a placeholder for a value. Brackets enclose an optional part; "..." after them says that
    /// the part may be repeated. Everything else is literal. "PDN/[office/][company][-name][/]".
    TextView form;
    TextView when;                              ///< what the form is used for; empty for a class's only form
    std::span<const ExampleParameter> example;  ///< parameters that build such a command
    TextView command;                           ///< the command built from them
};

/// Where a mark must be to set its flag. Lines count from 0.
enum class MarkPosition : std::uint8_t {
    StartsLine,   ///< one of the lines begins with it
    InLine,       ///< one of the lines contains it
    OnScreen,     ///< anywhere on the screen
    NotOnScreen,  ///< nowhere on the screen
    SameLine,     ///< in the line with the other mark
    LineLater,    ///< at least 80 characters after the beginning of the other mark, which may be anywhere
    EndsList,     ///< in the line that ends a company list
};

/// A mark on the screen and the flag that it sets to True.
struct ScreenFlag {
    TextView flag;  ///< a result's key; empty for a mark that ends the search and sets no flag
    TextView mark;  ///< trailing blanks are part of it
    MarkPosition position;
    std::int16_t firstLine = 0;  ///< for `StartsLine` and `InLine`
    std::int16_t lastLine = 0;   ///< for `StartsLine` and `InLine`; inclusive
    TextView other = {};         ///< a mark that the screen must show too; empty for none
    TextView command = {};       ///< the command that the screen must answer; empty for any
};

/// The calls of a class.
enum class ClassCall : std::uint8_t { CreateCommand, VerifyResponse, ProfileElements, Count };

/// An error number that a call raises, in addition to the numbers of whole operations in the class row.
struct ErrorRow {
    ClassCall call;
    int number;
    TextView meaning;  ///< begins with a small letter, no full stop at its end
};

/// What `VerifyResponse` does with the collection passed to it.
enum class PassedCollection : std::uint8_t {
    Ignored,
    Optional,  ///< the state is read when there is a collection
    Required,  ///< the call fails without one
    Returned,  ///< required; the results are added to it and it is returned, no new collection is created
};

/// The complete description of a class. Keys are in the order in which they are read and added. Members that do not
/// apply to a class are empty.
struct ClassDescription {
    TextView purpose;  ///< one sentence

    // CreateCommand
    std::span<const ParameterRow> parameters = {};
    std::span<const CommandForm> forms = {};

    // VerifyResponse
    PassedCollection passed = PassedCollection::Ignored;
    std::span<const ParameterRow> state = {};
    std::span<const ResultRow> results = {};
    std::span<const ScreenFlag> flags = {};
    TextView flagRule = {};  ///< which mark decides when the screen shows several; a sentence

    // readRows
    std::span<const ListColumn> columns = {};  ///< of the rows of its lists; empty for a class that reads no list

    // ProfileElements; "strKeyPrefix" is the word of a query (vantro/families.h)
    std::span<const ParameterRow> request = {};
    std::span<const ResultRow> elements = {};

    std::span<const ErrorRow> errors = {};
    TextView counts = {};  ///< what the count properties count; a sentence
    TextView remark = {};  ///< further notes; sentences
};

}  // namespace vantro
