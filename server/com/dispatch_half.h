// One dual interface of an object: `IUnknown` is the object's, `IDispatch` uses the type library.
#pragma once

#include "server/com/type_library.h"

#include <array>
#include <cstddef>

namespace vantro::com {

/// `IDispatch` over the type library, for the interface that `half` points to.
HRESULT describeHalf(const IID& iid, UINT index, ITypeInfo** info) noexcept;
HRESULT namesToIds(const IID& iid, OLECHAR** names, UINT count, DISPID* ids) noexcept;
HRESULT invokeHalf(const IID& iid, void* half, DISPID member, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                   EXCEPINFO* exception, UINT* wrongArgument) noexcept;

/// The methods of `IDispatch` for a dual interface.
template <class Interface>
class Dispatching : public Interface {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) final {
        if (count == nullptr) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) final {
        return describeHalf(iid_, index, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, OLECHAR** names, UINT count, LCID locale,
                                            DISPID* ids) final {
        if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
        const HRESULT result = namesToIds(iid_, names, count, ids);
        if (result != DISP_E_UNKNOWNNAME || count == 0 || ids[0] != DISPID_UNKNOWN) return result;
        const Ptr<IDispatch> further = furtherMembers();
        return further ? further->GetIDsOfNames(reserved, names, count, locale, ids) : result;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) final {
        if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
        const HRESULT invoked = invokeHalf(iid_, static_cast<Interface*>(this), member, flags, parameters, result,
                                           exception, wrongArgument);
        if (invoked != DISP_E_MEMBERNOTFOUND) return invoked;
        const Ptr<IDispatch> further = furtherMembers();
        return further ? further->Invoke(member, reserved, locale, flags, parameters, result, exception, wrongArgument)
                       : invoked;
    }

protected:
    explicit Dispatching(const IID& iid) : iid_(iid) {}
    ~Dispatching() = default;

    const IID& dispatchedIid() const { return iid_; }

    /// Members that calls by name find in addition to the interface's own; null for none. Their ids are others.
    virtual Ptr<IDispatch> furtherMembers() { return {}; }

private:
    const IID& iid_;
};

/// A part of an object that the object owns; it is found by its interface.
class Half {
public:
    virtual ~Half() = default;
    virtual const IID& iid() const = 0;
    virtual IUnknown* unknown() = 0;

protected:
    Half() = default;
    Half(const Half&) = default;
    Half& operator=(const Half&) = default;
};

template <class Interface>
class DispatchHalf : public Dispatching<Interface>, public Half {
public:
    DispatchHalf(IUnknown& owner, const IID& iid) : Dispatching<Interface>(iid), owner_(owner) {}

    const IID& iid() const final { return this->dispatchedIid(); }
    IUnknown* unknown() final { return static_cast<Interface*>(this); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) final {
        return owner_.QueryInterface(iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() final { return owner_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() final { return owner_.Release(); }

protected:
    IUnknown& owner() { return owner_; }

private:
    IUnknown& owner_;
};

}  // namespace vantro::com
