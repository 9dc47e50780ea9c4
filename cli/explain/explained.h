// A call or query that was observed, and how it ended.
#pragma once

#include "cli/json/output.h"
#include "vantro/collection.h"
#include "vantro/error.h"
#include "vantro/explanation.h"
#include "vantro/profile.h"
#include "vantro/registry.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vantro {

/// What was called, on which screen, with which outcome. All texts are UTF-8.
struct Explained {
    const Explanation& explanation;
    const ClassRow* row = nullptr;               ///< of the class; null for a whole profile
    std::string_view call;                       ///< "VerifyResponse", "ProfileElements", "parseProfile"
    std::string title;                           ///< "CPDNTrans, VerifyResponse: screen.txt"
    std::string file;                            ///< "-" for standard input
    std::size_t display = 0;                     ///< its number in the file, from 1; 0 for a screen
    std::size_t line = 1;                        ///< its first line in the file, from 1
    std::optional<Error> error;                  ///< that the call raised
    std::string outcome;                         ///< a sentence about the results, or why there are none
    std::function<void(JsonOut&)> writeResults;  ///< as JSON; not called after an error
};

/// The queries of a display by how they ended, a sentence per line: which were answered, which found nothing, which
/// have no section in the display, and which failed. The profile is that of the display.
std::string outcomesOfQueries(const Explanation& explanation, const Profile& profile);

}  // namespace vantro
