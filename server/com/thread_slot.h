// Something that every thread has one of, from its first use to the end of the thread's apartment.
#pragma once

#include "server/com/ptr.h"

#include <atomic>
#include <memory>

namespace vantro::com {

/// What a thread keeps; released while its apartment still stands.
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

    /// What other threads still keep is left alone: their apartments may be gone, and the libraries with them.
    ~ThreadSlotBase();

    /// Destroys what this thread keeps unless another thread keeps something too; true when nothing is left.
    bool releaseLast();

    /// Destroys what this thread keeps.
    void release();

protected:
    ThreadKept* kept() const;
    void keep(std::unique_ptr<ThreadKept> value);

private:
    class Spy;
    struct Entry;

    DWORD index_;
    std::atomic<LONG> keepers_{0};
};

template <class Value>
class ThreadSlot : public ThreadSlotBase {
public:
    /// This thread's value, made on first use.
    Value& get() {
        if (kept() == nullptr) keep(std::make_unique<Holder>());
        return static_cast<Holder*>(kept())->value;
    }

private:
    struct Holder final : ThreadKept {
        Value value;
    };
};

}  // namespace vantro::com
