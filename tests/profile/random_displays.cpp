#include "tests/profile/random_displays.h"

#include <algorithm>
#include <array>

namespace vantro {

namespace {

constexpr std::size_t width = 80;

constexpr TextView transferableHeader = u"------- PNR TRANSFERABLE DATA";

/// A section's header and the prefixes of its lines.
struct Section {
    TextView header;
    std::array<TextView, 7> prefixes;
};

constexpr std::array<Section, 12> sectionsOfTheHost{{
    {u"------- PRIORITY", {u"PPR/"}},
    {u"------- GLOBAL SEARCH", {u"PGL/"}},
    {u"------- PRE-STORED ENTRIES", {u"PPS/"}},
    {u"------- TRAVEL POLICIES - HOTEL", {u"PHI/", u"PPH/", u"PSH/"}},
    {u"------- TRAVEL POLICIES - CAR", {u"PCI/", u"PPC/", u"PXC/", u"PSC/"}},
    {u"------- TRAVEL POLICIES - AIR", {u"PPA/", u"PPK/", u"PPI/", u"PXA/", u"PXK/", u"PPT/", u"PXT/"}},
    {u"------- DOCUMENTS", {u"PAS/", u"PIV/", u"PCE/", u"PID/"}},
    {u"------- FOLLOW UP", {u"PFO/"}},
    {u"------- PROFILE NOTES", {}},
    {transferableHeader, {}},
    {transferableHeader, {}},
    {u"------- ANOTHER SECTION", {u"PCN/", u"PIN/", u"PSL/"}},
}};

constexpr std::array<TextView, 14> codes{
    u"RM ",       u"AP ",          u"OS ",           u"FFN",          u"SR ",         u"ST ",  u"RC ",
    u"FFN QV 12", u"FFN QV 1    ", u"SR  FQTVQV 12", u"SR  *WCHR-AB", u"SR  FQTV-QV", u"AP  ", u"XX ",
};

/// Code units whose low or high byte is that of a mark, and other unusual ones.
constexpr std::array<char16_t, 16> unusualUnits{
    0x0120, 0x2000, 0x202F, 0x012F, 0x2F2F, 0x2D00, 0x012D, 0x013E,
    0x3E3E, 0x0146, 0x0009, 0x00A0, 0x8020, 0xFF2F, 0xD83D, 0x0000,
};

constexpr std::array<TextView, 34> marks{
    u">",
    u")",
    u"END OF DISPLAY",
    u"END OF ",
    u"DISPLAY",
    u"END",
    u"F",
    u"-",
    u"------",
    u"-------",
    u"/",
    u"*T* ",
    u"*C*",
    u" NM ",
    u"PCN/ ",
    u"/ ",
    u":",
    u"AB:",
    u"PF24",
    u"PF24 REQST UMSG",
    u"4505",
    u"P",
    u"PP",
    u"R/",
    u"S",
    u"A",
    u"T ",
    u"R",
    u"M ",
    u"1",
    u"NCEVN0",
    u"ABC123",
    u"----- NCEVN0900",
    u"*",
};

template <class List>
TextView oneOf(const List& list, RandomDisplays& random) {
    return list[random.below(list.size())];
}

Text blanks(std::size_t count) { return Text(count, u' '); }

void fillUp(Text& text) { text.resize((text.size() + width - 1) / width * width, u' '); }

}  // namespace

Text RandomDisplays::word() {
    switch (below(5)) {
        case 0: return Text(oneOf(marks, *this));
        case 1: return Text(oneOf(codes, *this));
        case 2: return Text(u"PPR/");
        case 3: return Text(1, static_cast<char16_t>(u'A' + below(4)));
        default: return {};
    }
}

Text RandomDisplays::piece() {
    const Section& section = sectionsOfTheHost[below(sectionsOfTheHost.size())];
    switch (below(12)) {
        case 0: return Text(section.header);
        case 1:
        case 2: return Text(oneOf(section.prefixes, *this));
        case 3: return blanks(1) + Text(oneOf(codes, *this)) + blanks(below(2));
        case 4:
        case 5: return Text(oneOf(marks, *this));
        case 6: return blanks(below(20));
        case 7: return blanks(1 + below(3));
        case 8: return wide(std::to_string(below(130)));
        case 9: return Text(1, unusualUnits[below(unusualUnits.size())]);
        default: return Text(1 + below(3), static_cast<char16_t>(u'A' + below(26)));
    }
}

Text RandomDisplays::wrapped() {
    return blanks((oneIn(2) ? 8 : 16) + below(4)) + word() + (oneIn(4) ? Text() : piece());
}

Text RandomDisplays::elementLine(TextView prefix) {
    const Text number = wide(std::to_string(1 + below(30)));
    if (prefix.empty() || oneIn(3)) return blanks(3) + number + blanks(4 + below(4)) + piece();
    return blanks(2 + below(2)) + number + u" " + Text(prefix) + u" " + piece();
}

Text RandomDisplays::transferableLine() {
    const Text number = wide(std::to_string(1 + below(130)));
    Text line = (oneIn(2) ? u"S" : u"A") + blanks(12);
    line.replace(8 - number.size(), number.size(), number);
    return line + Text(oneOf(codes, *this)) + blanks(below(3)) + piece();
}

Text RandomDisplays::strayLine() {
    const Section& section = sectionsOfTheHost[below(sectionsOfTheHost.size())];
    switch (below(8)) {
        case 0: return {};
        case 1: return Text(1, static_cast<char16_t>(u'A' + below(3))) + u" " + piece() + piece();
        case 2: return piece() + piece();
        case 3: return Text(section.header) + (oneIn(4) ? piece() : Text());
        case 4: return transferableLine();
        case 5: return wrapped();
        default: return elementLine(oneOf(section.prefixes, *this));
    }
}

Text RandomDisplays::lineOfSection(TextView header) {
    if (oneIn(6)) return strayLine();
    if (oneIn(4)) return wrapped();
    if (header == transferableHeader) return transferableLine();
    const auto section = std::ranges::find(sectionsOfTheHost, header, &Section::header);
    const auto known = std::ranges::count_if(section->prefixes, [](TextView prefix) { return !prefix.empty(); });
    if (known == 0) return Text(1, static_cast<char16_t>(u'A' + below(3))) + u" " + word() + piece();
    return elementLine(section->prefixes[below(static_cast<std::size_t>(known))]);
}

Text RandomDisplays::sections() {
    Text text = blanks(width);
    const auto addLine = [&](const Text& line) {
        text += line.substr(0, width - 4);
        fillUp(text);
    };
    for (std::size_t lines = below(4); lines > 0; --lines) addLine(strayLine());
    for (std::size_t left = 1 + below(5); left > 0; --left) {
        const Section& section = sectionsOfTheHost[below(sectionsOfTheHost.size())];
        addLine(Text(section.header));
        for (std::size_t lines = below(8); lines > 0; --lines) addLine(lineOfSection(section.header));
    }
    addLine(u"END OF DISPLAY");
    return text + u">" + blanks(width - 1);
}

Text RandomDisplays::soupLine() {
    Text line;
    while (line.size() < width) line += piece();
    line.resize(width);
    return line;
}

Text RandomDisplays::soup() {
    Text text;
    const std::size_t lines = below(14);
    for (std::size_t line = 0; line < lines; ++line) {
        text += oneIn(2) ? strayLine() : soupLine();
        if (!oneIn(5)) fillUp(text);
    }
    text.resize(text.size() - std::min(text.size(), below(3)));
    if (oneIn(3)) return text + u">END OF DISPLAY\u00A0>" + blanks(below(100)) + u">";
    fillUp(text);
    return text + u"END OF DISPLAY" + blanks(width - 14) + u">";
}

}  // namespace vantro
