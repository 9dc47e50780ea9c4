#include "tests/com/foreign/watch.h"

#include <utility>

namespace foreign {

Watch& Watch::only() {
    static Watch watch;
    return watch;
}

Fault Watch::enter(std::wstring call) {
    const std::lock_guard lock(mutex_);
    calls_.push_back(std::move(call));
    return static_cast<LONG>(calls_.size()) == failingCall_ ? fault_ : Fault::None;
}

void Watch::failAt(LONG call, Fault fault, LONG number) {
    const std::lock_guard lock(mutex_);
    failingCall_ = call;
    fault_ = fault;
    reportFault_ = Fault::None;
    helperFault_ = Fault::None;
    number_ = number;
    calls_.clear();
    reports_.clear();
}

void Watch::failReports(Fault fault) {
    const std::lock_guard lock(mutex_);
    reportFault_ = fault;
}

void Watch::failHelpers(Fault fault) {
    const std::lock_guard lock(mutex_);
    helperFault_ = fault;
}

void Watch::addReport(Report report) {
    const std::lock_guard lock(mutex_);
    reports_.push_back(std::move(report));
}

void Watch::addLive(LONG change) {
    const std::lock_guard lock(mutex_);
    live_ += change;
}

Fault Watch::reportFault() const {
    const std::lock_guard lock(mutex_);
    return reportFault_;
}

Fault Watch::helperFault() const {
    const std::lock_guard lock(mutex_);
    return helperFault_;
}

LONG Watch::failingNumber() const {
    const std::lock_guard lock(mutex_);
    return number_;
}

LONG Watch::live() const {
    const std::lock_guard lock(mutex_);
    return live_;
}

std::vector<std::wstring> Watch::calls() const {
    const std::lock_guard lock(mutex_);
    return calls_;
}

std::vector<Report> Watch::reports() const {
    const std::lock_guard lock(mutex_);
    return reports_;
}

}  // namespace foreign
