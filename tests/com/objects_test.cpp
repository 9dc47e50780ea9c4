// The objects of every class: their interfaces, lifetime and apartments.
#include "server/com/error.h"
#include "tests/com/client.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <set>
#include <thread>
#include <vector>

namespace vantro::test {
namespace {

struct ClassFacts {
    const char16_t* name;
    bool hasTrans;
    bool hasGet;
};

void PrintTo(const ClassFacts& facts, std::ostream* out) { *out << utf8(facts.name); }

const std::vector<ClassFacts> classes{
    {u"CPBITrans", true, false},    {u"CPBNTrans", true, false},    {u"CPCNTrans", true, false},
    {u"CPDATrans", true, false},    {u"CPDITrans", true, false},    {u"CPDMDTrans", true, false},
    {u"CPDNTrans", true, false},    {u"CPDRTrans", true, false},    {u"CPDTrans", true, false},
    {u"CPDTTrans", true, false},    {u"CPHTrans", true, false},     {u"CPLCTrans", true, false},
    {u"CPLTTrans", true, false},    {u"CProfileMode", true, false}, {u"CPXTrans", true, false},
    {u"CRLPTrans", true, false},    {u"CPTTrans", true, false},     {u"CProfile", false, true},
    {u"CProfileNotes", true, true},
};

bool gives(const Ptr<IUnknown>& object, const IID& iid) { return static_cast<bool>(object.as<IUnknown>(iid)); }

class EveryServerClass : public testing::TestWithParam<ClassFacts> {
protected:
    Ptr<IUnknown> object_ = newServerObject<IUnknown>(GetParam().name, IID_IUnknown);
};
INSTANTIATE_TEST_SUITE_P(, EveryServerClass, testing::ValuesIn(classes),
                         [](const auto& facts) { return utf8(facts.param.name); });

TEST_P(EveryServerClass, ReturnsItsInterfacesAndRefusesOthers) {
    EXPECT_EQ(gives(object_, IID_IProfileTrans), GetParam().hasTrans);
    EXPECT_EQ(gives(object_, IID_IProfileGet), GetParam().hasGet);
    for (const IID& iid : {IID_IUnknown, IID_IDispatch, IID_ISupportErrorInfo, IID_IProvideClassInfo}) {
        EXPECT_TRUE(gives(object_, iid));
    }
    for (const IID& iid : {IID_IClassFactory, IID_IMarshal, IID_IPersist, IID_IKeyedCollection}) {
        EXPECT_FALSE(gives(object_, iid));
    }
}

TEST_P(EveryServerClass, RefusesANullPointerForAnInterface) {
    EXPECT_EQ(object_->QueryInterface(IID_IDispatch, nullptr), E_POINTER);
}

TEST_P(EveryServerClass, HasOneIdentityUnderAllItsInterfaces) {
    for (const IID& iid :
         {IID_IDispatch, IID_ISupportErrorInfo, IID_IProvideClassInfo, IID_IProfileTrans, IID_IProfileGet}) {
        const auto part = object_.as<IUnknown>(iid);
        if (!part) continue;
        EXPECT_EQ(part.as<IUnknown>(IID_IUnknown).get(), object_.get());
    }
}

TEST_P(EveryServerClass, ClearsTheOutPointerOfARefusedInterface) {
    void* untouched = &untouched;
    EXPECT_EQ(object_->QueryInterface(IID_IClassFactory, &untouched), E_NOINTERFACE);
    EXPECT_EQ(untouched, nullptr);
}

TEST_P(EveryServerClass, CountsItsReferencesTogetherForAllInterfaces) {
    const auto dispatch = object_.as<IDispatch>(IID_IDispatch);
    EXPECT_EQ(dispatch->AddRef(), 3u);
    EXPECT_EQ(object_->Release(), 2u);
}

TEST_P(EveryServerClass, SupportsErrorInformationForItsOwnInterfaces) {
    const auto support = object_.as<ISupportErrorInfo>(IID_ISupportErrorInfo);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IProfileTrans), GetParam().hasTrans ? S_OK : S_FALSE);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IProfileGet), GetParam().hasGet ? S_OK : S_FALSE);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IUnknown), S_FALSE);
}

