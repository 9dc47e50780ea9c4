// What registering writes and unregistering removes, and the server without any registration.
#include "server/com/error.h"
#include "tests/com/client.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace vantro::test {
namespace {

constexpr const wchar_t* classesFolder = L"Software\\Classes";

// Keys and their values below a key, flattened: "CLSID\{...}\ProgID" -> "default=...".
using Snapshot = std::map<std::wstring, std::wstring>;

std::wstring valuesOf(HKEY key) {
    std::wstring values;
    wchar_t name[256];
    wchar_t data[1024];
    for (DWORD index = 0;; ++index) {
        DWORD nameLength = 256;
        DWORD bytes = sizeof data - sizeof(wchar_t);
        DWORD type = 0;
        const LSTATUS status =
            RegEnumValueW(key, index, name, &nameLength, nullptr, &type, reinterpret_cast<BYTE*>(data), &bytes);
        if (status == ERROR_NO_MORE_ITEMS) return values;
        if (status != ERROR_SUCCESS) continue;
        data[bytes / sizeof(wchar_t)] = L'\0';
        values.append(nameLength == 0 ? L"default" : name).append(L"=");
        values.append(type == REG_SZ ? data : L"(other)").append(L";");
    }
}

void take(HKEY parent, const std::wstring& path, const std::wstring& shown, Snapshot& snapshot) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    snapshot[shown] = valuesOf(key);
    wchar_t name[256];
    for (DWORD index = 0;; ++index) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        take(key, name, shown.empty() ? name : shown + L"\\" + name, snapshot);
    }
    RegCloseKey(key);
}

Snapshot allClasses() {
    Snapshot snapshot;
    take(HKEY_LOCAL_MACHINE, classesFolder, L"", snapshot);
    return snapshot;
}

