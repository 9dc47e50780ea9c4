#include "cli/commands/parsed_chunk.h"

#include "cli/commands/profile_table.h"
#include "cli/io/utf.h"
#include "cli/json/profile_json.h"

#include <utility>

namespace vantro {

namespace {

void appendProfile(const Profile& profile, ProfileForm form, std::string& out) {
    if (form == ProfileForm::Table) {
        out += profileTable(profile);
        return;
    }
    const std::size_t start = out.size();
    JsonOut json(out);
    writeProfile(profile, json);
    if (form == ProfileForm::IndentedJson) out.replace(start, out.npos, indented(std::string_view(out).substr(start)));
    out += '\n';
}

std::string unansweredIn(const Profile& profile) {
    std::string list;
    for (const Problem& problem : profile.problems) {
        if (!list.empty()) list += ", ";
        list += toUtf8(problem.query) + " (error " + std::to_string(problem.number) + ")";
    }
    return list;
}

}  // namespace

ParsedChunk parseChunk(std::string_view chunk, const Splitting& splitting, ProfileForm form, bool findsUnread) {
    ParsedChunk parsed;
    parsed.out.reserve(chunk.size());  // few displays' answers are longer than they are
    ChunkDisplays displays(chunk, splitting);
    while (std::optional<FoundDisplay> found = displays.next()) {
        ParsedDisplay& display = parsed.displays.emplace_back();
        display.faulty = found->faulty;
        if (found->faulty.fault == LineFault::None) {
            const TextView text = found->text;  // where the profile's views point to
            display.doubts = doubtsOf(*found, text);
            const Profile profile = parseProfile(std::move(found->text));
            addElements(profile, display.doubts);
            if (findsUnread) addUnread(profile, *found, text, display.doubts);
            display.unanswered = unansweredIn(profile);
            appendProfile(profile, form, parsed.out);
        }
        display.outEnd = parsed.out.size();
    }
    parsed.lines = displays.lines();
    return parsed;
}

}  // namespace vantro
