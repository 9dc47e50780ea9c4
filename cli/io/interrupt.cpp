#include "cli/io/interrupt.h"

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <mutex>

namespace vantro {

namespace {

std::mutex writing;

// Runs on a thread of its own. It keeps the lock, so that no further records are begun; what follows it ends the
// process.
BOOL WINAPI waitForRecords(DWORD /*event*/) {
    writing.lock();
    return FALSE;
}

}  // namespace

void tameInterrupts() { SetConsoleCtrlHandler(waitForRecords, TRUE); }

WritingRecords::WritingRecords() { writing.lock(); }
WritingRecords::~WritingRecords() { writing.unlock(); }
bool WritingRecords::interruptWaits() { return false; }

}  // namespace vantro

#else

#include <unistd.h>

#include <atomic>
#include <csignal>

namespace vantro {

namespace {

enum Phase : int { Idle, Writing, Ending };

// A signal handler may use these because they take no lock.
std::atomic<int> phase{Idle};
std::atomic<int> waitingSignal{0};
static_assert(std::atomic<int>::is_always_lock_free);

// Ends the process as if the signal had never been handled, so that whoever started it sees the signal.
void endBy(int signal) {
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    ::sigaction(signal, &standard, nullptr);
    ::raise(signal);
}

[[noreturn]] void waitForEnd() {
    while (true) ::pause();
}

// The signal may come to any thread. Only one of writer and handler gets hold of the idle phase.
void handle(int signal) {
    waitingSignal = signal;
    int expected = Idle;
    if (phase.compare_exchange_strong(expected, Ending)) endBy(signal);
}

}  // namespace

void tameInterrupts() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before {};
        if (::sigaction(signal, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) continue;
        // Without SA_RESTART, so that a write that waits for its reader comes back.
        struct sigaction action {};
        action.sa_handler = handle;
        ::sigaction(signal, &action, nullptr);
    }
}

WritingRecords::WritingRecords() {
    int expected = Idle;
    if (!phase.compare_exchange_strong(expected, Writing)) waitForEnd();
}

WritingRecords::~WritingRecords() {
    phase = Idle;
    // A signal from here on is the handler's; one from before waits.
    int expected = Idle;
    if (interruptWaits() && phase.compare_exchange_strong(expected, Ending)) {
        endBy(waitingSignal);
        waitForEnd();
    }
}

bool WritingRecords::interruptWaits() { return waitingSignal != 0; }

}  // namespace vantro

#endif
