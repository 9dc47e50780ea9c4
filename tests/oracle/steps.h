#pragma once

// The small steps that the oracle's readers are made of. The oracle is slow and literal: it shares no code with the
// library and fetches a fresh copy of every line.

#include <string>
#include <vector>

namespace oracle {

using Text = std::u16string;

// The step that failed, by its automation error number or by the number that a property raises.
struct Failure {
    int number;
};

constexpr int invalidCall = 5;
constexpr int overflow = 6;
constexpr int outOfRange = 9;
constexpr int typeMismatch = 13;
constexpr int objectNotSet = 91;

// Line n, from 0, of 80 characters; fewer on the last line, empty past the end.
Text screenLine(const Text& text, int n);

// The same, always with 80 characters per line, whatever the terminal.
Text lineByPosition(const Text& text, int n);

// While an object of this class exists, lines have this many characters, as from a terminal that makes its own lines.
class LineWidth {
public:
    explicit LineWidth(int width);
    ~LineWidth();
    LineWidth(const LineWidth&) = delete;
    LineWidth& operator=(const LineWidth&) = delete;

private:
    int before_;
};

Text trimmed(const Text& text);
Text rightTrimmed(const Text& text);

// Characters from position p (from 1); an n below 1 or a p past the end returns the empty text.
Text mid(const Text& text, int p);
Text mid(const Text& text, int p, int n);

// The rightmost n characters; all of them when there are fewer.
Text right(const Text& text, int n);

// Position (from 1) of the needle at or after the start; 0 when it is not found.
int found(const Text& text, const Text& needle, int start = 1);

// The n-th field (from 1); empty where there is none.
Text textField(const Text& text, int n, const Text& separator);

// One or more of the digits 0 to 9, nothing else.
bool isNumeric(const Text& text);

// Letters a to z become A to Z; everything else is unchanged.
Text upperCase(const Text& text);

Text decimal(int number);

// The text of ASCII letters, digits and signs.
Text wide(const std::string& plain);

// The sum as a signed 16-bit integer.
int add16(int left, int right);

// Entry of a list; an index outside the list fails with "subscript out of range".
const Text& entry(const std::vector<Text>& list, int index);

// Runs the steps; any failure in them is thrown with the given number.
template <typename Steps>
auto raising(int number, Steps steps) {
    try {
        return steps();
    } catch (const Failure&) {
        throw Failure{number};
    }
}

}  // namespace oracle
