#include "common/displays.h"

#include "vantro/profile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <span>
#include <string_view>

namespace vantro::bench {

namespace {

using std::string;
using std::string_view;

constexpr std::size_t displayCount = 1000;
constexpr std::size_t shortest = 24;
constexpr std::size_t longest = 400;

/// How displays of a corpus look.
struct Style {
    std::size_t wrapsOneIn;      ///< of so many elements one is wrapped
    std::size_t wrapsAtMost;     ///< continuation lines
    std::size_t hostLineOneIn;   ///< of so many displays one has a line of the host above it
    std::size_t notesShare;      ///< the notes' share of the lines
    std::size_t fewestSections;  ///< of a short display
};
constexpr Style mixed{9, 2, 10, 2, 4};
constexpr Style archive{24, 1, 50, 5, 8};

constexpr string_view words[] = {
    "AISLE",   "BREAKFAST", "CORPORATE", "DEPARTURE", "EARLY",   "FLEXIBLE", "GUARANTEE", "HARBOUR", "INVOICE",
    "JOURNEY", "KESTRELLO", "LOUNGE",    "MORNING",   "NORTH",   "OFFICE",   "PREFERS",   "QUIET",   "RENTAL",
    "STATION", "TICKETING", "UPGRADE",   "VOUCHER",   "WINDOW",  "AND",      "NO",        "OF",      "THE",
    "12MAR",   "0700",      "555-0101",  "NCE",       "OSL",     "CEILING",  "1900",      "EUR",     "FLOOR",
    "YEARLY",  "DAY/NIGHT", "4711-22",   "FOR",       "DISPLAY", "ENDS",     "CLASS",     "MEETING", "FERRY",
};
constexpr string_view carriers[] = {"XQ", "ZJ", "QV", "KV"};

/// Whole numbers that are the same on every platform; those of the standard distributions are not.
class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}

    std::size_t below(std::size_t bound) { return engine_() % bound; }
    std::size_t between(std::size_t low, std::size_t high) { return low + below(high - low + 1); }
    bool oneIn(std::size_t n) { return below(n) == 0; }

    template <class T, std::size_t N>
    T pick(const T (&choices)[N]) {
        return choices[below(N)];
    }

private:
    std::mt19937 engine_;
};

enum class Kind : std::uint8_t { WholeSection, GlobalSearch, Policy, Transferable, Documents, Notes };

struct Section {
    string_view header;
    Kind kind;
    std::span<const string_view> families;
    std::size_t share;  ///< the section's share of a display's lines, relative to the others
};

constexpr string_view priority[] = {"PPR"};
constexpr string_view globalSearch[] = {"PGL"};
constexpr string_view preStored[] = {"PPS"};
constexpr string_view hotel[] = {"PHI", "PPH", "PSH"};
constexpr string_view car[] = {"PCI", "PPC", "PXC", "PSC"};
constexpr string_view air[] = {"PPA", "PPK", "PPI", "PXA", "PXK", "PPT", "PXT"};
constexpr string_view transferable[] = {"RM ", "AP ", "OS ", "FFN", "SR ", "ST ", "RC "};
constexpr string_view documents[] = {"PAS", "PIV", "PCE", "PID"};
constexpr string_view followUp[] = {"PFO"};

constexpr Section sections[] = {
    {"PRIORITY", Kind::WholeSection, priority, 3},
    {"GLOBAL SEARCH", Kind::GlobalSearch, globalSearch, 1},
    {"PRE-STORED ENTRIES", Kind::WholeSection, preStored, 4},
    {"TRAVEL POLICIES - HOTEL", Kind::Policy, hotel, 5},
    {"TRAVEL POLICIES - CAR", Kind::Policy, car, 5},
    {"TRAVEL POLICIES - AIR", Kind::Policy, air, 7},
    {"PNR TRANSFERABLE DATA", Kind::Transferable, transferable, 8},
    {"DOCUMENTS", Kind::Documents, documents, 3},
    {"FOLLOW UP", Kind::Documents, followUp, 2},
    {"PROFILE NOTES", Kind::Notes, {}, 0},  // the style says its share
};

