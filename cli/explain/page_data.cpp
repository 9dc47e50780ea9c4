#include "cli/explain/page_data.h"

#include "cli/json/output.h"

namespace vantro {

namespace {

void writePlace(const Place& place, JsonOut& out) {
    out.key("line");
    out.number(place.line);
    out.key("column");
    out.number(place.column);
    out.key("length");
    out.number(place.length);
}

void writePieces(const std::vector<KeptPiece>& pieces, JsonOut& out) {
    out.beginArray();
    for (const KeptPiece& piece : pieces) {
        out.beginObject();
        out.key("text");
        out.text(piece.text);
        if (piece.place) writePlace(*piece.place, out);
        out.endObject();
    }
    out.endArray();
}

void writeValue(const PageValue& value, JsonOut& out) {
    out.beginObject();
    out.key("names");
    out.beginArray();
    for (const Text& name : value.names) out.text(name);
    out.endArray();
    out.key("index");
    out.number(value.index);
    out.key("group");
    out.number(static_cast<int>(value.group));
    out.key("meaning");
    out.text(value.meaning);
    out.key("rule");
    out.text(value.rule != nullptr ? value.rule->meaning : TextView());
    out.key("text");
    out.text(value.text);
    out.key("pieces");
    writePieces(value.pieces, out);
    out.endObject();
}

void writeDecision(const PageDecision& decision, std::size_t group, JsonOut& out) {
    out.beginObject();
    out.key("group");
    out.number(static_cast<int>(group));
    out.key("first");
    out.number(decision.step.line);
    out.key("last");
    out.number(decision.step.lastLine);
    out.key("isSearch");
    out.boolean(decision.step.kind == StepKind::MarkSearched);
    out.key("found");
    writePieces(decision.step.pieces, out);
    out.endObject();
}

void writeGroups(const std::vector<PageGroup>& groups, JsonOut& out) {
    out.beginArray();
    for (const PageGroup& group : groups) {
        out.beginObject();
        out.key("name");
        out.text(group.name);
        out.key("meaning");
        out.text(group.meaning);
        out.endObject();
    }
    out.endArray();
}

std::string replaced(std::string_view json, char character, std::string_view escape) {
    std::string result;
    for (const char byte : json) {
        if (byte == character) {
            result += escape;
        } else {
            result += byte;
        }
    }
    return result;
}

}  // namespace

std::string pageData(const PageModel& model) {
    std::string json;
    JsonOut out(json);
    out.beginObject();
    out.key("groups");
    writeGroups(model.groups, out);
    out.key("values");
    out.beginArray();
    for (const PageValue& value : model.values) writeValue(value, out);
    out.endArray();
    out.key("decisions");
    out.beginArray();
    for (std::size_t group = 0; group < model.groups.size(); ++group) {
        for (const PageDecision& decision : model.groups[group].decisions) writeDecision(decision, group, out);
    }
    out.endArray();
    out.endObject();
    return replaced(json, '<', "\\u003C");  // "<" is in strings only
}

}  // namespace vantro
