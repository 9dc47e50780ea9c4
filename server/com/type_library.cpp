#include "server/com/type_library.h"

#include "server/com/bstr.h"
#include "server/com/error.h"

#include <algorithm>
#include <initializer_list>
#include <mutex>

namespace vantro::com {

namespace {

struct KnownInterface {
    IID iid;
    Ptr<ITypeInfo> info;
};

struct Cache {
    Cache() = default;
    Cache(const Cache&) = delete;
    Cache& operator=(const Cache&) = delete;

    // At the end of a process the system's libraries may be gone before this one: nothing is released then.
    ~Cache() {
        types.detach();
        for (KnownInterface& known : interfaces) known.info.detach();
    }

    std::mutex mutex;
    Ptr<ITypeLib> types;
    std::vector<KnownInterface> interfaces;
};

Cache& cache() {
    static Cache only;
    return only;
}

struct TypeAttributes {
    explicit TypeAttributes(ITypeInfo* described) : info(described) { check(info->GetTypeAttr(&attributes)); }
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;
    ~TypeAttributes() { info->ReleaseTypeAttr(attributes); }

    const TYPEATTR* operator->() const { return attributes; }

    ITypeInfo* info;
    TYPEATTR* attributes = nullptr;
};

Ptr<ITypeLib> loadedLibrary(Cache& known) {
    if (!known.types) check(LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, known.types.receive()));
    return known.types;
}

IID implementedInterface(ITypeInfo* type, UINT index) {
    HREFTYPE reference = 0;
    Ptr<ITypeInfo> interfaceType;
    check(type->GetRefTypeOfImplType(index, &reference));
    check(type->GetRefTypeInfo(reference, interfaceType.receive()));
    return TypeAttributes(interfaceType.get())->guid;
}

std::vector<IID> implementedInterfaces(ITypeInfo* type, UINT count) {
    std::vector<IID> interfaces;
    for (UINT index = 0; index < count; ++index) {
        INT flags = 0;
        check(type->GetImplTypeFlags(index, &flags));
        const bool isDefault = (flags & IMPLTYPEFLAG_FDEFAULT) != 0;
        interfaces.insert(isDefault ? interfaces.begin() : interfaces.end(), implementedInterface(type, index));
    }
    return interfaces;
}

ClassInfo describe(ITypeInfo* type) {
    Bstr name;
    Bstr description;
    check(type->GetDocumentation(MEMBERID_NIL, name.receive(), description.receive(), nullptr, nullptr));
    const TypeAttributes attributes(type);
    return {Text(name.view()), Text(description.view()), attributes->guid,
            implementedInterfaces(type, attributes->cImplTypes)};
}

// Calls `take` with every type of these kinds.
template <class Take>
void forTypes(std::initializer_list<TYPEKIND> kinds, Take&& take) {
    const Ptr<ITypeLib> library = typeLibrary();
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        TYPEKIND kind{};
        check(library->GetTypeInfoType(index, &kind));
        if (std::ranges::find(kinds, kind) == kinds.end()) continue;
        Ptr<ITypeInfo> type;
        check(library->GetTypeInfo(index, type.receive()));
        take(type.get());
    }
}

const std::vector<ClassInfo>& knownClasses() {
    static const std::vector<ClassInfo> classes = moduleClasses();
    return classes;
}

}  // namespace

Ptr<ITypeLib> typeLibrary() {
    Cache& known = cache();
    const std::lock_guard lock(known.mutex);
    return loadedLibrary(known);
}

Ptr<ITypeInfo> typeInfoOf(const IID& iid) {
    Cache& known = cache();
    const std::lock_guard lock(known.mutex);
    const auto place = std::ranges::find(known.interfaces, iid, &KnownInterface::iid);
    if (place != known.interfaces.end()) return place->info;
    Ptr<ITypeInfo> info;
    check(loadedLibrary(known)->GetTypeInfoOfGuid(iid, info.receive()));
    known.interfaces.push_back({iid, info});
    return info;
}

std::vector<ClassInfo> moduleClasses() {
    std::vector<ClassInfo> described;
    forTypes({TKIND_COCLASS}, [&](ITypeInfo* type) { described.push_back(describe(type)); });
    std::vector<ClassInfo> classes;
    for (const Text& name : module::classNames()) {
        const auto place = std::ranges::find(described, name, &ClassInfo::name);
        if (place != described.end()) classes.push_back(*place);
    }
    return classes;
}

std::vector<IID> describedInterfaces() {
    std::vector<IID> interfaces;
    forTypes({TKIND_INTERFACE, TKIND_DISPATCH},
             [&](ITypeInfo* type) { interfaces.push_back(TypeAttributes(type)->guid); });
    return interfaces;
}

LibraryVersion libraryVersion() {
    TLIBATTR* attributes = nullptr;
    const Ptr<ITypeLib> library = typeLibrary();
    check(library->GetLibAttr(&attributes));
    const LibraryVersion version{attributes->wMajorVerNum, attributes->wMinorVerNum, attributes->lcid};
    library->ReleaseTLibAttr(attributes);
    return version;
}

const ClassInfo* classWithId(const CLSID& clsid) {
    const auto place = std::ranges::find(knownClasses(), clsid, &ClassInfo::clsid);
    return place == knownClasses().end() ? nullptr : &*place;
}

void forgetTypeLibrary() {
    Cache& known = cache();
    const std::lock_guard lock(known.mutex);
    known.interfaces.clear();
    known.types.reset();
}

}  // namespace vantro::com
