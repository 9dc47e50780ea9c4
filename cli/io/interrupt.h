// Interrupts that leave no half record behind: the interrupt key, a request to end, a terminal that goes away.
#pragma once

namespace vantro {

/// From here on an interrupt ends the process at once, unless records are being written. What is ignored stays
/// ignored.
void tameInterrupts();

/// While one is there an interrupt waits; the process ends by it when this goes.
class WritingRecords {
public:
    WritingRecords();
    ~WritingRecords();
    WritingRecords(const WritingRecords&) = delete;
    WritingRecords& operator=(const WritingRecords&) = delete;

    /// True when no further record is to be begun.
    static bool interruptWaits();
};

}  // namespace vantro
