// What every public class is: an object with one or both interfaces, its lists and its count properties.
#pragma once

#include "vantro/export.h"
#include "vantro/interfaces.h"
#include "vantro/text.h"

#include <cstdint>

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

/// A count property of a class: its name and the call, which refills the property's lists and returns their
/// count. Raises the property's number.
struct CountProperty {
    TextView name;
    std::int16_t (*call)(ProfileObject& object, const CountRequest& request);
};

}  // namespace vantro
