#pragma once

// The small steps that the literal readers are made of. A slow second opinion for the tests: it shares
// no code with the library, fetches a fresh copy of every line and takes nothing for granted.

#include <string>
#include <vector>

namespace oracle {

using Text = std::u16string;

// The step that failed, by its Automation number or by the number a property raises.
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

// The same of 80 characters whatever the terminal.
Text lineByPosition(const Text& text, int n);

// While it lives, lines are of this many characters: those of a terminal that makes lines of its own.
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

// Characters from position p, from 1; an n below 1 and a p past the end give empty text.
Text mid(const Text& text, int p);
Text mid(const Text& text, int p, int n);

// The rightmost n characters; all of them when there are fewer.
Text right(const Text& text, int n);

// Position, from 1, of the needle at or after the start; 0 when it is not there.
int found(const Text& text, const Text& needle, int start = 1);

// The n-th field, from 1; empty where there is none.
Text textField(const Text& text, int n, const Text& separator);

// One or more of the digits 0 to 9, nothing else.
bool isNumeric(const Text& text);

// Letters a to z become A to Z, everything else stays.
Text upperCase(const Text& text);

Text decimal(int number);

// The text of plain letters, digits and signs.
Text wide(const std::string& plain);

// The sum as a signed 16-bit integer.
int add16(int left, int right);

// Entry of a list; an index outside it is a subscript out of range.
const Text& entry(const std::vector<Text>& list, int index);

// Runs the steps; whatever fails in them leaves as the given number.
template <typename Steps>
auto raising(int number, Steps steps) {
    try {
        return steps();
    } catch (const Failure&) {
        throw Failure{number};
    }
}

}  // namespace oracle
