#include "server/com/dispatch_half.h"

#include "server/com/error.h"

namespace vantro::com {

namespace {

// Finds the description of an interface; returns the result code of a failure.
HRESULT find(const IID& iid, Ptr<ITypeInfo>& info) noexcept {
    return atBorder(iid, [&] { info = typeInfoOf(iid); });
}

}  // namespace

HRESULT describeHalf(const IID& iid, UINT index, ITypeInfo** info) noexcept {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    Ptr<ITypeInfo> found;
    const HRESULT result = find(iid, found);
    *info = found.detach();
    return result;
}

HRESULT namesToIds(const IID& iid, OLECHAR** names, UINT count, DISPID* ids) noexcept {
    Ptr<ITypeInfo> info;
    const HRESULT result = find(iid, info);
    return FAILED(result) ? result : info->GetIDsOfNames(names, count, ids);
}

HRESULT invokeHalf(const IID& iid, void* half, DISPID member, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                   EXCEPINFO* exception, UINT* wrongArgument) noexcept {
    Ptr<ITypeInfo> info;
    const HRESULT found = find(iid, info);
    if (FAILED(found)) return found;
    return info->Invoke(half, member, flags, parameters, result, exception, wrongArgument);
}

}  // namespace vantro::com
