// Warnings: what is read may not be what the user meant.
#pragma once

#include <cstddef>
#include <mutex>
#include <string_view>

namespace vantro {

/// Prints warnings on standard error and counts them. A warning never changes a result. Threads may share one object.
class Warnings {
public:
    /// With `isQuiet` they are counted and not printed.
    explicit Warnings(bool isQuiet = false) : isQuiet_(isQuiet) {}

    /// Prints one line: the tool's name, "warning: " and a sentence (see `asSentence`).
    void add(std::string_view what);

    std::size_t count() const { return count_; }

    /// The exit status of a run that ended with `status`: with `isStrict`, a success with warnings becomes `warned`.
    int statusAfter(int status, bool isStrict) const;

private:
    bool isQuiet_;
    std::mutex printing_;
    std::size_t count_ = 0;
};

}  // namespace vantro
