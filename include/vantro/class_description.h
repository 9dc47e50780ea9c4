// What a public class is for and what goes in and comes out, as data: help, bindings and reference pages read it.
#pragma once

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
    IntegerOrString,  ///< a number that the call found, or a text that came in
};

/// Whether a key has to be there.
enum class Need : std::uint8_t {
    Optional,     ///< absent counts as empty or False
    Conditional,  ///< needed in the case that the row names
    Required,     ///< without it the command is empty or the call fails
};

/// A key that a call reads.
struct ParameterRow {
    TextView key;
    ValueKind kind;
    Need need;
    TextView when;     ///< of a conditional key: when it is needed, as the end of a sentence; otherwise empty
    TextView meaning;  ///< begins with a small letter, no full stop at its end
    std::span<const TextView> values = {};  ///< the texts that the class knows; none where it takes any text
};

/// A key that a call adds.
struct ResultRow {
    TextView key;
    ValueKind kind;
    TextView when;     ///< when it is added, as the end of a sentence; empty for a key that is always added
    TextView meaning;  ///< begins with a small letter, no full stop at its end
};

/// A parameter of an example, written as on a command line: "True" for a boolean. Entries of a list repeat its key,
/// from entry 0 on.
struct ExampleParameter {
    TextView key;
    TextView value;
};

/// One form of a class's command.
struct CommandForm {
    /// A small word stands for a value, brackets enclose what can be left out, and "..." after them says that it can
    /// come many times; everything else stands as it is. "PDN/[office/][company][-name][/]".
    TextView form;
    TextView when;                              ///< what the form is used for; empty for an only form
    std::span<const ExampleParameter> example;  ///< parameters that make such a command
    TextView command;                           ///< the command that they make
};

/// Where a mark has to be for its flag. Lines count from 0.
enum class MarkPosition : std::uint8_t {
    StartsLine,   ///< one of the lines begins with it
    InLine,       ///< one of the lines contains it
    OnScreen,     ///< anywhere on the screen
    NotOnScreen,  ///< nowhere on the screen
    SameLine,     ///< in the line with the other mark
    LineLater,    ///< 80 characters or more after the beginning of the other mark, which may be anywhere
    EndsList,     ///< in the line that ends a company list
};

/// A mark of the screen and the flag that it makes True.
struct ScreenFlag {
    TextView flag;  ///< a result's key; empty for a mark that ends the search and sets no flag
    TextView mark;  ///< blanks at its end belong to it
    MarkPosition position;
    std::int16_t firstLine = 0;  ///< for `StartsLine` and `InLine`
    std::int16_t lastLine = 0;   ///< for `StartsLine` and `InLine`; included
    TextView other = {};         ///< a mark that the screen has to show as well; empty for none
    TextView command = {};       ///< the command that the screen has to answer; empty for any
};

/// The calls of a class.
enum class ClassCall : std::uint8_t { CreateCommand, VerifyResponse, ProfileElements, Count };

/// An error number that a call raises besides the numbers that the class row has for whole operations.
struct ErrorRow {
    ClassCall call;
    int number;
    TextView meaning;  ///< begins with a small letter, no full stop at its end
};

/// What `VerifyResponse` does with the collection that it is passed.
enum class PassedCollection : std::uint8_t {
    Ignored,
    Optional,  ///< the state is read when there is a collection
    Required,  ///< the call fails without one
    Returned,  ///< required, and the results are added to it: no new collection is made
};

/// All of it. Keys are in the order in which they are read and added; what a class does not have is empty.
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
    TextView flagRule = {};  ///< which mark decides when there are several; a sentence

    // ProfileElements; the prefixes that "strKeyPrefix" can name are those of the families
    std::span<const ParameterRow> request = {};
    std::span<const ResultRow> elements = {};

    std::span<const ErrorRow> errors = {};
    TextView counts = {};  ///< what the count properties count; a sentence
    TextView remark = {};  ///< what else to know; sentences
};

}  // namespace vantro
