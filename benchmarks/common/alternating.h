// Times contenders in turn. The machine has phases in which everything takes half as long again, so each round runs
// one short pass of every contender, and the best pass of each counts.
#pragma once

#include <functional>
#include <span>
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
    /// Accepts `--record=FILE`, to which the times are appended as tab-separated lines, and `--rounds=N`.
    Alternating(std::string_view task, int argc, char** argv);

    /// A contender; `items` is the number of displays, screens or calls in a pass. Times are shown per item. Work in
    /// `prepare` is done before each pass and is not timed.
    void add(std::string name, std::size_t items, std::function<void()> pass, std::function<void()> prepare = {});

    /// Runs and forgets the contenders added so far, prints and records their times. The group says what they read.
    void run(std::string_view group = {});

    /// Records a figure that is not a time, and prints it.
    void figure(std::string_view name, double value);

private:
    struct Contender {
        std::string name;
        std::size_t items;
        std::function<void()> pass;
        std::function<void()> prepare;
        std::vector<double> times;
        int interval = 1;  ///< slow contenders run only in some of the rounds
    };

    void time(Contender& contender);
    void write(const std::string& line) const;

    std::string task_;
    std::string recordFile_;
    int rounds_ = 60;
    std::vector<Contender> contenders_;
};

}  // namespace vantro::bench
