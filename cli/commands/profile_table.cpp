#include "cli/commands/profile_table.h"

#include "cli/commands/table.h"
#include "cli/io/utf.h"
#include "vantro/families.h"

#include <span>

namespace vantro {

namespace {

/// What an element has beside number and text: "kind S, code VGML, text NO DAIRY". Empty parts are left out.
std::string detailsOf(const Element& element, std::span<const ElementPart> furtherParts) {
    std::string details;
    if (element.kind != 0) details = "kind " + toUtf8({&element.kind, 1});
    for (const ElementPart part : furtherParts) {
        const PartFacts& facts = factsOf(part);
        if (facts.label.empty() || (element.*facts.value).empty()) continue;
        if (!details.empty()) details += ", ";
        details.append(facts.label).append(" ").append(toUtf8(element.*facts.value));
    }
    return details;
}

void addHeader(const Profile& profile, const ProfileQueries& queries, Table& table) {
    const auto addRow = [&](OtherQuery query, TextView number, TextView text) {
        if (!queries.contain(query) || (number.empty() && text.empty())) return;
        table.add({toUtf8(factsOf(query).word), toUtf8(number), toUtf8(text), ""});
    };
    addRow(OtherQuery::Name, {}, profile.name);
    addRow(OtherQuery::RecordLocator, {}, profile.recordLocator);
    addRow(OtherQuery::OfficeIdentifier, {}, profile.officeIdentifier);
    addRow(OtherQuery::CompanyName, profile.companyName.number.value_or(TextView()), profile.companyName.text);
    addRow(OtherQuery::Pin, profile.pin.number, profile.pin.text);
    if (profile.psl) addRow(OtherQuery::Psl, profile.psl->number, profile.psl->text);
}

void addNotes(const Profile& profile, Table& table) {
    for (const Note& note : profile.notes) {
        table.add({"note", std::to_string(note.number), toUtf8(note.text), "qualifier " + toUtf8(note.qualifier)});
    }
}

}  // namespace

std::string profileTable(const Profile& profile, const ProfileQueries& queries) {
    Table table({"WHAT", "NUMBER", "TEXT", "DETAILS"});
    addHeader(profile, queries, table);
    for (const FamilyName& row : familyNames()) {
        if (!queries.contain(row.family)) continue;
        if (queries.chooseFamilies() && profile.elements(row.family).empty()) {
            table.add({toUtf8(row.prefix), "", "", profile.isShown(row.family) ? "no element" : "section not shown"});
        }
        const std::span<const ElementPart> furtherParts = factsOf(row.family).furtherParts();
        for (const Element& element : profile.elements(row.family)) {
            table.add(
                {toUtf8(row.prefix), toUtf8(element.number), toUtf8(element.text), detailsOf(element, furtherParts)});
        }
    }
    if (queries.contain(OtherQuery::Notes)) addNotes(profile, table);
    for (const Problem& problem : profile.problems) {
        if (!queries.contain(problem.query)) continue;
        table.add({toUtf8(problem.query), "", "error " + std::to_string(problem.number), toUtf8(problem.description)});
    }
    return table.text(outputLook());
}

}  // namespace vantro