bool isClassesKey(const std::wstring& path) {
    HKEY key = nullptr;
    const std::wstring whole = std::wstring(classesFolder) + L"\\" + path;
    const LSTATUS status = RegOpenKeyExW(HKEY_LOCAL_MACHINE, whole.c_str(), 0, KEY_READ, &key);
    if (status == ERROR_SUCCESS) RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

std::wstring guidText(const GUID& guid) {
    wchar_t text[40];
    StringFromGUID2(guid, text, 40);
    return text;
}

// Loads the server by its registered path, keeps it while the test runs, and leaves it registered.
class Registration : public testing::Test {
protected:
    void SetUp() override {
        object_ = newServerObject<IUnknown>(u"CPXTrans", IID_IUnknown);
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(serverModule(), path, MAX_PATH);
        path_ = path;
        library_ = LoadLibraryW(path);
        register_ = plainExport(library_, "DllRegisterServer");
        unregister_ = plainExport(library_, "DllUnregisterServer");
    }

    void TearDown() override {
        EXPECT_EQ(register_(), S_OK);
        object_.reset();
        FreeLibrary(library_);
    }

    Ptr<IUnknown> object_;
    std::wstring path_;
    HMODULE library_ = nullptr;
    UnloadQuestion register_ = nullptr;
    UnloadQuestion unregister_ = nullptr;
};

TEST_F(Registration, WritesEveryEntryOfAClass) {
    const Snapshot snapshot = allClasses();
    for (const ClassRow& row : classTable()) {
        const std::wstring name = L"VantroProfileUtils." + std::wstring(row.name.begin(), row.name.end());
        const std::wstring clsid = guidText(registeredClass(u"VantroProfileUtils", row.name));
        const std::wstring key = L"CLSID\\" + clsid;
        EXPECT_EQ(snapshot.at(name + L"\\CLSID"), L"default=" + clsid + L";");
        EXPECT_EQ(snapshot.at(name + L"\\CurVer"), L"default=" + name + L".1;");
        EXPECT_EQ(snapshot.at(name + L".1\\CLSID"), L"default=" + clsid + L";");
        EXPECT_EQ(snapshot.at(key + L"\\ProgID"), L"default=" + name + L".1;");
        EXPECT_EQ(snapshot.at(key + L"\\VersionIndependentProgID"), L"default=" + name + L";");
        EXPECT_EQ(snapshot.at(key + L"\\InprocServer32"), L"default=" + path_ + L";ThreadingModel=Apartment;");
        EXPECT_EQ(snapshot.at(key + L"\\TypeLib"), L"default=" + guidText(LIBID_VantroProfileUtils) + L";");
    }
    EXPECT_TRUE(isClassesKey(L"TypeLib\\" + guidText(LIBID_VantroProfileUtils)));
    EXPECT_TRUE(isClassesKey(L"Interface\\" + guidText(IID_IProfileTrans)));
    EXPECT_TRUE(isClassesKey(L"Interface\\" + guidText(IID_IProfileGet)));
}

TEST_F(Registration, RemovesWhatItWroteAndNothingElse) {
    ASSERT_EQ(unregister_(), S_OK);
    const Snapshot without = allClasses();
    for (const auto& [key, values] : without) {
        EXPECT_EQ(key.find(L"VantroProfileUtils"), std::wstring::npos);
        EXPECT_EQ(values.find(L"VantroProfileUtils"), std::wstring::npos);
    }
    ASSERT_EQ(register_(), S_OK);
    const Snapshot with = allClasses();
    EXPECT_GT(with.size(), without.size() + 19 * 8);  // 19 classes with two names and six keys each
    ASSERT_EQ(unregister_(), S_OK);
    EXPECT_EQ(allClasses(), without);
}

TEST_F(Registration, MayBeRepeated) {
    const Snapshot first = allClasses();
    ASSERT_EQ(register_(), S_OK);
    EXPECT_EQ(allClasses(), first);
    ASSERT_EQ(unregister_(), S_OK);
    EXPECT_EQ(unregister_(), S_OK);
}

// The manifest beside the server makes its classes known to one process.
class Manifest : public Registration {
protected:
    void SetUp() override {
        Registration::SetUp();
        ASSERT_EQ(unregister_(), S_OK);
        const std::wstring folder = path_.substr(0, path_.rfind(L'\\'));
        const std::wstring manifest = folder + L"\\VantroProfileUtils.manifest";
        ACTCTXW context{};
        context.cbSize = sizeof context;
        context.lpSource = manifest.c_str();
        context.lpAssemblyDirectory = folder.c_str();
        context.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
        context_ = CreateActCtxW(&context);
        ASSERT_NE(context_, INVALID_HANDLE_VALUE);
        ASSERT_TRUE(ActivateActCtx(context_, &cookie_));
    }

    void TearDown() override {
        DeactivateActCtx(0, cookie_);
        ReleaseActCtx(context_);
        Registration::TearDown();
    }

    HANDLE context_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
};

TEST_F(Manifest, CreatesEveryClassWithoutRegistration) {
    for (const ClassRow& row : classTable()) {
        EXPECT_TRUE(newServerObject<IDispatch>(row.name, IID_IDispatch)) << utf8(row.name);
    }
    const auto params = terminalCollection({{u"strKeyItemNr", u"12"}});
    Bstr command;
    ASSERT_EQ(newTrans(u"CPXTrans")->CreateCommand(argument(params.get()), command.receive()), S_OK);
    EXPECT_EQ(utf8(command.view()), "PX12");
}

TEST(StandInRegistration, DoesNotTakeThePlaceOfAnInstalledTerminal) {
    const auto control = standIn();
    const auto registerStandIn = plainExport(standInModule(), "DllRegisterServer");
    ASSERT_EQ(registerStandIn(), S_OK);  // its own registration it may renew
    const std::wstring key = std::wstring(classesFolder) + L"\\CLSID\\" +
                             guidText(registeredClass(u"VantroKestoFaces", u"TerminalFunctions")) + L"\\InprocServer32";
    wchar_t own[MAX_PATH] = {};
    DWORD bytes = sizeof own;
    ASSERT_EQ(RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, own, &bytes),
              ERROR_SUCCESS);
    const std::wstring terminal = L"C:\\Terminal\\VantroKestoFaces.dll";
    const auto length = static_cast<DWORD>((terminal.size() + 1) * sizeof(wchar_t));
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, terminal.c_str(), length);
    const Snapshot before = allClasses();
    EXPECT_EQ(registerStandIn(), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
    EXPECT_EQ(allClasses(), before);
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, own, bytes);
}

}  // namespace
}  // namespace vantro::test
