// Helpers of the framework tests.
#pragma once

#include "vantro/error.h"

#include <optional>
#include <utility>

namespace vantro {

/// The error that the steps raise, or nothing.
template <class Steps>
std::optional<Error> raised(Steps&& steps) {
    try {
        std::forward<Steps>(steps)();
    } catch (const Error& error) {
        return error;
    }
    return std::nullopt;
}

/// The number of the error that the steps raise, or 0 for none.
template <class Steps>
int raisedNumber(Steps&& steps) {
    const auto error = raised(std::forward<Steps>(steps));
    return error ? error->number() : 0;
}

}  // namespace vantro
