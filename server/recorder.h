// The recording of an object's calls, from which the last one is explained.
#pragma once

#include "vantro/explanation.h"

namespace vantro::com {

/// Records the last call of an object while the recording is on. It is off at first, and costs a call nothing then.
class Recorder {
public:
    explicit Recorder(Terminal& terminal) : terminal_(terminal) {}

    /// The terminal that the object must be created with.
    Terminal& terminal() { return terminal_; }

    /// Switches the recording on or off. Off drops the explanation. During a call it applies to the next one.
    void record(bool on);

    /// The explanation of the call that was recorded last, in lines with "\r\n"; empty if there is none.
    Text text(const ClassRow& row) const;

    /// A call, as long as it runs. The terminal may lead from one call to another of the same object: the inner one is
    /// a part of the outer one's explanation.
    class Call {
    public:
        explicit Call(Recorder& recorder) : recorder_(recorder) {
            if (recorder.running_ == 0 && (recorder.isOn_ || recorder.isObserving())) recorder.begin();
            ++recorder.running_;
        }
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;
        ~Call() { --recorder_.running_; }

        bool isRecorded() const { return recorder_.isObserving(); }

    private:
        Recorder& recorder_;
    };

    /// A call of this name failed. Adds the error if no reader raised it: it is one of an argument.
    void failed(TextView name, const Error& error);

private:
    bool isObserving() { return terminal_.observation() != nullptr; }
    void begin();

    ObservedTerminal terminal_;
    Explanation explanation_;
    bool isOn_ = false;
    int running_ = 0;
};

}  // namespace vantro::com
