// Answers a batch with the registered server, as the tool's own batch does with the linked library.
// scripts/com-clients.sh compares the two.
#include "cli/batch/run.h"
#include "cli/io/failure.h"
#include "cli/io/standard_io.h"
#include "tests/com/remote_object.h"

#include <exception>

namespace {

using namespace vantro;

class ServerBackend final : public Backend {
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

}  // namespace

int main() {
    useBinaryStreams();
    try {
        ServerBackend server;
        return answerRequests(server);
    } catch (const std::exception& problem) {
        complain(problem.what());
        return callFailed;
    }
}
