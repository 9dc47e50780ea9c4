// `VantroProfileUtils.dll`: the classes of the class table.
#include "server/com/module.h"
#include "server/com_terminal.h"
#include "server/profile_server_object.h"
#include "vantro_profile_utils.h"

namespace vantro::com::module {

TextView name() { return u"VantroProfileUtils"; }

const GUID& libraryId() { return LIBID_VantroProfileUtils; }

std::vector<Text> classNames() {
    std::vector<Text> names;
    for (const ClassRow& row : classTable()) names.emplace_back(row.name);
    return names;
}

Ptr<IUnknown> create(const ClassInfo& info) { return newProfileObject(info); }

HRESULT mayRegister(const std::vector<ClassInfo>& /*classes*/) { return S_OK; }

bool releaseCaches() { return releaseLastHelpers(); }

}  // namespace vantro::com::module
