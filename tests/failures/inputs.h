// The calls whose failures are tested: every operation of every class, over inputs that take different paths through
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
    Text of;                            ///< the prefix of a query, the name of a count property
    std::optional<Entries> collection;  ///< parameters, state or request
    Text screen;                        ///< screen or display
    TextList selection = {};            ///< for the prefix "ALL", like the qualifier
    Text qualifier = {};
    Text searchString = {};  ///< for the count of notes
};

/// A display of samples/profiles as the host shows it, or one without any text.
inline constexpr const char* emptyDisplay = "no_text";
Text sampleDisplay(const std::string& sample);

/// The commands and screens of samples/exchanges, and the counts of linked profiles.
std::vector<Input> exchangeInputs();

/// Every prefix, for one display of samples/profiles; those that take an index also with one.
std::vector<Input> queryInputs(const std::string& sample);

/// Every count property of the parsers, for one display.
std::vector<Input> countInputs(const std::string& sample);

/// The arguments of a call, and its result.
struct Answer {
    TextList selection;  ///< for the prefix "ALL"; changed by it
    CollectionPtr collection;
    Text command;
    int count = 0;
};

/// Only calls the operation with this collection and the selection of `answer`, and stores the result there.
void call(ProfileObject& object, const Input& input, const CollectionPtr& collection, Answer& answer);

}  // namespace vantro::test
