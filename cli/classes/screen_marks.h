// The marks of the classes' rows on a screen.
#pragma once

#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vantro {

/// A mark on a screen. Its class may still let another mark decide, as its row's `flagRule` says.
struct SeenMark {
    const ScreenFlag* flag;
    std::size_t line;  ///< from 0
};

/// The marks of the class that the screen shows at their positions, in the order of its row. A flag that the absence
/// of a mark sets is not among them.
std::vector<SeenMark> marksOn(TextView screen, const ClassRow& row);

/// True when a test of the class recognised the screen: a mark of its row is on the screen, or the results contain a
/// flag that is True or a value that was read there. `results` may be null. Values of the state are not read on the
/// screen.
bool isRecognised(const ClassRow& row, TextView screen, const CollectionPtr& results);

/// True for a list that only its rows show, as a last screen that is too short to be read as a continuation. `state` is
/// the collection that the class read the screen with, and may be null.
bool showsList(const ClassRow& row, TextView screen, const CollectionPtr& state);

/// The warning about a screen that no test of the class recognised.
std::string notRecognised(const ClassRow& row, TextView screen);

}  // namespace vantro
