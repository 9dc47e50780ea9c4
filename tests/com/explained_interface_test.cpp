// How `Explain` is found and called, with which arguments, and that it changed no other member.
#include "tests/com/client.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <map>

namespace vantro::test {
namespace {

constexpr DISPID explainId = 8;

// The text that a call returns, which must succeed.
std::string explained(const Ptr<IExplained>& object, const VARIANT& recording) {
    Bstr text;
    EXPECT_EQ(object->Explain(recording, text.receive()), S_OK);
    return utf8(text.view());
}

bool has(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

VARIANT truth(bool value) { return Variant::of(value).detach(); }

DISPID idOf(const Ptr<IDispatch>& object, TextView name) {
    auto* asked = const_cast<OLECHAR*>(com::characters(name));
    DISPID id = 0;
    return SUCCEEDED(object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_SYSTEM_DEFAULT, &id)) ? id : DISPID_UNKNOWN;
}

class ExplainedClass : public testing::TestWithParam<const ClassRow*> {
protected:
    // The object under each interface that calls by name can use.
    std::vector<Ptr<IDispatch>> parts() const {
        std::vector<Ptr<IDispatch>> found;
        for (const IID& iid : {IID_IDispatch, IID_IProfileTrans, IID_IProfileGet, IID_ICPLTTrans, IID_ICRLPTrans,
                               IID_ICProfile, IID_ICProfileNotes, IID_IExplained}) {
            if (auto part = object_.as<IDispatch>(iid)) found.push_back(std::move(part));
        }
        return found;
    }

