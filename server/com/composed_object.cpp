#include "server/com/composed_object.h"

#include "server/com/error.h"

namespace vantro::com {

Half* ComposedObject::find(const IID& iid) {
    if (iid == IID_IDispatch) return halves_.front().get();
    for (const std::unique_ptr<Half>& half : halves_) {
        if (half->iid() == iid) return half.get();
    }
    return nullptr;
}

HRESULT ComposedObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_ISupportErrorInfo) {
        *object = static_cast<ISupportErrorInfo*>(this);
    } else if (iid == IID_IProvideClassInfo) {
        *object = static_cast<IProvideClassInfo*>(this);
    } else if (Half* const half = find(iid)) {
        *object = half->unknown();
    }
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG ComposedObject::AddRef() { return ++references_; }

ULONG ComposedObject::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT ComposedObject::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid != IID_IDispatch && find(iid) != nullptr ? S_OK : S_FALSE;
}

HRESULT ComposedObject::GetClassInfo(ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return atBorder(IID_IProvideClassInfo, [&] { check(typeLibrary()->GetTypeInfoOfGuid(clsid_, info)); });
}

}  // namespace vantro::com
