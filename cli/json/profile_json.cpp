#include "cli/json/profile_json.h"

namespace vantro {

namespace {

void writeField(std::string_view name, TextView value, JsonOut& out) {
    out.key(name);
    out.text(value);
}

void writeFurther(const Element& element, const FurtherFields& further, JsonOut& out) {
    if (further.code) writeField("code", element.code, out);
    if (further.account) {
        writeField("airline", element.airline, out);
        writeField("frequentFlyerNumber", element.frequentFlyerNumber, out);
    }
    if (further.freeText) writeField("freeText", element.freeText, out);
    if (further.asterisk) {
        out.key("asterisk");
        out.boolean(element.asterisk);
    }
}

void writeElement(const Element& element, const FurtherFields& further, JsonOut& out) {
    out.beginObject();
    writeField("number", element.number, out);
    writeField("text", element.text, out);
    writeFurther(element, further, out);
    out.endObject();
}

void writeHeader(const Profile& profile, JsonOut& out) {
    writeField("name", profile.name, out);
    writeField("recordLocator", profile.recordLocator, out);
    writeField("officeIdentifier", profile.officeIdentifier, out);

    out.key("companyName");
    out.beginObject();
    out.key("number");
    profile.companyName.number ? out.text(*profile.companyName.number) : out.null();
    writeField("text", profile.companyName.text, out);
    out.endObject();

    out.key("pin");
    writeElement(profile.pin, {}, out);
    out.key("psl");
    profile.psl ? writeElement(*profile.psl, {}, out) : out.null();
}

void writeFamilies(const Profile& profile, JsonOut& out) {
    out.key("elements");
    out.beginObject();
    for (const FamilyName& row : familyNames()) {
        const FurtherFields further = furtherFields(row.family);
        out.key(row.prefix);
        out.beginArray();
        for (const Element& element : profile.elements(row.family)) writeElement(element, further, out);
        out.endArray();
    }
    out.endObject();
}

void writeNotes(const Profile& profile, JsonOut& out) {
    out.key("notes");
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

FurtherFields furtherFields(Family family) {
    switch (family) {
        case Family::ServiceRequest: return {.code = true, .account = true, .freeText = true, .asterisk = true};
        case Family::FrequentFlyer: return {.account = true};
        case Family::RemarkConf: return {.freeText = true};
        default: return {};
    }
}

void writeProfile(const Profile& profile, JsonOut& out) {
    out.beginObject();
    writeHeader(profile, out);
    writeFamilies(profile, out);
    writeNotes(profile, out);
    writeProblems(profile, out);
    out.endObject();
}

}  // namespace vantro
