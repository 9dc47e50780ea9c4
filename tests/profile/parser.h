// The parser classes as a terminal uses them, with answers that can be printed.
#pragma once

#include "tests/profile/displays.h"
#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace vantro {

using Texts = std::vector<std::string>;

/// An error as ASCII texts; number 0 when nothing was raised.
struct Raised {
    int number = 0;
    std::string source = {};
    std::string description = {};

    friend bool operator==(const Raised&, const Raised&) = default;
};
std::ostream& operator<<(std::ostream& out, const Raised& raised);

Raised raisedBy(const std::function<void()>& steps);

/// A numbered error of the profile parser, and the error of a failing step.
Raised verifying(int number);

/// Only the number, 0 for none.
inline int numberRaisedBy(const std::function<void()>& steps) { return raisedBy(steps).number; }

/// A value as a test writes it: 'text', ['', 'list'], True, 7.
std::string written(const ItemValue& value);

using Entries = std::vector<std::pair<std::string, std::string>>;

/// The outcome of a query: the entries added to the request in order, with values written as above; whether the
/// request's own collection was returned; the error.
struct Answer {
    Entries added = {};
    bool returnedCollection = false;
    Raised raised = {};

    friend bool operator==(const Answer&, const Answer&) = default;
};
std::ostream& operator<<(std::ostream& out, const Answer& answer);

/// A query: the entries of the request in order, and the two arguments of the transferable scanner.
struct Request {
    std::vector<std::pair<std::string, ItemValue>> given;
    TextList* selection = nullptr;
    Text qualifier = {};
};

/// A request for a prefix, with an index or without.
Request wanting(const std::string& prefix);
Request wanting(const std::string& prefix, ItemValue index);

/// An object of a parser class.
class Parser {
public:
    explicit Parser(TextView className = u"CProfile") : Parser(className, std::make_unique<BuiltInTerminal>()) {}
    Parser(TextView className, std::unique_ptr<Terminal> terminal);

    /// The result of a count property; errors pass through.
    int count(const std::string& property, const CountRequest& request);
    int count(const std::string& property, TextView display) { return count(property, CountRequest{display}); }

    /// A list by its name; aborts the test program for a name that the class does not have.
    Texts list(const std::string& name) const;

    Answer query(TextView display, const Request& request);
    Answer query(TextView display, const std::string& prefix) { return query(display, wanting(prefix)); }

    ProfileObject& object() { return *object_; }

private:
    const ClassRow& row_;
    std::unique_ptr<Terminal> terminal_;
    std::unique_ptr<ProfileObject> object_;
};

/// The result of a count property on a new object: the count and its lists "str...Text" and "str...Number".
struct Elements {
    int count;
    Texts texts;
    Texts numbers;

    friend bool operator==(const Elements&, const Elements&) = default;
};
std::ostream& operator<<(std::ostream& out, const Elements& elements);

/// The elements of a family by the stem of its names ("PPR", "Remark").
Elements collected(const std::string& stem, TextView display);

}  // namespace vantro
