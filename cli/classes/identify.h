// Which classes read a screen, by its marks.
#pragma once

#include "vantro/registry.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vantro {

/// Something on a screen from which a class is recognised.
struct Reason {
    TextView flag;        ///< the result that the mark sets; empty for none
    std::string meaning;  ///< what the mark says, a clause in UTF-8
    std::size_t line;     ///< from 0
    Text mark;            ///< the text in that line
};

/// A class that reads a screen.
struct Candidate {
    const ClassRow* row;
    bool isAnswer;  ///< the screen's first line repeats a command of the class
    std::vector<Reason> reasons;

    /// The reason that decided: the first mark, or else the command.
    const Reason& decisive() const { return reasons[isAnswer && reasons.size() > 1 ? 1 : 0]; }
};

/// The classes that read a screen, the most likely first: the class whose command the first line repeats, `CProfile`
/// for a profile's display, then the classes with the most marks on the screen. If the class of the command recognises
/// the screen, the other transactions are left out: the same mark answers several commands. Empty for an unknown
/// screen.
std::vector<Candidate> identify(TextView screen);

}  // namespace vantro
