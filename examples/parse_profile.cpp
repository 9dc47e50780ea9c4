// Reads a displayed profile in one call.
#include "vantro/profile.h"
#include "vantro/screen_lines.h"

#include <iostream>
#include <string>

std::string plain(vantro::TextView text) { return {text.begin(), text.end()}; }

int main() {
    const vantro::JoinedLines display = vantro::joinLines(
        uR"(PDRT/H4T9QZ
*T* TRAVELLER PROFILE                                                     H4T9QZ
----- ACTIVE   LAST USED 12MAR   OFFICE                ARNVN0470
   1 NM  LINDQVIST/AGNES MS
------- PRIORITY
   2 PPR/ CALL THE MOBILE BEFORE ANY CHANGE
------- PNR TRANSFERABLE DATA
S      3     AP  STO 08 555 0142-H
A      4     RM  RECEIPTS TO COST CENTRE 4410 WITH A COPY TO THE TRAVEL DESK UM
                 EA OFFICE
END OF DISPLAY
)");
    const vantro::Profile profile = vantro::parseProfile(display.screen);
    std::cout << plain(profile.recordLocator) << ' ' << plain(profile.name) << '\n';
    for (const vantro::Element& remark : profile.elements(vantro::Family::Remark)) {
        std::cout << plain(remark.number) << ": " << plain(remark.text) << '\n';
    }
}
