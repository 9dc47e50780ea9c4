// Displays for the tests, written line by line in plain characters.
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

/// The display: every line but the last padded to 80 characters. Fails the test program for a longer line.
Text display(const Lines& lines);

/// The same lines with the end text and a prompt under them, so that every search finds its end.
Text ended(Lines lines);

/// A line of the transferable section: kind in column 1, number in columns 6 to 8, text from column 14.
std::string transferable(char kind, std::string_view number, std::string_view text);

/// Text that stands from a column (from 1) on, blanks in front.
std::string from(std::size_t column, std::string_view text);

/// Several lines as one list.
Lines operator+(Lines above, const Lines& below);

/// A display drawn with a bar at the right edge of its lines, for the messages of failing tests.
std::string drawn(TextView display);

}  // namespace vantro
