// The library and the oracle side by side: the same calls on one object of each, which are kept from call to call, and
// a message where the results differ.
#pragma once

#include "tests/oracle/notes_oracle.h"
#include "tests/oracle/profile_oracle.h"
#include "tests/profile/parser.h"

#include <memory>
#include <string>
#include <vector>

namespace vantro {

/// A count property, resolved on both objects.
struct MatchedProperty {
    std::string name;
    const CountProperty* property = nullptr;
    std::vector<const TextList*> lists = {};     // of the library's object
    std::vector<const TextList*> expected = {};  // of the oracle's object, in the same order
    std::vector<std::string> listNames = {};
};

class OracleMatch {
public:
    explicit OracleMatch(std::unique_ptr<Terminal> terminal = std::make_unique<BuiltInTerminal>());

    /// All count properties, and the property of a family by its stem ("PPR", "Remark").
    const std::vector<MatchedProperty>& properties() const { return properties_; }
    const MatchedProperty& propertyOf(const std::string& stem) const;

    /// Calls the property on both; empty when count, error and lists agree.
    std::string count(const MatchedProperty& property, const Text& display);

    /// Queries both; empty when the entries, the error, the result and the selection afterwards agree.
    std::string query(const Text& display, const Request& request);

private:
    Parser parser_;
    oracle::ProfileOracle oracle_;
    std::vector<MatchedProperty> properties_;
};

/// What the oracle's collection contains beyond the request, and its error.
Answer answerOf(const Request& request, const std::function<bool(oracle::Collection&)>& ask);

/// The answer without what the oracle does not return: an error's source and description.
Answer bare(Answer answer);

/// A message for two answers that differ.
std::string differenceMessage(const Text& display, const std::string& what, const Answer& answer,
                              const Answer& expected);

}  // namespace vantro
