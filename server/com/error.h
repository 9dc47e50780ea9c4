// The library's numbered errors as automation's result codes, and the border that no C++ exception crosses.
#pragma once

#include "server/com/ptr.h"
#include "server/com/system.h"
#include "vantro/error.h"

#include <exception>
#include <new>

namespace vantro::com {

/// The result code of an error number: 0x800A0000 + number for the numbers of automation (1 to 65535). A number
/// that is a result code already is returned unchanged.
HRESULT resultOf(int number);

/// The number in a result code: the opposite of `resultOf`.
int numberOf(HRESULT result);

/// Makes an error current in the thread's error information and returns its result code. `about` is the interface
/// whose operation failed.
HRESULT raise(const Error& error, const IID& about) noexcept;

/// The result code for a lack of memory, which is not described: that would need memory.
HRESULT outOfMemory() noexcept;

/// The error of a call that failed with this result code, with the source and the description from the thread's error
/// information if the called object has set any.
Error errorOfCall(HRESULT result);

/// Raises the error of a failed call.
inline void check(HRESULT result) {
    if (FAILED(result)) throw errorOfCall(result);
}

/// An unexpected failure, with the exception's own description.
HRESULT raiseUnexpected(const char* what, const IID& about) noexcept;

/// Runs an operation's body at the border: a failure becomes a result code with error information.
template <class Body>
HRESULT atBorder(const IID& about, Body&& body) noexcept {
    try {
        body();
        return S_OK;
    } catch (const Error& error) {
        return raise(error, about);
    } catch (const std::bad_alloc&) {
        return outOfMemory();
    } catch (const std::exception& unexpected) {
        return raiseUnexpected(unexpected.what(), about);
    } catch (...) {
        return raiseUnexpected("unknown failure", about);
    }
}

}  // namespace vantro::com
