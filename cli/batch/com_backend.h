// A batch against the registered COM server; in the tool for Windows only.
#pragma once

#include "cli/batch/backend.h"
#include "server/client/remote_object.h"

namespace vantro {

class ComBackend final : public Backend {
public:
    std::unique_ptr<ProfileObject> create(const ClassRow& row, Terminal& terminal) override {
        return com::newRemoteObject(row, terminal);
    }
    std::int16_t count(ProfileObject& object, const CountProperty& property, const CountRequest& request) override {
        return com::countRemotely(object, property.name, request);
    }

private:
    com::Apartment apartment_;
};

}  // namespace vantro
