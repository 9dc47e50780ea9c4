#include "cli/commands/profile_csv.h"

#include "cli/io/csv.h"
#include "cli/io/utf.h"

#include <array>

namespace vantro {

namespace {

/// The cells of a row after those that say which display it is from.
struct Row {
    TextView family;
    TextView number = {};
    TextView text = {};
    const Element* element = nullptr;
    TextView qualifier = {};
    std::string error = {};
};

constexpr std::array parts{&Element::code, &Element::airline, &Element::frequentFlyerNumber, &Element::freeText};

void appendRow(const Row& row, std::string& out) {
    static const Element none{};
    const Element& element = row.element != nullptr ? *row.element : none;
    const TextView kind(&element.kind, element.kind == 0 ? 0 : 1);
    std::array<std::string, 10> cells{toUtf8(row.family), toUtf8(row.number), toUtf8(kind), toUtf8(row.text)};
    std::size_t next = 4;
    for (const TextView Element::*part : parts) cells.at(next++) = toUtf8(element.*part);
    cells.at(next++) = toUtf8(row.qualifier);
    cells.at(next) = row.error;
    appendCsvRow(cells, out);
}

class CsvWriter {
public:
    CsvWriter(const ProfileQueries& queries, std::string& out) : queries_(queries), out_(out) {}

    void write(const Profile& profile) {
        writeHeader(profile);
        for (const FamilyName& row : familyNames()) {
            if (queries_.contain(row.family)) writeFamily(row, profile);
        }
        if (queries_.contain(OtherQuery::Notes)) writeNotes(profile);
        for (const Problem& problem : profile.problems) {
            if (queries_.contain(problem.query)) writeProblem(problem);
        }
    }

private:
    void writeHeader(const Profile& profile) {
        writeValue(OtherQuery::Name, {}, profile.name);
        writeValue(OtherQuery::RecordLocator, {}, profile.recordLocator);
        writeValue(OtherQuery::OfficeIdentifier, {}, profile.officeIdentifier);
        writeValue(OtherQuery::CompanyName, profile.companyName.number.value_or(TextView()), profile.companyName.text);
        writeValue(OtherQuery::Pin, profile.pin.number, profile.pin.text);
        if (profile.psl) writeValue(OtherQuery::Psl, profile.psl->number, profile.psl->text);
    }

    void writeValue(OtherQuery query, TextView number, TextView text) {
        if (!queries_.contain(query) || (number.empty() && text.empty())) return;
        appendRow({.family = factsOf(query).word, .number = number, .text = text}, out_);
    }

    void writeFamily(const FamilyName& row, const Profile& profile) {
        for (const Element& element : profile.elements(row.family)) {
            appendRow({.family = row.prefix, .number = element.number, .text = element.text, .element = &element},
                      out_);
        }
    }

    void writeNotes(const Profile& profile) {
        for (const Note& note : profile.notes) {
            const Text number = toUtf16(std::to_string(note.number));
            appendRow({.family = factsOf(OtherQuery::Notes).word,
                       .number = number,
                       .text = note.text,
                       .qualifier = note.qualifier},
                      out_);
        }
    }

    void writeProblem(const Problem& problem) {
        const std::string error = "error " + std::to_string(problem.number) + ": " + toUtf8(problem.description);
        appendRow({.family = problem.query, .error = error}, out_);
    }

    const ProfileQueries& queries_;
    std::string& out_;
};

}  // namespace

std::string csvHeader() {
    return "file,display,line,id,family,number,kind,text,code,airline,frequentFlyerNumber,freeText,qualifier,error\n";
}

void appendProfileCsv(const Profile& profile, const ProfileQueries& queries, std::string& out) {
    CsvWriter(queries, out).write(profile);
}

void appendErrorCsv(const std::string& description, std::string& out) {
    appendRow({.family = {}, .error = description}, out);
}

}  // namespace vantro
