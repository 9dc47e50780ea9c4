// Makes calls of the foreign terminal fail, and returns the calls that it has recorded.
#include "tests/com/foreign/objects.h"

namespace foreign {

namespace {

constexpr DISPID failAtCallId = 3;
constexpr DISPID failAsId = 5;
constexpr DISPID failReportsId = 7;
constexpr DISPID failHelpersId = 9;
constexpr DISPID resetId = 11;
constexpr DISPID callCountId = 13;
constexpr DISPID callId = 17;
constexpr DISPID liveObjectsId = 19;
constexpr DISPID reportedCountId = 23;
constexpr DISPID reportedId = 29;
constexpr DISPID reportedTextId = 31;

constexpr MemberRow members[] = {
    {L"FailAtCall", failAtCallId, DISPATCH_METHOD, 2, 2},
    {L"FailAs", failAsId, DISPATCH_METHOD, 2, 2},
    {L"FailReports", failReportsId, DISPATCH_METHOD, 1, 1},
    {L"FailHelpers", failHelpersId, DISPATCH_METHOD, 1, 1},
    {L"Reset", resetId, DISPATCH_METHOD, 0, 0},
    {L"CallCount", callCountId, DISPATCH_PROPERTYGET, 0, 0},
    {L"Call", callId, DISPATCH_PROPERTYGET, 1, 1},
    {L"LiveObjects", liveObjectsId, DISPATCH_PROPERTYGET, 0, 0},
    {L"ReportedCount", reportedCountId, DISPATCH_PROPERTYGET, 0, 0},
    {L"Reported", reportedId, DISPATCH_PROPERTYGET, 1, 1},
    {L"ReportedText", reportedTextId, DISPATCH_PROPERTYGET, 1, 1},
};

template <class Value>
Value at(const std::vector<Value>& values, LONG index) {
    if (index < 0 || static_cast<std::size_t>(index) >= values.size()) throw Failed{9, L"No such entry."};
    return values[static_cast<std::size_t>(index)];
}

class Control final : public LateObject {
public:
    // The control is none of the objects that the terminal counts.
    Control() : LateObject(members) { Watch::only().addLive(-1); }

private:
    ~Control() override { Watch::only().addLive(1); }

    Held call(DISPID member, const Arguments& given) override {
        Watch& watch = Watch::only();
        switch (member) {
            case failAtCallId: watch.failAt(longIn(given[0]), Fault::OwnError, longIn(given[1])); break;
            case failAsId:
                watch.failAt(longIn(given[0]), static_cast<Fault>(longIn(given[1])), vantro::test::ownNumber);
                break;
            case failReportsId: watch.failReports(static_cast<Fault>(longIn(given[0]))); break;
            case failHelpersId: watch.failHelpers(static_cast<Fault>(longIn(given[0]))); break;
            case resetId: watch.failAt(0, Fault::None, vantro::test::ownNumber); break;
            default: return answer(member, given);
        }
        return {};
    }

    static Held answer(DISPID member, const Arguments& given) {
        const Watch& watch = Watch::only();
        switch (member) {
            case callCountId: return longValue(static_cast<LONG>(watch.calls().size()));
            case callId: return textValue(at(watch.calls(), longIn(given[0])));
            case liveObjectsId: return longValue(watch.live());
            case reportedCountId: return longValue(static_cast<LONG>(watch.reports().size()));
            case reportedId: return longValue(at(watch.reports(), longIn(given[0])).number);
            default: return textValue(at(watch.reports(), longIn(given[0])).description);
        }
    }

    std::wstring watched(DISPID, const Arguments&) const override { return {}; }
};

}  // namespace

IDispatch* newControl() { return new Control; }

}  // namespace foreign
