#include "vantro/error.h"

#include "framework/constants.h"

#include <array>
#include <new>

namespace vantro {

namespace {

struct FailureText {
    Failure failure;
    TextView description;
};

constexpr std::array failureTexts{
    FailureText{Failure::InvalidProcedureCall, u"Invalid procedure call or argument"},
    FailureText{Failure::Overflow, u"Overflow"},
    FailureText{Failure::OutOfMemory, u"Out of memory"},
    FailureText{Failure::SubscriptOutOfRange, u"Subscript out of range"},
    FailureText{Failure::TypeMismatch, u"Type mismatch"},
    FailureText{Failure::InternalError, u"Internal error"},
    FailureText{Failure::ObjectNotSet, u"Object variable not set"},
    FailureText{Failure::CannotCreateObject, u"This class cannot be created"},
};

// A description of the terminal's may contain any character.
std::string logLine(int number, TextView description) {
    std::string line = "error " + std::to_string(number) + ": ";
    for (const char16_t character : description) {
        line += character >= u' ' && character < 0x7F ? static_cast<char>(character) : '?';
    }
    return line;
}

}  // namespace

Error::Error(int number, TextView source, TextView description)
    : number_(number), source_(source), description_(description), what_(logLine(number, description)) {}

Error errorOf(Failure failure) {
    TextView description;
    for (const FailureText& row : failureTexts) {
        if (row.failure == failure) description = row.description;
    }
    return {static_cast<int>(failure), applicationTitle, description};
}

void fail(Failure failure) { throw errorOf(failure); }

Error currentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return errorOf(Failure::OutOfMemory);
    } catch (...) {
        return errorOf(Failure::InternalError);
    }
}

}  // namespace vantro
