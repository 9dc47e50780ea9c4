// A counted reference to a COM object.
#pragma once

#include "server/com/system.h"

#include <utility>

namespace vantro::com {

template <class Interface>
class Ptr {
public:
    Ptr() = default;
    Ptr(std::nullptr_t) {}

    /// Adds a reference of its own.
    explicit Ptr(Interface* object) : object_(object) {
        if (object_ != nullptr) object_->AddRef();
    }
    Ptr(const Ptr& other) : Ptr(other.object_) {}
    Ptr(Ptr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~Ptr() { reset(); }

    Ptr& operator=(Ptr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    /// Takes over a reference that has been counted already.
    static Ptr adopt(Interface* object) {
        Ptr ptr;
        ptr.object_ = object;
        return ptr;
    }

    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// Passes the counted reference to the caller.
    Interface* detach() { return std::exchange(object_, nullptr); }

    void reset() {
        if (Interface* const object = detach()) object->Release();
    }

    /// The address where a call stores a counted reference.
    Interface** receive() {
        reset();
        return &object_;
    }
    void** receiveAny() { return reinterpret_cast<void**>(receive()); }

    /// The same object under another interface; null when it does not have it.
    template <class Other>
    Ptr<Other> as(const IID& iid) const {
        Ptr<Other> other;
        if (object_ != nullptr && FAILED(object_->QueryInterface(iid, other.receiveAny()))) other.detach();
        return other;
    }

private:
    Interface* object_ = nullptr;
};

}  // namespace vantro::com
