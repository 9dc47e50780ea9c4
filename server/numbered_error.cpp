#include "server/numbered_error.h"

#include "server/com/bstr.h"
#include "server/com/error.h"
#include "vantro_profile_utils.h"

#include <atomic>

namespace vantro::com {

namespace {

class NumberedError final : public IErrorInfo, public INumberedError {
public:
    explicit NumberedError(const Error& error) : error_(error) {}
    NumberedError(const NumberedError&) = delete;
    NumberedError& operator=(const NumberedError&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (iid == IID_IUnknown || iid == IID_IErrorInfo) *object = static_cast<IErrorInfo*>(this);
        if (iid == IID_INumberedError) *object = static_cast<INumberedError*>(this);
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetGUID(GUID* about) override {
        if (about == nullptr) return E_POINTER;
        *about = GUID{};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetSource(BSTR* text) override { return copyTo(error_.source(), text); }
    HRESULT STDMETHODCALLTYPE GetDescription(BSTR* text) override { return copyTo(error_.description(), text); }
    HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* text) override { return copyTo({}, text); }
    HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD* context) override {
        if (context == nullptr) return E_POINTER;
        *context = 0;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE get_Number(LONG* number) override {
        if (number == nullptr) return E_POINTER;
        *number = error_.number();
        return S_OK;
    }

private:
    ~NumberedError() = default;

    static HRESULT copyTo(TextView text, BSTR* target) {
        if (target == nullptr) return E_POINTER;
        return atBorder(IID_IErrorInfo, [&] { *target = newBstr(text); });
    }

    Error error_;
    std::atomic<ULONG> references_{0};
};

}  // namespace

Ptr<IErrorInfo> numberedError(const Error& error) { return Ptr<IErrorInfo>(new NumberedError(error)); }

}  // namespace vantro::com
