#include "tests/com/foreign/late_object.h"

#include <new>

namespace foreign {

namespace {

constexpr HRESULT automationError = static_cast<HRESULT>(0x800A0000UL);
constexpr int highestNumber = 0xFFFF;

// The caller owns the texts of EXCEPINFO.
void describe(EXCEPINFO& exception, const wchar_t* description) {
    exception.bstrSource = SysAllocString(librarySource);
    exception.bstrDescription = SysAllocString(description);
}

HRESULT STDMETHODCALLTYPE fillInLate(EXCEPINFO* exception) {
    exception->scode = resultOfNumber(Watch::only().failingNumber());
    describe(*exception, askedDescription);
    return S_OK;
}

HRESULT asked(Fault fault, EXCEPINFO* exception) {
    if (fault == Fault::Fails) return E_FAIL;
    if (fault == Fault::NoMemory) return E_OUTOFMEMORY;
    if (exception == nullptr) return DISP_E_EXCEPTION;
    *exception = {};
    if (fault == Fault::OwnLateError) exception->pfnDeferredFillIn = fillInLate;
    if (fault == Fault::OwnError) {
        const LONG number = Watch::only().failingNumber();
        const bool isCode = number > 0 && number <= highestNumber;
        exception->wCode = isCode ? static_cast<WORD>(number) : WORD{0};
        exception->scode = isCode ? 0 : number;
        describe(*exception, askedDescription);
    }
    return DISP_E_EXCEPTION;
}

HRESULT ownFailure(const Failed& failed, EXCEPINFO* exception) {
    if (exception == nullptr) return DISP_E_EXCEPTION;
    *exception = {};
    exception->scode = automationError + failed.number;
    describe(*exception, failed.description);
    return DISP_E_EXCEPTION;
}

Held wrongValue(Fault fault) {
    Held made;
    if (fault == Fault::Nothing) made.value.vt = VT_DISPATCH;
    if (fault == Fault::Nothing) made.value.pdispVal = nullptr;
    if (fault == Fault::Null) made.value.vt = VT_NULL;
    if (fault == Fault::ErrorValue) {
        made.value.vt = VT_ERROR;
        made.value.scode = DISP_E_DIVBYZERO;
    }
    if (fault == Fault::Numbers) {
        made.value.parray = SafeArrayCreateVector(VT_I4, 0, 2);
        if (made.value.parray == nullptr) throw std::bad_alloc();
        made.value.vt = VT_ARRAY | VT_I4;
    }
    return made;
}

Arguments inOrder(const DISPPARAMS& parameters, UINT most) {
    VARIANT missing;
    missing.vt = VT_ERROR;
    missing.scode = DISP_E_PARAMNOTFOUND;
    Arguments arguments(most, missing);
    for (UINT index = 0; index < parameters.cArgs; ++index) {
        arguments[index] = parameters.rgvarg[parameters.cArgs - 1 - index];
    }
    return arguments;
}

}  // namespace

HRESULT resultOfNumber(LONG number) {
    return number > 0 && number <= highestNumber ? automationError + static_cast<HRESULT>(number) : number;
}

LateObject::LateObject(std::span<const MemberRow> members) : members_(members) { Watch::only().addLive(1); }

LateObject::~LateObject() { Watch::only().addLive(-1); }

HRESULT LateObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

ULONG LateObject::AddRef() { return ++references_; }

ULONG LateObject::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT LateObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT LateObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info != nullptr) *info = nullptr;
    return E_NOTIMPL;
}

HRESULT LateObject::GetIDsOfNames(REFIID iid, OLECHAR** names, UINT count, LCID, DISPID* ids) {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    for (UINT index = 0; index < count; ++index) ids[index] = DISPID_UNKNOWN;
    for (const MemberRow& row : members_) {
        if (lstrcmpiW(names[0], row.name) == 0) ids[0] = row.id;
    }
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

const MemberRow* LateObject::find(DISPID member) const {
    for (const MemberRow& row : members_) {
        if (row.id == member) return &row;
    }
    return nullptr;
}

Fault LateObject::faultOf(DISPID member, const Arguments& arguments) const {
    std::wstring call = watched(member, arguments);
    return call.empty() ? Fault::None : Watch::only().enter(std::move(call));
}

HRESULT LateObject::Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, UINT*) {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    const MemberRow* const row = find(member);
    if (row == nullptr || (flags & row->kinds) == 0) return DISP_E_MEMBERNOTFOUND;
    if (parameters == nullptr || parameters->cArgs < row->fewest || parameters->cArgs > row->most) {
        return DISP_E_BADPARAMCOUNT;
    }
    if (parameters->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
    try {
        const Arguments arguments = inOrder(*parameters, row->most);
        const Fault fault = faultOf(member, arguments);
        if (fault != Fault::None && fault <= vantro::test::lastError) return asked(fault, exception);
        Held value = call(member, arguments);
        if (fault != Fault::None) value = wrongValue(fault);
        if (result != nullptr) *result = value.detach();
        return S_OK;
    } catch (const Failed& failed) {
        return ownFailure(failed, exception);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace foreign
