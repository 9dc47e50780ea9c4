#include "readers/forward_pass.h"

#include "readers/note_scanner.h"
#include "readers/regular_lines.h"

namespace vantro {

namespace {

constexpr std::size_t tooManyLines = 32'000;

template <class Test>
constexpr FamilySet familiesWith(Test test) {
    FamilySet families;
    for (const PrefixedFamily& row : prefixedFamilies) {
        if (test(row)) families.add(row.family);
    }
    return families;
}

constexpr FamilySet searchedFromColumn1 =
    familiesWith([](const PrefixedFamily& row) { return row.searchFrom == PrefixFrom::Column1; });

/// The families to which a line without a tag belongs; so many columns from the tag's first one on are blank.
FamilySet untagged(std::size_t blankColumns) {
    static constexpr auto withWidth = [](int atMost) {
        return familiesWith([atMost](const PrefixedFamily& row) { return row.tagWidth.value <= atMost; });
    };
    static constexpr FamilySet none = withWidth(0);
    static constexpr FamilySet five = withWidth(5);
    static constexpr FamilySet six = withWidth(6);
    return none | five.onlyIf(blankColumns >= 5) | six.onlyIf(blankColumns >= 6);
}

class ForwardPass {
public:
    ForwardPass(Joiner& joiner, FoundElements& found, std::vector<Note>& notes)
        : joiner_(joiner), found_(found), notes_(notes), lines_(joiner.display().text()) {}

    std::optional<PassedProfile> run() {
        if (lines_.linesLeft() >= tooManyLines) return std::nullopt;
        readHead();
        if (!lines_.isAtRule()) return std::nullopt;
        const Counter firstHeader(static_cast<std::int16_t>(lines_.number()));
        while (lines_.isAtRule()) readSection();
        if (!lines_.isAtEnd()) return std::nullopt;
        return PassedProfile{firstHeader, lines_.sections()};
    }

private:
    // The lines above the first header.

    void readHead() {
        do {
            while (lines_.advance()) {
                if (!lines_.isRuled() && mayConcernRemarkConf()) {
                    lines_.refuse();
                    return;
                }
            }
        } while (lines_.isAtRule() && !lines_.header());
    }

    bool mayConcernRemarkConf() const {
        const bool isContinuation = !line_.isBlank() && continuesTransferable(line_.whole());
        if (isContinuation || line_.beginsWith(transferableBoundary)) return true;
        return codesIn(line_.rightTrimmed(), ~line_.printed).contains(Family::RemarkConf);
    }

    // Sections.

    void readSection() {
        const std::optional<Section> header = lines_.header();
        if (!header) return skipSection();
        if (*header == Section::Notes) return readNotes();
        const FamilySet families = familiesOf(*header);
        const std::size_t first = indexOf(families.first());
        if (first >= firstDocument) return readDocuments(families);
        if (first >= firstTransferable) return readTransferable(families);
        switch (prefixedFamilies[first].scheme) {  // Not covered: every scheme has its case
            case Scheme::Plain: return readWholeSection(families, JoinRule::Directly);
            case Scheme::ColonJoining: return readWholeSection(families, JoinRule::ColonAfterBlank);
            case Scheme::Policy: return static_cast<void>(readPrefixed(families, JoinRule::ColonAfterBlank));
            case Scheme::GlobalSearch: return readGlobalSearch(families.first());
        }
    }

    void skipSection() {
        while (lines_.advance()) {}
    }

    void readWholeSection(FamilySet families, JoinRule rule) {
        const bool isFound = readPrefixed(families, rule);
        if (!isFound && lines_.isAtEnd()) lines_.refuse();
    }

    /// Returns true if a family of the section has begun and not ended.
    bool readPrefixed(FamilySet families, JoinRule rule) {
        FamilySet collecting;
        while (lines_.advance()) {
            const FamilySet tagged = line_.prefixes.fromColumn3.among(families);
            collecting.add(tagged | line_.prefixes.anywhere.among(families & searchedFromColumn1));
            if (collecting.empty()) continue;
            if (continuesElement(lines_.next())) {
                if (!join(rule)) break;
                const TextView fromTag = mid(joining_, tagColumn);
                collecting = collecting & (tagged | untagged(fromTag.find_first_not_of(u' ')));
                storeJoined(collecting, elementTextColumn);
            } else {
                collecting = collecting & (tagged | untagged(line_.blanksFrom(tagColumn)));
                collecting.forEach([&](Family family) { found_.push_back(line_.element(family, elementTextColumn)); });
            }
        }
        return !collecting.empty();
    }

