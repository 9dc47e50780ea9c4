// Writes the pages that the browser test opens: make_pages FOLDER
#include "cli/explain/html_page.h"
#include "cli/io/utf.h"
#include "tests/support/exchange_file.h"
#include "vantro/built_in_terminal.h"
#include "vantro/screen_lines.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace vantro {
namespace {

const std::filesystem::path samples = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples";

class Pages {
public:
    explicit Pages(std::filesystem::path folder) : folder_(std::move(folder)) {
        std::filesystem::create_directories(folder_);
    }

    void write(const std::string& name, const Explanation& explanation, const ClassRow* row, std::string_view title) {
        std::ofstream(folder_ / (name + ".html"), std::ios::binary) << htmlPage(explanation, row, title);
    }

    void writeDisplay(const std::string& name, const Text& display) {
        Explanation explanation;
        parseProfile(display, explanation);
        write(name, explanation, nullptr, "Display " + name + ".txt");
    }

    void writeSample(const std::string& name) {
        std::ifstream file(samples / "profiles" / (name + ".txt"), std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        writeDisplay(name, joinLines(toUtf16(text)).screen);
    }

    void writeExchange(const std::string& name) {
        const Exchange exchange = test::readExchange(samples / "exchanges" / (name + ".exchange"));
        const ExchangeStep& step = exchange.front();
        const ClassRow* const row = findClass(step.className);
        BuiltInTerminal terminal;
        Explanation explanation;
        ObservedTerminal observed(terminal, &explanation);
        const auto collection = terminal.createCollection();
        createObject(*row, observed)->profileTrans()->VerifyResponse(step.screen.value(), collection);
        write(name, explanation, row, toUtf8(row->name) + ": " + name);
    }

private:
    std::filesystem::path folder_;
};

// A display that begins a section and does not end: every family of the section fails.
Text brokenOff() {
    return joinLines(u"PDR/ABC123\n------- TRAVEL POLICIES - HOTEL\n   4 PHI/ NO END\n         BELOW").screen;
}

// Characters that a page must not take for markup, that are invisible, or that turn the line around.
Text hostile() {
    Text display = joinLines(
                       u"PDR/ABC123\n------- PRIORITY\n   1 PPR/ </script><script>window.hacked = 1</script>\n"
                       u"   2 PPR/ <!--<img src=x onerror=\"window.hacked=1\">'&amp;&#38;\n   3 PPR/ "
                       u"\u2028\u2029\u202E\u200FOLLEH "
                       u"\u0001\u001F\u007F\u0085\n   4 PPR/ LONE ?\n------- PROFILE NOTES\nEND OF DISPLAY\n")
                       .screen;
    display[display.find(u'?')] = char16_t{0xD83D};
    return display;
}

void makePages(const std::filesystem::path& folder) {
    Pages pages(folder);
    for (const char* const name : {"every_family", "long_400", "odd", "wrapped", "traveller"}) pages.writeSample(name);
    for (const char* const name : {"pdn_company_list", "pdr_not_found"}) pages.writeExchange(name);
    pages.writeDisplay("broken_off", brokenOff());
    pages.writeDisplay("hostile", hostile());
    pages.write("nothing", Explanation(), nullptr, "Nothing");
}

}  // namespace
}  // namespace vantro

int main(int count, char** arguments) {
    if (count != 2) return 2;
    vantro::makePages(arguments[1]);
    return 0;
}
