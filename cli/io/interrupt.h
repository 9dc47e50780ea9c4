// Interrupts (the interrupt key, a request to end, a closed terminal) that never leave half a record in the output.
#pragma once

namespace vantro {

/// From now on an interrupt ends the process at once unless records are being written. Signals that the process ignores
/// stay ignored.
void tameInterrupts();

/// While an instance exists, an interrupt waits; its destructor then ends the process.
class WritingRecords {
public:
    WritingRecords();
    ~WritingRecords();
    WritingRecords(const WritingRecords&) = delete;
    WritingRecords& operator=(const WritingRecords&) = delete;

    /// True when an interrupt waits, so that no further record may be begun.
    static bool interruptWaits();
};

}  // namespace vantro
