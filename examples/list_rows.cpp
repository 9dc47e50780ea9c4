// Reads the travellers of an office from the host's list.
#include "vantro/list_rows.h"

#include <iostream>
#include <string>

namespace {

// Lines of 80 characters, joined without separators.
void addLine(vantro::Text& screen, vantro::TextView line) {
    screen += line;
    screen.resize((screen.size() + 79) / 80 * 80, u' ');
}

std::string ascii(const vantro::Text& text) { return {text.begin(), text.end()}; }

}  // namespace

int main() {
    vantro::Text screen;
    addLine(screen, u"PLT/NCEVN0900");
    addLine(screen, u"TRAVELLER LIST FOR NCEVN0900");
    addLine(screen, u" ");
    addLine(screen, u"     NAME                   RECLOC  COMPANY");
    addLine(screen, u"   1 ABELMANN/IDA MS        H1J2K3");
    addLine(screen, u"   2 BOROVIK/JURI MR        H4J5K6  KESTRELLO TOOLS");
    addLine(screen, u">");

    for (const vantro::ListRow& row : vantro::readRows(u"CPLTTrans", screen).rows) {
        std::cout << ascii(row.number) << ": " << ascii(row.name) << ", " << ascii(row.recordLocator) << '\n';
    }
}
