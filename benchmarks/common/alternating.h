// Times contenders in turn: each round runs one pass of every contender over all inputs, in an order of its own. What a
// contender leaves in the caches makes the next one faster or slower. The machine has phases in which everything takes
// half as long again, so a pass is timed in short slices, and the best time of each slice counts. What is shown is the
// sum over the slices, per input. Between two passes over it, a slice has left the inner caches.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vantro::bench {

/// Keeps the compiler from leaving out a computation whose result nobody uses.
template <class Value>
void keep(const Value& value) {
    asm volatile("" : : "r"(&value) : "memory");
}

class Alternating {
public:
    /// Work on the inputs from one index up to another.
    using Pass = std::function<void(std::size_t begin, std::size_t end)>;

    /// Accepts `--record=FILE`, to which the times are appended as tab-separated lines, and `--rounds=N`.
    Alternating(std::string_view task, int argc, char** argv);

    /// A contender. What `prepare` does before a pass over all inputs is not timed.
    void add(std::string name, Pass pass, std::function<void()> prepare = {});

    /// Runs and forgets the contenders added so far, prints and records their times per input. The group says what the
    /// inputs are.
    void run(std::string_view group, std::size_t inputs);

    /// Prints and records a figure that is not a time.
    void figure(std::string_view name, double value);

private:
    struct Contender {
        std::string name;
        Pass pass;
        std::function<void()> prepare;
        std::vector<std::vector<double>> times;  ///< of each slice
        int interval = 1;                        ///< a slow contender runs in every so many rounds
    };

    static void runOnce(Contender& contender, std::size_t inputs);
    void report(Contender& contender, std::string_view group, double inputs) const;
    void write(const std::string& line) const;

    std::string task_;
    std::string recordFile_;
    int rounds_ = 30;
    std::vector<Contender> contenders_;
};

}  // namespace vantro::bench
