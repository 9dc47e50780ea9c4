#include "server/com/late_call.h"

#include "server/com/error.h"

#include <algorithm>
#include <array>

namespace vantro::com {

namespace {

constexpr std::size_t mostArguments = 4;

// The exception information of a failed call, freed with this object.
class ExceptionInfo {
public:
    ExceptionInfo() = default;
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
    ~ExceptionInfo() {
        SysFreeString(info_.bstrSource);
        SysFreeString(info_.bstrDescription);
        SysFreeString(info_.bstrHelpFile);
    }

    EXCEPINFO* receive() { return &info_; }

    Error error() {
        if (info_.pfnDeferredFillIn != nullptr) info_.pfnDeferredFillIn(&info_);
        const Error plain = errorOfCall(result());
        return Error(plain.number(), orElse(info_.bstrSource, plain.source()),
                     orElse(info_.bstrDescription, plain.description()));
    }

private:
    // An exception without a failure code is a plain failure.
    HRESULT result() const {
        if (info_.wCode != 0) return resultOf(info_.wCode);
        return FAILED(info_.scode) ? info_.scode : E_FAIL;
    }

    static TextView orElse(BSTR text, TextView otherwise) { return SysStringLen(text) == 0 ? otherwise : viewOf(text); }

    EXCEPINFO info_{};
};

// Error information that was current before the call does not describe the call's failure.
void withdraw(IErrorInfo* current) {
    Ptr<IErrorInfo> left;
    if (current == nullptr || GetErrorInfo(0, left.receive()) != S_OK) return;
    if (left.get() != current) SetErrorInfo(0, left.get());
}

}  // namespace

DISPID Member::id(IDispatch* object) {
    if (id_ == DISPID_UNKNOWN) {
        SetErrorInfo(0, nullptr);
        auto* name = const_cast<OLECHAR*>(characters(name_));
        check(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_SYSTEM_DEFAULT, &id_));
    }
    return id_;
}

Variant Member::call(IDispatch* object, std::initializer_list<VARIANT> arguments, IErrorInfo* current) {
    if (object == nullptr) fail(Failure::ObjectNotSet);
    std::array<VARIANT, mostArguments> lastFirst;
    std::reverse_copy(arguments.begin(), arguments.end(), lastFirst.begin());
    DISPPARAMS parameters{lastFirst.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    const DISPID member = id(object);
    Variant result;
    ExceptionInfo exception;
    UINT wrongArgument = 0;
    SetErrorInfo(0, current);
    const HRESULT status =
        object->Invoke(member, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &parameters,
                       result.pointer(), exception.receive(), &wrongArgument);
    withdraw(current);
    if (status == DISP_E_EXCEPTION) throw exception.error();
    check(status);
    return result;
}

VARIANT borrowed(BSTR text) {
    VARIANT value;
    value.vt = VT_BSTR;
    value.bstrVal = text;
    return value;
}

VARIANT borrowed(IDispatch* object) {
    VARIANT value;
    value.vt = VT_DISPATCH;
    value.pdispVal = object;
    return value;
}

VARIANT borrowed(std::int16_t number) {
    VARIANT value;
    value.vt = VT_I2;
    value.iVal = number;
    return value;
}

VARIANT borrowedByReference(BSTR* text) {
    VARIANT value;
    value.vt = VT_BYREF | VT_BSTR;
    value.pbstrVal = text;
    return value;
}

VARIANT borrowedByReference(VARIANT* value) {
    VARIANT reference;
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = value;
    return reference;
}

}  // namespace vantro::com