    Ptr<IUnknown> object_ = newServerObject<IUnknown>(GetParam()->name, IID_IUnknown);
};

std::vector<const ClassRow*> allRows() {
    std::vector<const ClassRow*> rows;
    for (const ClassRow& row : classTable()) rows.push_back(&row);
    return rows;
}
INSTANTIATE_TEST_SUITE_P(, ExplainedClass, testing::ValuesIn(allRows()),
                         [](const auto& row) { return utf8(row.param->name); });

TEST_P(ExplainedClass, FindsTheNameUnderEveryInterface) {
    ASSERT_GE(parts().size(), 3U);
    for (const auto& part : parts()) {
        EXPECT_EQ(idOf(part, u"Explain"), explainId);
        EXPECT_EQ(idOf(part, u"explain"), explainId);
        EXPECT_EQ(idOf(part, u"Explains"), DISPID_UNKNOWN);
        OLECHAR* names[] = {const_cast<OLECHAR*>(L"Explain"), const_cast<OLECHAR*>(L"Recording")};
        DISPID ids[] = {0, 0};
        EXPECT_EQ(part->GetIDsOfNames(IID_NULL, names, 2, LOCALE_SYSTEM_DEFAULT, ids), S_OK);
        EXPECT_EQ(ids[0], explainId);
        EXPECT_EQ(ids[1], 0);
    }
}

TEST_P(ExplainedClass, CallsItUnderEveryInterface) {
    for (const auto& part : parts()) {
        VARIANT recording = truth(true);
        DISPPARAMS parameters{&recording, nullptr, 1, 0};
        Variant text;
        EXPECT_EQ(part->Invoke(explainId, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                               &parameters, text.pointer(), nullptr, nullptr),
                  S_OK);
        EXPECT_EQ(text.get().vt, VT_BSTR);
        DISPPARAMS none{nullptr, nullptr, 0, 0};
        EXPECT_EQ(part->Invoke(explainId, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD, &none, text.pointer(),
                               nullptr, nullptr),
                  S_OK);
        EXPECT_EQ(part->Invoke(explainId + 1, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD, &none, text.pointer(),
                               nullptr, nullptr),
                  DISP_E_MEMBERNOTFOUND);
    }
}

TEST_P(ExplainedClass, SupportsErrorInformationForIt) {
    EXPECT_EQ(object_.as<ISupportErrorInfo>(IID_ISupportErrorInfo)->InterfaceSupportsErrorInfo(IID_IExplained), S_OK);
}

// The ids that clients have compiled into them.
TEST_P(ExplainedClass, KeepsTheIdsOfAllOtherMembers) {
    std::map<TextView, DISPID> ids;
    if (GetParam()->hasProfileTrans) ids = {{u"CreateCommand", 1}, {u"VerifyResponse", 2}};
    if (GetParam()->hasProfileGet) ids.insert({{u"ProfileElements", 3}, {u"ListOf", 5}, {u"ElementList", 6}});
    if (GetParam()->name == u"CRLPTrans") ids.emplace(u"RecLocCount", 4);
    if (GetParam()->name == u"CPLTTrans") ids.emplace(u"ListOf", 5);
    if (GetParam()->name == u"CProfileNotes") ids.emplace(u"ProfileNotesElementsCount", 7);
    if (GetParam()->name == u"CProfile") {
        DISPID id = 10;
        for (const char16_t* const family : {u"PPR",
                                             u"PGL",
                                             u"PPS",
                                             u"PHI",
                                             u"PCI",
                                             u"PPC",
                                             u"PPH",
                                             u"",
                                             u"PPA",
                                             u"PPK",
                                             u"PPI",
                                             u"PXC",
                                             u"PXA",
                                             u"PXK",
                                             u"PSH",
                                             u"PSC",
                                             u"PPT",
                                             u"PXT",
                                             u"Remark",
                                             u"Contact",
                                             u"OtherService",
                                             u"FrequentFlyer",
                                             u"ServiceRequest",
                                             u"Seat",
                                             u"RemarkConf",
                                             u"PAS",
                                             u"PIV",
                                             u"PCE",
                                             u"PID",
                                             u"PFO"}) {
            const Text name = *family == 0 ? Text(u"PPHElementsCountold") : Text(family) + u"ElementsCount";
            EXPECT_EQ(idOf(object_.as<IDispatch>(IID_IDispatch), name), id++) << utf8(name);
        }
        EXPECT_EQ(id, 40);
    }
    for (const auto& [name, id] : ids) {
        EXPECT_EQ(idOf(object_.as<IDispatch>(IID_IDispatch), name), id) << utf8(name);
    }
}

TEST(ExplainedInterfaces, KeepTheirPlacesInTheVtable) {
    struct Kept {
        const IID& iid;
        unsigned functions;
    };
    const auto object = newServerObject<IDispatch>(u"CProfile", IID_IDispatch);
    Ptr<ITypeInfo> info;
    Ptr<ITypeLib> library;
    UINT index = 0;
    ASSERT_EQ(object->GetTypeInfo(0, LOCALE_SYSTEM_DEFAULT, info.receive()), S_OK);
    ASSERT_EQ(info->GetContainingTypeLib(library.receive(), &index), S_OK);
    constexpr unsigned ofDispatch = 7;
    for (const Kept& kept :
         {Kept{IID_IProfileTrans, 2}, Kept{IID_IProfileGet, 1}, Kept{IID_ICPLTTrans, 3}, Kept{IID_ICRLPTrans, 3},
          Kept{IID_ICProfile, 33}, Kept{IID_ICProfileNotes, 6}, Kept{IID_IExplained, 1}}) {
        constexpr UINT vtableOfADualInterface = static_cast<UINT>(-1);
        HREFTYPE reference = 0;
        Ptr<ITypeInfo> dispatched;
        ASSERT_EQ(library->GetTypeInfoOfGuid(kept.iid, dispatched.receive()), S_OK);
        ASSERT_EQ(dispatched->GetRefTypeOfImplType(vtableOfADualInterface, &reference), S_OK);
        ASSERT_EQ(dispatched->GetRefTypeInfo(reference, info.receive()), S_OK);
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->cbSizeVft, (ofDispatch + kept.functions) * sizeof(void*));
        info->ReleaseTypeAttr(attributes);
    }
}

class ExplainArgument : public testing::Test {
protected:
    HRESULT command(const char16_t* number) {
        const auto params = terminalCollection({{u"strKeyItemNr", number}});
        Bstr text;
        return trans_->CreateCommand(argument(params.get()), text.receive());
    }

    // Whether the recording is on after it was off and this argument was passed, or after it was on.
    void expectSwitch(const VARIANT& recording, bool afterOff, bool afterOn) {
        for (const bool wasOn : {false, true}) {
            explained(object_, truth(wasOn));
            explained(object_, recording);
            EXPECT_EQ(command(u"12"), S_OK);
            EXPECT_EQ(has(explained(object_, noArgument()), "12"), wasOn ? afterOn : afterOff);
        }
    }
    void expectOn(const VARIANT& recording) { expectSwitch(recording, true, true); }
    void expectOff(const VARIANT& recording) { expectSwitch(recording, false, false); }
    void expectNoSwitch(const VARIANT& recording) { expectSwitch(recording, false, true); }

