#include "cli/commands/parsed_chunk.h"

#include "cli/commands/profile_csv.h"
#include "cli/commands/profile_table.h"
#include "cli/io/screen_warnings.h"
#include "cli/io/utf.h"
#include "cli/json/input.h"
#include "cli/json/positions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vantro {

namespace {

void appendJson(const Profile& profile, const ProfileView& view, const ProfilePositions& positions, std::string& out) {
    const std::size_t start = out.size();
    JsonOut json(out);
    ProfileMembers members = view.members;
    if (view.addsPositions) members.positions = &positions;
    writeProfile(profile, members, json);
    if (view.form == ProfileForm::IndentedJson) {
        out.replace(start, out.npos, indented(std::string_view(out).substr(start)));
    }
    out += '\n';
}

void appendProfile(const Profile& profile, const ProfileView& view, const ProfilePositions& positions,
                   std::string& out) {
    switch (view.form) {
        case ProfileForm::JsonLine:
        case ProfileForm::IndentedJson: return appendJson(profile, view, positions, out);
        case ProfileForm::Table: out += profileTable(profile, view.members.queries); return;
        case ProfileForm::Csv: return appendProfileCsv(profile, view.members.queries, out);
    }
}

void noteUnanswered(const Profile& profile, const ProfileQueries& queries, ParsedDisplay& display) {
    for (const Problem& problem : profile.problems) {
        if (!queries.contain(problem.query)) continue;
        if (!display.unanswered.empty()) display.unanswered += ", ";
        display.unanswered += toUtf8(problem.query) + " (error " + std::to_string(problem.number) + ")";
        ++display.unansweredCount;
    }
}

/// Parses the text of a display and writes its profile.
Profile writeProfileOf(Text text, const ProfileView& view, ParsedDisplay& display, std::string& out) {
    ProfilePositions positions;
    Profile profile = view.addsPositions ? parseProfile(std::move(text), positions) : parseProfile(std::move(text));
    noteUnanswered(profile, view.members.queries, display);
    if (view.needsLocator) display.locator = toUtf8(profile.recordLocator);
    appendProfile(profile, view, positions, out);
    return profile;
}

/// Parses a display of a text and notes what is doubtful about it.
void parseFound(FoundDisplay& found, const ProfileView& view, ParsedDisplay& display, std::string& out) {
    const TextView text = found.text;  // where the profile's views point to
    display.doubts = doubtsOf(found, text);
    const Profile profile = writeProfileOf(std::move(found.text), view, display, out);
    addElements(profile, display.doubts);
    if (view.findsUnread) addUnread(profile, found, text, display.doubts);
}

void parseRecord(Text text, const ProfileView& view, ParsedDisplay& display, std::string& out) {
    display.controls = screenWarnings(text);
    writeProfileOf(std::move(text), view, display, out);
}

/// The members of a record that are read.
class RecordReader {
public:
    /// Reads a line that `jsonPadding` bytes follow. Returns what is wrong with it, or "".
    std::string read(std::span<char> line) {
        const JsonOutcome outcome = input_.readObject(line, members_);
        isObject_ = outcome.isObject;
        if (!outcome.problem.empty()) return outcome.problem;
        if (!isObject_) return R"(the line is JSON, but not an object; a record is {"id":...,"display":...})";
        const JsonMember& display = members_[1];
        if (!display.isGiven) return "display: the member is missing";
        if (!display.fault.empty()) return "display: " + display.fault;
        return display_.isNull() ? "display: a display is needed, null is none" : "";
    }

    std::string id() const { return isObject_ && members_[0].isGiven ? id_ : ""; }
    Text display() const { return Text(display_.text()); }

private:
    JsonInput input_;
    JsonCopy id_;
    JsonScreen display_;
    std::array<JsonMember, 2> members_{{{"id", &id_}, {"display", &display_}}};
    bool isObject_ = false;
};

}  // namespace

ParsedChunk parseChunk(std::string_view chunk, const Splitting& splitting, const ProfileView& view) {
    ParsedChunk parsed;
    parsed.out.reserve(chunk.size());  // few displays' answers are longer than they are
    ChunkDisplays displays(chunk, splitting);
    while (std::optional<FoundDisplay> found = displays.next()) {
        ParsedDisplay& display = parsed.displays.emplace_back();
        display.line = found->line;
        display.faulty = found->faulty;
        display.title = std::move(found->title);
        if (found->faulty.fault == LineFault::None) parseFound(*found, view, display, parsed.out);
        display.outEnd = parsed.out.size();
    }
    parsed.lines = displays.lines();
    return parsed;
}

ParsedChunk parseRecords(std::span<char> lines, std::span<const std::size_t> tooLong, const ProfileView& view) {
    ParsedChunk parsed;
    RecordReader reader;
    while (!lines.empty()) {
        const auto length = static_cast<std::size_t>(std::ranges::find(lines, '\n') - lines.begin());
        ParsedDisplay& display = parsed.displays.emplace_back();
        if (std::ranges::count(tooLong, parsed.lines) > 0) {
            display.faulty = {.fault = LineFault::OverLong, .line = parsed.lines + 1};
        } else {
            display.problem = reader.read(lines.first(length));
            display.id = reader.id();
            if (display.problem.empty()) parseRecord(reader.display(), view, display, parsed.out);
        }
        display.outEnd = parsed.out.size();
        display.line = ++parsed.lines;
        lines = lines.subspan(length + 1);
    }
    return parsed;
}

}  // namespace vantro
