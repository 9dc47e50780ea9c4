// The terminal's functions. They return numbers where another terminal returns booleans.
#include "tests/com/foreign/objects.h"

#include <algorithm>

namespace foreign {

namespace {

constexpr DISPID itemTextId = 90001;
constexpr DISPID itemBooleanId = 8191;
constexpr DISPID screenLineId = 77777;
constexpr DISPID findMarkerId = 1000003;
constexpr DISPID textFieldId = 33554431;

constexpr MemberRow members[] = {
    {L"FindMarker", findMarkerId, DISPATCH_METHOD, 3, 4},   {L"TextField", textFieldId, DISPATCH_METHOD, 3, 3},
    {L"ScreenLine", screenLineId, DISPATCH_METHOD, 2, 2},   {L"ItemText", itemTextId, DISPATCH_METHOD, 1, 1},
    {L"ItemBoolean", itemBooleanId, DISPATCH_METHOD, 1, 1},
};

constexpr std::size_t lineWidth = 80;

Held textOf(const VARIANT* value) {
    if (value == nullptr) return textValue({});
    switch (value->vt) {
        case VT_BSTR: return textValue(textIn(*value));
        case VT_BOOL: return textValue(value->boolVal != VARIANT_FALSE ? L"True" : L"False");
        case VT_I4: return textValue(std::to_wstring(value->lVal));
        default: mismatch();
    }
}

bool same(std::wstring_view text, std::wstring_view word) {
    const auto lower = [](wchar_t letter) {
        return letter >= L'A' && letter <= L'Z' ? letter + (L'a' - L'A') : letter;
    };
    return std::ranges::equal(text, word, {}, lower, lower);
}

// A sign and digits: true unless they are all 0.
bool truthOfDigits(std::wstring_view text) {
    if (text.starts_with(L'+') || text.starts_with(L'-')) text.remove_prefix(1);
    if (text.empty() || text.find_first_not_of(L"0123456789") != std::wstring_view::npos) mismatch();
    return text.find_first_not_of(L'0') != std::wstring_view::npos;
}

bool truthOf(std::wstring_view text) {
    if (text.empty() || same(text, L"false")) return false;
    return same(text, L"true") || truthOfDigits(text);
}

bool truthOf(const VARIANT* value) {
    if (value == nullptr) return false;
    switch (value->vt) {
        case VT_BSTR: return truthOf(textIn(*value));
        case VT_BOOL: return value->boolVal != VARIANT_FALSE;
        case VT_I4: return value->lVal != 0;
        default: mismatch();
    }
}

std::wstring_view lineOf(std::wstring_view screen, LONG number) {
    if (number < 0) throw Failed{5, L"No such line."};
    const std::size_t start = static_cast<std::size_t>(number) * lineWidth;
    return start < screen.size() ? screen.substr(start, lineWidth) : std::wstring_view();
}

std::wstring_view fieldOf(std::wstring_view text, LONG number, std::wstring_view separator) {
    for (LONG field = 1; !separator.empty(); ++field) {
        const std::size_t end = text.find(separator);
        if (field == number) return text.substr(0, end);
        if (end == std::wstring_view::npos) return {};
        text.remove_prefix(end + separator.size());
    }
    return number == 1 ? text : std::wstring_view();
}

class Functions final : public LateObject {
public:
    Functions() : LateObject(members) {}

private:
    Held call(DISPID member, const Arguments& given) override {
        switch (member) {
            case itemTextId: return textOf(valueOfItem(objectIn(given[0])));
            case itemBooleanId: return longValue(truthOf(valueOfItem(objectIn(given[0]))) ? 1 : 0);
            case screenLineId: return textValue(lineOf(textIn(given[0]), longIn(given[1])));
            case textFieldId: return textValue(fieldOf(textIn(given[0]), longIn(given[1]), textIn(given[2])));
            default: return booleanValue(isShown(given));
        }
    }

    static bool isShown(const Arguments& given) {
        longIn(given[2]);  // a line is required, though the whole screen is searched
        return textIn(given[0]).find(textIn(given[1])) != std::wstring_view::npos;
    }

    std::wstring watched(DISPID member, const Arguments& given) const override {
        switch (member) {
            case itemTextId: return L"ItemText";
            case itemBooleanId: return L"ItemBoolean";
            case screenLineId: return L"ScreenLine " + std::to_wstring(longIn(given[1]));
            case textFieldId: return L"TextField " + std::to_wstring(longIn(given[1]));
            default:
                return L"FindMarker " + std::wstring(textIn(given[1])) + L" at " + std::to_wstring(longIn(given[2]));
        }
    }
};

}  // namespace

IDispatch* newFunctions() { return new Functions; }

}  // namespace foreign
