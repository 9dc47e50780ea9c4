// Words for what the option parser refuses.
#pragma once

#include <string>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace vantro {

/// What is wrong with the arguments that the parser refused, and where to look for help, in one line.
std::string refusalOf(const CLI::App& tool, const CLI::ParseError& problem);

}  // namespace vantro
