#include "tests/com/memory_spy.h"

#include <mutex>
#include <unordered_set>

namespace vantro::test {

namespace {

class Spy final : public IMallocSpy {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IMallocSpy;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* block) override { return note(block); }
    void* STDMETHODCALLTYPE PreFree(void* block, BOOL) override {
        forget(block);
        return block;
    }
    void STDMETHODCALLTYPE PostFree(BOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** newBlock, BOOL) override {
        forget(block);
        *newBlock = block;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return note(block); }
    void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int did) override { return did; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}

    std::size_t outstanding() {
        const std::lock_guard lock(mutex_);
        return blocks_.size();
    }

private:
    void* note(void* block) {
        const std::lock_guard lock(mutex_);
        if (block != nullptr) blocks_.insert(block);
        return block;
    }
    void forget(void* block) {
        const std::lock_guard lock(mutex_);
        blocks_.erase(block);
    }

    std::mutex mutex_;
    std::unordered_set<void*> blocks_;
};

Spy& spy() {
    static Spy* const only = new Spy;  // the system calls it until the process ends
    return *only;
}

}  // namespace

void MemorySpy::install() { CoRegisterMallocSpy(&spy()); }

std::size_t MemorySpy::outstanding() { return spy().outstanding(); }

}  // namespace vantro::test
