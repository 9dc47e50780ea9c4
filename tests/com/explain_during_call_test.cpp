// `Explain` while a call of the same object runs.
#include "tests/com/client.h"
#include "tests/com/late_object.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace vantro::test {
namespace {

// The text that a call returns, which must succeed.
std::string explained(const Ptr<IExplained>& object, const VARIANT& recording) {
    Bstr text;
    EXPECT_EQ(object->Explain(recording, text.receive()), S_OK);
    return utf8(text.view());
}

VARIANT truth(bool value) { return Variant::of(value).detach(); }

// A terminal's function may lead to calls of the object that is just reading.
class ExplainDuringACall : public testing::Test {
protected:
    using AtLine = std::function<void(const Ptr<::IProfileTrans>&)>;

    // Verifies a response; at its first line `atLine` runs. Returns the explanation after the call.
    static std::string verified(bool isOn, const AtLine& atLine) {
        std::string text;
        inNewApartment([&] {
            const auto trans = newTrans(u"CPDNTrans");
            bool isNested = false;
            const TakenClass functions(
                registeredClass(u"VantroKestoFaces", u"TerminalFunctions"),
                {{u"FindMarker",
                  [](const auto&, VARIANT& result, EXCEPINFO&) {
                      result = truth(false);
                      return S_OK;
                  }},
                 {u"ScreenLine", [&](const std::vector<VARIANT>& arguments, VARIANT& result, EXCEPINFO&) {
                      if (!std::exchange(isNested, true)) atLine(trans);
                      const TextView whole = com::viewOf(arguments[0].bstrVal);
                      const auto from = std::min(static_cast<std::size_t>(arguments[1].iVal) * 80, whole.size());
                      result = Variant::of(whole.substr(from, 80)).detach();
                      return S_OK;
                  }}});
            explained(explainedOn(trans), truth(isOn));
            verify(trans, {u"PDN/KES", u"OUTER TITLE", u">"});
            EXPECT_TRUE(isNested);
            text = explained(explainedOn(trans), noArgument());
        });
        return text;
    }

    static void verify(const Ptr<::IProfileTrans>& trans, std::initializer_list<TextView> lines) {
        const Bstr response(screen(lines));
        Ptr<IDispatch> results;
        EXPECT_EQ(trans->VerifyResponse(response.get(), noArgument(), results.receive()), S_OK);
    }

    static Ptr<IExplained> explainedOn(const Ptr<::IProfileTrans>& trans) {
        return trans.as<IExplained>(IID_IExplained);
    }

    static std::size_t calls(const std::string& text) {
        std::size_t count = 0;
        for (std::size_t at = text.find("VerifyResponse"); at != std::string::npos;
             at = text.find("VerifyResponse", at + 1)) {
            ++count;
        }
        return count;
    }
};

TEST_F(ExplainDuringACall, ReturnsWhatIsKnownSoFar) {
    std::string early;
    const std::string whole =
        verified(true, [&](const auto& trans) { early = explained(explainedOn(trans), noArgument()); });
    EXPECT_FALSE(early.empty());
    EXPECT_LT(early.size(), whole.size());
}

TEST_F(ExplainDuringACall, SwitchesTheNextCall) {
    const std::string usual = verified(true, [](const auto&) {});
    EXPECT_EQ(verified(false, [](const auto& trans) { explained(explainedOn(trans), truth(true)); }), "");
    EXPECT_EQ(verified(true, [](const auto& trans) { explained(explainedOn(trans), truth(false)); }), "");
    EXPECT_EQ(verified(true,
                       [](const auto& trans) {
                           explained(explainedOn(trans), truth(false));
                           explained(explainedOn(trans), truth(true));
                       }),
              usual);
}

TEST_F(ExplainDuringACall, IncludesAnInnerCallOfTheObject) {
    const std::string usual = verified(true, [](const auto&) {});
    const std::string nested = verified(true, [](const auto& trans) { verify(trans, {u"PDN/A", u"INNER", u">"}); });
    EXPECT_EQ(calls(nested), 2 * calls(usual));
}

}  // namespace
}  // namespace vantro::test
