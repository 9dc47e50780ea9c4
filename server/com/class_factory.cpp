#include "server/com/class_factory.h"

#include "server/com/error.h"
#include "server/com/ref_counted.h"

namespace vantro::com {

namespace {

class ClassFactory final : public RefCounted<IClassFactory> {
public:
    explicit ClassFactory(const ClassInfo& info) : info_(info) {}

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
    bool isOwn(REFIID iid) const override { return iid == IID_IClassFactory; }

    const ClassInfo& info_;
};

}  // namespace

HRESULT classFactory(const ClassInfo& info, REFIID iid, void** factory) noexcept {
    Ptr<IClassFactory> made;
    const HRESULT result = atBorder(IID_IClassFactory, [&] { made = Ptr<IClassFactory>(new ClassFactory(info)); });
    return FAILED(result) ? result : made->QueryInterface(iid, factory);
}

}  // namespace vantro::com
