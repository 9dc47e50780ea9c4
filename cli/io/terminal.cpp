#include "cli/io/terminal.h"

#include "cli/io/standard_io.h"

#include <charconv>
#include <cstdlib>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace vantro {

namespace {

constexpr std::size_t usualColumns = 80;

ColorChoice chosen = ColorChoice::Auto;

#ifdef _WIN32

// Consoles before Windows 10 do not know the escape sequences, and later ones have to be asked.
bool acceptsColor(DWORD stream) {
    const HANDLE console = GetStdHandle(stream);
    DWORD mode = 0;
    if (GetConsoleMode(console, &mode) == 0) return true;  // a terminal that is no console passes them on
    constexpr DWORD virtualTerminal = 0x0004;              // ENABLE_VIRTUAL_TERMINAL_PROCESSING, not in every header
    return SetConsoleMode(console, mode | virtualTerminal) != 0;
}

bool outputAcceptsColor() { return acceptsColor(STD_OUTPUT_HANDLE); }
bool errorAcceptsColor() { return acceptsColor(STD_ERROR_HANDLE); }

std::size_t terminalColumns() {
    CONSOLE_SCREEN_BUFFER_INFO console{};
    if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &console) == 0) return 0;
    return static_cast<std::size_t>(console.srWindow.Right - console.srWindow.Left + 1);
}

#else

bool outputAcceptsColor() { return true; }
bool errorAcceptsColor() { return true; }

std::size_t terminalColumns() {
    winsize size{};
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

#endif

std::string variable(const char* name) {
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): nothing here sets variables
    return value == nullptr ? "" : value;
}

std::size_t columnsVariable() {
    const std::string text = variable("COLUMNS");
    std::size_t columns = 0;
    std::from_chars(text.data(), text.data() + text.size(), columns);
    return columns;
}

bool colorFor(bool isTerminal) {
    return wantsColor(
        chosen, {variable("NO_COLOR"), variable("CLICOLOR_FORCE"), variable("CLICOLOR"), variable("TERM")}, isTerminal);
}

constexpr std::string_view bold = "\x1B[1m";
constexpr std::string_view red = "\x1B[31m";
constexpr std::string_view yellow = "\x1B[33m";
constexpr std::string_view plain = "\x1B[0m";

// Returns the position after the coloured words.
std::size_t color(std::string& text, std::size_t start, std::size_t length, std::string_view code) {
    text.insert(start + length, plain);
    text.insert(start, code);
    return start + code.size() + length + plain.size();
}

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

}  // namespace

void chooseColor(ColorChoice choice) { chosen = choice; }

std::optional<ColorChoice> colorChoiceNamed(std::string_view name) {
    if (name == "auto") return ColorChoice::Auto;
    if (name == "always") return ColorChoice::Always;
    if (name == "never") return ColorChoice::Never;
    return std::nullopt;
}

bool wantsColor(ColorChoice choice, const ColorVariables& variables, bool isTerminal) {
    if (choice != ColorChoice::Auto) return choice == ColorChoice::Always;
    if (!variables.noColor.empty()) return false;
    if (!variables.cliColorForce.empty() && variables.cliColorForce != "0") return true;
    return isTerminal && variables.cliColor != "0" && variables.term != "dumb";
}

bool outputShowsColor() { return colorFor(outputIsTerminal()) && outputAcceptsColor(); }
bool errorShowsColor() { return colorFor(errorIsTerminal()) && errorAcceptsColor(); }

std::size_t outputColumns() {
    if (!outputIsTerminal()) return 0;
    const std::size_t columns = terminalColumns();
    return columns > 0 ? columns : columnsVariable();
}

std::size_t textColumns() {
    if (const std::size_t columns = outputColumns(); columns > 0) return columns;
    const std::size_t columns = columnsVariable();
    return columns > 0 ? columns : usualColumns;
}

std::string inBold(const std::string& text) { return std::string(bold) + text + std::string(plain); }

std::string withColoredWords(std::string message) {
    constexpr std::string_view warning = "warning: ";
    constexpr std::string_view error = "error ";
    if (const std::size_t found = message.find(warning); found != std::string::npos) {
        color(message, found, warning.size() - 2, yellow);
        return message;
    }
    std::size_t found = message.find(error);
    while (found != std::string::npos) {
        const std::size_t number = found + error.size();
        const bool hasNumber = number < message.size() && isDigit(message[number]);
        found = message.find(error, hasNumber ? color(message, found, error.size() - 1, red) : number);
    }
    return message;
}

}  // namespace vantro
