#include "server/standin/state.h"

namespace vantro::com::standin {

State& State::only() {
    static State state;
    return state;
}

void State::enterCall() {
    const std::lock_guard lock(mutex_);
    if (++calls_ != failingCall_) return;
    throw Error(failingNumber_, u"VantroKestoFaces", u"The terminal failed, as it was asked to.");
}

void State::failAt(long call, int number) {
    const std::lock_guard lock(mutex_);
    calls_ = 0;
    lineFetches_ = 0;
    failingCall_ = call;
    failingNumber_ = number;
    reported_.clear();
}

void State::addReport(ReportedError error) {
    const std::lock_guard lock(mutex_);
    reported_.push_back(std::move(error));
}

void State::addLineFetch() {
    const std::lock_guard lock(mutex_);
    ++lineFetches_;
}

long State::calls() const {
    const std::lock_guard lock(mutex_);
    return calls_;
}

long State::lineFetches() const {
    const std::lock_guard lock(mutex_);
    return lineFetches_;
}

std::vector<ReportedError> State::reported() const {
    const std::lock_guard lock(mutex_);
    return reported_;
}

}  // namespace vantro::com::standin
