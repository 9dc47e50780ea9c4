// The calls that failures are tried on: every operation of every class, over inputs that take different ways through
// it. They come from the samples.
#pragma once

#include "tests/support/collections.h"
#include "vantro/registry.h"
#include "vantro/text.h"

#include <optional>
#include <string>
#include <vector>

namespace vantro::test {

enum class Operation { CreateCommand, VerifyResponse, ProfileElements, Count };

struct Input {
    std::string name;
    Text className;
    Operation operation;
    std::string of;                     ///< the prefix of a query, the name of a count property
    std::optional<Entries> collection;  ///< parameters, state or request
    Text screen;                        ///< screen or display
    TextList selection = {};            ///< of the prefix "ALL", as is the qualifier
    Text qualifier = {};
    Text searchString = {};  ///< of the notes' count
};

/// The commands and screens of samples/exchanges, and the counts of linked profiles.
std::vector<Input> exchangeInputs();

/// Every prefix, for one display of samples/profiles; with an index those that have one.
std::vector<Input> queryInputs(const std::string& sample);

/// Every count property of the parsers, for one display.
std::vector<Input> countInputs(const std::string& sample);

/// A call's value.
struct Answer {
    Text command;
    CollectionPtr collection;
    int count = 0;
    TextList selection;
};

/// Calls the operation with this collection.
Answer call(ProfileObject& object, const Input& input, const CollectionPtr& collection);

}  // namespace vantro::test
