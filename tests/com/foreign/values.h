// Automation's values, as the foreign terminal reads and creates them.
#pragma once

#include "server/com/system.h"

#include <string_view>

namespace foreign {

/// An operation's own failure, returned as an exception with this number.
struct Failed {
    int number;
    const wchar_t* description;
};

[[noreturn]] void mismatch();

/// An owned value.
class Held {
public:
    Held() { VariantInit(&value); }
    Held(Held&& other) noexcept : value(other.value) { VariantInit(&other.value); }
    Held& operator=(Held&& other) noexcept;
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() { VariantClear(&value); }

    VARIANT detach();

    VARIANT value;
};

Held textValue(std::wstring_view text);
Held longValue(LONG number);
Held booleanValue(bool truth);
Held objectValue(IDispatch* object);
Held copyOf(const VARIANT& value);

/// The value that a reference to a variant leads to.
const VARIANT& behind(const VARIANT& value);

/// True for an argument that was left out or has no value.
bool isNone(const VARIANT& value);

/// The text in an argument, by value or by reference; raises 13 for anything else.
std::wstring_view textIn(const VARIANT& value);

/// The whole number in an argument, by value or by reference, of any width; raises 13 for anything else.
LONG longIn(const VARIANT& value);

/// The object in an argument, by value or by reference; null for none.
IDispatch* objectIn(const VARIANT& value);

/// A value in the form in which the collection keeps it: a text, a boolean, a 32-bit integer, or an array of
/// variants from index 0. Raises 13 for anything else.
Held keptForm(const VARIANT& value);

}  // namespace foreign
