// What the WebAssembly module exports beside the C interface: explanations, the description of a class, the classes
// that read a screen, and the displays of a capture. All of it comes from the command-line tool's sources. The results
// are texts, most of them JSON; failures are those of the C interface.
#include "bindings/c/handles.h"
#include "cli/classes/identify.h"
#include "cli/classes/missing_keys.h"
#include "cli/commands/describe.h"
#include "cli/explain/explain_json.h"
#include "cli/explain/explained_response.h"
#include "cli/explain/html_page.h"
#include "cli/io/displays.h"
#include "cli/json/output.h"
#include "cli/json/profile_json.h"

#include <functional>
#include <string>

namespace vantro::c {

namespace {

/// The forms of an explanation, as src/explanations.js numbers them.
enum class Form : std::int32_t { Text, Json, Page };

std::string shown(const Explained& explained, Form form) {
    if (form == Form::Text) return toUtf8(textOf(explained.explanation, explained.row));
    if (form == Form::Page) return htmlPage(explained.explanation, explained.row, explained.title);
    std::string json;
    JsonOut out(json);
    writeExplanation(explained, out);
    return json;
}

void readObserved(Explanation& explanation, Explained& explained, TextView screen, const CollectionPtr& state) {
    try {
        explainResponse(*explained.row, screen, state, explanation, explained);
    } catch (const Error& raised) {
        explained.error = raised;
    }
}

/// The row of a class that reads screens. Raises 429 and 438.
const ClassRow& rowOf(TextView name) {
    const ClassRow* const row = findClass(name);
    if (row == nullptr) {
        BuiltInTerminal terminal;
        createObject(name, terminal);  // raises the error
    }
    if (!row->hasProfileTrans) throw Error(noSuchMember, u"VantroProfileUtils", u"The object has no VerifyResponse");
    return *row;
}

void writeReason(const Reason& reason, JsonOut& out) {
    out.beginObject();
    out.key("line");
    out.number(static_cast<int>(reason.line));
    out.key("mark");
    out.text(reason.mark);
    out.key("meaning");
    out.text(toUtf16(reason.meaning));
    out.endObject();
}

void writeDisplay(const FoundDisplay& display, JsonOut& out) {
    out.beginObject();
    out.key("line");
    out.number(static_cast<int>(display.line));
    out.key("screen");
    out.text(display.text);
    if (display.faulty.fault != LineFault::None) {
        out.key("problem");
        out.text(toUtf16(describe(display.faulty, 0, defaultMaxLine)));
    }
    out.endObject();
}

std::int32_t answer(vantro_string** result, const std::function<std::string()>& text) {
    *result = nullptr;
    return guarded([&] { *result = new vantro_string{toUtf16(text())}; });
}

}  // namespace

}  // namespace vantro::c

using namespace vantro;
using namespace vantro::c;

extern "C" {

/// How a class reads a screen, or, with an empty name, how a whole profile is read. The screen is lines of 80
/// characters joined without separators. An error that the class raises is part of the explanation. Raises 429 and 438.
std::int32_t vantro_explain(vantro_text class_name, vantro_text screen, const vantro_collection* state,
                            vantro_text title, std::int32_t form, vantro_string** explanation) {
    return answer(explanation, [&] {
        const TextArgument name(class_name);
        const TextArgument text(screen);
        Explanation steps;
        Explained explained{.explanation = steps,
                            .row = nullptr,
                            .call = "parseProfile",
                            .title = toUtf8(TextArgument(title).view()),
                            .file = "-",
                            .error = {},
                            .outcome = {},
                            .writeResults = {}};
        Profile profile;
        if (name.view().empty()) {
            profile = parseProfile(text.text(), steps);
            explained.outcome = outcomesOfQueries(steps, profile);
            explained.writeResults = [&profile](JsonOut& out) { writeProfile(profile, {}, out); };
        } else {
            explained.row = &rowOf(name.view());
            explained.call = "VerifyResponse";
            readObserved(steps, explained, text.view(), collectionOf(state));
        }
        return shown(explained, static_cast<Form>(form));
    });
}

/// The row of a class as a JSON object. An unknown class is error 429.
std::int32_t vantro_describe_class(vantro_text class_name, vantro_string** json) {
    return answer(json, [&] {
        const TextArgument name(class_name);
        const ClassRow* const row = findClass(name.view());
        return row != nullptr ? classAsJson(*row) : classAsJson(rowOf(name.view()));
    });
}

/// The classes that read a screen, the most likely first, as a JSON array.
std::int32_t vantro_identify(vantro_text screen, vantro_string** json) {
    return answer(json, [&] {
        const TextArgument text(screen);
        std::string written;
        JsonOut out(written);
        out.beginArray();
        for (const Candidate& candidate : identify(text.view())) {
            out.beginObject();
            out.key("className");
            out.text(candidate.row->name);
            out.key("reasons");
            out.beginArray();
            for (const Reason& reason : candidate.reasons) writeReason(reason, out);
            out.endArray();
            out.endObject();
        }
        out.endArray();
        return written;
    });
}

/// Which keys the parameters of an empty command lack.
std::int32_t vantro_missing_keys(vantro_text class_name, const vantro_collection* parameters, vantro_string** message) {
    return answer(message, [&] {
        return messageOfEmptyCommand(rowOf(TextArgument(class_name).view()), *parameters->collection);
    });
}

/// The displays in a text of lines, as a JSON array.
std::int32_t vantro_displays(vantro_text lines, vantro_string** json) {
    return answer(json, [&] {
        const std::string text = toUtf8(TextArgument(lines).view());
        std::string written;
        JsonOut out(written);
        out.beginArray();
        ChunkDisplays displays(text);
        while (const auto display = displays.next()) writeDisplay(*display, out);
        out.endArray();
        return written;
    });
}
}
