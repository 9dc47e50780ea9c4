#include "cli/json/profile_json.h"

#include "vantro/families.h"

#include <span>

namespace vantro {

namespace {

void writeField(std::string_view name, TextView value, JsonOut& out) {
    out.key(name);
    out.text(value);
}

void writePart(ElementPart part, const Element& element, JsonOut& out) {
    const PartFacts& facts = factsOf(part);
    out.piece(",\"");
    out.piece(facts.json);
    if (part == ElementPart::Asterisk) return out.piece(element.asterisk ? "\":true" : "\":false");
    out.piece("\":\"");
    out.characters(element.*facts.value);
    out.piece("\"");
}

// Most of the output is elements: they are written piece by piece.
void writeElement(const Element& element, std::span<const ElementPart> furtherParts, JsonOut& out) {
    out.beginObject();
    out.piece(R"("number":")");
    out.characters(element.number);
    out.piece(R"(","text":")");
    out.characters(element.text);
    out.piece("\"");
    for (const ElementPart part : furtherParts) writePart(part, element, out);
    out.endObject();
}

void writeHeader(const Profile& profile, JsonOut& out) {
    writeField(factsOf(OtherQuery::Name).json, profile.name, out);
    writeField(factsOf(OtherQuery::RecordLocator).json, profile.recordLocator, out);
    writeField(factsOf(OtherQuery::OfficeIdentifier).json, profile.officeIdentifier, out);

    out.key(factsOf(OtherQuery::CompanyName).json);
    out.beginObject();
    out.key("number");
    profile.companyName.number ? out.text(*profile.companyName.number) : out.null();
    writeField("text", profile.companyName.text, out);
    out.endObject();

    out.key(factsOf(OtherQuery::Pin).json);
    writeElement(profile.pin, {}, out);
    out.key(factsOf(OtherQuery::Psl).json);
    profile.psl ? writeElement(*profile.psl, {}, out) : out.null();
}

void writeFamilies(const Profile& profile, JsonOut& out) {
    out.key("elements");
    out.beginObject();
    for (const FamilyName& row : familyNames()) {
        const std::span<const ElementPart> furtherParts = factsOf(row.family).furtherParts();
        out.key(row.prefix);
        out.beginArray();
        for (const Element& element : profile.elements(row.family)) writeElement(element, furtherParts, out);
        out.endArray();
    }
    out.endObject();
}

void writeNotes(const Profile& profile, JsonOut& out) {
    out.key(factsOf(OtherQuery::Notes).json);
    out.beginArray();
    for (const Note& note : profile.notes) {
        out.beginObject();
        out.key("number");
        out.raw('"' + std::to_string(note.number) + '"');
        writeField("qualifier", note.qualifier, out);
        writeField("text", note.text, out);
        out.endObject();
    }
    out.endArray();
}

void writeProblems(const Profile& profile, JsonOut& out) {
    if (profile.problems.empty()) return;
    out.key("problems");
    out.beginArray();
    for (const Problem& problem : profile.problems) {
        out.beginObject();
        writeField("query", problem.query, out);
        out.key("number");
        out.number(problem.number);
        writeField("description", problem.description, out);
        out.endObject();
    }
    out.endArray();
}

}  // namespace

void writeProfile(const Profile& profile, JsonOut& out) {
    out.beginObject();
    writeHeader(profile, out);
    writeFamilies(profile, out);
    writeNotes(profile, out);
    writeProblems(profile, out);
    out.endObject();
}

}  // namespace vantro