/// Writes one display line by line.
class Printer {
public:
    Printer(const Style& style, std::size_t lines, unsigned seed) : style_(style), random_(seed), lines_(lines) {}

    string print() {
        const bool transferableFirst = random_.oneIn(2);
        printHead(transferableFirst);
        printSections(transferableFirst);
        text_ += random_.oneIn(2) ? ">" : "END OF DISPLAY";
        return std::move(text_);
    }

private:
    std::size_t printed() const { return text_.size() / lineWidth; }

    void line(string_view content) {
        text_.append(content.substr(0, lineWidth));
        text_.append(lineWidth - std::min(content.size(), lineWidth), ' ');
    }

    string phrase(std::size_t wordCount) {
        string text;
        for (std::size_t i = 0; i < wordCount; ++i) {
            if (i > 0) text += ' ';
            text += random_.pick(words);
        }
        return text;
    }

    string locator() {
        string text;
        for (int i = 0; i < 6; ++i) text += "ABCDEFGHJKLMNPQRSTUVWXYZ23456789"[random_.below(32)];
        return text;
    }

    /// An element number, right-aligned; the host starts again after 99.
    string number(std::size_t width) {
        number_ = number_ % 99 + 1;
        const string digits = std::to_string(number_);
        return string(width - digits.size(), ' ') + digits;
    }

    void printHead(bool shortOfficeRule) {
        line("PDR/" + locator());
        if (random_.oneIn(style_.hostLineOneIn)) line("PF24 REQST UMSG");
        const bool company = random_.oneIn(4);
        string mark = company ? "*C* " + phrase(3) : string("*T* TRAVELLER PROFILE");
        mark.resize(74, ' ');
        line(mark + locator());
        // A rule of at least six hyphens would end the search for confidential remarks.
        string rule = shortOfficeRule ? "----- CREATED 04FEB   OFFICE" : "--------------- CREATED 04FEB   OFFICE";
        rule.resize(55, ' ');
        line(rule + "NCEVN" + std::to_string(1000 + random_.below(9000)));
        if (!company) line(number(4) + " NM " + phrase(1) + "/" + phrase(1) + " MR");
        printCompanyName();
        if (!random_.oneIn(5)) line(number(4) + " PIN/ " + std::to_string(1000 + random_.below(9000)));
        if (!random_.oneIn(5)) line(number(4) + "     PSL/ " + std::to_string(random_.below(9)));
    }

    void printCompanyName() {
        if (random_.oneIn(5)) return;
        const bool wraps = random_.oneIn(3);
        string name = number(4) + " PCN/ " + phrase(wraps ? 9 : 3);
        if (wraps && random_.oneIn(2)) name = name.substr(0, 63) + "S";  // 64 characters: broken inside a word
        line(name.substr(0, 64));
        if (wraps) line(string(14, ' ') + phrase(2));
    }

    void printSections(bool transferableFirst) {
        std::vector<Section> order = chosenSections();
        const auto isTransferable = [](const Section& section) { return section.kind == Kind::Transferable; };
        const auto found = std::ranges::find_if(order, isTransferable);
        if (transferableFirst && found != order.end()) std::rotate(order.begin(), found, found + 1);

        std::size_t shares = 0;
        for (const Section& section : order) shares += section.share;
        for (std::size_t i = 0; i < order.size(); ++i) {
            const std::size_t headersLeft = order.size() - i;
            const std::size_t left = lines_ - std::min(lines_, printed() + headersLeft + 1);
            const bool isLast = i + 1 == order.size();
            printSection(order[i], isLast ? left : left * order[i].share / shares);
            shares -= order[i].share;
        }
    }

