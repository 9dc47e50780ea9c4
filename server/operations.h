// The operations of a public class, with automation's arguments. All of them run at the border: a failure becomes
// a result code with error information, and out-pointers that are null are refused.
#pragma once

#include "server/com_terminal.h"
#include "server/recorder.h"
#include "vantro/registry.h"

namespace vantro::com {

/// The object that the operations work on, the row of its class, its terminal, and the explanation of its last call.
struct Served {
    explicit Served(const ClassRow& classRow) : row(classRow), object(createObject(row, recorder.terminal())) {}

    const ClassRow& row;
    ComTerminal terminal;
    Recorder recorder{terminal};
    std::unique_ptr<ProfileObject> object;
};

HRESULT createCommand(Served& served, const IID& about, const VARIANT& params, BSTR* command) noexcept;

HRESULT verifyResponse(Served& served, const IID& about, BSTR response, const VARIANT& collection,
                       IDispatch** results) noexcept;

HRESULT profileElements(Served& served, const IID& about, BSTR display, const VARIANT& collection, VARIANT* selection,
                        const VARIANT& qualifier, IDispatch** unknownFamily) noexcept;

/// A count property by its name.
HRESULT count(Served& served, const IID& about, TextView name, BSTR text, SHORT* result) noexcept;

/// A count property that returns its count as a variant.
HRESULT count(Served& served, const IID& about, TextView name, BSTR text, VARIANT* result) noexcept;

HRESULT countNotes(Served& served, const IID& about, BSTR text, const VARIANT& searchString,
                   const VARIANT& searchQualifier, SHORT* result) noexcept;

/// A list of the object by its name, as an array of variants: texts, or booleans for a list of flags. Raises 5 for a
/// name that the class does not know.
HRESULT elementList(Served& served, const IID& about, BSTR name, VARIANT* list) noexcept;

/// The explanation of the object's last call, in lines with "\r\n"; empty unless it was recorded. A `recording` that is
/// not absent switches the recording on or off for the calls after this one.
HRESULT explain(Served& served, const IID& about, const VARIANT& recording, BSTR* explanation) noexcept;

/// The list under a key of a collection, as an array of variants. Raises 91 for an absent key or collection and
/// 13 for a value that is no list.
HRESULT listOf(const IID& about, const VARIANT& collection, BSTR key, VARIANT* list) noexcept;

}  // namespace vantro::com
