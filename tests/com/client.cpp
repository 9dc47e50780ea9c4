#include "tests/com/client.h"

#include "tests/support/text.h"

#include <ostream>
#include <stdexcept>

namespace vantro::test {

CLSID registeredClass(TextView library, TextView name) {
    CLSID clsid{};
    const Bstr progId(Text(library).append(u".").append(name));
    if (FAILED(CLSIDFromProgID(progId.get(), &clsid))) {
        throw std::runtime_error(utf8(library) + "." + utf8(name) + " is not registered; is it a coclass of the IDL?");
    }
    return clsid;
}

Ptr<::IProfileTrans> newTrans(TextView className) {
    return newServerObject<::IProfileTrans>(className, IID_IProfileTrans);
}

Ptr<::IProfileGet> newGet(TextView className) { return newServerObject<::IProfileGet>(className, IID_IProfileGet); }

Ptr<IStandInControl> standIn() {
    Ptr<IStandInControl> control;
    com::check(CoCreateInstance(registeredClass(u"VantroKestoFaces", u"StandInControl"), nullptr, CLSCTX_INPROC_SERVER,
                                IID_IStandInControl, control.receiveAny()));
    return control;
}

Ptr<IKeyedCollection> terminalCollection(const Entries& entries) {
    Ptr<IKeyedCollection> collection;
    com::check(CoCreateInstance(registeredClass(u"VantroKestoFaces", u"KeyedCollection"), nullptr, CLSCTX_INPROC_SERVER,
                                IID_IKeyedCollection, collection.receiveAny()));
    for (const Entry& entry : entries) {
        Variant key = Variant::of(TextView(entry.key));
        Variant value = Variant::of(entry.value);
        Ptr<IDispatch> item;
        com::check(collection->Add(key.pointer(), value.pointer(), item.receive()));
    }
    return collection;
}

Entries entriesOf(IDispatch* object) {
    Entries entries;
    const auto collection = Ptr(object).as<IKeyedCollection>(IID_IKeyedCollection);
    LONG count = 0;
    com::check(collection->get_Count(&count));
    for (LONG index = 0; index < count; ++index) {
        Bstr key;
        Variant value;
        Ptr<IDispatch> item;
        com::check(collection->get_Key(index, key.receive()));
        com::check(collection->Item(key.get(), item.receive()));
        com::check(item.as<IKeyedItem>(IID_IKeyedItem)->get_Value(value.pointer()));
        entries.emplace_back(key.view(), com::itemValueIn(value.get()));
    }
    return entries;
}

VARIANT argument(IDispatch* object) { return com::borrowed(object); }

VARIANT noArgument() {
    VARIANT missing;
    missing.vt = VT_ERROR;
    missing.scode = DISP_E_PARAMNOTFOUND;
    return missing;
}

void PrintTo(const Raised& raised, std::ostream* out) {
    *out << raised.number << " from " << raised.source << ": " << raised.description;
}

Raised raisedBy(HRESULT result) {
    Ptr<IErrorInfo> info;
    GetErrorInfo(0, info.receive());
    if (SUCCEEDED(result)) return {};
    Raised raised{com::numberOf(result), {}, {}};
    if (!info) return raised;
    Bstr source;
    Bstr description;
    info->GetSource(source.receive());
    info->GetDescription(description.receive());
    raised.source = utf8(source.view());
    raised.description = utf8(description.view());
    return raised;
}

Raised creatingFailed(int number) {
    return {number, "VantroProfileUtils", "An error has occurred while creating a profile command."};
}

Raised verifyingFailed(int number) {
    return {number, "VantroProfileUtils", "An error has occurred while verifying the profile."};
}

Raised notesFailed(int number) {
    return {number, "VantroProfileUtils", "An error has occurred while reading Profile Notes"};
}

long liveObjects() {
    LONG count = 0;
    standIn()->get_LiveObjects(&count);
    return count;
}

HMODULE serverModule() { return GetModuleHandleW(L"VantroProfileUtils.dll"); }

HMODULE standInModule() { return GetModuleHandleW(L"VantroKestoFaces.dll"); }

UnloadQuestion plainExport(HMODULE library, const char* name) {
    return reinterpret_cast<UnloadQuestion>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace vantro::test
