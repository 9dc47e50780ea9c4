// A value per thread, from its first use to the end of the thread's apartment.
#pragma once

#include "server/com/ptr.h"

#include <atomic>
#include <memory>

namespace vantro::com {

/// A thread's value; destroyed before its apartment ends.
class ThreadKept {
public:
    virtual ~ThreadKept() = default;
    ThreadKept(const ThreadKept&) = delete;
    ThreadKept& operator=(const ThreadKept&) = delete;

protected:
    ThreadKept() = default;
};

/// The untyped part of `ThreadSlot`.
class ThreadSlotBase {
public:
    ThreadSlotBase();
    ThreadSlotBase(const ThreadSlotBase&) = delete;
    ThreadSlotBase& operator=(const ThreadSlotBase&) = delete;

    /// The values of other threads are not destroyed: their apartments may be gone, and the libraries with them.
    ~ThreadSlotBase();

    /// Destroys this thread's value unless another thread has one too; true when none is left.
    bool releaseLast();

    /// Destroys this thread's value.
    void release();

protected:
    ThreadKept* kept() const;
    ThreadKept* keep(std::unique_ptr<ThreadKept> value);

private:
    class Spy;
    struct Entry;

    DWORD index_;
    std::atomic<LONG> keepers_{0};
};

template <class Value>
class ThreadSlot : public ThreadSlotBase {
public:
    /// This thread's value, created on first use.
    Value& get() {
        ThreadKept* known = kept();
        if (known == nullptr) known = keep(std::make_unique<Holder>());
        return static_cast<Holder*>(known)->value;
    }

private:
    struct Holder final : ThreadKept {
        Value value;
    };
};

}  // namespace vantro::com
