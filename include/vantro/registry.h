// The public classes: one row each, and the only way to create them.
#pragma once

#include "vantro/export.h"
#include "vantro/interfaces.h"
#include "vantro/terminal.h"

#include <cstdint>
#include <memory>
#include <span>

namespace vantro {

/// An instance of a public class. It serves one call at a time.
class VANTRO_EXPORT ProfileObject {
public:
    virtual ~ProfileObject() = default;

    /// The interface, or null when the class does not have it.
    virtual IProfileTrans* profileTrans() { return nullptr; }
    virtual IProfileGet* profileGet() { return nullptr; }

    /// The list of texts of this name that the last count filled ("strPPRText"); null when the class has no such
    /// list. vantro/lists.h names all lists.
    virtual const TextList* list(TextView name) const;

    /// The same for a list of booleans: "blnServiceRequestFlag" alone.
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

/// All public classes: the transactions, then the two parsers.
VANTRO_EXPORT std::span<const ClassRow> classTable();

/// The row of a class by its exact name, or null.
VANTRO_EXPORT const ClassRow* findClass(TextView name);

/// The count property by its exact name, or null.
VANTRO_EXPORT const CountProperty* findCount(const ClassRow& row, TextView name);

/// A new instance that works with this terminal library. Raises 429 when the class cannot be created.
VANTRO_EXPORT std::unique_ptr<ProfileObject> createObject(const ClassRow& row, Terminal& terminal);

/// The same by the class's exact name. Raises 429, with the name in the description, when there is no such class.
VANTRO_EXPORT std::unique_ptr<ProfileObject> createObject(TextView name, Terminal& terminal);

}  // namespace vantro