TEST_P(EveryServerClass, DescribesItselfByItsName) {
    Ptr<ITypeInfo> info;
    Bstr name;
    ASSERT_EQ(object_.as<IProvideClassInfo>(IID_IProvideClassInfo)->GetClassInfo(info.receive()), S_OK);
    ASSERT_EQ(info->GetDocumentation(MEMBERID_NIL, name.receive(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(utf8(name.view()), utf8(GetParam().name));
}

TEST_P(EveryServerClass, IsNeverPartOfAnotherObject) {
    Ptr<IUnknown> inner;
    EXPECT_EQ(CoCreateInstance(registeredClass(u"VantroProfileUtils", GetParam().name), object_.get(),
                               CLSCTX_INPROC_SERVER, IID_IUnknown, inner.receiveAny()),
              CLASS_E_NOAGGREGATION);
}

TEST_P(EveryServerClass, RefusesNullPointersForResults) {
    const VARIANT none = noArgument();
    if (const auto trans = object_.as<::IProfileTrans>(IID_IProfileTrans)) {
        EXPECT_EQ(trans->CreateCommand(none, nullptr), E_POINTER);
        EXPECT_EQ(trans->VerifyResponse(nullptr, none, nullptr), E_POINTER);
    }
    if (const auto get = object_.as<::IProfileGet>(IID_IProfileGet)) {
        EXPECT_EQ(get->ProfileElements(nullptr, none, nullptr, none, nullptr), E_POINTER);
    }
    const auto dispatch = object_.as<IDispatch>(IID_IDispatch);
    EXPECT_EQ(dispatch->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(dispatch->GetTypeInfo(0, LOCALE_SYSTEM_DEFAULT, nullptr), E_POINTER);
    Ptr<ITypeInfo> second;
    EXPECT_EQ(dispatch->GetTypeInfo(1, LOCALE_SYSTEM_DEFAULT, second.receive()), DISP_E_BADINDEX);
}

TEST_P(EveryServerClass, FindsTheNamesOfItsOperationsOnly) {
    const auto dispatch = object_.as<IDispatch>(IID_IDispatch);
    for (const auto& [name, known] :
         {std::pair{L"createcommand", GetParam().hasTrans}, std::pair{L"VerifyResponse", GetParam().hasTrans},
          std::pair{L"ProfileElements", GetParam().hasGet}, std::pair{L"Item", false}}) {
        auto* asked = const_cast<wchar_t*>(name);
        DISPID id = 0;
        EXPECT_EQ(SUCCEEDED(dispatch->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_SYSTEM_DEFAULT, &id)), known);
    }
}

TEST_P(EveryServerClass, RefusesAnInterfaceForItsNames) {
    const auto dispatch = object_.as<IDispatch>(IID_IDispatch);
    auto* asked = const_cast<wchar_t*>(GetParam().hasTrans ? L"CreateCommand" : L"ProfileElements");
    DISPID id = 0;
    DISPPARAMS none{nullptr, nullptr, 0, 0};
    EXPECT_EQ(dispatch->GetIDsOfNames(IID_IDispatch, &asked, 1, LOCALE_SYSTEM_DEFAULT, &id), DISP_E_UNKNOWNINTERFACE);
    ASSERT_EQ(dispatch->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_SYSTEM_DEFAULT, &id), S_OK);
    EXPECT_EQ(
        dispatch->Invoke(id, IID_IDispatch, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
        DISP_E_UNKNOWNINTERFACE);
}

// The type library has the classes of the class table, with the same interfaces.
TEST(ServerTypeLibrary, AgreesWithTheClassTable) {
    Ptr<ITypeLib> library;
    const auto object = newServerObject<IDispatch>(u"CPXTrans", IID_IDispatch);
    Ptr<ITypeInfo> info;
    UINT ownIndex = 0;
    ASSERT_EQ(object->GetTypeInfo(0, LOCALE_SYSTEM_DEFAULT, info.receive()), S_OK);
    ASSERT_EQ(info->GetContainingTypeLib(library.receive(), &ownIndex), S_OK);
    std::set<Text> described;
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        TYPEKIND kind{};
        Bstr name;
        ASSERT_EQ(library->GetTypeInfoType(index, &kind), S_OK);
        ASSERT_EQ(library->GetDocumentation(static_cast<INT>(index), name.receive(), nullptr, nullptr, nullptr), S_OK);
        if (kind == TKIND_COCLASS) described.insert(Text(name.view()));
    }
    std::set<Text> known;
    for (const ClassRow& row : classTable()) known.insert(Text(row.name));
    EXPECT_EQ(described, known);
}

TEST(ServerTypeLibrary, NamesEveryCountOfTheClassTable) {
    for (const ClassRow& row : classTable()) {
        const auto object = newServerObject<IDispatch>(row.name, IID_IDispatch);
        for (const CountProperty& property : row.counts) {
            const Bstr name(property.name);
            BSTR asked = name.get();
            DISPID id = 0;
            EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_SYSTEM_DEFAULT, &id), S_OK)
                << utf8(property.name);
        }
    }
}