    /// Joins the current line and those that continue it. Returns false for irregular ones.
    bool join(JoinRule rule) {
        joining_ = line_.trimmed();
        while (continuesElement(lines_.next())) {
            if (!lines_.advance()) return false;
            if (line_.isBlank()) continue;
            const TextView more = line_.trimmed();
            if (line_.prefixes.anywhere.any() || more.substr(0, 3).find(u'/') != TextView::npos) return lines_.refuse();
            if (rule == JoinRule::ColonAfterBlank && isColonLine(more)) joining_ += u' ';
            joining_ += more;
        }
        if (contains(joining_, mark::endOfDisplay)) return lines_.refuse();
        return true;
    }

    void readGlobalSearch(Family family) {
        if (!lines_.advance()) {
            if (lines_.isAtEnd()) lines_.refuse();
            return;
        }
        const bool isFound = line_.prefixes.fromColumn3.contains(Prefix(family));
        if (isFound) found_.push_back(line_.element(family, elementTextColumn));
        int left = isFound ? mostUnprefixed : 0;
        while (lines_.advance()) {
            if (!line_.containsGapAt(tagColumn)) left = 0;
            if (left > 0) found_.push_back(line_.element(family, unprefixedTextColumn));
            left = std::max(left - 1, 0);
        }
    }

    // Each family has one run: a line with its prefix and the indented lines after it.
    void readDocuments(FamilySet ahead) {
        FamilySet running;
        while (lines_.advance()) {
            if (!line_.containsGapAt(Column{2}) && !line_.containsGapAt(Column{3})) running = FamilySet();
            const FamilySet tagged = line_.prefixes.anywhere.among(ahead | running);
            running.add(tagged);
            ahead.remove(tagged);
            running.forEach([&](Family family) {
                const bool isTagged = tagged.contains(family);
                const Column text = isTagged ? find(line_.trimmed(), u'/') + 1 : tagColumn;
                found_.push_back(line_.element(family, text));
            });
            if (beginsWith(line_.trimmed(), documentBoundary)) ahead = FamilySet();
        }
    }

    // The header's line is tested too.
    void readTransferable(FamilySet families) {
        if (lines_.isRuled()) families.remove(Family::RemarkConf);
        do {
            if (continuesTransferable(lines_.next())) {
                readJoined(families);
            } else {
                const FamilySet codes = codesIn(line_.rightTrimmed(), ~line_.printed) & families;
                codes.forEach([&](Family family) { found_.push_back(line_.transferable(family)); });
            }
            if (!lines_.advance()) return;
        } while (!line_.beginsWith(transferableBoundary));
        skipSection();
    }

    /// Remarks may continue on two lines, the other families on one.
    void readJoined(FamilySet families) {
        joining_ = line_.rightTrimmed();
        joining_ += trimmedLine(lines_.next());
        storeJoined(codesIn(joining_) & (families & oneLineJoiners), transferableTextColumn);
        const TextView third = lines_.nextButOne();
        if (continuesTransferable(third)) joining_ += trimmedLine(third);
        storeJoined(codesIn(joining_) & (families & twoLineJoiners), transferableTextColumn);
    }

    void readNotes() {
        if (lines_.containsBlankLine()) {
            lines_.refuse();
            return;
        }
        notes_.reserve(lines_.linesLeft());
        for (std::int16_t number = 1; lines_.advance(); ++number) {
            const std::size_t text = line_.textFrom(positionOf(noteTextColumn));
            notes_.push_back(
                {number, left(line_.whole(), qualifierWidth), {line_.characters + text, line_.end - text}});
        }
    }

    // Elements.

    void storeJoined(FamilySet families, Column textColumn) {
        if (families.empty()) return;
        const TextView kept = joiner_.keep(joining_);
        families.forEach([&](Family family) { found_.emplace_back(family, textColumn, kept); });
    }

    Joiner& joiner_;
    FoundElements& found_;
    std::vector<Note>& notes_;
    RegularLines lines_;
    const PassedLine& line_ = lines_.line();
    Text joining_;
};

}  // namespace

std::optional<PassedProfile> passForward(Joiner& joiner, FoundElements& found, std::vector<Note>& notes) {
    return ForwardPass(joiner, found, notes).run();
}

}  // namespace vantro
