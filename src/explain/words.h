// The parts of sentences: numbers, lines, positions, values and errors in words.
#pragma once

#include "vantro/explanation.h"

namespace vantro {

Text numberInWords(std::int32_t number);

/// "line 3", or "lines 3 to 5"; a range that ends above its first line is one line.
Text linesInWords(std::int32_t first, std::int32_t last);

/// "line 3, columns 6 to 20; line 4, column 6"; empty if no piece is on the screen.
Text placesInWords(std::span<const KeptPiece> pieces);

/// The text with its control characters written as "\u000A".
Text printable(TextView text);

/// The same in quotation marks.
Text quoted(TextView text);

/// "5272: An error has occurred while verifying the profile".
Text errorInWords(const Error& error);

/// The value that a key was given, as a program writes it: True, 38, "KQ4R7T"; a list with the number of its entries.
Text valueInWords(const KeptStep& step);

}  // namespace vantro
