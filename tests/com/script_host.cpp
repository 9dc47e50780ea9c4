// Runs a VBScript or JScript file through the system's script engine and reports what its checks found. The file
// is UTF-8. A script sees `Test.Equal(actual, expected, what)`, `Test.Say(text)` and `Test.Done()`: without the
// last call the script did not run to its end, even if the engine reports no error.
#include "server/com/error.h"
#include "server/com/variant.h"

#include <activscp.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

using namespace vantro;
using namespace vantro::com;

namespace {

#ifdef _WIN64
using ScriptParser = IActiveScriptParse64;
constexpr IID parserId{0xC7EF7658, 0xE1EE, 0x480E, {0x97, 0xEA, 0xD5, 0x2C, 0xB4, 0xD7, 0x6D, 0x17}};
using SiteCookie = DWORDLONG;
#else
using ScriptParser = IActiveScriptParse32;
constexpr IID parserId{0xBB1A2AE2, 0xA4F9, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}};
using SiteCookie = DWORD;
#endif

constexpr const wchar_t* itemName = L"Test";

std::string utf8(TextView text) {
    if (text.empty()) return {};
    const auto length = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, characters(text), length, nullptr, 0, nullptr, nullptr);
    std::string converted(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, characters(text), length, converted.data(), bytes, nullptr, nullptr);
    return converted;
}

std::wstring fromUtf8(const std::string& bytes) {
    const auto length = static_cast<int>(bytes.size());
    const int units = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(), units);
    return text;
}

// What a check compares: for a script only a value's text matters, not its kind.
Text shown(const VARIANT& value) {
    const VARIANT& behind = dereferenced(value);
    if (behind.vt == VT_DISPATCH) return behind.pdispVal == nullptr ? u"Nothing" : u"(object)";
    if (behind.vt == VT_NULL) return u"Null";
    return textIn(behind);
}

struct Outcome {
    int passed = 0;
    int failed = 0;
    bool done = false;
};

// The object that scripts know as `Test`; it lives as long as the host.
class TestItem final : public IDispatch {
public:
    explicit TestItem(Outcome& outcome) : outcome_(outcome) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, OLECHAR** names, UINT, LCID, DISPID* ids) override {
        static constexpr const wchar_t* known[] = {L"Equal", L"Say", L"Done"};
        for (DISPID id = equal; id <= done; ++id) {
            if (lstrcmpiW(names[0], known[id - equal]) == 0) {
                ids[0] = id;
                return S_OK;
            }
        }
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return atBorder(IID_IDispatch, [&] { call(member, *parameters); });
    }

private:
    static constexpr DISPID equal = 1;
    static constexpr DISPID say = 2;
    static constexpr DISPID done = 3;

    void call(DISPID member, const DISPPARAMS& parameters) {
        const VARIANT* const lastFirst = parameters.rgvarg;
        if (member == equal && parameters.cArgs == 3) compare(lastFirst[2], lastFirst[1], lastFirst[0]);
        if (member == say && parameters.cArgs == 1) std::printf("%s\n", utf8(shown(lastFirst[0])).c_str());
        if (member == done) outcome_.done = true;
    }

    void compare(const VARIANT& actual, const VARIANT& expected, const VARIANT& what) {
        const Text left = shown(actual);
        const Text right = shown(expected);
        ++(left == right ? outcome_.passed : outcome_.failed);
        if (left == right) return;
        std::printf("FAILED %s: got \"%s\", expected \"%s\"\n", utf8(shown(what)).c_str(), utf8(left).c_str(),
                    utf8(right).c_str());
    }

    Outcome& outcome_;
};

// The host's interface for the engine.
class Site final : public IActiveScriptSite {
public:
    Site(TestItem& item, Outcome& outcome) : item_(item), outcome_(outcome) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IActiveScriptSite;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR, DWORD mask, IUnknown** item, ITypeInfo** info) override {
        if ((mask & SCRIPTINFO_IUNKNOWN) != 0) *item = &item_;
        if ((mask & SCRIPTINFO_ITYPEINFO) != 0) *info = nullptr;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
        EXCEPINFO info{};
        DWORD context = 0;
        ULONG line = 0;
        LONG column = 0;
        error->GetSourcePosition(&context, &line, &column);
        error->GetExceptionInfo(&info);
        std::printf("FAILED line %lu: error 0x%08lX, %s\n", line + 1, static_cast<unsigned long>(info.scode),
                    utf8(viewOf(info.bstrDescription)).c_str());
        SysFreeString(info.bstrSource);
        SysFreeString(info.bstrDescription);
        SysFreeString(info.bstrHelpFile);
        ++outcome_.failed;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

private:
    TestItem& item_;
    Outcome& outcome_;
};

void run(const std::wstring& engineName, const std::wstring& script, Outcome& outcome) {
    CLSID clsid{};
    Ptr<IActiveScript> engine;
    check(CLSIDFromProgID(engineName.c_str(), &clsid));
    check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript, engine.receiveAny()));
    TestItem item(outcome);
    Site site(item, outcome);
    const auto parser = engine.as<ScriptParser>(parserId);
    if (!parser) fail(Failure::CannotCreateObject);
    check(engine->SetScriptSite(&site));
    check(parser->InitNew());
    check(engine->AddNamedItem(itemName, SCRIPTITEM_ISVISIBLE));
    // A script error was reported to the site already.
    parser->ParseScriptText(script.c_str(), nullptr, nullptr, nullptr, SiteCookie{0}, 0, SCRIPTTEXT_ISVISIBLE, nullptr,
                            nullptr);
    engine->SetScriptState(SCRIPTSTATE_CONNECTED);
    engine->Close();
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

int main(int argc, char** argv) {
    std::string script;
    std::string last;
    for (int index = 1; index < argc; ++index) script += contentOf(last = argv[index]) + "\n";
    const bool isVbScript = last.ends_with(".vbs");
    Outcome outcome;
    CoInitialize(nullptr);
    try {
        run(isVbScript ? L"VBScript" : L"JScript", fromUtf8(script), outcome);
    } catch (const Error& error) {
        std::printf("FAILED %s: %s\n", last.c_str(), error.what());
        ++outcome.failed;
    }
    CoUninitialize();
    if (!outcome.done) {
        std::printf("FAILED %s: it did not reach its end\n", last.c_str());
        ++outcome.failed;
    }
    std::printf("%d passed, %d failed\n", outcome.passed, outcome.failed);
    return outcome.failed == 0 && outcome.passed > 0 ? 0 : 1;
}
