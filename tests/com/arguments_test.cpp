// What each argument accepts, and what is returned through it.
#include "server/com/error.h"
#include "tests/com/client.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace vantro::test {
namespace {

struct Command {
    HRESULT result;
    Bstr text;
};

Command commandFor(const VARIANT& params) {
    Command command{};
    command.result = newTrans(u"CPXTrans")->CreateCommand(params, command.text.receive());
    return command;
}

class CollectionArgument : public testing::Test {
protected:
    void expectAccepted(const VARIANT& params) {
        const Command command = commandFor(params);
        EXPECT_EQ(command.result, S_OK);
        EXPECT_EQ(utf8(command.text.view()), "PX12");
    }

    void expectNoCollection(const VARIANT& params) {
        // Without a collection the command cannot read its parameter.
        EXPECT_EQ(raisedBy(commandFor(params).result), creatingFailed(5010));
    }

    Ptr<IKeyedCollection> params_ = terminalCollection({{u"strKeyItemNr", u"12"}});
    IDispatch* object_ = params_.get();
    IUnknown* unknown_ = params_.get();
};

TEST_F(CollectionArgument, IsAnObject) { expectAccepted(argument(object_)); }

TEST_F(CollectionArgument, IsAnObjectByReference) {
    VARIANT value;
    value.vt = VT_BYREF | VT_DISPATCH;
    value.ppdispVal = &object_;
    expectAccepted(value);
}

TEST_F(CollectionArgument, IsAVariableThatContainsAnObject) {
    VARIANT variable = argument(object_);
    expectAccepted(com::borrowedByReference(&variable));
}

TEST_F(CollectionArgument, IsAnObjectOfAnyInterface) {
    VARIANT value;
    value.vt = VT_UNKNOWN;
    value.punkVal = unknown_;
    expectAccepted(value);
    value.vt = VT_BYREF | VT_UNKNOWN;
    value.ppunkVal = &unknown_;
    expectAccepted(value);
}

TEST_F(CollectionArgument, MayBeNothingEmptyNullOrLeftOut) {
    VARIANT value;
    VariantInit(&value);
    expectNoCollection(value);
    value.vt = VT_NULL;
    expectNoCollection(value);
    expectNoCollection(argument(nullptr));
    expectNoCollection(noArgument());
    VARIANT variable = argument(nullptr);
    expectNoCollection(com::borrowedByReference(&variable));
}

TEST_F(CollectionArgument, IsNothingElse) {
    const Variant text = Variant::of(TextView(u"12"));
    EXPECT_EQ(raisedBy(commandFor(text.get()).result), (Raised{13, "VantroProfileUtils", "Type mismatch"}));
}

TEST(ResponseArgument, MayBeANullText) {
    Ptr<IDispatch> results;
    EXPECT_EQ(newTrans(u"CPXTrans")->VerifyResponse(nullptr, noArgument(), results.receive()), S_OK);
    EXPECT_FALSE(results);
}

TEST(ResponseArgument, KeepsEveryCodeUnit) {
    const auto mode = newTrans(u"CProfileMode");
    const auto params = terminalCollection({{u"blnKeyEnter", true}});
    Text line = u"*PROFILE MODE* \x00E9\x4E2D\xD83D\xDE00";
    line += u'\0';
    line += u"END";
    const Bstr response(screen({u"PM", line}));
    Ptr<IDispatch> results;
    ASSERT_EQ(mode->VerifyResponse(response.get(), argument(params.get()), results.receive()), S_OK);
    EXPECT_EQ(entriesOf(results.get()).back(), (Entry{u"strKeyErrorString", line}));
}

TEST(ReturnedCollection, IsTheVeryOneThatWasPassedForTheClassesThatAddToIt) {
    for (const char16_t* const name : {u"CProfileMode", u"CProfileNotes"}) {
        const auto params = terminalCollection({{u"strCommand", u"PN"}, {u"blnKeyEnter", true}});
        const Bstr response(screen({u"PM", u"*PROFILE MODE* PNL"}));
        Ptr<IDispatch> results;
        ASSERT_EQ(newTrans(name)->VerifyResponse(response.get(), argument(params.get()), results.receive()), S_OK);
        EXPECT_EQ(results.get(), static_cast<IDispatch*>(params.get())) << utf8(name);
    }
}

TEST(ReturnedCollection, IsThePassedOneForAnUnknownFamilyAndNothingForAKnownOne) {
    const auto profile = newGet(u"CProfile");
    const auto request = terminalCollection({{u"strKeyPrefix", u"XYZ"}});
    const Bstr display(screen({u"PDR/KQ4R7T", u"*T* MARTEN/LOVIS MRS", u"END OF DISPLAY"}));
    Ptr<IDispatch> unknown;
    ASSERT_EQ(
        profile->ProfileElements(display.get(), argument(request.get()), nullptr, noArgument(), unknown.receive()),
        S_OK);
    EXPECT_EQ(unknown.get(), static_cast<IDispatch*>(request.get()));
    const auto known = terminalCollection({{u"strKeyPrefix", u"NM"}});
    ASSERT_EQ(profile->ProfileElements(display.get(), argument(known.get()), nullptr, noArgument(), unknown.receive()),
              S_OK);
    EXPECT_FALSE(unknown);
}

TEST(Lists, AreStoredInTheCollectionAsArraysOfTexts) {
    const auto profile = newGet(u"CProfile");
    const auto request = terminalCollection({{u"strKeyPrefix", u"PPR"}});
    const Bstr display(screen({u"PDR/KQ4R7T", u"------- PRIORITY", u"1  PPR/WINDOW SEAT", u"END OF DISPLAY"}));
    Ptr<IDispatch> unknown;
    Ptr<IDispatch> item;
    Variant stored;
    ASSERT_EQ(
        profile->ProfileElements(display.get(), argument(request.get()), nullptr, noArgument(), unknown.receive()),
        S_OK);
    const Bstr key(u"strKeyElement()");
    ASSERT_EQ(request->Item(key.get(), item.receive()), S_OK);
    ASSERT_EQ(item.as<IKeyedItem>(IID_IKeyedItem)->get_Value(stored.pointer()), S_OK);
    EXPECT_EQ(stored.get().vt, VT_ARRAY | VT_BSTR);
    EXPECT_EQ(com::listIn(stored.get().parray), (TextList{u"", u"WINDOW SEAT"}));
}

TEST(Lists, AreReadFromArraysOfVariantsToo) {
    const auto transfer = newTrans(u"CPTTrans");
    for (const bool asVariants : {false, true}) {
        const TextList numbers{u"", u"3", u"5"};
        const auto params = terminalCollection({{u"strKeyPasAsso", u""}});
        Variant list = asVariants ? Variant::arrayOfVariants(numbers) : Variant::of(ItemValue(numbers));
        Variant key = Variant::of(TextView(u"strKeyElArray()"));
        Ptr<IDispatch> item;
        ASSERT_EQ(params->Add(key.pointer(), list.pointer(), item.receive()), S_OK);
        EXPECT_EQ(entriesOf(params.get()).back(), (Entry{u"strKeyElArray()", numbers}));
    }
}

// A display with two transferable elements, of which the selection names one.
Bstr transferableDisplay() {
    return Bstr(screen({u"PDR/KQ4R7T", u"------- PNR TRANSFERABLE DATA", u"S      3     RM WINDOW SEAT",
                        u"A      4     AP  0441 5550", u"------- DOCUMENTS", u"END OF DISPLAY"}));
}

TextList selectedNumbers(VARIANT* selection) {
    const auto profile = newGet(u"CProfile");
    const auto request = terminalCollection({{u"strKeyPrefix", u"ALL"}});
    const Bstr display = transferableDisplay();
    Ptr<IDispatch> unknown;
    EXPECT_EQ(
        profile->ProfileElements(display.get(), argument(request.get()), selection, noArgument(), unknown.receive()),
        S_OK);
    return std::get<TextList>(entriesOf(request.get()).back().value);
}

TEST(Selection, IsStoredInTheCallersArrayOfTexts) {
    Variant selection = Variant::of(ItemValue(TextList{u"s  rm", u"zz"}));
    EXPECT_EQ(selectedNumbers(selection.pointer()), (TextList{u"", u"3"}));
    // The kind letter and the two blanks of an entry are cut off by taking it from its second character on.
    EXPECT_EQ(com::listIn(selection.get().parray), (TextList{u"RM", u"ZZ"}));
}

TEST(Selection, IsStoredInTheCallersArrayOfVariantsByReference) {
    Variant list = Variant::arrayOfVariants({u"s  rm", u"zz"});
    VARIANT variable = com::borrowedByReference(list.pointer());
    EXPECT_EQ(selectedNumbers(&variable), (TextList{u"", u"3"}));
    EXPECT_EQ(com::listIn(list.get().parray), (TextList{u"RM", u"ZZ"}));
}

TEST(Selection, IsStoredInAnArrayWhoseLowerBoundIsNotZero) {
    SAFEARRAYBOUND bound{2, 5};
    SAFEARRAY* const array = SafeArrayCreate(VT_BSTR, 1, &bound);
    const TextList entries{u"a  ap", u"rm"};
    com::storeElements(array, entries);
    VARIANT selection;
    selection.vt = VT_ARRAY | VT_BSTR;
    selection.parray = array;
    EXPECT_EQ(selectedNumbers(&selection), (TextList{u"", u"4"}));
    EXPECT_EQ(com::elementsIn(array), (TextList{u"AP", u"RM"}));
    SafeArrayDestroy(array);
}

TEST(Selection, MayBeLeftOutAndIsNothingElseThanAnArray) {
    VARIANT left = noArgument();
    EXPECT_EQ(selectedNumbers(&left), TextList{u""});
    EXPECT_EQ(selectedNumbers(nullptr), TextList{u""});
    const auto profile = newGet(u"CProfile");
    const auto request = terminalCollection({{u"strKeyPrefix", u"ALL"}});
    const Bstr display = transferableDisplay();
    Variant text = Variant::of(TextView(u"S  RM"));
    Ptr<IDispatch> unknown;
    EXPECT_EQ(raisedBy(profile->ProfileElements(display.get(), argument(request.get()), text.pointer(), noArgument(),
                                                unknown.receive())),
              (Raised{13, "VantroProfileUtils", "Type mismatch"}));
}

TEST(Qualifier, IsATextInAnyForm) {
    const auto profile = newGet(u"CProfile");
    const Bstr display = transferableDisplay();
    for (const char16_t* const code : {u"RM", u"AP"}) {
        const auto request = terminalCollection({{u"strKeyPrefix", u"ALL"}});
        Variant selection = Variant::of(ItemValue(TextList{u"RM", u"AP"}));
        Variant variable = Variant::of(TextView(code));
        Ptr<IDispatch> unknown;
        ASSERT_EQ(profile->ProfileElements(display.get(), argument(request.get()), selection.pointer(),
                                           com::borrowedByReference(variable.pointer()), unknown.receive()),
                  S_OK);
        const TextList expected{u"", Text(code) == u"RM" ? u"3" : u"4"};
        EXPECT_EQ(std::get<TextList>(entriesOf(request.get()).back().value), expected);
    }
}

TEST(Counts, AreIntegersOrVariantsAsTheClassDeclares) {
    const auto profile = newServerObject<ICProfile>(u"CProfile", IID_ICProfile);
    const Bstr display = transferableDisplay();
    SHORT remarks = 0;
    Variant contacts;
    ASSERT_EQ(profile->get_RemarkElementsCount(display.get(), &remarks), S_OK);
    ASSERT_EQ(profile->get_ContactElementsCount(display.get(), contacts.pointer()), S_OK);
    EXPECT_EQ(remarks, 1);
    EXPECT_EQ(contacts.get().vt, VT_I2);
    EXPECT_EQ(contacts.get().iVal, 1);
    SHORT old = 7;
    ASSERT_EQ(profile->get_PPHElementsCountold(display.get(), &old), S_OK);
    EXPECT_EQ(old, 0);
}

TEST(ElementList, IsAnArrayOfVariantsWithTheListsContent) {
    const auto profile = newServerObject<ICProfile>(u"CProfile", IID_ICProfile);
    const Bstr display(screen({u"PDR/KQ4R7T", u"------- PRIORITY", u"1  PPR/WINDOW SEAT", u"END OF DISPLAY"}));
    SHORT count = 0;
    ASSERT_EQ(profile->get_PPRElementsCount(display.get(), &count), S_OK);
    EXPECT_EQ(count, 1);
    Variant list;
    const Bstr name(u"strPPRText");
    ASSERT_EQ(profile->get_ElementList(name.get(), list.pointer()), S_OK);
    EXPECT_EQ(list.get().vt, VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(com::listIn(list.get().parray), (TextList{u"", u"WINDOW SEAT"}));
    const Bstr unknown(u"strXYZText");
    EXPECT_EQ(raisedBy(profile->get_ElementList(unknown.get(), list.pointer())).number, 5);
}

TEST(ListOf, ReadsAListOfACollectionAsAnArrayOfVariants) {
    const auto offices = newServerObject<ICPLTTrans>(u"CPLTTrans", IID_ICPLTTrans);
    const auto results =
        terminalCollection({{u"strKeyNoCoAssoArray()", TextList{u"", u"Q2W3E4"}}, {u"strKeyCoNames", u"KESWICK INKS"}});
    Variant list;
    const Bstr key(u"strKeyNoCoAssoArray()");
    ASSERT_EQ(offices->ListOf(argument(results.get()), key.get(), list.pointer()), S_OK);
    EXPECT_EQ(list.get().vt, VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(com::listIn(list.get().parray), (TextList{u"", u"Q2W3E4"}));
    const Bstr text(u"strKeyCoNames");
    const Bstr absent(u"strKeyAbsent");
    EXPECT_EQ(raisedBy(offices->ListOf(argument(results.get()), text.get(), list.pointer())).number, 13);
    EXPECT_EQ(raisedBy(offices->ListOf(argument(results.get()), absent.get(), list.pointer())).number, 91);
    EXPECT_EQ(raisedBy(offices->ListOf(noArgument(), key.get(), list.pointer())).number, 91);
}

TEST(StoredNumbers, OfEveryWidthAreSixteenBitIntegers) {
    const auto profile = newGet(u"CProfile");
    const Bstr display = transferableDisplay();
    struct Stored {
        VARIANT value;
        int expectedError;
    };
    VARIANT wide;
    wide.vt = VT_I4;
    wide.lVal = 1;
    VARIANT real;
    real.vt = VT_R8;
    real.dblVal = 1.0;
    VARIANT tooBig;
    tooBig.vt = VT_I4;
    tooBig.lVal = 40000;
    for (Stored stored : {Stored{wide, 0}, Stored{real, 0}, Stored{tooBig, 6}}) {
        const auto request = terminalCollection({{u"strKeyPrefix", u"RM"}});
        Variant key = Variant::of(TextView(u"intKeyIndex"));
        Ptr<IDispatch> item;
        Ptr<IDispatch> unknown;
        const HRESULT added = request->Add(key.pointer(), &stored.value, item.receive());
        EXPECT_EQ(raisedBy(added).number, stored.expectedError);
        if (FAILED(added)) continue;
        ASSERT_EQ(
            profile->ProfileElements(display.get(), argument(request.get()), nullptr, noArgument(), unknown.receive()),
            S_OK);
        EXPECT_EQ(entriesOf(request.get()).back(), (Entry{u"strKeyElementNr", u"3"}));
    }
}

}  // namespace
}  // namespace vantro::test
