#include "cli/io/progress.h"

#include <algorithm>
#include <cmath>

namespace vantro {

namespace {

constexpr std::size_t barWidth = 30;
constexpr auto firstShown = std::chrono::seconds(1);
constexpr auto everySoOften = std::chrono::milliseconds(100);

std::string barAndPercentage(double part) {
    const auto filled = static_cast<std::size_t>(part * static_cast<double>(barWidth));
    const std::string percentage = std::to_string(static_cast<int>(part * 100));
    return "[" + std::string(filled, '#') + std::string(barWidth - filled, '-') + "] " +
           std::string(3 - std::min<std::size_t>(3, percentage.size()), ' ') + percentage + " %  ";
}

/// "40 s", "3 min", "2 h 5 min".
std::string durationOf(double seconds) {
    constexpr long long minute = 60;
    constexpr long long hour = 60 * minute;
    const long long whole = std::llround(seconds);
    if (whole < 2 * minute) return std::to_string(whole) + " s";
    const long long minutes = (whole + minute / 2) / minute;
    if (whole < hour) return std::to_string(minutes) + " min";
    return std::to_string(minutes / minute) + " h " + std::to_string(minutes % minute) + " min";
}

std::string timeLeft(const ProgressState& state) {
    if (state.bytesDone == 0 || state.bytesDone >= state.bytesInAll || state.seconds <= 0) return {};
    const auto left = static_cast<double>(state.bytesInAll - state.bytesDone);
    return "  " + durationOf(state.seconds * left / static_cast<double>(state.bytesDone)) + " left";
}

}  // namespace

std::string progressLine(const ProgressState& state) {
    std::string line;
    if (state.bytesInAll > 0) {
        const double part = static_cast<double>(state.bytesDone) / static_cast<double>(state.bytesInAll);
        line = barAndPercentage(std::min(part, 1.0));
    }
    line += std::to_string(state.count) + " displays";
    if (state.seconds > 0) {
        line += "  " + std::to_string(std::llround(static_cast<double>(state.count) / state.seconds)) + "/s";
    }
    return line + timeLeft(state);
}

Progress::Progress(std::uint64_t bytesInAll, Write write, Now now)
    : write_(std::move(write)), now_(std::move(now)), start_(now_()), due_(start_ + firstShown) {
    state_.bytesInAll = bytesInAll;
}

void Progress::step(std::uint64_t bytes, std::uint64_t count) {
    state_.bytesDone += bytes;
    state_.count += count;
    if (!write_) return;
    const Clock::time_point time = now_();
    if (time < due_) return;
    due_ = time + everySoOften;
    state_.seconds = std::chrono::duration<double>(time - start_).count();
    std::string line = progressLine(state_);
    const std::size_t length = line.size();
    if (length < shown_) line.append(shown_ - length, ' ');
    write_("\r" + line);
    shown_ = line.size();
}

// Overwrites with blanks, because not every terminal supports erasing.
void Progress::hide() {
    if (shown_ == 0) return;
    write_("\r" + std::string(shown_, ' ') + "\r");
    shown_ = 0;
}

}  // namespace vantro
