#include "cli/batch/response.h"

#include "cli/io/utf.h"
#include "cli/json/collection.h"
#include "cli/json/output.h"
#include "cli/json/profile_json.h"

namespace vantro {

namespace {

struct ResultWriter {
    JsonOut& out;

    void operator()(const Text& command) const { out.text(command); }
    void operator()(const CollectionPtr& collection) const { writeCollection(collection, out); }
    void operator()(std::int16_t count) const { out.number(count); }
    void operator()(const Profile& profile) const { writeProfile(profile, {}, out); }
};

void writeId(const std::string* id, JsonOut& out) {
    if (id == nullptr) return;
    out.key("id");
    out.raw(*id);
}

void writeError(int number, TextView source, TextView description, JsonOut& out) {
    out.key("error");
    out.beginObject();
    out.key("number");
    out.number(number);
    out.key("source");
    out.text(source);
    out.key("description");
    out.text(description);
    out.endObject();
}

void writeOutcome(const Reply& reply, JsonOut& out) {
    if (reply.error) {
        return writeError(reply.error->number(), reply.error->source(), reply.error->description(), out);
    }
    out.key("result");
    std::visit(ResultWriter{out}, reply.result);
}

// The caller's own collection and selection, which the call changes even when it fails.
void writeArguments(const Request& request, JsonOut& out) {
    if (request.params) {
        out.key("params");
        writeCollection(request.params, out);
    }
    if (request.selection != nullptr) {
        out.key("selection");
        writeList(*request.selection, out);
    }
}

void writeReported(const Reply& reply, JsonOut& out) {
    if (reply.reported.empty()) return;
    out.key("reported");
    out.beginArray();
    for (const int number : reply.reported) out.number(number);
    out.endArray();
}

}  // namespace

void appendResponse(const Request& request, const Reply& reply, const std::string* id, std::string& out) {
    JsonOut json(out);
    json.beginObject();
    writeId(id, json);
    writeOutcome(reply, json);
    if (request.call == Call::ProfileElements) writeArguments(request, json);
    writeReported(reply, json);
    json.endObject();
    out += '\n';
}

void appendBadRequest(const std::string& problem, const std::string* id, std::string& out) {
    JsonOut json(out);
    json.beginObject();
    writeId(id, json);
    writeError(0, u"request", toUtf16(problem), json);
    json.endObject();
    out += '\n';
}

}  // namespace vantro
