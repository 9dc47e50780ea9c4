// Answers of the terminal that are of a wrong kind, and exceptions without a description.
#include "server/com/array.h"
#include "server/com/error.h"
#include "tests/com/client.h"
#include "tests/com/late_object.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vantro::test {
namespace {

const Raised mismatch{13, "VantroProfileUtils", "Type mismatch"};

struct WrongAnswer {
    const char* name;
    VARIANT (*make)();
};

VARIANT ofKind(VARTYPE kind) {
    VARIANT value;
    VariantInit(&value);
    value.vt = kind;
    return value;
}

VARIANT nullAnswer() { return ofKind(VT_NULL); }

VARIANT nothingAnswer() {
    VARIANT value = ofKind(VT_DISPATCH);
    value.pdispVal = nullptr;
    return value;
}

VARIANT errorAnswer() {
    VARIANT value = ofKind(VT_ERROR);
    value.scode = DISP_E_PARAMNOTFOUND;
    return value;
}

VARIANT arrayAnswer() { return Variant::arrayOfVariants(TextList{u"True"}).detach(); }

VARIANT wordAnswer() { return Variant::of(TextView(u"perhaps")).detach(); }

const WrongAnswer wrongAnswers[] = {{"Null", nullAnswer},
                                    {"Nothing", nothingAnswer},
                                    {"ErrorValue", errorAnswer},
                                    {"Array", arrayAnswer},
                                    {"Word", wordAnswer}};

// The terminal's functions: one returns a wrong answer, the others an empty one.
Operations functionsWith(const Text& name, Operation operation) {
    const Operation emptyText = [](const auto&, VARIANT& result, EXCEPINFO&) {
        result = Variant::of(TextView()).detach();
        return S_OK;
    };
    const Operation no = [](const auto&, VARIANT& result, EXCEPINFO&) {
        result = Variant::of(false).detach();
        return S_OK;
    };
    Operations operations{{u"ItemText", emptyText},
                          {u"ScreenLine", emptyText},
                          {u"TextField", emptyText},
                          {u"ItemBoolean", no},
                          {u"FindMarker", no}};
    operations[name] = std::move(operation);
    return operations;
}

CLSID functionsClass() { return registeredClass(u"VantroKestoFaces", u"TerminalFunctions"); }

class WrongTerminalAnswer : public testing::TestWithParam<WrongAnswer> {
protected:
    Operations answering(const Text& name) {
        return functionsWith(name, [make = GetParam().make](const auto&, VARIANT& result, EXCEPINFO&) {
            result = make();
            return S_OK;
        });
    }
};
INSTANTIATE_TEST_SUITE_P(, WrongTerminalAnswer, testing::ValuesIn(wrongAnswers),
                         [](const auto& answer) { return std::string(answer.param.name); });

TEST_P(WrongTerminalAnswer, FromItemBooleanIsATypeMismatch) {
    inNewApartment([&] {
        const TakenClass functions(functionsClass(), answering(u"ItemBoolean"));
        const auto params = terminalCollection({{u"blnKeyAllPNR", true}});
        Bstr command;
        EXPECT_EQ(raisedBy(newTrans(u"CPTTrans")->CreateCommand(argument(params.get()), command.receive())), mismatch);
    });
}

TEST_P(WrongTerminalAnswer, FromFindMarkerIsATypeMismatchInTheResult) {
    inNewApartment([&] {
        const TakenClass functions(functionsClass(), answering(u"FindMarker"));
        const Bstr response(screen({u"PCN/KESWICK"}));
        Ptr<IDispatch> results;
        EXPECT_EQ(raisedBy(newTrans(u"CPCNTrans")->VerifyResponse(response.get(), noArgument(), results.receive())),
                  mismatch);
    });
}

TEST_P(WrongTerminalAnswer, FromFindMarkerIsATypeMismatchInTheReport) {
    inNewApartment([&] {
        const TakenClass functions(functionsClass(), answering(u"FindMarker"));
        const auto control = standIn();
        control->Reset();
        const Bstr response(screen({u"PT3"}));
        Ptr<IDispatch> results;
        LONG number = 0;
        EXPECT_EQ(newTrans(u"CPTTrans")->VerifyResponse(response.get(), noArgument(), results.receive()), S_OK);
        EXPECT_EQ(control->get_Reported(0, &number), S_OK);
        EXPECT_EQ(number, 13);
    });
}

TEST(TerminalAnswer, IsTheTruthThatAutomationSeesInIt) {
    VARIANT half;
    half.vt = VT_R8;
    half.dblVal = 0.5;
    for (const auto& [value, command] : {std::pair{ofKind(VT_EMPTY), "PT"}, std::pair{half, "PTO*"}}) {
        inNewApartment([&, answered = value, expected = command] {
            const TakenClass functions(functionsClass(),
                                       functionsWith(u"ItemBoolean", [=](const auto&, VARIANT& result, EXCEPINFO&) {
                                           result = answered;
                                           return S_OK;
                                       }));
            const auto params = terminalCollection({{u"blnKeyAllPNR", true}});
            Bstr text;
            EXPECT_EQ(newTrans(u"CPTTrans")->CreateCommand(argument(params.get()), text.receive()), S_OK);
            EXPECT_EQ(utf8(text.view()), expected);
        });
    }
}

Raised raisedByTerminal(HRESULT code, const Operation& fillIn) {
    Raised raised;
    inNewApartment([&] {
        const TakenClass functions(functionsClass(), functionsWith(u"FindMarker", fillIn));
        const Bstr response(screen({u"PCN/KESWICK"}));
        Ptr<IDispatch> results;
        const HRESULT failed = newTrans(u"CPCNTrans")->VerifyResponse(response.get(), noArgument(), results.receive());
        raised = raisedBy(failed);
        EXPECT_EQ(failed, code);
    });
    return raised;
}

TEST(TerminalException, ThatSaysNothingIsAPlainFailure) {
    const Raised plain = raisedByTerminal(E_FAIL, [](const auto&, VARIANT&, EXCEPINFO&) { return E_FAIL; });
    EXPECT_EQ(plain, (Raised{static_cast<int>(E_FAIL), "VantroProfileUtils", "A call failed with code 0x80004005"}));
    EXPECT_EQ(raisedByTerminal(E_FAIL, [](const auto&, VARIANT&, EXCEPINFO&) { return DISP_E_EXCEPTION; }), plain);
}

TEST(TerminalException, KeepsWhatItSaysAndHasThePlainTextsForTheRest) {
    const Raised raised =
        raisedByTerminal(static_cast<HRESULT>(0x800A0007UL), [](const auto&, VARIANT&, EXCEPINFO& exception) {
            exception.wCode = 7;
            exception.bstrDescription = com::newBstr(u"Out of paper");
            return DISP_E_EXCEPTION;
        });
    EXPECT_EQ(raised, (Raised{7, "VantroProfileUtils", "Out of paper"}));
}

// A collection whose only item has this value.
Ptr<IDispatch> collectionWith(VARIANT index) {
    const auto itemWith = [](VARIANT value) {
        return newLateObject({{u"Value", [value](const auto&, VARIANT& result, EXCEPINFO&) {
                                   VariantInit(&result);
                                   return VariantCopy(&result, const_cast<VARIANT*>(&value));
                               }}});
    };
    const auto items = std::make_shared<std::map<Text, Ptr<IDispatch>>>();
    (*items)[u"intKeyIndex"] = itemWith(index);
    return newLateObject({{u"Item",
                           [items](const std::vector<VARIANT>& arguments, VARIANT& result, EXCEPINFO&) {
                               const auto& item = (*items)[Text(com::viewOf(arguments[0].bstrVal))];
                               result = Variant::of(item.get()).detach();
                               return S_OK;
                           }},
                          {u"Add", [](const auto&, VARIANT&, EXCEPINFO&) { return S_OK; }}});
}

struct IndexValue {
    const char* name;
    VARIANT value;
    int raised;  ///< 0: the index is 2
};

VARIANT real(double number) {
    VARIANT value = ofKind(VT_R8);
    value.dblVal = number;
    return value;
}

VARIANT currency(double number) {
    VARIANT value = ofKind(VT_CY);
    value.cyVal.int64 = std::llround(number * 10000);
    return value;
}

VARIANT decimal(double number) {
    VARIANT value;
    VariantInit(&value);
    VarDecFromR8(number, &value.decVal);
    value.vt = VT_DECIMAL;
    return value;
}

VARIANT text(TextView characters) { return Variant::of(characters).detach(); }

// Two remarks: index 2 is the last one, 3 is beyond them and raises 5260.
const IndexValue indexValues[] = {
    {"Fraction", real(2.5), 0},
    {"FractionRoundedUp", real(1.5), 0},
    {"Currency", currency(2), 0},
    {"CurrencyFraction", currency(2.4999), 0},
    {"Decimal", decimal(2), 0},
    {"DecimalFraction", decimal(1.75), 0},
    {"Text", text(u" 2 "), 0},
    {"FractionAbove", real(2.51), 5260},
    {"RealTooBig", real(40000), 6},
    {"CurrencyTooBig", currency(40000), 6},
    {"DecimalTooBig", decimal(-32769), 6},
    {"TextTooBig", text(u"40000"), 6},
    {"TextFraction", text(u"2.5"), 13},
    {"EmptyText", text(u""), 13},
    {"Null", ofKind(VT_NULL), 13},
    {"ErrorValue", errorAnswer(), 13},
};

void PrintTo(const IndexValue& value, std::ostream* out) { *out << value.name; }

class TerminalsIndex : public testing::TestWithParam<IndexValue> {};
INSTANTIATE_TEST_SUITE_P(, TerminalsIndex, testing::ValuesIn(indexValues),
                         [](const auto& value) { return std::string(value.param.name); });

TEST_P(TerminalsIndex, IsConvertedAsAutomationDoes) {
    inNewApartment([&] {
        const TakenClass functions(functionsClass(), [] {
            Operations operations = functionsWith(u"ItemText", [](const auto&, VARIANT& result, EXCEPINFO&) {
                result = Variant::of(TextView(u"RM")).detach();
                return S_OK;
            });
            operations[u"ScreenLine"] = [](const std::vector<VARIANT>& arguments, VARIANT& result, EXCEPINFO&) {
                const TextView shown = com::viewOf(arguments[0].bstrVal);
                const auto from = static_cast<std::size_t>(arguments[1].iVal) * 80;
                result = Variant::of(from < shown.size() ? shown.substr(from, 80) : TextView()).detach();
                return S_OK;
            };
            return operations;
        }());
        const Bstr display(screen({u"PDR/KQ4R7T", u"------- PNR TRANSFERABLE DATA", u"S      3     RM WINDOW SEAT",
                                   u"S      4     RM TEA", u"------- DOCUMENTS", u"END OF DISPLAY"}));
        const auto request = collectionWith(GetParam().value);
        Ptr<IDispatch> unknown;
        const Raised raised = raisedBy(
            newGet(u"CProfile")
                ->ProfileElements(display.get(), argument(request.get()), nullptr, noArgument(), unknown.receive()));
        EXPECT_EQ(raised.number, GetParam().raised);
    });
}

}  // namespace
}  // namespace vantro::test
