#include "cli/json/line_name.h"

#include "cli/io/utf.h"

namespace vantro {

std::string shortened(const std::string& text) {
    constexpr std::size_t longest = 60;
    const Text units = toUtf16(text);
    return units.size() <= longest ? text : toUtf8(TextView(units).substr(0, longest)) + "...";
}

std::string lineName(std::size_t line, const std::string* id) {
    std::string name = "line " + std::to_string(line);
    if (id != nullptr) name += ", id " + shortened(*id);
    return name;
}

}  // namespace vantro
