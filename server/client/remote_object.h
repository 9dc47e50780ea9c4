// Objects of the registered server behind the library's own interfaces: whoever drives the library can drive the
// server instead.
#pragma once

#include "vantro/registry.h"

#include <memory>

namespace vantro::com {

/// Keeps the thread's apartment open.
class Apartment {
public:
    Apartment();
    ~Apartment();
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

/// A new object of the registered class with the row's name, called as a script calls it. Collections go over as
/// copies in the terminal's own collection class and come back with what the call left in them; that class must be
/// able to list its keys, as the stand-in's is. What the stand-in's reporter was told goes to `terminal`'s.
std::unique_ptr<ProfileObject> newRemoteObject(const ClassRow& row, Terminal& terminal);

/// A count property of such an object.
std::int16_t countRemotely(ProfileObject& object, TextView property, const CountRequest& request);

}  // namespace vantro::com
