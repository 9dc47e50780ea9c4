// Searches the host's profiles by name: builds the command, then reads the screen that answers it.
#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"
#include "vantro/screen_lines.h"

#include <iostream>
#include <string>

int main() {
    vantro::BuiltInTerminal terminal;
    const auto search = vantro::createObject(u"CPDNTrans", terminal);

    const vantro::CollectionPtr params = terminal.createCollection();
    params->Add(u"strKeyName", u"SMITH/ANNA");
    params->Add(u"blnKeyExactMatch", true);
    const vantro::Text command = search->profileTrans()->CreateCommand(params);
    std::cout << "send: " << std::string(command.begin(), command.end()) << '\n';

    // Lines of 80 characters, joined without separators.
    const vantro::Text screen = vantro::joinLines(u"PDN/-SMITH/ANNA/\n*T* SMITH/ANNA MS\n").screen;
    const vantro::CollectionPtr results = search->profileTrans()->VerifyResponse(screen, params);
    const bool found = std::get<bool>(results->Item(u"blnKeyTrProfile")->Value());
    std::cout << (found ? "a traveller's profile" : "something else") << '\n';
}
