#include "cli/json/profile_json.h"

#include "cli/json/positions.h"

#include <algorithm>
#include <span>

namespace vantro {

namespace {

/// An element's kind with the comma before it.
std::string_view kindMember(char16_t kind) {
    if (kind == u'S') return R"(,"kind":"S")";
    return kind == u'A' ? R"(,"kind":"A")" : R"(,"kind":"")";
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

void writePositions(const Positioned& what, const Element& element, const FamilyFacts* family, bool followsPieces,
                    JsonOut& out) {
    PositionsMember member(what, out, followsPieces);
    member.add("number", element.number);
    member.add("text", element.text);
    for (const ElementPart part : family != nullptr ? family->furtherParts() : std::span<const ElementPart>()) {
        const PartFacts& facts = factsOf(part);
        if (facts.value != nullptr) member.add(facts.json, element.*facts.value);
    }
    member.end();
}

// Most of the output is elements: they are written piece by piece.
void writeElement(const Element& element, const FamilyFacts* family, const Positioned& where, JsonOut& out) {
    out.beginObject();
    out.piece(R"("number":")");
    out.characters(element.number);
    out.piece(R"(","text":")");
    out.characters(element.text);
    out.piece("\"");
    if (family != nullptr) {
        if (family->inSection == Section::Transferable) out.piece(kindMember(element.kind));
        for (const ElementPart part : family->furtherParts()) writePart(part, element, out);
    }
    if (where.positions != nullptr) writePositions(where, element, family, true, out);
    out.endObject();
}

void writeUnlessEmpty(std::string_view name, TextView value, JsonOut& out) {
    if (value.empty()) return;
    out.key(name);
    out.text(value);
}

void writeCompactElement(const Element& element, const FamilyFacts* family, const Positioned& where, JsonOut& out) {
    out.beginObject();
    writeUnlessEmpty("number", element.number, out);
    writeUnlessEmpty("text", element.text, out);
    if (element.kind != 0) writeUnlessEmpty("kind", {&element.kind, 1}, out);
    for (const ElementPart part : family != nullptr ? family->furtherParts() : std::span<const ElementPart>()) {
        const PartFacts& facts = factsOf(part);
        if (part != ElementPart::Asterisk) {
            writeUnlessEmpty(facts.json, element.*facts.value, out);
        } else if (element.asterisk) {
            out.key(facts.json);
            out.boolean(true);
        }
    }
    if (where.positions != nullptr) writePositions(where, element, family, false, out);
    out.endObject();
}

class ProfileWriter {
public:
    ProfileWriter(const Profile& profile, const ProfileMembers& members, JsonOut& out)
        : profile_(profile),
          queries_(members.queries),
          isCompact_(members.isCompact),
          positions_(members.positions),
          out_(out) {}

    void write() {
        out_.beginObject();
        writeHeader();
        if (queries_.families.any() || queries_.contain(OtherQuery::Notes)) writeSections();
        if (queries_.families.any()) writeFamilies();
        if (queries_.contain(OtherQuery::Notes)) writeNotes();
        writeProblems();
        out_.endObject();
    }

private:
    void writeHeader() {
        writeText(OtherQuery::Name, profile_.name);
        writeText(OtherQuery::RecordLocator, profile_.recordLocator);
        writeText(OtherQuery::OfficeIdentifier, profile_.officeIdentifier);
        writeCompanyName();
        writeNumbered(OtherQuery::Pin, &profile_.pin);
        writeNumbered(OtherQuery::Psl, profile_.psl ? &*profile_.psl : nullptr);
        if (positions_ != nullptr) writeHeaderPositions();
    }

    /// Of the values that are texts of their own.
    void writeHeaderPositions() {
        const Positioned header{positions_};
        PositionsMember member(header, out_);
        const auto add = [&](OtherQuery query, TextView value) {
            const QueryFacts& facts = factsOf(query);
            if (queries_.contain(query)) member.add(facts.word, facts.json, value);
        };
        add(OtherQuery::Name, profile_.name);
        add(OtherQuery::RecordLocator, profile_.recordLocator);
        add(OtherQuery::OfficeIdentifier, profile_.officeIdentifier);
        member.end();
    }

    Positioned at(TextView query, std::int32_t index) const { return {positions_, query, index}; }

    void key(OtherQuery query) { out_.key(factsOf(query).json); }

    void writeText(OtherQuery query, TextView text) {
        if (!queries_.contain(query)) return;
        if (isCompact_) return writeUnlessEmpty(factsOf(query).json, text, out_);
        key(query);
        out_.text(text);
    }

    void writeCompanyName() {
        if (!queries_.contain(OtherQuery::CompanyName)) return;
        const CompanyName& company = profile_.companyName;
        if (isCompact_) {
            const Element parts{.number = company.number.value_or(TextView()), .text = company.text};
            return writeNumbered(OtherQuery::CompanyName, &parts);
        }
        key(OtherQuery::CompanyName);
        out_.beginObject();
        out_.key("number");
        company.number ? out_.text(*company.number) : out_.null();
        out_.key("text");
        out_.text(company.text);
        if (positions_ != nullptr) {
            const Element parts{.number = company.number.value_or(TextView()), .text = company.text};
            writePositions(at(factsOf(OtherQuery::CompanyName).word, 0), parts, nullptr, false, out_);
        }
        out_.endObject();
    }

    /// A null element is one that the display does not have.
    void writeNumbered(OtherQuery query, const Element* element) {
        if (!queries_.contain(query)) return;
        if (isCompact_) {
            if (element == nullptr || (element->number.empty() && element->text.empty())) return;
            key(query);
            return writeCompactElement(*element, nullptr, at(factsOf(query).word, 0), out_);
        }
        key(query);
        element != nullptr ? writeElement(*element, nullptr, at(factsOf(query).word, 0), out_) : out_.null();
    }

    void writeSections() {
        if (isCompact_ && profile_.sections.none()) return;
        out_.key("sections");
        out_.beginArray();
        for (std::size_t index = 0; index < sectionCount; ++index) {
            const auto section = static_cast<Section>(index);
            if (profile_.isShown(section)) out_.text(titleOf(section));
        }
        out_.endArray();
    }

    void writeFamilies() {
        const auto isWritten = [this](const FamilyName& row) {
            return queries_.contain(row.family) && !(isCompact_ && profile_.elements(row.family).empty());
        };
        if (isCompact_ && std::ranges::none_of(familyNames(), isWritten)) return;
        out_.key("elements");
        out_.beginObject();
        for (const FamilyName& row : familyNames()) {
            if (isWritten(row)) writeFamily(row);
        }
        out_.endObject();
    }

    void writeFamily(const FamilyName& row) {
        const FamilyFacts& family = factsOf(row.family);
        out_.key(row.prefix);
        out_.beginArray();
        Positioned where = at(family.word, 0);
        for (const Element& element : profile_.elements(row.family)) {
            ++where.index;
            isCompact_ ? writeCompactElement(element, &family, where, out_)
                       : writeElement(element, &family, where, out_);
        }
        out_.endArray();
    }

    void writeNotes() {
        if (isCompact_ && profile_.notes.empty()) return;
        key(OtherQuery::Notes);
        out_.beginArray();
        std::int32_t index = 0;  // not the note's number: a line may be no note
        for (const Note& note : profile_.notes) {
            ++index;
            out_.beginObject();
            out_.key("number");
            out_.raw('"' + std::to_string(note.number) + '"');
            writeNoteText("qualifier", note.qualifier);
            writeNoteText("text", note.text);
            if (positions_ != nullptr) writeNotePositions(note, index);
            out_.endObject();
        }
        out_.endArray();
    }

    void writeNotePositions(const Note& note, std::int32_t index) {
        const Positioned where = at(factsOf(OtherQuery::Notes).word, index);
        PositionsMember member(where, out_);
        member.add("qualifier", note.qualifier);
        member.add("text", note.text);
        member.end();
    }

    void writeNoteText(std::string_view name, TextView text) {
        if (isCompact_) return writeUnlessEmpty(name, text, out_);
        out_.key(name);
        out_.text(text);
    }

    void writeProblems() {
        const auto isWritten = [this](const Problem& problem) { return queries_.contain(problem.query); };
        if (std::ranges::none_of(profile_.problems, isWritten)) return;
        out_.key("problems");
        out_.beginArray();
        for (const Problem& problem : profile_.problems) {
            if (isWritten(problem)) writeProblem(problem);
        }
        out_.endArray();
    }

    void writeProblem(const Problem& problem) {
        out_.beginObject();
        out_.key("query");
        out_.text(problem.query);
        out_.key("number");
        out_.number(problem.number);
        out_.key("description");
        out_.text(problem.description);
        out_.endObject();
    }

    const Profile& profile_;
    const ProfileQueries& queries_;
    const bool isCompact_;
    const ProfilePositions* positions_;
    JsonOut& out_;
};

}  // namespace

bool ProfileQueries::contain(TextView word) const {
    for (const FamilyName& row : familyNames()) {
        if (row.prefix == word) return contain(row.family);
    }
    for (std::size_t index = 0; index < otherQueryCount; ++index) {
        const auto query = static_cast<OtherQuery>(index);
        if (factsOf(query).word == word) return contain(query);
    }
    return false;
}

void writeProfile(const Profile& profile, const ProfileMembers& members, JsonOut& out) {
    ProfileWriter(profile, members, out).write();
}

}  // namespace vantro
