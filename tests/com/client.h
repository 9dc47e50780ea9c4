// An early-bound automation client, shared by the tests of the server. It uses the interface headers and the registry's
// class identifiers, and none of the server's code.
#pragma once

#include "server/com/array.h"
#include "server/com/error.h"
#include "server/com/late_call.h"
#include "tests/support/collections.h"
#include "vantro_kesto_faces.h"
#include "vantro_profile_utils.h"

#include <string>
#include <utility>

namespace vantro::test {

using com::Bstr;
using com::Ptr;
using com::Variant;

/// The identifier that is registered under "VantroProfileUtils." or "VantroKestoFaces." and the class's name.
CLSID registeredClass(TextView library, TextView name);

/// A new object of the server's class under this interface; raises the failure.
template <class Interface>
Ptr<Interface> newServerObject(TextView className, const IID& iid) {
    Ptr<Interface> object;
    com::check(CoCreateInstance(registeredClass(u"VantroProfileUtils", className), nullptr, CLSCTX_INPROC_SERVER, iid,
                                object.receiveAny()));
    return object;
}

Ptr<::IProfileTrans> newTrans(TextView className);
Ptr<::IProfileGet> newGet(TextView className);

/// The stand-in's control.
Ptr<IStandInControl> standIn();

/// A collection of the terminal with these entries.
Ptr<IKeyedCollection> terminalCollection(const Entries& entries);

/// The entries of a collection of the terminal, in their order.
Entries entriesOf(IDispatch* collection);

/// An argument that borrows an object.
VARIANT argument(IDispatch* object);
VARIANT noArgument();

/// The error of a failed call: the number in its result code and the thread's error information.
struct Raised {
    int number = 0;
    std::string source;
    std::string description;

    friend bool operator==(const Raised&, const Raised&) = default;
};
void PrintTo(const Raised& raised, std::ostream* out);

/// The error of a call with this result; number 0 and empty texts when it succeeded.
Raised raisedBy(HRESULT result);

/// The errors that the server raises itself.
Raised creatingFailed(int number);
Raised verifyingFailed(int number);
Raised notesFailed(int number);

/// The objects of the stand-in that are alive.
long liveObjects();

/// The server's file, loaded by this process.
HMODULE serverModule();
HMODULE standInModule();

using UnloadQuestion = HRESULT(STDMETHODCALLTYPE*)();

/// An export of a server library without arguments.
UnloadQuestion plainExport(HMODULE library, const char* name);

}  // namespace vantro::test
