#include "server/com/error.h"

#include "server/com/bstr.h"

#include <string>

namespace vantro::com {

namespace {

constexpr unsigned long automationNumbers = 0x800A0000UL;
constexpr unsigned long facilityBits = 0xFFFF0000UL;
constexpr int highestNumber = 0xFFFF;

// The source of a failing call without error information: it was one of this library's calls.
constexpr TextView ownSource = u"VantroProfileUtils";

Text describe(HRESULT result) {
    static constexpr char16_t digits[] = u"0123456789ABCDEF";
    Text text = u"A call failed with code 0x";
    for (int shift = 28; shift >= 0; shift -= 4) {
        text += digits[(static_cast<unsigned long>(result) >> shift) & 0xFU];
    }
    return text;
}

HRESULT setCurrent(TextView source, TextView description, const IID& about, HRESULT result) {
    Ptr<ICreateErrorInfo> info;
    if (FAILED(CreateErrorInfo(info.receive()))) return result;
    info->SetGUID(about);
    const Bstr sourceText(source);
    const Bstr descriptionText(description);
    info->SetSource(sourceText.get());
    info->SetDescription(descriptionText.get());
    if (const auto current = info.as<IErrorInfo>(IID_IErrorInfo)) SetErrorInfo(0, current.get());
    return result;
}

}  // namespace

HRESULT resultOf(int number) {
    if (number > 0 && number <= highestNumber) {
        return static_cast<HRESULT>(automationNumbers + static_cast<unsigned long>(number));
    }
    return number < 0 ? static_cast<HRESULT>(number) : E_FAIL;
}

int numberOf(HRESULT result) {
    const auto bits = static_cast<unsigned long>(result);
    return (bits & facilityBits) == automationNumbers ? static_cast<int>(bits & ~facilityBits)
                                                      : static_cast<int>(result);
}

HRESULT raise(const Error& error, const IID& about) noexcept {
    try {
        return setCurrent(error.source(), error.description(), about, resultOf(error.number()));
    } catch (const std::bad_alloc&) {
        return outOfMemory();
    }
}

HRESULT outOfMemory() noexcept {
    SetErrorInfo(0, nullptr);
    return E_OUTOFMEMORY;
}

HRESULT raiseUnexpected(const char* what, const IID& about) noexcept {
    try {
        const std::string text = what;
        return setCurrent(ownSource, Text(text.begin(), text.end()), about, E_FAIL);
    } catch (...) {
        return E_FAIL;
    }
}

Error errorOfCall(HRESULT result) {
    Ptr<IErrorInfo> info;
    Bstr source;
    Bstr description;
    if (GetErrorInfo(0, info.receive()) == S_OK && info) {
        info->GetSource(source.receive());
        info->GetDescription(description.receive());
    }
    return Error(numberOf(result), source.view().empty() ? ownSource : source.view(),
                 description.view().empty() ? TextView(describe(result)) : description.view());
}

}  // namespace vantro::com
