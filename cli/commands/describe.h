// What the rows of the classes and the queries say, for people and for programs.
#pragma once

#include "vantro/families.h"
#include "vantro/registry.h"

#include <span>
#include <stdexcept>
#include <string>

namespace vantro {

/// There is no class of a name. The text says so, and names the one that may be meant.
class UnknownClass : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct DescribeOptions {
    std::string name;  ///< of a class, or the prefix of a query; empty for all classes
    bool json = false;
};

/// Writes what was asked for to standard output and returns the exit status. Raises UnknownClass.
int runDescribe(const DescribeOptions& options);

/// Every class with what it is for: lines of at most 80 characters, or one line of JSON.
std::string describedClasses(bool json);

/// One class with its parameters, commands, results, screens and errors. Raises UnknownClass.
std::string describedClass(const std::string& name, bool json);

/// The query with this prefix ("PHI"), or null. The notes' query is that of CProfileNotes.
const QueryFacts* findQuery(const std::string& prefix);

/// The queries that a class answers.
std::span<const QueryFacts> queriesOf(const ClassRow& row);

/// One query: what it returns, and of a family how its elements are found in a display.
std::string queryAsText(const QueryFacts& query);
std::string queryAsJson(const QueryFacts& query);

/// The parts of these: all classes and one class as text, one class as JSON.
std::string classesAsText();
std::string classAsText(const ClassRow& row);
std::string classAsJson(const ClassRow& row);

/// The name of a kind of value: "text", "boolean", ...
std::string nameOf(ValueKind kind);

/// The name of a call: "CreateCommand", ...
std::string nameOf(ClassCall call);

/// A parameter of an example as a command line has it: KEY=VALUE.
std::string asArgument(const ExampleParameter& parameter);

}  // namespace vantro
