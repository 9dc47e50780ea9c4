// Displays for the tests, written line by line in ASCII.
#pragma once

#include "tests/support/text.h"
#include "vantro/text.h"

#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// Lines of a display, each of at most 80 characters.
using Lines = std::vector<std::string>;

using test::utf8;
using test::wide;

std::vector<std::string> utf8(const TextList& list);

/// The display: every line but the last padded to 80 characters. Aborts the test program for a longer line.
Text display(const Lines& lines);

/// The same lines followed by the end text and a prompt, so that every search finds its end.
Text ended(Lines lines);

/// A line of the transferable section: kind in column 1, number in columns 6 to 8, text from column 14.
std::string transferable(char kind, std::string_view number, std::string_view text);

/// Text that begins in the given column (from 1), after blanks.
std::string from(std::size_t column, std::string_view text);

/// Several lines as one list.
Lines operator+(Lines above, const Lines& below);

/// The display drawn with a bar at the right edge of each line, for the messages of failing tests.
std::string drawn(TextView display);

}  // namespace vantro
