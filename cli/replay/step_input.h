// A step as the input of `record` contains it: a command, a screen, or both.
#pragma once

#include "cli/replay/exchange.h"
#include "vantro/registry.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantro {

struct StepInput {
    std::size_t line = 0;           ///< its first line in the input, from 1
    std::string source = {};        ///< its lines in the input, without the last line end
    std::string problem = {};       ///< why it is no step; empty when it may be one
    const ClassRow* row = nullptr;  ///< null if the class is still to be recognised from the screen
    std::optional<ExchangeEntries> params = {};
    bool buildsCommand = false;
    bool isCounted = false;  ///< the entries on the screen are counted too
    bool statePrevious = false;
    std::optional<Text> sent = {};  ///< the command that was sent to the host, where it is known
    std::optional<Text> screen = {};
    bool isLogged = false;  ///< from a log, which has no parameters
};

/// The screens of a terminal's log, each with the command that it answers. A line of ">" and a command begins a screen;
/// it is the screen's first line, unless the host repeats the command in the next one. The prompt that it was entered
/// at ends the screen above. After a line of the prompt ">" alone, the next line that is not blank begins a screen.
std::vector<StepInput> stepsOfLog(std::string_view log);

/// The steps of JSON Lines: objects with the members "class", "call", "params", "response" or "screen" as in requests
/// of `batch`, "command" (what was sent) and "state" ("previous").
std::vector<StepInput> stepsOfJsonLines(std::string_view lines);

}  // namespace vantro
