#include "server/recorder.h"

namespace vantro::com {

namespace {

bool isEndWith(const KeptStep& step, const Error& error) {
    return step.kind == StepKind::CallEnds && step.error && step.error->number() == error.number() &&
           step.error->description() == error.description();
}

Text withReturns(TextView lines) {
    Text text;
    for (const char16_t character : lines) {
        if (character == u'\n') text += u'\r';
        text += character;
    }
    return text;
}

}  // namespace

void Recorder::record(bool on) {
    isOn_ = on;
    if (!on && running_ == 0) explanation_ = {};
}

Text Recorder::text(const ClassRow& row) const { return isOn_ ? withReturns(textOf(explanation_, &row)) : Text(); }

void Recorder::begin() {
    explanation_.clear();
    terminal_.setObserver(isOn_ ? &explanation_ : nullptr);
}

void Recorder::failed(TextView name, const Error& error) {
    if (explanation_.steps().empty()) explanation_.observe({.kind = StepKind::CallBegins, .name = name});
    if (isEndWith(explanation_.steps().back(), error)) return;
    explanation_.observe({.kind = StepKind::CallEnds, .name = name, .error = &error});
}

}  // namespace vantro::com
