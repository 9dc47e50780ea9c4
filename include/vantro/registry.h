// The public classes: one row each, and the only way to create them.
#pragma once

#include "vantro/interfaces.h"
#include "vantro/terminal.h"

#include <cstdint>
#include <memory>
#include <span>

namespace vantro {

/// An instance of a public class. It serves one call at a time.
class ProfileObject {
public:
    virtual ~ProfileObject() = default;

    /// The interface, or null when the class does not have it.
    virtual IProfileTrans* profileTrans() { return nullptr; }
    virtual IProfileGet* profileGet() { return nullptr; }

    /// The list of this name that the last count filled ("strPPRText"); null when the class has no such list.
    virtual const TextList* list(TextView name) const;

    /// The list of booleans of this name ("blnServiceRequestFlag"); null when the class has no such list.
    virtual const FlagList* flagList(TextView name) const;

protected:
    ProfileObject() = default;
    ProfileObject(const ProfileObject&) = default;
    ProfileObject& operator=(const ProfileObject&) = default;
};

/// What a count property is asked with: the screen or display, and for the notes the two filters.
struct CountRequest {
    TextView text;
    TextView searchString = {};
    TextView searchQualifier = {};
};

/// A count property of a class: its name and the call, which refills the property's lists and gives their
/// count. Raises the property's number.
struct CountProperty {
    TextView name;
    std::int16_t (*call)(ProfileObject& object, const CountRequest& request);
};

/// One public class.
struct ClassRow {
    TextView name;
    bool hasProfileTrans;
    bool hasProfileGet;
    std::span<const TextView> transactions;  ///< host transaction codes, none for a parser
    std::span<const CountProperty> counts;
    TransErrors errors;
    std::unique_ptr<ProfileObject> (*creator)(Terminal& terminal, const TransErrors& errors);
};

/// All public classes, in the order of their names; the two parsers stand last.
std::span<const ClassRow> classTable();

/// The row of a class by its exact name, or null.
const ClassRow* findClass(TextView name);

/// The count property by its exact name, or null.
const CountProperty* findCount(const ClassRow& row, TextView name);

/// A new instance that works with this terminal library. Raises 429 when the class cannot be created.
std::unique_ptr<ProfileObject> createObject(const ClassRow& row, Terminal& terminal);

}  // namespace vantro
