#include "cli/export/profile_rows.h"

#include "cli/io/utf.h"
#include "vantro/families.h"
#include "vantro/profile.h"

#define XXH_INLINE_ALL
#include <xxhash.h>
#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>

namespace vantro {

namespace {

constexpr std::array parts{&Element::code, &Element::airline, &Element::frequentFlyerNumber, &Element::freeText};

/// The rows of one display.
class DisplayRows {
public:
    DisplayRows(RowsOfTables& tables, std::size_t display) : tables_(tables), display_(display) {}

    void add(const Profile& profile, std::string_view hash, std::string_view kind) {
        std::size_t elements = 0;
        for (const FamilyName& row : familyNames()) elements += addFamily(row, profile.elements(row.family));
        for (const Note& note : profile.notes) addNote(note);
        for (const Problem& problem : profile.problems) addProblem(problem);

        TableRows& rows = begin(ExportTable::Profiles);
        rows.cell(hash);
        rows.cell(kind);
        for (const TextView value : {profile.recordLocator, profile.name, profile.officeIdentifier}) add(rows, value);
        addNumbered(rows, profile.companyName.number.value_or(TextView()), profile.companyName.text);
        addNumbered(rows, profile.pin.number, profile.pin.text);
        addNumbered(rows, profile.psl ? profile.psl->number : TextView(), profile.psl ? profile.psl->text : TextView());
        for (const std::size_t count : {elements, profile.notes.size(), profile.problems.size()}) rows.cell(count);
        addSections(rows, profile);
    }

private:
    TableRows& begin(ExportTable table) {
        TableRows& rows = tables_[indexOf(table)];
        rows.begin(display_);
        return rows;
    }

    void add(TableRows& rows, TextView text) {
        utf8_.clear();
        appendUtf8(text, utf8_);
        rows.cell(utf8_);
    }

    void addNumbered(TableRows& rows, TextView number, TextView text) {
        add(rows, number);
        add(rows, text);
    }

    void addSections(TableRows& rows, const Profile& profile) {
        utf8_.clear();
        for (std::size_t index = 0; index < sectionCount; ++index) {
            const auto section = static_cast<Section>(index);
            if (!profile.isShown(section)) continue;
            if (!utf8_.empty()) utf8_ += ';';
            appendUtf8(titleOf(section), utf8_);
        }
        rows.cell(utf8_);
    }

    std::size_t addFamily(const FamilyName& family, std::span<const Element> elements) {
        for (std::size_t index = 0; index < elements.size(); ++index) {
            const Element& element = elements[index];
            TableRows& rows = begin(ExportTable::Elements);
            add(rows, family.prefix);
            rows.cell(index + 1);
            add(rows, element.number);
            add(rows, TextView(&element.kind, element.kind == 0 ? 0 : 1));
            add(rows, element.text);
            for (const TextView Element::*part : parts) add(rows, element.*part);
        }
        return elements.size();
    }

    void addNote(const Note& note) {
        TableRows& rows = begin(ExportTable::Notes);
        rows.cell(static_cast<std::size_t>(note.number));
        add(rows, note.qualifier);
        add(rows, note.text);
    }

    void addProblem(const Problem& problem) {
        TableRows& rows = begin(ExportTable::Problems);
        add(rows, problem.query);
        rows.cell(static_cast<std::size_t>(problem.number));
        add(rows, problem.description);
    }

    RowsOfTables& tables_;
    std::size_t display_;
    std::string utf8_;
};

// The host prints the mark of a profile at the beginning of one of its first lines.
std::string_view kindOf(TextView display) {
    constexpr std::size_t firstLines = 7;
    constexpr std::size_t lineLength = 80;
    for (std::size_t start = 0; start < std::min(display.size(), firstLines * lineLength); start += lineLength) {
        const TextView line = display.substr(start);
        if (line.starts_with(u"*T*")) return "traveller";
        if (line.starts_with(u"*C*")) return "company";
    }
    return {};
}

}  // namespace

PieceRows rowsOf(std::string_view piece, const Splitting& splitting) {
    PieceRows rows;
    ChunkDisplays found(piece, splitting);
    while (std::optional<FoundDisplay> display = found.next()) {
        rows.displays.push_back({.line = display->line, .faulty = display->faulty});
        if (display->faulty.fault != LineFault::None) continue;
        rows.displays.back().hash = hashOf(display->text);
        const std::string_view kind = kindOf(display->text);
        const Profile profile = parseProfile(std::move(display->text));
        DisplayRows(rows.tables, rows.displays.size() - 1).add(profile, rows.displays.back().hash, kind);
    }
    rows.lines = found.lines();
    return rows;
}

std::string hashOf(TextView display) {
    const std::string utf8 = toUtf8(display.substr(0, display.find_last_not_of(u' ') + 1));  // npos + 1 is 0
    const XXH128_hash_t hash = XXH3_128bits(utf8.data(), utf8.size());
    std::string digits;
    for (const std::uint64_t half : {hash.high64, hash.low64}) {
        for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789abcdef"[(half >> shift) & 15U];
    }
    return digits;
}

}  // namespace vantro
