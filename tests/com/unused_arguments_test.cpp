// Arguments are read where an operation uses them: unused ones are neither checked nor changed.
#include "server/com/array.h"
#include "server/com/error.h"
#include "tests/com/client.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace vantro::test {
namespace {

const Raised mismatch{13, "VantroProfileUtils", "Type mismatch"};
const Raised outOfRange{9, "VantroProfileUtils", "Subscript out of range"};
const Raised noObject{91, "VantroProfileUtils", "Object variable not set"};

// What a script passes as "x".
class Wrong {
public:
    const VARIANT& get() const { return text_.get(); }

private:
    Variant text_ = Variant::of(TextView(u"x"));
};

struct Used {
    const char16_t* name;
    bool byCreateCommand;
    bool byVerifyResponse;
};

void PrintTo(const Used& used, std::ostream* out) { *out << utf8(used.name); }

// Three classes have commands without parameters, and five read the state of the transaction.
const Used collections[] = {
    {u"CPBITrans", true, false},  {u"CPBNTrans", true, false},   {u"CPCNTrans", true, false},
    {u"CPDATrans", true, true},   {u"CPDITrans", true, false},   {u"CPDMDTrans", false, false},
    {u"CPDNTrans", true, true},   {u"CPDRTrans", true, false},   {u"CPDTrans", true, false},
    {u"CPDTTrans", false, false}, {u"CPHTrans", true, false},    {u"CPLCTrans", true, false},
    {u"CPLTTrans", true, false},  {u"CProfileMode", true, true}, {u"CPXTrans", true, false},
    {u"CRLPTrans", false, true},  {u"CPTTrans", true, false},    {u"CProfileNotes", true, true},
};

class CollectionThatIsNone : public testing::TestWithParam<Used> {
protected:
    Ptr<::IProfileTrans> trans_ = newTrans(GetParam().name);
    Wrong wrong_;
};
INSTANTIATE_TEST_SUITE_P(, CollectionThatIsNone, testing::ValuesIn(collections),
                         [](const auto& used) { return utf8(used.param.name); });

TEST_P(CollectionThatIsNone, IsCheckedByTheCommandsThatReadIt) {
    Bstr command;
    const Raised raised = raisedBy(trans_->CreateCommand(wrong_.get(), command.receive()));
    EXPECT_EQ(raised, GetParam().byCreateCommand ? mismatch : Raised{});
}

TEST_P(CollectionThatIsNone, IsCheckedByTheReadersOfState) {
    const Bstr response(screen({u"RLP", u"T/KQ4R7T /P1", u">"}));
    Ptr<IDispatch> results;
    const Raised raised = raisedBy(trans_->VerifyResponse(response.get(), wrong_.get(), results.receive()));
    EXPECT_EQ(raised, GetParam().byVerifyResponse ? mismatch : Raised{});
    const bool hasResults = Text(GetParam().name) != u"CPDMDTrans";
    EXPECT_EQ(static_cast<bool>(results), hasResults && !GetParam().byVerifyResponse);
}

TEST_P(CollectionThatIsNone, IsNotCheckedForAnEmptyResponse) {
    Ptr<IDispatch> results;
    // This class reads the state first.
    const bool readsFirst = Text(GetParam().name) == u"CPDATrans";
    EXPECT_EQ(raisedBy(trans_->VerifyResponse(nullptr, wrong_.get(), results.receive())),
              readsFirst ? mismatch : Raised{});
    EXPECT_FALSE(results);
}

Bstr display() {
    return Bstr(screen({u"PDR/KQ4R7T", u"*T* MARTEN/LOVIS MRS", u"  NM MARTEN/LOVIS MRS",
                        u"------- PNR TRANSFERABLE DATA", u"S      3     RM WINDOW SEAT", u"A      4     AP  0441 5550",
                        u"------- DOCUMENTS", u"END OF DISPLAY"}));
}

Raised query(const char16_t* className, const char16_t* prefix, VARIANT* selection, const VARIANT& qualifier) {
    const auto request = terminalCollection({{u"strKeyPrefix", prefix}, {u"intKeyIndex", 1}});
    Ptr<IDispatch> unknown;
    return raisedBy(newGet(className)->ProfileElements(display().get(), argument(request.get()), selection, qualifier,
                                                       unknown.receive()));
}

VARIANT ofKind(VARTYPE kind) {
    VARIANT value;
    VariantInit(&value);
    value.vt = kind;
    return value;
}

// An array of variants with a number and an Empty in it.
Variant mixedArray() {
    Variant array = Variant::arrayOfVariants(TextList{u"", u""});
    LONG index = 0;
    VARIANT number = ofKind(VT_I2);
    number.iVal = 7;
    SafeArrayPutElement(array.get().parray, &index, &number);
    index = 1;
    VARIANT empty = ofKind(VT_EMPTY);
    SafeArrayPutElement(array.get().parray, &index, &empty);
    return array;
}

std::vector<VARTYPE> kindsIn(const Variant& array) {
    std::vector<VARTYPE> kinds;
    for (LONG index = 0; index < 2; ++index) {
        Variant element;
        SafeArrayGetElement(array.get().parray, &index, element.pointer());
        kinds.push_back(element.get().vt);
    }
    return kinds;
}

struct OtherPrefix {
    const char16_t* className;
    const char16_t* prefix;
};

// A header value, an element at an index, a list, a blank too many, an unknown family; and the notes.
const OtherPrefix otherPrefixes[] = {{u"CProfile", u"NM"},      {u"CProfile", u"RM"},
                                     {u"CProfile", u"PPA"},     {u"CProfile", u"ALL "},
                                     {u"CProfile", u"XYZ"},     {u"CProfileNotes", u"ProfileNotes"},
                                     {u"CProfileNotes", u"ALL"}};

TEST(SelectionOfOtherPrefixes, IsNotChecked) {
    const Wrong wrong;
    Variant text = Variant::of(TextView(u""));
    VARIANT unallocated = ofKind(VT_ARRAY | VT_BSTR);
    unallocated.parray = nullptr;
    Variant array = Variant::arrayOfVariants(TextList{u"rm"});
    for (const OtherPrefix& asked : otherPrefixes) {
        EXPECT_EQ(query(asked.className, asked.prefix, text.pointer(), noArgument()), Raised{}) << utf8(asked.prefix);
        EXPECT_EQ(query(asked.className, asked.prefix, &unallocated, noArgument()), Raised{}) << utf8(asked.prefix);
        EXPECT_EQ(query(asked.className, asked.prefix, nullptr, array.get()), Raised{}) << utf8(asked.prefix);
    }
}

TEST(SelectionOfOtherPrefixes, IsNotChanged) {
    for (const OtherPrefix& asked : otherPrefixes) {
        Variant array = mixedArray();
        EXPECT_EQ(query(asked.className, asked.prefix, array.pointer(), noArgument()), Raised{}) << utf8(asked.prefix);
        EXPECT_EQ(kindsIn(array), (std::vector<VARTYPE>{VT_I2, VT_EMPTY})) << utf8(asked.prefix);
    }
}

TEST(SelectionOfAll, IsWrittenBackAsTexts) {
    Variant array = mixedArray();
    EXPECT_EQ(query(u"CProfile", u"ALL", array.pointer(), noArgument()), Raised{});
    EXPECT_EQ(kindsIn(array), (std::vector<VARTYPE>{VT_BSTR, VT_BSTR}));
    EXPECT_EQ(com::elementsIn(array.get().parray), (TextList{u"7", u""}));
}

TEST(SelectionOfAll, IsCheckedAfterTheCollectionAndThePrefix) {
    Wrong wrong;
    Variant text = Variant::of(TextView(u"RM"));
    Ptr<IDispatch> unknown;
    const auto profile = newGet(u"CProfile");
    EXPECT_EQ(raisedBy(profile->ProfileElements(display().get(), noArgument(), text.pointer(), noArgument(),
                                                unknown.receive())),
              noObject);
    EXPECT_EQ(raisedBy(profile->ProfileElements(display().get(), wrong.get(), text.pointer(), noArgument(),
                                                unknown.receive())),
              mismatch);
    EXPECT_EQ(query(u"CProfile", u"", text.pointer(), noArgument()), verifyingFailed(5065));
    EXPECT_EQ(query(u"CProfile", u"ALL", text.pointer(), noArgument()), mismatch);
}

TEST(SelectionOfAll, IsCheckedAfterTheSecondScreenLine) {
    const auto profile = newGet(u"CProfile");
    const auto request = terminalCollection({{u"strKeyPrefix", u"ALL"}});
    const auto control = standIn();
    const Bstr shown = display();
    Variant text = Variant::of(TextView(u"RM"));
    Ptr<IDispatch> unknown;
    control->Reset();
    EXPECT_EQ(raisedBy(profile->ProfileElements(shown.get(), argument(request.get()), text.pointer(), noArgument(),
                                                unknown.receive())),
              mismatch);
    LONG calls = 0;
    control->get_CallCount(&calls);
    EXPECT_EQ(calls, 3);  // the item of the prefix, its text, the line
}

TEST(SelectionOfAll, MustBeAllocated) {
    VARIANT unallocated = ofKind(VT_ARRAY | VT_VARIANT);
    unallocated.parray = nullptr;
    EXPECT_EQ(query(u"CProfile", u"ALL", &unallocated, noArgument()), outOfRange);
    SAFEARRAY* none = nullptr;
    VARIANT reference = ofKind(VT_BYREF | VT_ARRAY | VT_BSTR);
    reference.pparray = &none;
    EXPECT_EQ(query(u"CProfile", u"ALL", &reference, noArgument()), outOfRange);
}

TEST(SelectionOfAll, MayBeAbsentInEveryWay) {
    for (const VARTYPE kind : {VT_EMPTY, VT_NULL}) {
        VARIANT absent = ofKind(kind);
        EXPECT_EQ(query(u"CProfile", u"ALL", &absent, noArgument()), Raised{});
    }
    VARIANT missing = noArgument();
    EXPECT_EQ(query(u"CProfile", u"ALL", &missing, noArgument()), Raised{});
    EXPECT_EQ(query(u"CProfile", u"ALL", nullptr, noArgument()), Raised{});
}

TEST(SelectionOfAll, KeepsWhatWasChangedBeforeAnEntryThatIsNoText) {
    Variant array = Variant::arrayOfVariants(TextList{u"s  rm", u"", u"ap"});
    Variant inner = Variant::arrayOfVariants(TextList{u"rm"});
    LONG index = 1;
    SafeArrayPutElement(array.get().parray, &index, inner.pointer());
    EXPECT_EQ(query(u"CProfile", u"ALL", array.pointer(), noArgument()), mismatch);
    Variant first;
    Variant last;
    index = 0;
    SafeArrayGetElement(array.get().parray, &index, first.pointer());
    index = 2;
    SafeArrayGetElement(array.get().parray, &index, last.pointer());
    EXPECT_EQ(utf8(com::textIn(first.get())), "RM");
    EXPECT_EQ(utf8(com::textIn(last.get())), "ap");
}

TEST(QualifierOfAll, IsChecked) {
    Variant array = Variant::arrayOfVariants(TextList{u"rm"});
    EXPECT_EQ(query(u"CProfile", u"ALL", nullptr, array.get()), mismatch);
}

TEST(FiltersOfNotes, AreCheckedWhereThereIsADisplay) {
    const auto notes = newServerObject<ICProfileNotes>(u"CProfileNotes", IID_ICProfileNotes);
    Variant array = Variant::arrayOfVariants(TextList{u"rm"});
    SHORT count = 7;
    EXPECT_EQ(raisedBy(notes->ProfileNotesElementsCount(nullptr, array.get(), noArgument(), &count)), Raised{});
    EXPECT_EQ(count, 0);
    EXPECT_EQ(raisedBy(notes->ProfileNotesElementsCount(display().get(), array.get(), noArgument(), &count)), mismatch);
}

TEST(ServiceRequestFlags, AreAListOfBooleans) {
    const auto profile = newServerObject<ICProfile>(u"CProfile", IID_ICProfile);
    const Bstr shown(screen({u"PDR/KQ4R7T", u"------- PNR TRANSFERABLE DATA", u"S      3     SR VGML",
                             u"S      4     SR WCHR", u"------- DOCUMENTS", u"END OF DISPLAY"}));
    Variant count;
    Variant list;
    const Bstr name(u"blnServiceRequestFlag");
    ASSERT_EQ(profile->get_ServiceRequestElementsCount(shown.get(), count.pointer()), S_OK);
    ASSERT_EQ(count.get().iVal, 2);
    ASSERT_EQ(profile->get_ElementList(name.get(), list.pointer()), S_OK);
    ASSERT_EQ(list.get().vt, VT_ARRAY | VT_VARIANT);
    for (LONG index = 0; index < 2; ++index) {
        Variant flag;
        ASSERT_EQ(SafeArrayGetElement(list.get().parray, &index, flag.pointer()), S_OK);
        EXPECT_EQ(flag.get().vt, VT_BOOL);
        EXPECT_EQ(flag.get().boolVal, VARIANT_FALSE);
    }
    LONG upper = 0;
    ASSERT_EQ(SafeArrayGetUBound(list.get().parray, 1, &upper), S_OK);
    EXPECT_EQ(upper, 1);
}

// The parameters of a transfer in its list form, with three arrays of these bounds.
Ptr<IKeyedCollection> transferOf(const char16_t* highestGroup, LONG lowerBound, ULONG length) {
    auto params = terminalCollection({{u"intKeyArraySize", highestGroup}});
    for (const char16_t* const name : {u"strKeyElArray()", u"strKeySegArray()", u"strKeyPasArray()"}) {
        SAFEARRAYBOUND bound{length, lowerBound};
        Variant array;
        array.pointer()->vt = VT_ARRAY | VT_BSTR;
        array.pointer()->parray = SafeArrayCreate(VT_BSTR, 1, &bound);
        for (LONG index = lowerBound; index < lowerBound + static_cast<LONG>(length); ++index) {
            const Bstr digit(Text(1, static_cast<char16_t>(u'0' + index + 5)));
            SafeArrayPutElement(array.get().parray, &index, digit.get());
        }
        Variant key = Variant::of(TextView(name));
        Ptr<IDispatch> item;
        com::check(params->Add(key.pointer(), array.pointer(), item.receive()));
    }
    return params;
}

struct Bounds {
    LONG lower;
    ULONG length;
    const char* command;  ///< none: 9
};

TEST(TransferLists, BeginAtTheirOwnLowerBound) {
    for (const auto& [lower, length, command] :
         {Bounds{0, 2, "PT5/S5/P5//6/S6/P6"}, Bounds{-1, 3, "PT5/S5/P5//6/S6/P6"}, Bounds{1, 2, nullptr},
          Bounds{0, 1, nullptr}, Bounds{-2, 2, nullptr}, Bounds{40000, 2, nullptr}, Bounds{0, 0, nullptr}}) {
        const auto params = transferOf(u"1", lower, length);
        Bstr text;
        const Raised raised = raisedBy(newTrans(u"CPTTrans")->CreateCommand(argument(params.get()), text.receive()));
        EXPECT_EQ(raised, command == nullptr ? outOfRange : Raised{}) << lower;
        EXPECT_EQ(utf8(text.view()), command == nullptr ? "" : command) << lower;
    }
}

TEST(TransferLists, MayBeUnallocatedAndHaveNoEntryThen) {
    const auto params = terminalCollection({{u"intKeyArraySize", u"0"}});
    VARIANT unallocated = ofKind(VT_ARRAY | VT_VARIANT);
    unallocated.parray = nullptr;
    Variant key = Variant::of(TextView(u"strKeyElArray()"));
    Ptr<IDispatch> item;
    ASSERT_EQ(params->Add(key.pointer(), &unallocated, item.receive()), S_OK);
    Bstr text;
    EXPECT_EQ(raisedBy(newTrans(u"CPTTrans")->CreateCommand(argument(params.get()), text.receive())), outOfRange);
}

}  // namespace
}  // namespace vantro::test
