// The library and the slow second opinion side by side: the same calls on an object of each, which live on from call
// to call, and a message where they part.
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
    std::vector<const TextList*> expected = {};  // of the oracle's, in the same order
    std::vector<std::string> listNames = {};
};

class OracleMatch {
public:
    explicit OracleMatch(std::unique_ptr<Terminal> terminal = std::make_unique<BuiltInTerminal>());

    /// All count properties, and the one of a family by its stem ("PPR", "Remark").
    const std::vector<MatchedProperty>& properties() const { return properties_; }
    const MatchedProperty& propertyOf(const std::string& stem) const;

    /// Calls the property on both; empty when count, error and lists agree.
    std::string count(const MatchedProperty& property, const Text& display);

    /// Asks both; empty when the entries, the error and the result agree, and the selection in the end.
    std::string query(const Text& display, const Request& request);

private:
    Parser parser_;
    oracle::ProfileOracle oracle_;
    std::vector<MatchedProperty> properties_;
};

/// What the oracle's collection holds beyond the request, and its error.
Answer answerOf(const Request& request, const std::function<bool(oracle::Collection&)>& ask);

/// The answer without what the oracle does not tell: an error's source and description.
Answer bare(Answer answer);

/// A message for two answers that differ.
std::string parting(const Text& display, const std::string& what, const Answer& answer, const Answer& expected);

}  // namespace vantro
