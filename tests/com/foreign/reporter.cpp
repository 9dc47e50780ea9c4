// The error reporter. It reads the number of an error in the thread's error information, if the error has one.
#include "tests/com/foreign/objects.h"

namespace foreign {

// Error information with a number. Its objects come from another library: inside the unnamed namespace the compiler
// would assume that there are none.
struct NumberedError : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE get_Number(LONG* number) = 0;
};

namespace {

constexpr DISPID reportErrorId = 77777;

constexpr MemberRow members[] = {{L"ReportError", reportErrorId, DISPATCH_METHOD, 0, 3}};

constexpr IID numberedErrorId{0x845D4120, 0xCDFF, 0x4B79, {0x9F, 0x63, 0x81, 0x0C, 0x50, 0x1B, 0x23, 0x87}};

LONG numberOf(IErrorInfo* info) {
    LONG number = 0;
    NumberedError* numbered = nullptr;
    if (SUCCEEDED(info->QueryInterface(numberedErrorId, reinterpret_cast<void**>(&numbered)))) {
        numbered->get_Number(&number);
        numbered->Release();
    }
    return number;
}

Report currentError() {
    Report report{0, {}};
    IErrorInfo* info = nullptr;
    if (GetErrorInfo(0, &info) != S_OK) return report;
    BSTR description = nullptr;
    if (SUCCEEDED(info->GetDescription(&description)))
        report.description.assign(description, SysStringLen(description));
    SysFreeString(description);
    report.number = numberOf(info);
    info->Release();
    return report;
}

class Reporter final : public LateObject {
public:
    Reporter() : LateObject(members) {}

private:
    Held call(DISPID, const Arguments& given) override {
        Report report = currentError();
        if (!isNone(given[0])) report = {longIn(given[0]), std::wstring(textIn(given[2]))};
        Watch::only().addReport(std::move(report));
        return {};
    }

    std::wstring watched(DISPID, const Arguments&) const override { return {}; }
    Fault faultOf(DISPID, const Arguments&) const override { return Watch::only().reportFault(); }
};

}  // namespace

IDispatch* newReporter() { return new Reporter; }

}  // namespace foreign
