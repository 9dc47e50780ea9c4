// An object with one interface, destroyed with the last reference to it.
#pragma once

#include "server/com/system.h"

#include <atomic>
#include <utility>

namespace vantro::com {

/// `IUnknown` over an interface, or over a class that implements a part of one. The creator owns the first reference.
template <class Base>
class RefCounted : public Base {
public:
    RefCounted(const RefCounted&) = delete;
    RefCounted& operator=(const RefCounted&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) final {
        if (object == nullptr) return E_POINTER;
        const bool known = iid == IID_IUnknown || isOwn(iid);
        *object = known ? static_cast<Base*>(this) : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() final { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() final {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

protected:
    template <class... Arguments>
    explicit RefCounted(Arguments&&... arguments) : Base(std::forward<Arguments>(arguments)...) {}
    virtual ~RefCounted() = default;

    /// True for the interfaces that the object has beside `IUnknown`.
    virtual bool isOwn(REFIID iid) const = 0;

private:
    std::atomic<ULONG> references_{0};
};

}  // namespace vantro::com
