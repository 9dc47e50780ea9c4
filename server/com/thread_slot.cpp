#include "server/com/thread_slot.h"

#include "server/com/error.h"
#include "server/com/ref_counted.h"
#include "server/com/system.h"

namespace vantro::com {

// The system calls it when the thread's apartment is about to end.
class ThreadSlotBase::Spy final : public RefCounted<IInitializeSpy> {
public:
    explicit Spy(ThreadSlotBase& slot) : slot_(slot) {}

    HRESULT STDMETHODCALLTYPE PreInitialize(DWORD, DWORD) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE PostInitialize(HRESULT result, DWORD, DWORD) override { return result; }
    HRESULT STDMETHODCALLTYPE PreUninitialize(DWORD initializations) override {
        constexpr DWORD last = 1;
        if (initializations == last) slot_.release();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE PostUninitialize(DWORD) override { return S_OK; }

private:
    bool isOwn(REFIID iid) const override { return iid == IID_IInitializeSpy; }

    ThreadSlotBase& slot_;
};

struct ThreadSlotBase::Entry {
    std::unique_ptr<ThreadKept> value;
    ULARGE_INTEGER spyCookie{};
};

ThreadSlotBase::ThreadSlotBase() : index_(TlsAlloc()) {
    if (index_ == TLS_OUT_OF_INDEXES) throw std::bad_alloc();
}

ThreadSlotBase::~ThreadSlotBase() { TlsFree(index_); }

ThreadKept* ThreadSlotBase::kept() const {
    const auto* const entry = static_cast<Entry*>(TlsGetValue(index_));
    return entry == nullptr ? nullptr : entry->value.get();
}

ThreadKept* ThreadSlotBase::keep(std::unique_ptr<ThreadKept> value) {
    auto entry = std::make_unique<Entry>();
    entry->value = std::move(value);
    const Ptr<IInitializeSpy> spy(new Spy(*this));
    check(CoRegisterInitializeSpy(spy.get(), &entry->spyCookie));
    ThreadKept* const known = entry->value.get();
    TlsSetValue(index_, entry.release());
    ++keepers_;
    return known;
}

bool ThreadSlotBase::releaseLast() {
    const LONG own = TlsGetValue(index_) == nullptr ? 0 : 1;
    if (keepers_ != own) return false;
    release();
    return true;
}

void ThreadSlotBase::release() {
    const std::unique_ptr<Entry> entry(static_cast<Entry*>(TlsGetValue(index_)));
    if (entry) {
        TlsSetValue(index_, nullptr);
        --keepers_;
        entry->value.reset();
        CoRevokeInitializeSpy(entry->spyCookie);
    }
}

}  // namespace vantro::com
