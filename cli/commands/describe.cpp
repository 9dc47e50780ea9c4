#include "cli/commands/describe.h"

#include "cli/classes/trans_class.h"
#include "cli/io/failure.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/json/output.h"

#include <algorithm>

namespace vantro {

namespace {

std::string allAsJson() {
    std::string json;
    JsonOut out(json);
    out.beginArray();
    for (const ClassRow& row : classTable()) {
        out.beginObject();
        out.key("class");
        out.text(row.name);
        out.key("purpose");
        out.text(row.description.purpose);
        out.endObject();
    }
    out.endArray();
    return json + "\n";
}

std::string described(const DescribeOptions& options) {
    if (options.name.empty()) return describedClasses(options.json);
    const QueryFacts* const query = findQuery(options.name);
    if (query == nullptr) return describedClass(options.name, options.json);
    return options.json ? queryAsJson(*query) : queryAsText(*query);
}

}  // namespace

std::string nameOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::Boolean: return "boolean";
        case ValueKind::Integer: return "integer";
        case ValueKind::StringList: return "list of texts";
        case ValueKind::IntegerOrString: return "integer or text";
        case ValueKind::String: break;
    }
    return "text";
}

std::string nameOf(ClassCall call) {
    switch (call) {
        case ClassCall::CreateCommand: return "CreateCommand";
        case ClassCall::VerifyResponse: return "VerifyResponse";
        case ClassCall::ProfileElements: return "ProfileElements";
        case ClassCall::Count: break;
    }
    return "a count";
}

std::string asArgument(const ExampleParameter& parameter) {
    return toUtf8(parameter.key) + "=" + toUtf8(parameter.value);
}

int runDescribe(const DescribeOptions& options) {
    writeOutput(described(options));
    return success;
}

const QueryFacts* findQuery(const std::string& prefix) {
    const Text word = toUtf16(prefix);
    const QueryFacts& notes = factsOf(OtherQuery::Notes);
    if (word == notes.word) return &notes;
    const auto query = std::ranges::find(profileQueries(), word, &QueryFacts::word);
    return query == profileQueries().end() ? nullptr : &*query;
}

std::span<const QueryFacts> queriesOf(const ClassRow& row) {
    if (!row.hasProfileGet) return {};
    return row.hasProfileTrans ? std::span(&factsOf(OtherQuery::Notes), 1) : profileQueries();
}

std::string describedClasses(bool json) { return json ? allAsJson() : classesAsText(); }

std::string describedClass(const std::string& name, bool json) {
    const ClassRow* const row = findClass(toUtf16(name));
    if (row == nullptr) throw UnknownClass(unknownClass(name));
    return json ? classAsJson(*row) : classAsText(*row);
}

}  // namespace vantro
