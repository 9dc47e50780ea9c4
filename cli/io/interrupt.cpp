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

// The system calls it on a new thread. It never releases the lock, so that no further record is begun; the next handler
// ends the process.
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

// Lock-free, so that a signal handler may use them.
std::atomic<int> phase{Idle};
std::atomic<int> waitingSignal{0};
static_assert(std::atomic<int>::is_always_lock_free);

// Ends the process by the signal's default action, so that the parent process sees the signal.
void endBy(int signal) {
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    ::sigaction(signal, &standard, nullptr);
    ::raise(signal);
}

[[noreturn]] void waitForEnd() {
    while (true) ::pause();
}

// The signal may arrive on any thread. Only one of writer and handler can leave the idle phase.
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
        // Without SA_RESTART, so that a write that waits for its reader is interrupted.
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
    // A signal that arrives from here on ends the process in the handler; an earlier one is still waiting.
    int expected = Idle;
    if (interruptWaits() && phase.compare_exchange_strong(expected, Ending)) {
        endBy(waitingSignal);
        waitForEnd();
    }
}

bool WritingRecords::interruptWaits() { return waitingSignal != 0; }

}  // namespace vantro

#endif
