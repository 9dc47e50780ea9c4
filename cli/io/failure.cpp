#include "cli/io/failure.h"

#include "cli/io/utf.h"

namespace vantro {

std::string describe(const Error& error) {
    return "error " + std::to_string(error.number()) + " from " + toUtf8(error.source()) + ": " +
           toUtf8(error.description());
}

std::string asSentence(std::string_view message) {
    return message.ends_with('?') ? std::string(message) : asClause(message) + ".";
}

std::string asClause(std::string_view message) {
    const std::size_t last = message.find_last_not_of(". ");
    return std::string(message.substr(0, last + 1));
}

}  // namespace vantro
