// Registering and unregistering beside the entries of other libraries. Each test compares all of the registry's classes
// before and after.
#include "server/com/error.h"
#include "tests/com/client.h"
#include "tests/com/registry_snapshot.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <string>

namespace vantro::test {
namespace {

constexpr const wchar_t* foreignFile = L"C:\\Terminal\\VantroKestoFaces.dll";
constexpr const wchar_t* foreignTypes = L"{3C1E7A52-6A0B-4F0E-9E55-0B5B7A3C1D10}";
constexpr const wchar_t* foreignClass = L"{7E0C9B44-0E4D-4B2C-8F35-5D2F6B1A9E21}";

#ifdef _WIN64
constexpr REGSAM otherView = KEY_WOW64_32KEY;
constexpr const wchar_t* otherKind = L"win32";
#else
constexpr REGSAM otherView = KEY_WOW64_64KEY;
constexpr const wchar_t* otherKind = L"win64";
#endif

std::wstring classKey(TextView library, TextView name) { return L"CLSID\\" + guidText(registeredClass(library, name)); }

std::wstring interfaceKey(const IID& iid) { return L"Interface\\" + guidText(iid); }

std::wstring versionKey(const GUID& library) { return L"TypeLib\\" + guidText(library) + L"\\1.0"; }

// One of the two libraries, loaded while the test runs and registered again afterwards.
class RegistrationOf : public testing::Test {
protected:
    void load(HMODULE loaded) {
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(loaded, path, MAX_PATH);
        library_ = LoadLibraryW(path);
        register_ = plainExport(library_, "DllRegisterServer");
        unregister_ = plainExport(library_, "DllUnregisterServer");
        before_ = allClasses();
    }

    void TearDown() override {
        EXPECT_EQ(register_(), S_OK);
        EXPECT_EQ(differences(before_, allClasses()), none);
        FreeLibrary(library_);
    }

    HMODULE library_ = nullptr;
    UnloadQuestion register_ = nullptr;
    UnloadQuestion unregister_ = nullptr;
    Snapshot before_;
};

class ServerRegistration : public RegistrationOf {
protected:
    void SetUp() override {
        object_ = newServerObject<IUnknown>(u"CPXTrans", IID_IUnknown);
        load(serverModule());
    }

    Ptr<IUnknown> object_;
    const std::wstring lastClass_ = classKey(u"VantroProfileUtils", u"CProfileNotes");
};

class StandInsRegistration : public RegistrationOf {
protected:
    void SetUp() override {
        control_ = standIn();
        load(standInModule());
        for (const char16_t* const name : {u"KeyedCollection", u"TerminalFunctions", u"ErrorReporter"}) {
            classes_.push_back(classKey(u"VantroKestoFaces", name));
        }
    }

    // The terminal's library, as its installer leaves it.
    void installTerminal(WrittenKeys& keys) const {
        const std::wstring names[] = {L"KeyedCollection", L"TerminalFunctions", L"ErrorReporter"};
        for (std::size_t index = 0; index < classes_.size(); ++index) {
            keys.write(classes_[index], L"Terminal's " + names[index]);
            keys.write(classes_[index] + L"\\InprocServer32", foreignFile);
            keys.write(classes_[index] + L"\\TypeLib", foreignTypes);
            keys.write(L"VantroKestoFaces." + names[index] + L"\\CLSID", classes_[index].substr(6));
        }
        for (const IID& iid : {IID_IKeyedCollection, IID_IKeyedItem, IID_ITerminalFunctions, IID_IErrorReporter}) {
            keys.write(interfaceKey(iid) + L"\\TypeLib", foreignTypes);
        }
        keys.write(L"TypeLib\\" + std::wstring(foreignTypes) + L"\\1.0\\0\\win32", foreignFile);
    }

