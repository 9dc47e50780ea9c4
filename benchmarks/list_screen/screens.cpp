#include "list_screen/screens.h"

#include <random>
#include <string_view>

namespace vantro::bench {

namespace {

using std::string;

constexpr std::size_t screenCount = 64;
constexpr std::size_t entryLines = 19;
constexpr std::string_view names[] = {"KESTRELLO TOOLS",       "KESTERSON MARINE", "KESWICK INKS",
                                      "KESSLANDER FREIGHT",    "KESTREN OPTICS",   "KESARIN TIMBER AND BOARD",
                                      "KESTEVEN COLD STORAGE", "KESMARK"};
constexpr std::string_view travellers[] = {"ABELMANN/IDA MS", "BOROVIK/JURI MR", "CASTELLANE/ANNE MRS",
                                           "DUVALIER/PAUL MR", "EKDAHLEN/LIV MS"};

class ScreenPrinter {
public:
    explicit ScreenPrinter(unsigned seed) : engine_(seed) {}

    string companies() {
        line("PDN/KES");
        line("SIMILAR COMPANY NAME LIST");
        line("");
        line("     COMPANY                         RECLOC     OFFICE");
        for (std::size_t printed = 0; printed < entryLines; ++printed) {
            line(number() + column(names[below(8)], 32) + locator() + "     NCEVN3101");
            if (below(6) == 0 && printed + 1 < entryLines) {
                line("     OF THE NORTH");
                ++printed;
            }
        }
        return end();
    }

    string listOfTravellers() {
        line("PLT/NCEVN3101");
        line("TRAVELLER LIST FOR NCEVN3101");
        line("");
        line("     NAME                   RECLOC  COMPANY");
        for (std::size_t printed = 0; printed < entryLines; ++printed) {
            const string company = below(3) == 0 ? "  " + string(names[below(8)]) : "";
            line(number() + column(travellers[below(5)], 23) + locator() + company);
        }
        return end();
    }

private:
    std::size_t below(std::size_t bound) { return engine_() % bound; }

    void line(const string& text) { text_ += column(text, 80); }

    static string column(std::string_view text, std::size_t width) {
        string padded(text.substr(0, width));
        padded.resize(width, ' ');
        return padded;
    }

    string number() {
        ++number_;
        return (number_ < 10 ? "   " : "  ") + std::to_string(number_) + " ";
    }

    string locator() {
        string text;
        for (int i = 0; i < 6; ++i) text += "ABCDEFGHJKLMNPQRSTUVWXYZ23456789"[below(32)];
        return text;
    }

    string end() {
        text_ += below(2) == 0 ? ">" : "END OF BLOCK - USE PDMD";
        return std::move(text_);
    }

    std::mt19937 engine_;
    string text_;
    unsigned number_ = 0;
};

template <class Print>
std::vector<ListScreen> printed(Print print) {
    std::vector<ListScreen> screens(screenCount);
    for (unsigned i = 0; i < screenCount; ++i) {
        ScreenPrinter printer(i);
        screens[i].utf8 = (printer.*print)();
        screens[i].utf16.assign(screens[i].utf8.begin(), screens[i].utf8.end());
    }
    return screens;
}

}  // namespace

const std::vector<ListScreen>& companyScreens() {
    static const std::vector<ListScreen> screens = printed(&ScreenPrinter::companies);
    return screens;
}

const std::vector<ListScreen>& travellerScreens() {
    static const std::vector<ListScreen> screens = printed(&ScreenPrinter::listOfTravellers);
    return screens;
}

}  // namespace vantro::bench
