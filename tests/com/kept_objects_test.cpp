// What the server keeps of the terminal between calls, and of a screen between its lines.
#include "tests/com/client.h"
#include "tests/com/late_object.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace vantro::test {
namespace {

CLSID collectionClass() { return registeredClass(u"VantroKestoFaces", u"KeyedCollection"); }
CLSID functionsClass() { return registeredClass(u"VantroKestoFaces", u"TerminalFunctions"); }

Operations deafCollection() {
    return {{u"Add", [](const auto&, VARIANT&, EXCEPINFO&) { return S_OK; }}};
}

// Verifies a response whose results are a new collection.
HRESULT verify() {
    const Bstr response(screen({u"PDRT/KQ4R7T", u"RECORD LOCATOR NOT FOUND", u">"}));
    Ptr<IDispatch> results;
    return newTrans(u"CPDRTrans")->VerifyResponse(response.get(), noArgument(), results.receive());
}

TEST(CollectionsClassObject, IsKeptWithALockUntilTheApartmentEnds) {
    const auto use = std::make_shared<ClassUse>();
    inNewApartment([&] {
        const TakenClass collections(collectionClass(), deafCollection(), use);
        for (int round = 0; round < 3; ++round) EXPECT_EQ(verify(), S_OK);
        EXPECT_EQ(use->created, 3);
        EXPECT_EQ(use->locks, 1);
    });
    EXPECT_EQ(use->locks, 0);
}

TEST(CollectionsClassObject, IsTheFirstOneThatAThreadUsed) {
    const auto first = std::make_shared<ClassUse>();
    const auto second = std::make_shared<ClassUse>();
    inNewApartment([&] {
        {
            const TakenClass collections(collectionClass(), deafCollection(), first);
            EXPECT_EQ(verify(), S_OK);
        }
        const TakenClass collections(collectionClass(), deafCollection(), second);
        EXPECT_EQ(verify(), S_OK);
        EXPECT_EQ(first->created, 2);
        inNewApartment([] { EXPECT_EQ(verify(), S_OK); });
    });
    EXPECT_EQ(first->created, 2);
    EXPECT_EQ(second->created, 0);  // it is registered in the first apartment only
}

TEST(CollectionsClassObject, IsRequestedAgainWhenItCannotBeLocked) {
    const auto first = std::make_shared<ClassUse>(ClassUse{E_NOTIMPL});
    const auto second = std::make_shared<ClassUse>();
    inNewApartment([&] {
        {
            const TakenClass collections(collectionClass(), deafCollection(), first);
            EXPECT_EQ(verify(), S_OK);
            EXPECT_EQ(verify(), S_OK);
        }
        const TakenClass collections(collectionClass(), deafCollection(), second);
        EXPECT_EQ(verify(), S_OK);
    });
    EXPECT_EQ(first->created, 2);
    EXPECT_EQ(second->created, 1);
}

// The texts that the terminal is passed for its lines.
using Passed = std::vector<std::pair<BSTR, Text>>;

// Functions of a terminal that note these texts, and do something else at each line.
Operations notingFunctions(
    Passed& passed, std::function<void()> atLine = [] {}) {
    return {{u"ItemText",
             [](const auto&, VARIANT& result, EXCEPINFO&) {
                 result = Variant::of(TextView(u"PHI")).detach();
                 return S_OK;
             }},
            {u"FindMarker",
             [](const auto&, VARIANT& result, EXCEPINFO&) {
                 result = Variant::of(false).detach();
                 return S_OK;
             }},
            {u"ScreenLine", [&passed, atLine](const std::vector<VARIANT>& arguments, VARIANT& result, EXCEPINFO&) {
                 const Text whole(com::viewOf(arguments[0].bstrVal));
                 const auto from = static_cast<std::size_t>(arguments[1].iVal) * 80;
                 passed.emplace_back(arguments[0].bstrVal, whole);
                 atLine();
                 result = Variant::of(from < whole.size() ? TextView(whole).substr(from, 80) : TextView()).detach();
                 return S_OK;
             }}};
}

TEST(PassedScreen, IsTheCallersOwnForEveryLine) {
    Passed passed;
    inNewApartment([&] {
        const TakenClass functions(functionsClass(), notingFunctions(passed));
        const Bstr response(screen({u"PDN/KES", u"SIMILAR COMPANY NAME LIST", u"     COMPANY     ", u">"}));
        Ptr<IDispatch> results;
        EXPECT_EQ(newTrans(u"CPDNTrans")->VerifyResponse(response.get(), noArgument(), results.receive()), S_OK);
        ASSERT_EQ(passed.size(), 3U);
        for (const auto& [text, content] : passed) EXPECT_EQ(text, response.get());
    });
}

TEST(PassedScreen, WithoutItsHostLineIsCopiedOnce) {
    Passed passed;
    inNewApartment([&] {
        const TakenClass functions(functionsClass(), notingFunctions(passed));
        const Text rest =
            screen({u"4505 PROFILE", u"------- TRAVEL POLICIES - HOTEL", u"   1 PHI/ NONE", u"END OF DISPLAY"});
        const Bstr display(screen({u"PDR/KQ4R7T"}) + rest);
        const auto request = terminalCollection({{u"strKeyPrefix", u"PHI"}});
        Ptr<IDispatch> unknown;
        EXPECT_EQ(
            newGet(u"CProfile")
                ->ProfileElements(display.get(), argument(request.get()), nullptr, noArgument(), unknown.receive()),
            S_OK);
        ASSERT_GT(passed.size(), 3U);
        EXPECT_EQ(passed[0].first, display.get());
        for (const auto& [text, content] : Passed(passed.begin() + 1, passed.end())) {
            EXPECT_EQ(text, passed[1].first);
            EXPECT_EQ(content, rest);
        }
    });
}

TEST(PassedScreen, IsAnEmptyTextForANullOne) {
    Passed passed;
    inNewApartment([&] {
        const TakenClass functions(functionsClass(), notingFunctions(passed));
        const auto request = terminalCollection({{u"strKeyPrefix", u"PHI"}});
        Ptr<IDispatch> unknown;
        newGet(u"CProfile")
            ->ProfileElements(nullptr, argument(request.get()), nullptr, noArgument(), unknown.receive());
        ASSERT_FALSE(passed.empty());
        for (const auto& [text, content] : passed) EXPECT_NE(text, nullptr);
    });
}

// A line is the occasion of another call of the same object.
TEST(PassedScreen, IsEachCallsOwnWhenCallsAreNested) {
    Passed passed;
    inNewApartment([&] {
        const auto trans = newTrans(u"CPDNTrans");
        const Bstr inner(screen({u"PDN/A", u"*T* TRAVELLER PROFILE", u">"}));
        const Bstr outer(screen({u"PDN/KES", u"SIMILAR COMPANY NAME LIST", u"     COMPANY     ", u">"}));
        Ptr<IDispatch> results;
        bool isNested = false;
        const TakenClass functions(functionsClass(), notingFunctions(passed, [&] {
                                       if (std::exchange(isNested, true)) return;
                                       Ptr<IDispatch> other;
                                       trans->VerifyResponse(inner.get(), noArgument(), other.receive());
                                   }));
        EXPECT_EQ(trans->VerifyResponse(outer.get(), noArgument(), results.receive()), S_OK);
        std::vector<BSTR> texts;
        for (const auto& [text, content] : passed) texts.push_back(text);
        EXPECT_EQ(texts, (std::vector<BSTR>{outer.get(), inner.get(), outer.get(), outer.get()}));
    });
}

}  // namespace
}  // namespace vantro::test
