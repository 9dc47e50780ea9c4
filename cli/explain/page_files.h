// The style and the script of an explanation's page: the files in cli/explain/page/, as texts.
#pragma once

#include <string_view>

namespace vantro {

std::string_view pageStyle();
std::string_view pageScript();

}  // namespace vantro