TEST(ServerLife, KeepsNoObjectsOfTheTerminalButTheHelpers) {
    const long before = liveObjects();
    {
        const auto trans = newTrans(u"CPXTrans");
        const auto params = terminalCollection({{u"strKeyItemNr", u"3"}});
        Bstr command;
        ASSERT_EQ(trans->CreateCommand(argument(params.get()), command.receive()), S_OK);
        EXPECT_EQ(utf8(command.view()), "PX3");
    }
    EXPECT_LE(liveObjects(), before + 1);  // the functions object may have been created just now
}

TEST(ServerLife, UnloadsOnlyWithoutObjectsAndLocks) {
    auto object = newServerObject<IUnknown>(u"CPXTrans", IID_IUnknown);
    const auto mayUnload = plainExport(serverModule(), "DllCanUnloadNow");
    EXPECT_EQ(mayUnload(), S_FALSE);
    Ptr<IClassFactory> factory;
    ASSERT_EQ(CoGetClassObject(registeredClass(u"VantroProfileUtils", u"CPXTrans"), CLSCTX_INPROC_SERVER, nullptr,
                               IID_IClassFactory, factory.receiveAny()),
              S_OK);
    object.reset();
    EXPECT_EQ(mayUnload(), S_OK);  // a factory alone does not count
    factory->LockServer(TRUE);
    EXPECT_EQ(mayUnload(), S_FALSE);
    factory->LockServer(FALSE);
    EXPECT_EQ(mayUnload(), S_OK);
}

TEST(ServerLife, KeepsTheHelpersAsLongAsItMayNotUnload) {
    const auto useHelpers = [] {
        const auto params = terminalCollection({{u"strKeyItemNr", u"3"}});
        Bstr command;
        EXPECT_EQ(newTrans(u"CPXTrans")->CreateCommand(argument(params.get()), command.receive()), S_OK);
    };
    HMODULE library = nullptr;
    useHelpers();
    GetModuleHandleExW(0, L"VantroProfileUtils.dll", &library);
    const auto mayUnload = plainExport(library, "DllCanUnloadNow");
    ASSERT_EQ(mayUnload(), S_OK);
    const long without = liveObjects();
    std::promise<void> used;
    std::promise<void> asked;
    std::thread other([&] {
        CoInitialize(nullptr);
        useHelpers();
        used.set_value();
        asked.get_future().wait();
        CoUninitialize();
    });
    used.get_future().wait();
    useHelpers();
    const long both = liveObjects();
    EXPECT_EQ(both, without + 2);
    EXPECT_EQ(mayUnload(), S_FALSE);
    EXPECT_EQ(liveObjects(), both);
    asked.set_value();
    other.join();
    EXPECT_EQ(liveObjects(), without + 1);
    EXPECT_EQ(mayUnload(), S_OK);
    EXPECT_EQ(liveObjects(), without);
    FreeLibrary(library);
}

TEST(ServerLife, RefusesClassesThatItDoesNotHave) {
    using GetClassObject = HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**);
    newTrans(u"CPXTrans");
    const auto classObject =
        reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(serverModule(), "DllGetClassObject")));
    Ptr<IUnknown> factory;
    EXPECT_EQ(classObject(IID_IKeyedItem, IID_IClassFactory, factory.receiveAny()), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(classObject(IID_IKeyedItem, IID_IClassFactory, nullptr), E_POINTER);
    EXPECT_EQ(classObject(registeredClass(u"VantroProfileUtils", u"CPXTrans"), IID_IDispatch, factory.receiveAny()),
              E_NOINTERFACE);
}

