#include "cli/batch/key_warnings.h"

#include "cli/classes/missing_keys.h"
#include "cli/classes/unknown_keys.h"

#include <variant>

namespace vantro {

namespace {

bool mayBeAboutMissingKeys(const Error& error) {
    return error.number() == static_cast<int>(Failure::ObjectNotSet) ||
           error.number() == static_cast<int>(Failure::TypeMismatch);
}

/// What the parameters lack for a command, or "".
std::string lackOf(const ClassRow& row, const BuiltInCollection& params, const Reply& reply) {
    if (!reply.error) return std::get<Text>(reply.result).empty() ? messageOfEmptyCommand(row, params) : "";
    if (!mayBeAboutMissingKeys(*reply.error)) return "";
    const std::string reason = reasonOfFailedCommand(row, params, *reply.error);
    return reason.empty() ? "" : "error " + std::to_string(reply.error->number()) + ": " + reason;
}

}  // namespace

std::vector<std::string> keyWarnings(const Request& request, const Reply& reply) {
    const bool isCommand = request.call == Call::CreateCommand;
    if (!isCommand && request.call != Call::VerifyResponse) return {};
    static const BuiltInCollection none;
    const auto* const given = static_cast<const BuiltInCollection*>(request.params.get());
    const BuiltInCollection& params = given == nullptr ? none : *given;
    std::vector<std::string> warnings =
        unknownKeyWarnings(*request.row, isCommand ? PassedFor::Command : PassedFor::Screen, params);
    if (!isCommand) return warnings;
    if (std::string lack = lackOf(*request.row, params, reply); !lack.empty()) warnings.push_back(std::move(lack));
    return warnings;
}

}  // namespace vantro
