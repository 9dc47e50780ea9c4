#pragma once

// The parameters of a command; a null collection means an absent one and fails at the first read.

#include "collection.h"

#include <string>

namespace oracle {

inline const Value* item(const Collection* params, const std::string& key) {
    if (params == nullptr) {
        throw Failure{objectNotSet};
    }
    return params->item(key);
}

inline Text text(const Collection* params, const std::string& key) { return itemText(item(params, key)); }

inline bool flag(const Collection* params, const std::string& key) { return itemBoolean(item(params, key)); }

// The transfer into a PNR, the only command that reads lists.
Text transferCommand(const Collection* params);

}  // namespace oracle
