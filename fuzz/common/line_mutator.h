// Mutates inputs line by line, as a person would edit a screen.
#pragma once

#include "fuzz/targets.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace vantro::fuzz {

class LineMutator {
public:
    LineMutator(std::uint32_t seed, std::span<const std::string_view> marks) : random_(seed), marks_(marks) {}

    /// The input with a few changes.
    std::string mutated(Bytes input);

    /// The head of one input with lines of both.
    std::string crossed(Bytes input, Bytes other);

private:
    using Lines = std::vector<std::string>;

    std::size_t below(std::size_t bound) { return random_() % bound; }
    bool oneIn(std::size_t chances) { return below(chances) == 0; }

    std::string newLine();
    std::string mark();
    char character();
    void change(Lines& lines);
    void changeHead(std::string& head);
    void changeOrder(Lines& lines, std::size_t position);
    void changeLine(std::string& line);
    void changeCharacter(std::string& line);
    void shiftColumns(std::string& line);
    void setMark(std::string& line);

    std::minstd_rand random_;
    std::span<const std::string_view> marks_;
};

}  // namespace vantro::fuzz
