// The progress of a long run, shown on a terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace vantro {

/// What a progress line shows.
struct ProgressState {
    std::uint64_t bytesDone = 0;
    std::uint64_t bytesInAll = 0;  ///< 0: unknown, so neither bar nor percentage is shown
    std::uint64_t count = 0;
    double seconds = 0;
};

/// "[#####-----]  50 %  1234 displays  617/s  12 s left"
std::string progressLine(const ProgressState& state);

/// Shows the line once a run has taken a second, updates it several times per second and erases it at the end. Other
/// output on the same terminal must be written after `hide` and before the next step.
class Progress {
public:
    using Clock = std::chrono::steady_clock;
    using Write = std::function<void(std::string_view)>;
    using Now = std::function<Clock::time_point()>;

    /// An empty `write` shows nothing.
    Progress(std::uint64_t bytesInAll, Write write, Now now = Clock::now);
    ~Progress() { hide(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void step(std::uint64_t bytes, std::uint64_t count);
    void hide();

private:
    Write write_;
    Now now_;
    ProgressState state_;
    Clock::time_point start_;
    Clock::time_point due_;
    std::size_t shown_ = 0;  // characters on the terminal
};

}  // namespace vantro
