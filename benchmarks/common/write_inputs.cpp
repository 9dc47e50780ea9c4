// Writes the inputs of the contenders that are separate programs:
//   displays.txt          the mixed displays, one per line
//   elements.txt          what parseProfile finds in each, one display per line, parts separated by U+001F and U+001E
//   archive.txt           the displays of the archive, one screen line per line, without the blanks at its end
//   requests_text.jsonl   requests for `vantro-profile batch`, each a display as one string and a family
//   requests_lines.jsonl  the same requests with the displays as arrays of lines, without the blanks at their ends
#include "common/displays.h"
#include "common/element_set.h"
#include "one_family/lean_family.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace vantro;
using namespace vantro::bench;

constexpr std::size_t requestCount = 10'000;
constexpr std::size_t shortDisplays = 24;  // lengths that the corpora do not have

class File {
public:
    File(const std::string& folder, const char* name) : file_(std::fopen((folder + "/" + name).c_str(), "wb")) {
        if (file_ != nullptr) return;
        std::perror((folder + "/" + name).c_str());
        std::exit(1);
    }
    ~File() { std::fclose(file_); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    void line(std::string text) {
        text += '\n';
        std::fwrite(text.data(), 1, text.size(), file_);
    }

private:
    std::FILE* file_;
};

constexpr char unitEnd = '\x1f';
constexpr char recordEnd = '\x1e';

void append(std::string& line, std::initializer_list<std::u16string_view> parts) {
    for (const std::u16string_view part : parts) line += toAscii(part) + unitEnd;
    line.back() = recordEnd;
}

std::string written(const ElementSet& set) {
    std::string line;
    append(line, {set.name, set.recordLocator, set.officeIdentifier, set.companyNumber.value_or(u"-"), set.companyName,
                  set.pin.number, set.pin.text, set.psl ? set.psl->number : u"-", set.psl ? set.psl->text : u"-"});
    for (const auto& family : set.families) {
        for (const PlainElement& e : family) append(line, {e.number, e.text, e.code, e.airline, e.account, e.freeText});
        line += recordEnd;
    }
    for (const PlainNote& note : set.notes) {
        append(line, {widen(std::to_string(note.number)), note.qualifier, note.text});
    }
    return line;
}

/// A display of 1 to 400 lines: of the archive, or its first lines and a prompt below them.
std::string displayFor(std::size_t request) {
    const std::string& display = displays(Corpus::Archive)[request % displays(Corpus::Archive).size()].utf8;
    const bool isShort = request % 16 == 0;
    return isShort ? display.substr(0, request / 16 % shortDisplays * lineWidth) + ">" : display;
}

template <class Take>
void forEachLine(const std::string& display, Take take) {
    for (std::size_t at = 0; at < display.size(); at += lineWidth) {
        std::string line = display.substr(at, lineWidth);
        line.resize(line.find_last_not_of(' ') + 1);
        take(line);
    }
}

std::string asArray(const std::string& display) {
    std::string array;
    forEachLine(display, [&](const std::string& line) { array += (array.empty() ? "[\"" : ",\"") + line + '"'; });
    return array + ']';
}

std::string request(std::size_t number, std::size_t family, const std::string& display) {
    const std::string prefix = toAscii(familyRules()[family].prefix());
    return "{\"id\":" + std::to_string(number) +
           R"(,"class":"CProfile","call":"ProfileElements","params":{"strKeyPrefix":")" + prefix + R"("},"display":)" +
           display + '}';
}

}  // namespace

int main(int argc, char** argv) {
    const std::string folder = argc > 1 ? argv[1] : ".";
    File displayFile(folder, "displays.txt");
    File elementFile(folder, "elements.txt");
    for (const Display& display : displays(Corpus::Mixed)) {
        displayFile.line(display.utf8);
        elementFile.line(written(elementSetOf(parseProfile(display.utf16))));
    }
    File archiveFile(folder, "archive.txt");
    for (const Display& display : displays(Corpus::Archive)) {
        forEachLine(display.utf8, [&](const std::string& line) { archiveFile.line(line); });
    }
    File texts(folder, "requests_text.jsonl");
    File lines(folder, "requests_lines.jsonl");
    for (std::size_t i = 0; i < requestCount; ++i) {
        const std::string display = displayFor(i);
        // The documents are searched from the second line on; without one their query fails.
        const std::size_t family = display.size() <= lineWidth ? 0 : i % familyRules().size();
        texts.line(request(i, family, '"' + display + '"'));
        lines.line(request(i, family, asArray(display)));
    }
}