    Ptr<IStandInControl> control_;
    std::vector<std::wstring> classes_;
};

TEST_F(StandInsRegistration, LeavesATerminalsClassesAloneWhereItWasNeverRegistered) {
    ASSERT_EQ(unregister_(), S_OK);
    WrittenKeys keys;
    installTerminal(keys);
    const Snapshot installed = allClasses();
    EXPECT_EQ(unregister_(), S_OK);
    EXPECT_EQ(differences(installed, allClasses()), none);
}

TEST_F(StandInsRegistration, LeavesATerminalsClassesAloneThatWereInstalledOverIt) {
    WrittenKeys keys;
    installTerminal(keys);
    const Snapshot installed = allClasses();
    EXPECT_EQ(unregister_(), S_OK);
    const Snapshot left = allClasses();
    for (const std::wstring& key : classes_) {
        EXPECT_EQ(left.at(key + L"\\InprocServer32"), installed.at(key + L"\\InprocServer32"));
        EXPECT_EQ(left.at(key), installed.at(key));
    }
    EXPECT_EQ(left.at(L"VantroKestoFaces.KeyedCollection\\CLSID"),
              installed.at(L"VantroKestoFaces.KeyedCollection\\CLSID"));
    for (const IID& iid : {IID_IKeyedCollection, IID_IKeyedItem, IID_ITerminalFunctions, IID_IErrorReporter}) {
        EXPECT_EQ(left.at(interfaceKey(iid) + L"\\TypeLib"), installed.at(interfaceKey(iid) + L"\\TypeLib"));
    }
    // Its own control class, its type library and that interface are gone.
    EXPECT_FALSE(isClassesKey(L"VantroKestoFaces.StandInControl"));
    EXPECT_FALSE(isClassesKey(L"TypeLib\\" + guidText(LIBID_VantroKestoFaces)));
    EXPECT_FALSE(isClassesKey(interfaceKey(IID_IStandInControl)));
}

TEST_F(StandInsRegistration, RefusesToRegisterWhereATerminalIs) {
    ASSERT_EQ(unregister_(), S_OK);
    WrittenKeys keys;
    installTerminal(keys);
    const Snapshot installed = allClasses();
    EXPECT_EQ(register_(), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
    EXPECT_EQ(differences(installed, allClasses()), none);
}

TEST_F(StandInsRegistration, RefusesWhereOnlyAPartOfATerminalIs) {
    ASSERT_EQ(unregister_(), S_OK);
    const std::pair<std::wstring, std::wstring> parts[] = {
        {classes_[0] + L"\\InprocServer32", foreignFile},
        {classes_[1] + L"\\LocalServer32", L"C:\\Terminal\\Terminal.exe"},
        {L"VantroKestoFaces.ErrorReporter\\CLSID", foreignClass},
        {L"VantroKestoFaces.KeyedCollection.1\\CLSID", foreignClass},
        {interfaceKey(IID_IKeyedItem) + L"\\TypeLib", foreignTypes},
    };
    for (const auto& [path, value] : parts) {
        WrittenKeys keys;
        keys.write(path, value);
        const Snapshot installed = allClasses();
        EXPECT_EQ(register_(), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
        EXPECT_EQ(differences(installed, allClasses()), none);
    }
}

TEST_F(StandInsRegistration, RefusesWhereATerminalOfTheOtherKindOfProcessIs) {
    if (!isClassesKey(L"Wow6432Node") && sizeof(void*) == 4) GTEST_SKIP() << "a system of one kind of process";
    ASSERT_EQ(unregister_(), S_OK);
    WrittenKeys keys;
    keys.write(classes_[0] + L"\\InprocServer32", foreignFile, otherView);
    const Snapshot installed = allClasses();
    EXPECT_EQ(register_(), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
    EXPECT_EQ(differences(installed, allClasses()), none);
}

TEST_F(ServerRegistration, LeavesAClassThatNamesAnotherFileByNow) {
    {
        WrittenKeys keys;
        const std::wstring key = classKey(u"VantroProfileUtils", u"CPXTrans");
        keys.write(key + L"\\InprocServer32", L"D:\\Other\\VantroProfileUtils.dll");
        const Snapshot changed = allClasses();
        ASSERT_EQ(unregister_(), S_OK);
        const Snapshot left = allClasses();
        for (const std::wstring& path : {key, key + L"\\InprocServer32", key + L"\\ProgID", key + L"\\TypeLib",
                                         std::wstring(L"VantroProfileUtils.CPXTrans\\CLSID"),
                                         std::wstring(L"VantroProfileUtils.CPXTrans.1\\CLSID")}) {
            ASSERT_TRUE(left.contains(path));
            EXPECT_EQ(left.at(path), changed.at(path));
        }
        EXPECT_FALSE(isClassesKey(L"VantroProfileUtils.CPDTrans"));
    }
}

TEST_F(ServerRegistration, LeavesAClassNameThatPointsAtAnotherServerByNow) {
    WrittenKeys keys;
    keys.write(L"VantroProfileUtils.CPXTrans\\CLSID", foreignClass);
    keys.write(L"VantroProfileUtils.CPXTrans\\CurVer", L"VantroProfileUtils.CPXTrans.2");
    ASSERT_EQ(unregister_(), S_OK);
    const Snapshot left = allClasses();
    ASSERT_TRUE(left.contains(L"VantroProfileUtils.CPXTrans\\CLSID"));
    EXPECT_EQ(left.at(L"VantroProfileUtils.CPXTrans\\CLSID"), L"default=" + std::wstring(foreignClass) + L";");
    EXPECT_TRUE(left.contains(L"VantroProfileUtils.CPXTrans\\CurVer"));
    EXPECT_FALSE(isClassesKey(L"VantroProfileUtils.CPXTrans.1"));
}

TEST_F(ServerRegistration, FindsItsFileUnderAnotherSpelling) {
    const std::wstring key = classKey(u"VantroProfileUtils", u"CPXTrans");
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(library_, path, MAX_PATH);
    CharUpperW(path);
    WrittenKeys keys;
    keys.write(key + L"\\InprocServer32", path);
    ASSERT_EQ(unregister_(), S_OK);
    EXPECT_FALSE(isClassesKey(key));
}

TEST_F(ServerRegistration, LeavesWhatTheOtherKindOfProcessNeeds) {
    if (sizeof(void*) == 4) GTEST_SKIP() << "a system of one kind of process";
    WrittenKeys keys;
    for (const ClassRow& row : classTable()) {
        keys.write(classKey(u"VantroProfileUtils", row.name) + L"\\InprocServer32", L"D:\\x86\\VantroProfileUtils.dll",
                   otherView);
    }
    keys.write(versionKey(LIBID_VantroProfileUtils) + L"\\0\\" + otherKind, L"D:\\x86\\VantroProfileUtils.dll");
    const Snapshot both = allClasses();
    ASSERT_EQ(unregister_(), S_OK);
    Snapshot expected = both;
    for (const ClassRow& row : classTable()) {
        const std::wstring own = classKey(u"VantroProfileUtils", row.name);
        std::erase_if(expected, [&](const auto& entry) { return entry.first.starts_with(own); });
    }
    const std::wstring ownKind = std::wstring(otherKind) == L"win32" ? L"win64" : L"win32";
    const std::wstring file = versionKey(LIBID_VantroProfileUtils) + L"\\0\\" + ownKind;
    expected.erase(file);
    expected.erase(L"Wow6432Node\\" + file);  // both kinds have the type libraries in common
    EXPECT_EQ(differences(expected, allClasses()), none);
}

TEST_F(ServerRegistration, LeavesATypeLibraryThatNamesAnotherFileByNow) {
#ifdef _WIN64
    const std::wstring ownKind = L"win64";
#else
    const std::wstring ownKind = L"win32";
#endif
    WrittenKeys keys;
    keys.write(versionKey(LIBID_VantroProfileUtils) + L"\\0\\" + ownKind, L"D:\\Other\\VantroProfileUtils.dll");
    const Snapshot changed = allClasses();
    ASSERT_EQ(unregister_(), S_OK);
    const Snapshot left = allClasses();
    for (const auto& [path, value] : changed) {
        if (path.starts_with(L"TypeLib\\") || path.starts_with(L"Interface\\")) {
            ASSERT_TRUE(left.contains(path));
            EXPECT_EQ(left.at(path), value);
        }
    }
}

TEST_F(ServerRegistration, LeavesAnotherVersionOfItsTypeLibrary) {
    WrittenKeys keys;
    const std::wstring next = L"TypeLib\\" + guidText(LIBID_VantroProfileUtils) + L"\\2.0";
    keys.write(next + L"\\0\\win32", L"D:\\Other\\VantroProfileUtils.dll");
    ASSERT_EQ(unregister_(), S_OK);
    EXPECT_TRUE(isClassesKey(next + L"\\0\\win32"));
    EXPECT_FALSE(isClassesKey(versionKey(LIBID_VantroProfileUtils)));
}

TEST_F(ServerRegistration, ReturnsWhichHalfFailed) {
    ASSERT_EQ(unregister_(), S_OK);
    const Snapshot without = allClasses();
    {
        WrittenKeys keys;
        const std::wstring types = L"TypeLib\\" + guidText(LIBID_VantroProfileUtils);
        keys.block(types);
        keys.block(types + L"\\9.0");
        const Snapshot blocked = allClasses();
        EXPECT_EQ(register_(), SELFREG_E_TYPELIB);
        EXPECT_EQ(differences(blocked, allClasses()), none);  // nothing is left half-written
    }
    {
        WrittenKeys keys;
        keys.block(lastClass_);
        const Snapshot blocked = allClasses();
        EXPECT_EQ(register_(), SELFREG_E_CLASS);
        EXPECT_EQ(differences(blocked, allClasses()), none);
    }
    EXPECT_EQ(differences(without, allClasses()), none);
}

}  // namespace
}  // namespace vantro::test
