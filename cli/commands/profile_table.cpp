#include "cli/commands/profile_table.h"

#include "cli/commands/table.h"
#include "cli/io/utf.h"
#include "cli/json/profile_json.h"

#include <utility>

namespace vantro {

namespace {

/// Lists what an element has beside number and text: "code VGML, text NO DAIRY".
class Details {
public:
    void add(bool isThere, const char* name, TextView value) {
        if (!isThere || value.empty()) return;
        if (!text_.empty()) text_ += ", ";
        text_ += std::string(name) + " " + toUtf8(value);
    }
    std::string text() && { return std::move(text_); }

private:
    std::string text_;
};

std::string detailsOf(const Element& element, const FurtherFields& further) {
    Details details;
    details.add(further.code, "code", element.code);
    details.add(further.account, "airline", element.airline);
    details.add(further.account, "number", element.frequentFlyerNumber);
    details.add(further.freeText, "text", element.freeText);
    return std::move(details).text();
}

void addRow(const char* prefix, TextView number, TextView text, Table& table) {
    if (number.empty() && text.empty()) return;
    table.add({prefix, toUtf8(number), toUtf8(text), ""});
}

void addHeader(const Profile& profile, Table& table) {
    addRow("NM", {}, profile.name, table);
    addRow("RECLOC", {}, profile.recordLocator, table);
    addRow("OFFID", {}, profile.officeIdentifier, table);
    addRow("PCN", profile.companyName.number.value_or(TextView()), profile.companyName.text, table);
    addRow("PIN", profile.pin.number, profile.pin.text, table);
    if (profile.psl) addRow("PSL", profile.psl->number, profile.psl->text, table);
}

}  // namespace

std::string profileTable(const Profile& profile) {
    Table table({"WHAT", "NUMBER", "TEXT", "DETAILS"});
    addHeader(profile, table);
    for (const FamilyName& row : familyNames()) {
        const FurtherFields further = furtherFields(row.family);
        for (const Element& element : profile.elements(row.family)) {
            table.add({toUtf8(row.prefix), toUtf8(element.number), toUtf8(element.text), detailsOf(element, further)});
        }
    }
    for (const Note& note : profile.notes) {
        table.add({"note", std::to_string(note.number), toUtf8(note.text), "qualifier " + toUtf8(note.qualifier)});
    }
    for (const Problem& problem : profile.problems) {
        table.add({toUtf8(problem.query), "", "error " + std::to_string(problem.number), toUtf8(problem.description)});
    }
    return table.text();
}

}  // namespace vantro
