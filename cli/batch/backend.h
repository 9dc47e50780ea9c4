// Where the objects come from that a batch calls.
#pragma once

#include "vantro/registry.h"

#include <memory>

namespace vantro {

/// Creates and counts: the two steps that differ between the linked library and a registered server. Everything
/// else goes through the object's interfaces.
class Backend {
public:
    virtual ~Backend() = default;

    /// A new instance. Raises 429 for a class that cannot be created.
    virtual std::unique_ptr<ProfileObject> create(const ClassRow& row, Terminal& terminal) = 0;
    virtual std::int16_t count(ProfileObject& object, const CountProperty& property, const CountRequest& request) = 0;

protected:
    Backend() = default;
    Backend(const Backend&) = default;
    Backend& operator=(const Backend&) = default;
};

/// The library that the tool is linked with.
class LinkedBackend final : public Backend {
public:
    std::unique_ptr<ProfileObject> create(const ClassRow& row, Terminal& terminal) override;
    std::int16_t count(ProfileObject& object, const CountProperty& property, const CountRequest& request) override;
};

}  // namespace vantro