    Ptr<::IProfileTrans> trans_ = newTrans(u"CPXTrans");
    Ptr<IExplained> object_ = trans_.as<IExplained>(IID_IExplained);
};

TEST_F(ExplainArgument, IsABooleanInAnyForm) {
    expectOn(truth(true));
    expectOff(truth(false));
    expectOn(Variant::of(std::int16_t{1}).get());
    expectOff(Variant::of(std::int16_t{0}).get());
    const Variant text = Variant::of(TextView(u"True"));
    expectOn(text.get());
    Variant variable = Variant::of(true);
    expectOn(com::borrowedByReference(variable.pointer()));
    VARIANT_BOOL stored = VARIANT_FALSE;
    VARIANT reference;
    reference.vt = VT_BYREF | VT_BOOL;
    reference.pboolVal = &stored;
    expectOff(reference);
}

TEST_F(ExplainArgument, MayBeLeftOutEmptyNullOrNothing) {
    VARIANT value;
    VariantInit(&value);
    expectNoSwitch(value);
    value.vt = VT_NULL;
    expectNoSwitch(value);
    expectNoSwitch(argument(nullptr));
    expectNoSwitch(noArgument());
}

TEST_F(ExplainArgument, IsNothingElse) {
    const Raised mismatch{13, "VantroProfileUtils", "Type mismatch"};
    explained(object_, truth(true));
    EXPECT_EQ(command(u"12"), S_OK);
    const std::string kept = explained(object_, noArgument());
    const Variant text = Variant::of(TextView(u"perhaps"));
    const Variant list = Variant::of(ItemValue(TextList{u"True"}));
    for (const VARIANT& refused : {text.get(), list.get(), argument(trans_.get())}) {
        Bstr unchanged;
        EXPECT_EQ(raisedBy(object_->Explain(refused, unchanged.receive())), mismatch);
        EXPECT_EQ(unchanged.get(), nullptr);
    }
    EXPECT_EQ(explained(object_, noArgument()), kept);
    EXPECT_EQ(object_->Explain(noArgument(), nullptr), E_POINTER);
}

TEST_F(ExplainArgument, IsOne) {
    VARIANT two[] = {truth(true), truth(true)};
    DISPPARAMS parameters{two, nullptr, 2, 0};
    Variant text;
    EXPECT_EQ(trans_->Invoke(explainId, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD, &parameters, text.pointer(),
                             nullptr, nullptr),
              DISP_E_BADPARAMCOUNT);
    DISPID named = 0;
    DISPPARAMS byName{two, &named, 1, 1};
    EXPECT_EQ(trans_->Invoke(explainId, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD, &byName, text.pointer(),
                             nullptr, nullptr),
              S_OK);
    EXPECT_EQ(command(u"12"), S_OK);
    EXPECT_TRUE(has(explained(object_, noArgument()), "12"));
}

// An argument that is refused fails the call, whatever the readers made of it.
TEST(ExplainedFailure, OfAnArgumentIsTheCallsOwn) {
    const auto trans = newTrans(u"CPXTrans");
    const auto object = trans.as<IExplained>(IID_IExplained);
    const Variant text = Variant::of(TextView(u"12"));
    explained(object, truth(true));
    Bstr command;
    EXPECT_EQ(raisedBy(trans->CreateCommand(text.get(), command.receive())).number, 13);
    EXPECT_TRUE(has(explained(object, noArgument()), "13")) << explained(object, noArgument());
}

TEST(ExplainedFailure, BeforeTheReadersBeginIsExplainedToo) {
    const auto notes = newServerObject<ICProfileNotes>(u"CProfileNotes", IID_ICProfileNotes);
    const auto object = notes.as<IExplained>(IID_IExplained);
    const Variant list = Variant::of(ItemValue(TextList{u"A"}));
    const Bstr display(screen({u"PDR/KQ4R7T", u"------- PROFILE NOTES", u"A WINDOW SEAT", u"END OF DISPLAY"}));
    explained(object, truth(true));
    SHORT count = 0;
    ASSERT_EQ(notes->ProfileNotesElementsCount(display.get(), noArgument(), noArgument(), &count), S_OK);
    const std::string counted = explained(object, noArgument());
    EXPECT_EQ(raisedBy(notes->ProfileNotesElementsCount(display.get(), list.get(), noArgument(), &count)).number, 13);
    const std::string failed = explained(object, noArgument());
    EXPECT_TRUE(has(failed, "ProfileNotesElementsCount"));
    EXPECT_TRUE(has(failed, "13")) << failed;
    EXPECT_FALSE(has(counted, "Type mismatch"));
}

}  // namespace
}  // namespace vantro::test
