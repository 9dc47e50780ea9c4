#include "cli/batch/backend.h"

namespace vantro {

std::unique_ptr<ProfileObject> LinkedBackend::create(const ClassRow& row, Terminal& terminal) {
    return createObject(row, terminal);
}

std::int16_t LinkedBackend::count(ProfileObject& object, const CountProperty& property, const CountRequest& request) {
    return property.call(object, request);
}

}  // namespace vantro
