// An object that is composed of the interfaces that the type library lists for its class.
#pragma once

#include "server/com/dispatch_half.h"

#include <atomic>
#include <memory>

namespace vantro::com {

/// The identity of an object: its reference count and its interfaces. The first half is the default interface, which
/// calls by name use.
class ComposedObject : public ISupportErrorInfo, public IProvideClassInfo {
public:
    ComposedObject(const ComposedObject&) = delete;
    ComposedObject& operator=(const ComposedObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) final;
    ULONG STDMETHODCALLTYPE AddRef() final;
    ULONG STDMETHODCALLTYPE Release() final;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) final;
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) final;

    /// The object's `IUnknown`.
    IUnknown& identity() { return *static_cast<ISupportErrorInfo*>(this); }

protected:
    explicit ComposedObject(const CLSID& clsid) : clsid_(clsid) {}
    virtual ~ComposedObject() = default;

    void add(std::unique_ptr<Half> half) { halves_.push_back(std::move(half)); }

private:
    Half* find(const IID& iid);

    ModuleLock lock_;
    CLSID clsid_;
    std::atomic<ULONG> references_{0};
    std::vector<std::unique_ptr<Half>> halves_;
};

}  // namespace vantro::com
