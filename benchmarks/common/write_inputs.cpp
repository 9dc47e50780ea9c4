// Writes the displays and their elements for the contenders that are separate programs:
//   displays.txt     one display per line
//   screens.txt      all displays, one screen line per line
//   elements.txt     what parseProfile finds in each, one display per line, parts separated by U+001F and U+001E
//   requests.jsonl   one request per line for `vantro-profile batch`: a display and a family
#include "common/displays.h"
#include "common/element_set.h"
#include "one_family/scanner.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace vantro;
using namespace vantro::bench;

constexpr std::size_t requestCount = 3000;

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

std::string request(std::size_t number) {
    const std::string prefix = toAscii(familyRules()[number % familyRules().size()].prefix.substr(0, 3));
    return "{\"id\":" + std::to_string(number) +
           R"(,"class":"CProfile","call":"ProfileElements","params":{"strKeyPrefix":")" + prefix + R"("},"display":")" +
           displays(Corpus::Mixed)[number % displays(Corpus::Mixed).size()].utf8 + "\"}";
}

}  // namespace

int main(int argc, char** argv) {
    const std::string folder = argc > 1 ? argv[1] : ".";
    File displayFile(folder, "displays.txt");
    File screenFile(folder, "screens.txt");
    File elementFile(folder, "elements.txt");
    for (const Display& display : displays(Corpus::Mixed)) {
        displayFile.line(display.utf8);
        for (std::size_t at = 0; at < display.utf8.size(); at += lineWidth) {
            screenFile.line(display.utf8.substr(at, lineWidth));
        }
        elementFile.line(written(elementSetOf(parseProfile(display.utf16))));
    }
    File requestFile(folder, "requests.jsonl");
    for (std::size_t i = 0; i < requestCount; ++i) requestFile.line(request(i));
}
