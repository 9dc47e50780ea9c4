#include "cli/batch/key_warnings.h"

#include "cli/classes/missing_keys.h"
#include "cli/classes/unknown_keys.h"

#include <utility>
#include <variant>

namespace vantro {

namespace {

bool mayBeAboutMissingKeys(const Error& error) {
    return error.number() == static_cast<int>(Failure::ObjectNotSet) ||
           error.number() == static_cast<int>(Failure::TypeMismatch);
}

bool isGoodCommand(const Reply& reply) { return !reply.error && !std::get<Text>(reply.result).empty(); }

/// What the parameters lack for the command that is empty or failed, or "".
std::string lackOf(const ClassRow& row, const BuiltInCollection& params, const Reply& reply) {
    if (!reply.error) return messageOfEmptyCommand(row, params);
    if (!mayBeAboutMissingKeys(*reply.error)) return "";
    const std::string reason = reasonOfFailedCommand(row, params, *reply.error);
    return reason.empty() ? "" : "error " + std::to_string(reply.error->number()) + ": " + reason;
}

}  // namespace

std::vector<std::string> keyWarnings(const Request& request, const Reply& reply) {
    const bool isCommand = request.call == Call::CreateCommand;
    if (!isCommand && request.call != Call::VerifyResponse) return {};
    std::vector<std::string> warnings;
    const auto* const params = static_cast<const BuiltInCollection*>(request.params.get());
    if (params != nullptr) {
        warnings = unknownKeyWarnings(*request.row, isCommand ? PassedFor::Command : PassedFor::Screen, *params);
    }
    if (!isCommand || isGoodCommand(reply)) return warnings;
    std::string lack = lackOf(*request.row, params == nullptr ? BuiltInCollection() : *params, reply);
    if (!lack.empty()) warnings.push_back(std::move(lack));
    return warnings;
}

}  // namespace vantro
