// Calls by name, as the terminal's library is called.
#pragma once

#include "server/com/variant.h"

#include <initializer_list>

namespace vantro::com {

/// An operation of an object that is called by name. The id is looked up once and then kept.
class Member {
public:
    constexpr explicit Member(TextView name) : name_(name) {}

    /// Calls the operation of `object` with the arguments in their order, while `current` is the thread's error
    /// information. Raises the call's own error. All calls through one `Member` go to objects of one class.
    Variant call(IDispatch* object, std::initializer_list<VARIANT> arguments, IErrorInfo* current = nullptr);

private:
    DISPID id(IDispatch* object);

    TextView name_;
    DISPID id_ = DISPID_UNKNOWN;
};

/// Values that an argument borrows for the duration of a call.
VARIANT borrowed(BSTR text);
VARIANT borrowed(IDispatch* object);
VARIANT borrowed(std::int16_t number);
VARIANT borrowedByReference(BSTR* text);
VARIANT borrowedByReference(VARIANT* value);

}  // namespace vantro::com
