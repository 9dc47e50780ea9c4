// What registering writes and unregistering removes, and the server without any registration.
#include "server/com/error.h"
#include "tests/com/client.h"
#include "tests/com/registry_snapshot.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <string>

namespace vantro::test {
namespace {

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
    EXPECT_EQ(differences(without, allClasses()), none);
}

TEST_F(Registration, MayBeRepeated) {
    const Snapshot first = allClasses();
    ASSERT_EQ(register_(), S_OK);
    EXPECT_EQ(differences(first, allClasses()), none);
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

TEST(StandInRegistration, DoesNotReplaceAnInstalledTerminal) {
    const auto control = standIn();
    const auto registerStandIn = plainExport(standInModule(), "DllRegisterServer");
    ASSERT_EQ(registerStandIn(), S_OK);  // it may renew its own registration
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
    EXPECT_EQ(differences(before, allClasses()), none);
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, own, bytes);
}

}  // namespace
}  // namespace vantro::test
