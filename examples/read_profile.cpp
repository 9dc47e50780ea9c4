// Reads the priority lines of a displayed profile from a text file with one screen line per line.
#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"
#include "vantro/screen_lines.h"

#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

namespace {

// The display as a terminal passes it: every line padded to 80 characters, no line ends.
vantro::Text readDisplay(std::istream& file) {
    vantro::TextList lines;
    for (std::string line; std::getline(file, line);) lines.emplace_back(line.begin(), line.end());  // plain ASCII
    const vantro::JoinedLines display = vantro::joinLines(lines);
    if (display.longLines.empty()) return display.screen;
    const vantro::LongLine& first = display.longLines.front();
    throw std::runtime_error("line " + std::to_string(first.number) + " has " + std::to_string(first.length) +
                             " characters, more than 80");
}

std::string plain(const vantro::Text& text) { return {text.begin(), text.end()}; }

}  // namespace

int main(int argc, char** argv) {
    std::ifstream file(argc > 1 ? argv[1] : "samples/profiles/traveller.txt");
    if (!file) {
        std::cerr << "read_profile: cannot open the display; name a text file\n";
        return 1;
    }
    vantro::BuiltInTerminal terminal;
    const auto profile = vantro::createObject(u"CProfile", terminal);
    const vantro::CollectionPtr request = terminal.createCollection();
    request->Add(u"strKeyPrefix", u"PPR");
    try {
        profile->profileGet()->ProfileElements(readDisplay(file), request);
    } catch (const std::exception& error) {  // a line that is too long, or the library's own vantro::Error
        std::cerr << "read_profile: " << error.what() << '\n';
        return 1;
    }

    const auto texts = std::get<vantro::TextList>(request->Item(u"strKeyElement()")->Value());
    const auto numbers = std::get<vantro::TextList>(request->Item(u"strKeyElementNr()")->Value());
    for (std::size_t element = 1; element < texts.size(); ++element) {  // entry 0 is empty
        std::cout << plain(numbers[element]) << ": " << plain(texts[element]) << '\n';
    }
}
