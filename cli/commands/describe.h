// What the rows of the classes say, for people and for programs.
#pragma once

#include "vantro/registry.h"

#include <stdexcept>
#include <string>

namespace vantro {

/// There is no class of a name. The text says so, and names the one that may be meant.
class UnknownClass : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct DescribeOptions {
    std::string className;  ///< empty for all classes
    bool json = false;
};

/// Writes what was asked for to standard output and returns the exit status. Raises UnknownClass.
int runDescribe(const DescribeOptions& options);

/// Every class with what it is for: lines of at most 80 characters, or one line of JSON.
std::string describedClasses(bool json);

/// One class with its parameters, commands, results, screens and errors. Raises UnknownClass.
std::string describedClass(const std::string& name, bool json);

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
