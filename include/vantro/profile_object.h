// The base of every public class: an object with one or both interfaces, lists and count properties.
#pragma once

#include "vantro/export.h"
#include "vantro/interfaces.h"
#include "vantro/text.h"

#include <cstdint>

namespace vantro {

/// An instance of a public class. It must not be used by two calls at the same time.
class VANTRO_EXPORT ProfileObject {
public:
    virtual ~ProfileObject() = default;

    /// The interface, or null when the class does not implement it.
    virtual IProfileTrans* profileTrans() { return nullptr; }
    virtual IProfileGet* profileGet() { return nullptr; }

    /// The list of texts with this name, such as "strPPRText", as the last count filled it, until the next call of the
    /// object; null when the class has no such list. vantro/lists.h names all lists.
    virtual const TextList* list(TextView name) const;

    /// The same for lists of booleans; the only one is "blnServiceRequestFlag".
    virtual const FlagList* flagList(TextView name) const;

protected:
    ProfileObject() = default;
    ProfileObject(const ProfileObject&) = default;
    ProfileObject& operator=(const ProfileObject&) = default;
};

/// The arguments of a count property: the screen or display, and the two filters of the notes.
struct CountRequest {
    TextView text;
    TextView searchString = {};
    TextView searchQualifier = {};
};

/// A count property of a class: its name and a call that refills the property's lists and returns the number of
/// elements. The call raises the property's number.
struct CountProperty {
    TextView name;
    std::int16_t (*call)(ProfileObject& object, const CountRequest& request);
};

}  // namespace vantro
