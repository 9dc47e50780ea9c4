#include "tests/com/late_object.h"

#include "server/com/bstr.h"
#include "server/com/error.h"

#include <thread>
#include <utility>

namespace vantro::test {

namespace {

class LateObject final : public com::RefCounted<IDispatch> {
public:
    explicit LateObject(Operations operations) : operations_(operations.begin(), operations.end()) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, OLECHAR** names, UINT, LCID, DISPID* ids) override {
        const Text asked(com::viewOf(names[0], static_cast<std::size_t>(lstrlenW(names[0]))));
        for (std::size_t index = 0; index < operations_.size(); ++index) {
            if (operations_[index].first != asked) continue;
            ids[0] = static_cast<DISPID>(index + 1);
            return S_OK;
        }
        return DISP_E_UNKNOWNNAME;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* exception, UINT*) override {
        if (member < 1 || static_cast<std::size_t>(member) > operations_.size()) return DISP_E_MEMBERNOTFOUND;
        const std::vector<VARIANT> lastFirst(parameters->rgvarg, parameters->rgvarg + parameters->cArgs);
        return operations_[static_cast<std::size_t>(member - 1)].second({lastFirst.rbegin(), lastFirst.rend()}, *result,
                                                                        *exception);
    }

private:
    bool isOwn(REFIID iid) const override { return iid == IID_IDispatch; }

    std::vector<std::pair<Text, Operation>> operations_;
};

class Factory final : public com::RefCounted<IClassFactory> {
public:
    Factory(com::Ptr<IDispatch> object, std::shared_ptr<ClassUse> use)
        : object_(std::move(object)), use_(std::move(use)) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override {
        ++use_->created;
        return object_->QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        if (FAILED(use_->lockResult)) return use_->lockResult;
        use_->locks += lock != FALSE ? 1 : -1;
        return S_OK;
    }

private:
    bool isOwn(REFIID iid) const override { return iid == IID_IClassFactory; }

    com::Ptr<IDispatch> object_;
    std::shared_ptr<ClassUse> use_;
};

}  // namespace

com::Ptr<IDispatch> newLateObject(Operations operations) {
    return com::Ptr<IDispatch>(new LateObject(std::move(operations)));
}

TakenClass::TakenClass(const CLSID& clsid, Operations operations, std::shared_ptr<ClassUse> use) {
    const com::Ptr<IClassFactory> factory(new Factory(newLateObject(std::move(operations)), std::move(use)));
    com::check(CoRegisterClassObject(clsid, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_));
}

TakenClass::~TakenClass() { CoRevokeClassObject(cookie_); }

void inNewApartment(const std::function<void()>& body) {
    std::thread([&] {
        CoInitialize(nullptr);
        body();
        CoUninitialize();
    }).join();
}

}  // namespace vantro::test
