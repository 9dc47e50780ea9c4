// Objects of the registered server under the library's own interfaces, so that a test can call either.
#pragma once

#include "vantro/registry.h"

#include <memory>

namespace vantro::com {

/// An open apartment of the calling thread.
class Apartment {
public:
    Apartment();
    ~Apartment();
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

/// A new object of the registered class with the row's name, called by name as a script calls it. Collections are
/// copied into the terminal's own collection class before a call and back after it; that class must be able to list its
/// keys, as the stand-in's is. What is reported to the stand-in's reporter is passed on to `terminal`'s.
std::unique_ptr<ProfileObject> newRemoteObject(const ClassRow& row, Terminal& terminal);

/// The explanation of such an object's last call, before its recording is switched.
enum class Recording { Off, On };
Text explained(ProfileObject& object);
Text explained(ProfileObject& object, Recording recording);

/// A count property of such an object.
std::int16_t countRemotely(ProfileObject& object, TextView property, const CountRequest& request);

}  // namespace vantro::com
