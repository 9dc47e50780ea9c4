#include "cli/failure.h"

#include "cli/utf.h"

namespace vantro {

std::string describe(const Error& error) {
    return "error " + std::to_string(error.number()) + " from " + toUtf8(error.source()) + ": " +
           toUtf8(error.description());
}

}  // namespace vantro
