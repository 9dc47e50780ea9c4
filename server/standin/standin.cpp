// `VantroKestoFaces.dll` stands in for the terminal's library where no terminal is installed. It is for development and
// tests only and never replaces an installed one.
#include "server/com/module.h"
#include "server/com/registration.h"
#include "server/standin/objects.h"
#include "vantro_kesto_faces.h"

namespace vantro::com::module {

TextView name() { return u"VantroKestoFaces"; }

const GUID& libraryId() { return LIBID_VantroKestoFaces; }

std::vector<Text> classNames() {
    return {u"KeyedCollection", u"TerminalFunctions", u"ErrorReporter", u"StandInControl"};
}

Ptr<IUnknown> create(const ClassInfo& info) { return standin::newObject(info); }

HRESULT mayRegister(const std::vector<ClassInfo>& classes) {
    return isTaken(classes) ? HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS) : S_OK;
}

bool releaseCaches() { return true; }

}  // namespace vantro::com::module
