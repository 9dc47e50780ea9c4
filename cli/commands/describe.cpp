#include "cli/commands/describe.h"

#include "cli/classes/trans_class.h"
#include "cli/io/failure.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/json/output.h"

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
    const bool isOne = !options.className.empty();
    writeOutput(isOne ? describedClass(options.className, options.json) : describedClasses(options.json));
    return success;
}

std::string describedClasses(bool json) { return json ? allAsJson() : classesAsText(); }

std::string describedClass(const std::string& name, bool json) {
    const ClassRow* const row = findClass(toUtf16(name));
    if (row == nullptr) throw UnknownClass(unknownClass(name));
    return json ? classAsJson(*row) : classAsText(*row);
}

}  // namespace vantro
