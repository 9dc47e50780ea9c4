// How far a long run has come, on a terminal.
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
    std::uint64_t bytesInAll = 0;  ///< 0: not known, so neither bar nor percentage
    std::uint64_t count = 0;
    double seconds = 0;
};

/// "[#####-----]  50 %  1234 displays  617/s"
std::string progressLine(const ProgressState& state);

/// Shows the line when a run takes longer than a second, brings it up to date some times a second and leaves
/// nothing behind. Output that shares the terminal goes between `hide` and the next step.
class Progress {
public:
    using Clock = std::chrono::steady_clock;
    using Write = std::function<void(std::string_view)>;
    using Now = std::function<Clock::time_point()>;

    /// Without `write` nothing is ever shown.
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
