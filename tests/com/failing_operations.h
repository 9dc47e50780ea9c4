// Every operation of every class with the outcome of a failing call of the terminal, by the error convention:
//
//   !  the operation raises its own number and returns nothing
//   ^  the operation has no number, or none for this step: it raises the step's own error
//   =  a reader reports the error; the operation goes on and returns what it has
#pragma once

#include "tests/support/collections.h"

#include <optional>
#include <string>
#include <vector>

namespace vantro::test {

struct Operation {
    enum class Call { Command, Response, Count, Elements };

    /// The outcome of a call's failure; `calls` are all calls of the operation up to that one.
    char consequence(const std::vector<std::string>& calls) const;

    /// The description of the operation's own error.
    std::string description() const;

    std::string name;
    Text className;
    Call call;
    int number;                     ///< the operation's own, 0 for none
    std::optional<Entries> params;  ///< the collection passed, none for no collection
    Text screen;
    char reads;          ///< when a parameter, a field or a new collection fails
    std::string lines;   ///< when the first, second, ... line or marker fails; the last one is for all further ones
    char adds;           ///< when a result cannot be added
    Text property = {};  ///< of a count
};

void PrintTo(const Operation& operation, std::ostream* out);

std::vector<Operation> failingCommands();
std::vector<Operation> failingResponses();
std::vector<Operation> failingCounts();
std::vector<Operation> failingQueries();

}  // namespace vantro::test
