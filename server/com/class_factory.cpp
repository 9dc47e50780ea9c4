#include "server/com/class_factory.h"

#include "server/com/error.h"

#include <atomic>

namespace vantro::com {

namespace {

class ClassFactory final : public IClassFactory {
public:
    explicit ClassFactory(const ClassInfo& info) : info_(info) {}
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
        *object = known ? static_cast<IClassFactory*>(this) : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        Ptr<IUnknown> made;
        const HRESULT result = atBorder(IID_IClassFactory, [&] { made = module::create(info_); });
        return FAILED(result) ? result : made->QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        ModuleLock::add(lock != FALSE ? 1 : -1);
        return S_OK;
    }

private:
    ~ClassFactory() = default;

    const ClassInfo& info_;
    std::atomic<ULONG> references_{0};
};

}  // namespace

HRESULT classFactory(const ClassInfo& info, REFIID iid, void** factory) noexcept {
    Ptr<IClassFactory> made;
    const HRESULT result = atBorder(IID_IClassFactory, [&] { made = Ptr<IClassFactory>(new ClassFactory(info)); });
    return FAILED(result) ? result : made->QueryInterface(iid, factory);
}

}  // namespace vantro::com
