// How much time the exhaustive tests may take.
#pragma once

#include <cstddef>
#include <cstdlib>

namespace vantro {

/// One near miss of this many is visited; all of them with a VANTRO_TEST_EFFORT of 1000 or in an optimised build.
inline std::size_t share() {
#ifdef NDEBUG
    return 1;
#else
    const char* const percent = std::getenv("VANTRO_TEST_EFFORT");
    const long factor = percent != nullptr ? std::atol(percent) : 100;
    if (factor >= 1000) return 1;
    return factor > 100 ? 3 : 10;
#endif
}

/// The number for an optimised build, a fraction of it for other builds, which also run under sanitizers. The
/// environment variable VANTRO_TEST_EFFORT multiplies it, in percent: 1000 means ten times as many.
inline std::size_t effort(std::size_t optimised) {
#ifdef NDEBUG
    constexpr std::size_t share = 1;
#else
    constexpr std::size_t share = 8;
#endif
    const char* const percent = std::getenv("VANTRO_TEST_EFFORT");
    const long factor = percent != nullptr ? std::atol(percent) : 100;
    return optimised * static_cast<std::size_t>(factor > 0 ? factor : 100) / 100 / share + 1;
}

}  // namespace vantro
