// An observer that compares the pieces of a value with the value.
#pragma once

#include "vantro/observer.h"

#include <cstddef>
#include <string>

namespace vantro::fuzz {

/// Checks that the pieces of every value, joined, are the value, and that the screen shows each piece in its place.
class PieceCheck final : public ReadingObserver {
public:
    /// The terminal's lines have this width. Places in the text itself are those of the host's lines of 80 characters.
    PieceCheck(TextView screen, std::size_t width) : screen_(screen), width_(width) {}

    void observe(const ReadingStep& step) override;

    /// What was wrong first; empty if nothing was.
    const std::string& message() const { return message_; }

private:
    void check(const ReadingStep& step, TextView value);
    bool isShown(const ValuePiece& piece, std::size_t width) const;

    TextView screen_;
    std::size_t width_;
    std::string message_;
};

}  // namespace vantro::fuzz