    /// Short displays have fewer sections.
    std::vector<Section> chosenSections() {
        std::vector<Section> chosen(std::begin(sections), std::end(sections));
        chosen.back().share = style_.notesShare;
        const std::size_t wanted = std::clamp(lines_ / 8, style_.fewestSections, chosen.size());
        while (chosen.size() > wanted)
            chosen.erase(chosen.begin() + static_cast<long>(random_.below(chosen.size() - 1)));
        return chosen;
    }

    void printSection(const Section& section, std::size_t lineCount) {
        line(string("------- ").append(section.header));
        const std::size_t end = printed() + lineCount;
        switch (section.kind) {
            case Kind::WholeSection: printPrefixed(section, end, 1); break;
            case Kind::GlobalSearch: printRun("PGL", std::min(end, printed() + 11)); break;
            case Kind::Policy: printPrefixed(section, end, 3); break;
            case Kind::Transferable: printTransferable(section, end); break;
            case Kind::Documents: printDocuments(section, end); break;
            case Kind::Notes: printNotes(end); break;
        }
    }

    /// Prefixed elements, some of them wrapped, each followed by up to `followers - 1` unprefixed ones.
    void printPrefixed(const Section& section, std::size_t end, std::size_t followers) {
        while (printed() < end) {
            const string_view family = section.families[random_.below(section.families.size())];
            line(number(4).append(" ").append(family).append("/ ").append(phrase(random_.between(2, 8))));
            printContinuations(end);
            for (std::size_t i = random_.below(followers); i > 0 && printed() < end; --i) {
                line(number(4) + "      " + phrase(random_.between(1, 5)));
            }
        }
    }

    void printContinuations(std::size_t end) {
        if (!random_.oneIn(style_.wrapsOneIn)) return;
        for (std::size_t i = random_.between(1, style_.wrapsAtMost); i > 0 && printed() < end; --i) {
            line(string(10, ' ') + (random_.oneIn(3) ? "AT:" : "") + phrase(random_.between(1, 4)));
        }
    }

    void printRun(string_view family, std::size_t end) {
        if (printed() >= end) return;
        line(number(4).append(" ").append(family).append("/ ").append(phrase(2)));
        while (printed() < end) line(number(4) + "      " + phrase(random_.between(1, 4)));
    }

    void printDocuments(const Section& section, std::size_t end) {
        std::size_t runsLeft = section.families.size();
        for (const string_view family : section.families) {
            const std::size_t left = end - std::min(end, printed());
            printRun(family, printed() + left / runsLeft);
            --runsLeft;
        }
    }

    void printTransferable(const Section& section, std::size_t end) {
        while (printed() < end) {
            const string_view code = section.families[random_.below(section.families.size())];
            line(string(random_.oneIn(2) ? "S" : "A") + number(7) + string(5, ' ') + string(code) + " " + detail(code));
            if (!random_.oneIn(style_.wrapsOneIn)) continue;
            for (std::size_t i = random_.between(1, style_.wrapsAtMost); i > 0 && printed() < end; --i) {
                line(string(18, ' ') + phrase(random_.between(1, 4)));
            }
        }
    }

    string detail(string_view code) {
        const string carrier(random_.pick(carriers));
        const string account = std::to_string(1000000 + random_.below(9000000));
        if (code == "FFN") return carrier + "-" + account + (random_.oneIn(3) ? "    GOLD" : "");
        if (code == "ST ") return "NSSW/" + std::to_string(random_.between(1, 40)) + "A";
        if (code == "AP ") return "NCE 04 " + account + "-B";
        if (code != "SR ") return phrase(random_.between(2, 6));
        if (random_.oneIn(3)) return "FQTV" + carrier + " " + account + "-" + phrase(1);
        return random_.oneIn(2) ? "*VGML-" + phrase(2) : string("WCHS");
    }

    void printNotes(std::size_t end) {
        while (printed() < end) line(string(1, "ABM"[random_.below(3)]) + " " + phrase(random_.between(2, 8)));
    }

