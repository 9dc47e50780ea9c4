// A client in C++. The header and the identifiers are made from VantroProfileUtils.idl, by midl or widl.
#include "vantro_profile_utils.h"

#include <oleauto.h>

#include <cstdio>
#include <cstring>
#include <cwchar>
#include <initializer_list>
#include <stdexcept>
#include <string>

namespace {

// A value that is freed with this object.
struct Value : VARIANT {
    Value() { VariantInit(this); }
    explicit Value(const wchar_t* text) : Value() {
        vt = VT_BSTR;
        bstrVal = SysAllocString(text);
    }
    explicit Value(bool truth) : Value() {
        vt = VT_BOOL;
        boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Value(IDispatch* object) : Value() {  // takes the reference over
        vt = VT_DISPATCH;
        pdispVal = object;
    }
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    ~Value() { VariantClear(this); }
};

// A text that a call returns.
struct ReturnedText : Value {
    ReturnedText() {
        vt = VT_BSTR;
        bstrVal = nullptr;
    }
};

void check(HRESULT result) {
    if (FAILED(result)) throw std::runtime_error("a call failed with code " + std::to_string(result));
}

// Calls an operation of the terminal by its name. The arguments are in reverse order.
void call(IDispatch* object, const wchar_t* name, std::initializer_list<const VARIANT*> lastFirst, Value& result) {
    VARIANT arguments[2] = {};
    UINT count = 0;
    for (const VARIANT* argument : lastFirst) arguments[count++] = *argument;
    auto* spelled = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    check(object->GetIDsOfNames(IID_NULL, &spelled, 1, LOCALE_SYSTEM_DEFAULT, &id));
    DISPPARAMS parameters{arguments, nullptr, count, 0};
    check(object->Invoke(id, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &parameters,
                         &result, nullptr, nullptr));
}

// The terminal's collection.
struct Collection : Value {
    Collection() : Value(create()) {}
    template <class Content>
    void add(const wchar_t* key, Content content) {
        const Value keyText(key);
        const Value value(content);
        Value item;
        call(pdispVal, L"Add", {&value, &keyText}, item);
    }

private:
    static IDispatch* create() {
        CLSID clsid{};
        IDispatch* made = nullptr;
        check(CLSIDFromProgID(L"VantroKestoFaces.KeyedCollection", &clsid));
        check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, reinterpret_cast<void**>(&made)));
        return made;
    }
};

void getValue(IDispatch* collection, const wchar_t* key, Value& value) {
    const Value keyText(key);
    Value item;
    call(collection, L"Item", {&keyText}, item);
    call(item.pdispVal, L"Value", {}, value);
}

// The lines of a screen, each filled up to 80 characters.
std::wstring screen(std::initializer_list<const wchar_t*> lines) {
    std::wstring text;
    for (const wchar_t* line : lines) text += line + std::wstring(80 - std::wcslen(line), L' ');
    return text;
}

template <class Interface>
Interface* create(const CLSID& clsid, const IID& iid) {
    void* made = nullptr;
    check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, iid, &made));
    return static_cast<Interface*>(made);
}

void searchByName() {
    Collection parameters;
    parameters.add(L"strKeyName", L"SMITH/ANNA");
    parameters.add(L"strKeyCompany", L"");
    parameters.add(L"blnKeyExactMatch", true);
    parameters.add(L"strKeyOfficeID", L"");
    auto* search = create<IProfileTrans>(CLSID_CPDNTrans, IID_IProfileTrans);
    ReturnedText command;
    check(search->CreateCommand(parameters, &command.bstrVal));
    std::printf("%ls\n", command.bstrVal);

    // What the host answered. An empty response has no results.
    const Value response(screen({L"PDN/-SMITH/ANNA/", L"*T* SMITH/ANNA MS", L">"}).c_str());
    IDispatch* answered = nullptr;
    check(search->VerifyResponse(response.bstrVal, Value(), &answered));
    const Value results(answered);
    Value isShown(false);
    if (answered != nullptr) getValue(answered, L"blnKeyTrProfile", isShown);
    std::printf("profile shown: %s\n", isShown.boolVal != VARIANT_FALSE ? "True" : "False");
    search->Release();
}

void readElements() {
    Collection request;
    request.add(L"strKeyPrefix", L"PPR");
    auto* profile = create<ICProfile>(CLSID_CProfile, IID_ICProfile);
    const Value display(screen({L"PDN/-SMITH/ANNA/", L"*T* SMITH/ANNA MS", L"------- PRIORITY", L"1  PPR/WINDOW SEAT",
                                L"2  PPR/TEA", L"END OF DISPLAY"})
                            .c_str());
    Value selection;
    IDispatch* unknownFamily = nullptr;
    check(profile->ProfileElements(display.bstrVal, request, &selection, Value(), &unknownFamily));
    const Value unknown(unknownFamily);
    // An array of variants, whatever kind of array the terminal keeps.
    const Value key(L"strKeyElement()");
    Value texts;
    check(profile->ListOf(request, key.bstrVal, &texts));
    LONG last = 0;
    check(SafeArrayGetUBound(texts.parray, 1, &last));
    for (LONG k = 1; k <= last; ++k) {
        Value text;
        check(SafeArrayGetElement(texts.parray, &k, &text));
        std::printf("%ls\n", text.bstrVal);
    }
    profile->Release();
}

// A numbered error: its number is the low 16 bits, and its source is in the error information.
void failToDeactivate() {
    auto* deactivation = create<IProfileTrans>(CLSID_CPXTrans, IID_IProfileTrans);
    ReturnedText command;
    ReturnedText source;
    IErrorInfo* information = nullptr;
    const HRESULT result = deactivation->CreateCommand(Value(), &command.bstrVal);
    if (GetErrorInfo(0, &information) == S_OK) {
        information->GetSource(&source.bstrVal);
        information->Release();
    }
    std::printf("%ld %ls\n", static_cast<long>(result & 0xFFFF), source.bstrVal);
    deactivation->Release();
}

}  // namespace

// With the argument "mta" it runs in the multithreaded apartment. The objects do not: COM passes the calls on.
int main(int argc, char** argv) {
    const bool isMultithreaded = argc > 1 && std::strcmp(argv[1], "mta") == 0;
    int status = 0;
    CoInitializeEx(nullptr, isMultithreaded ? COINIT_MULTITHREADED : COINIT_APARTMENTTHREADED);
    try {
        searchByName();
        readElements();
        failToDeactivate();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        status = 1;
    }
    CoUninitialize();
    return status;
}
