// Says why a display and a screen were read as they were: a wrapped hotel policy that is read, one below its section
// that is not, and the flags of a search by name.
#include "vantro/built_in_terminal.h"
#include "vantro/explanation.h"
#include "vantro/registry.h"
#include "vantro/screen_lines.h"

#include <iostream>
#include <string>

namespace {

std::string ascii(const vantro::Text& text) { return {text.begin(), text.end()}; }

// A whole profile: the explanation is its observer.
void explainDisplay() {
    const vantro::Text display = vantro::joinLines(
                                     u"*T* SMITH/ANNA MS\n"
                                     u"------- TRAVEL POLICIES - HOTEL\n"
                                     u"   1 PHI/ ANY HOTEL IN THE CITY CENTRE\n"
                                     u"           : NOT NEAR THE AIRPORT\n"
                                     u"------- FOLLOW UP\n"
                                     u"   2 PHI/ NO SUITES\n"
                                     u"END OF DISPLAY\n")
                                     .screen;
    vantro::Explanation explanation;
    const vantro::Profile profile = vantro::parseProfile(display, explanation);
    std::cout << "hotel policies: " << profile.elements(vantro::Family::PHI).size() << '\n';
    for (const vantro::LookAlike& line : vantro::lookAlikes(explanation)) {
        std::cout << ascii(vantro::sentenceOf(line)) << '\n';
    }
    std::cout << '\n' << ascii(vantro::textOf(explanation, vantro::findClass(u"CProfile")));
}

// A transaction: its object is created with a terminal library that is observed.
void explainScreen() {
    vantro::BuiltInTerminal terminal;
    vantro::Explanation explanation;
    vantro::ObservedTerminal observed(terminal, &explanation);
    const auto search = vantro::createObject(u"CPDNTrans", observed);

    const vantro::Text screen = vantro::joinLines(u"PDN/-SMITH/ANNA/\n*T* SMITH/ANNA MS\n").screen;
    search->profileTrans()->VerifyResponse(screen, terminal.createCollection());
    std::cout << '\n' << ascii(vantro::textOf(explanation, vantro::findClass(u"CPDNTrans")));
}

}  // namespace

int main() {
    explainDisplay();
    explainScreen();
}
