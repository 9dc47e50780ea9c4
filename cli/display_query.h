// Single queries of a profile display, as a terminal makes them.
#pragma once

#include "vantro/built_in_terminal.h"

#include <memory>
#include <string>

namespace vantro {

/// What a query is made with.
struct DisplayQuery {
    TextView className;
    std::shared_ptr<BuiltInCollection> request;
    TextList selection = {};
    Text qualifier = {};
};

/// Puts the query to the display in the file (standard input for "" and "-"). Gives what the query added to the
/// request, or null when the class does not know the prefix. Raises what the query raises.
CollectionPtr askDisplay(const std::string& file, DisplayQuery query);

}  // namespace vantro