std::wstring serverPath() {
    newTrans(u"CPXTrans");
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(serverModule(), path, MAX_PATH);
    return path;
}

// Makes COM unload the libraries without objects. One call marks them, a later one unloads them.
void freeUnused() {
    for (int round = 0; round < 2; ++round) CoFreeUnusedLibrariesEx(0, 0);
}

TEST(ServerLife, LoadsAndUnloadsAHundredTimes) {
    const std::wstring path = serverPath();
    freeUnused();
    ASSERT_EQ(serverModule(), nullptr);
    for (int round = 0; round < 100; ++round) {
        const HMODULE library = LoadLibraryW(path.c_str());
        ASSERT_NE(library, nullptr);
        const auto trans = newTrans(u"CPXTrans");
        const auto params = terminalCollection({{u"strKeyItemNr", u"7"}});
        Bstr command;
        ASSERT_EQ(trans->CreateCommand(argument(params.get()), command.receive()), S_OK);
        EXPECT_EQ(utf8(command.view()), "PX7");
        const_cast<Ptr<::IProfileTrans>&>(trans).reset();
        ASSERT_EQ(plainExport(library, "DllCanUnloadNow")(), S_OK);
        FreeLibrary(library);
        freeUnused();
        ASSERT_EQ(serverModule(), nullptr) << "round " << round;
    }
}

// One apartment's work: results, an error and its information, all of them this thread's own.
int failuresOfOneApartment() {
    int failures = 0;
    CoInitialize(nullptr);
    {
        const auto trans = newTrans(u"CPXTrans");
        for (int round = 0; round < 50; ++round) {
            const Text item(1, static_cast<char16_t>(u'0' + round % 10));
            const auto params = terminalCollection({{u"strKeyItemNr", item}});
            Bstr command;
            const HRESULT built = trans->CreateCommand(argument(params.get()), command.receive());
            if (FAILED(built) || command.view() != u"PX" + item) ++failures;
            Bstr none;
            if (raisedBy(trans->CreateCommand(noArgument(), none.receive())) != creatingFailed(5010)) ++failures;
        }
    }
    CoUninitialize();
    return failures;
}

TEST(ServerLife, ServesFourApartmentsAtOnce) {
    const long before = liveObjects();
    std::atomic<int> failures{0};
    std::vector<std::thread> apartments;
    for (int number = 0; number < 4; ++number) {
        apartments.emplace_back([&] { failures += failuresOfOneApartment(); });
    }
    for (std::thread& apartment : apartments) apartment.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(liveObjects(), before);  // each apartment released its helper objects
}

TEST(ServerLife, CreatesItsHelperObjectsOncePerThread) {
    const auto trans = newTrans(u"CPDRTrans");
    Ptr<IDispatch> results;
    const Bstr response(screen({u"PDRT/KQ4R7T", u"RECORD LOCATOR NOT FOUND", u">"}));
    ASSERT_EQ(trans->VerifyResponse(response.get(), noArgument(), results.receive()), S_OK);
    results.reset();
    const long helpers = liveObjects();
    ASSERT_EQ(trans->VerifyResponse(response.get(), noArgument(), results.receive()), S_OK);
    results.reset();
    EXPECT_EQ(liveObjects(), helpers);
}

TEST(ServerLife, FetchesAScreenLineOnceInACall) {
    const auto trans = newTrans(u"CPDRTrans");
    const auto control = standIn();
    Ptr<IDispatch> results;
    LONG fetches = 0;
    const Bstr response(screen({u"PDRT/KQ4R7T", u"NOTHING OF INTEREST", u">"}));
    control->Reset();
    ASSERT_EQ(trans->VerifyResponse(response.get(), noArgument(), results.receive()), S_OK);
    control->get_LineFetches(&fetches);
    EXPECT_GT(fetches, 0);
    EXPECT_LE(fetches, 25);  // no more than a screen has lines, though each is tested for several marks
}

}  // namespace
}  // namespace vantro::test