    Style style_;
    Dice random_;
    std::size_t lines_;
    std::size_t number_ = 0;
    string text_;
};

Display printed(const Style& style, std::size_t lines, unsigned seed) {
    Display display;
    display.utf8 = Printer(style, lines, seed).print();
    display.utf16.assign(display.utf8.begin(), display.utf8.end());
    return display;
}

template <class Length>
std::vector<Display> printedAll(const Style& style, Length length) {
    std::vector<Display> made;
    made.reserve(displayCount);
    for (unsigned i = 0; i < displayCount; ++i) made.push_back(printed(style, length(i), i));
    return made;
}

/// All lengths from 24 to 400, mixed up, and somewhat more short ones than long ones.
std::size_t archiveLength(unsigned number) {
    constexpr std::size_t last = displayCount - 1;
    const std::size_t rank = number * std::size_t{617} % displayCount;
    return shortest + (longest - shortest) * rank / last - 40 * rank * (last - rank) / (last * last);
}

}  // namespace

std::string_view nameOf(Corpus corpus) { return corpus == Corpus::Mixed ? "mixed" : "archive"; }

Display displayOfLines(std::size_t lines, unsigned seed) { return printed(mixed, lines, seed); }

const std::vector<Display>& displays(Corpus corpus) {
    static const std::vector<Display> ofKind[] = {
        printedAll(mixed, [dice = Dice(20260114)](unsigned) mutable { return dice.between(shortest, longest); }),
        printedAll(archive, archiveLength)};
    return ofKind[static_cast<std::size_t>(corpus)];
}

Display withOddText(Display display) {
    constexpr std::pair<std::u16string_view, std::u16string_view> replacements[] = {
        {u" WINDOW", u" A ST B"},   {u" FLEXIBLE", u" IF PPH/ "}, {u" CORPORATE", u" SEE PPC/X"},
        {u" HARBOUR", u" OS FFN "}, {u" LOUNGE", u" PAS/ X"},     {u" TICKETING", u" AP  RM RC"}};
    for (const auto& [word, odd] : replacements) {
        for (std::size_t at = 12 * lineWidth; (at = display.utf16.find(word, at)) != std::u16string::npos; ++at) {
            const char16_t* const line = display.utf16.data() + at / lineWidth * lineWidth;
            const bool continues = line[3] == u' ' && line[10] != u' ';  // a tagged line; no tag belongs there
            if (!continues) display.utf16.replace(at, word.size(), odd);
        }
    }
    return display;
}

void printFigures(Corpus corpus) {
    std::size_t characters = 0;
    std::size_t lines = 0;
    std::size_t fewest = longest;
    std::size_t most = shortest;
    std::size_t elements = 0;
    for (const Display& display : displays(corpus)) {
        const std::size_t count = (display.utf16.size() + lineWidth - 1) / lineWidth;
        characters += display.utf16.size();
        lines += count;
        fewest = std::min(fewest, count);
        most = std::max(most, count);
        for (const auto& family : parseProfile(display.utf16).families) elements += family.size();
    }
    const double average = static_cast<double>(lines) / displayCount;
    const double found = static_cast<double>(elements) / displayCount;
    std::printf("%s: %zu displays of %zu to %zu lines, %.1f lines and %.1f elements each, %.1f million characters\n",
                nameOf(corpus).data(), displays(corpus).size(), fewest, most, average, found,
                static_cast<double>(characters) / 1e6);
    const bool asDescribed = fewest == shortest && most == longest && std::abs(average - 205) < 1 &&
                             std::abs(found - 158) < 1 && std::abs(static_cast<double>(characters) / 1e6 - 16.4) < 0.05;
    if (corpus == Corpus::Mixed || asDescribed) return;
    std::fprintf(stderr, "the archive is not as described\n");
    std::exit(1);
}

}  // namespace vantro::bench
