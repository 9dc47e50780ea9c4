#include "tests/com/terminal_control.h"

#include "server/com/error.h"
#include "tests/com/remote_collection.h"
#include "tests/support/text.h"

namespace vantro::test {

TerminalControl::TerminalControl() : object_(com::newRegistered(u"VantroKestoFaces.StandInControl")) {}

int TerminalControl::number(com::Member& member, std::initializer_list<VARIANT> arguments) {
    com::Variant converted;
    com::check(com::convert(member.call(object_.get(), arguments).get(), VT_I4, converted));
    return static_cast<int>(converted.get().lVal);
}

long TerminalControl::liveObjects() { return number(liveObjects_); }

void TerminalControl::failAt(long call, Fault fault) {
    failAs_.call(object_.get(),
                 {com::borrowed(static_cast<std::int16_t>(call)), com::borrowed(static_cast<std::int16_t>(fault))});
}

void TerminalControl::failReports(Fault fault) {
    failReports_.call(object_.get(), {com::borrowed(static_cast<std::int16_t>(fault))});
}

void TerminalControl::failHelpers(Fault fault) {
    failHelpers_.call(object_.get(), {com::borrowed(static_cast<std::int16_t>(fault))});
}

std::vector<std::string> TerminalControl::calls() {
    std::vector<std::string> names;
    const int count = number(callCount_);
    for (std::int16_t index = 0; index < count; ++index) {
        names.push_back(utf8(com::textIn(call_.call(object_.get(), {com::borrowed(index)}).get())));
    }
    return names;
}

std::vector<int> TerminalControl::reported() {
    std::vector<int> numbers;
    const int count = number(reportedCount_);
    for (std::int16_t index = 0; index < count; ++index) numbers.push_back(number(reported_, {com::borrowed(index)}));
    return numbers;
}

}  // namespace vantro::test
