// What the script of an explanation's page knows, as JSON.
#pragma once

#include "cli/explain/page_model.h"

#include <string>

namespace vantro {

/// JSON that may be in a script element: it contains no "<".
std::string pageData(const PageModel& model);

}  // namespace vantro
