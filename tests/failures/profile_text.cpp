#include "tests/failures/profile_text.h"

#include "tests/support/text.h"

namespace vantro::test {

namespace {

std::string elementText(const Element& element) {
    std::string text;
    for (const TextView part :
         {element.number, element.text, element.code, element.airline, element.frequentFlyerNumber, element.freeText}) {
        text += '[' + utf8(part) + ']';
    }
    return text + (element.asterisk ? "*\n" : "\n");
}

}  // namespace

std::string profileText(const Profile& profile) {
    std::string text;
    for (const TextView part : {profile.name, profile.recordLocator, profile.officeIdentifier,
                                profile.companyName.number.value_or(u"none"), profile.companyName.text}) {
        text += '[' + utf8(part) + "]\n";
    }
    text += elementText(profile.pin) + (profile.psl ? elementText(*profile.psl) : "none\n");
    for (const FamilyName& row : familyNames()) {
        text += utf8(row.prefix) + '\n';
        for (const Element& element : profile.elements(row.family)) text += elementText(element);
    }
    for (const Note& note : profile.notes) {
        text += std::to_string(note.number) + '[' + utf8(note.qualifier) + "][" + utf8(note.text) + "]\n";
    }
    for (const Problem& problem : profile.problems) {
        text += utf8(problem.query) + ' ' + std::to_string(problem.number) + ' ' + utf8(problem.description) + '\n';
    }
    return text;
}

}  // namespace vantro::test
