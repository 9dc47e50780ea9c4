// A class's row as JSON.
#include "cli/commands/describe.h"
#include "cli/commands/rows_view.h"
#include "cli/json/output.h"

#include <span>
#include <vector>

namespace vantro {

namespace {

void member(JsonOut& out, std::string_view name, TextView text) {
    out.key(name);
    out.text(text);
}

void member(JsonOut& out, std::string_view name, const std::string& ascii) {
    member(out, name, Text(ascii.begin(), ascii.end()));
}

void optionalMember(JsonOut& out, std::string_view name, TextView text) {
    if (!text.empty()) member(out, name, text);
}

void numberMember(JsonOut& out, std::string_view name, int number) {
    out.key(name);
    out.number(number);
}

/// An array of objects under a name; `write` writes the members of one.
template <class Item, class Write>
void arrayMember(JsonOut& out, std::string_view name, std::span<const Item> items, Write write) {
    out.key(name);
    out.beginArray();
    for (const Item& item : items) {
        out.beginObject();
        write(item);
        out.endObject();
    }
    out.endArray();
}

void textsMember(JsonOut& out, std::string_view name, std::span<const TextView> texts) {
    out.key(name);
    out.beginArray();
    for (const TextView text : texts) out.text(text);
    out.endArray();
}

std::string nameOf(Need need) {
    switch (need) {
        case Need::Required: return "required";
        case Need::Conditional: return "conditional";
        case Need::Optional: break;
    }
    return "optional";
}

std::string nameOf(MarkPosition position) {
    switch (position) {
        case MarkPosition::StartsLine: return "startsLine";
        case MarkPosition::InLine: return "inLine";
        case MarkPosition::NotOnScreen: return "notOnScreen";
        case MarkPosition::SameLine: return "sameLine";
        case MarkPosition::LineLater: return "lineLater";
        case MarkPosition::EndsList: return "endsList";
        case MarkPosition::OnScreen: break;
    }
    return "onScreen";
}

std::string nameOf(PassedCollection passed) {
    switch (passed) {
        case PassedCollection::Optional: return "optional";
        case PassedCollection::Required: return "required";
        case PassedCollection::Returned: return "returned";
        case PassedCollection::Ignored: break;
    }
    return "ignored";
}

void parameters(JsonOut& out, std::string_view name, std::span<const ParameterRow> rows) {
    arrayMember(out, name, rows, [&](const ParameterRow& row) {
        member(out, "key", row.key);
        member(out, "kind", vantro::nameOf(row.kind));
        member(out, "need", nameOf(row.need));
        optionalMember(out, "when", row.when);
        member(out, "meaning", row.meaning);
        if (!row.values.empty()) textsMember(out, "values", row.values);
    });
}

void results(JsonOut& out, std::string_view name, std::span<const ResultRow> rows) {
    arrayMember(out, name, rows, [&](const ResultRow& row) {
        member(out, "key", row.key);
        member(out, "kind", vantro::nameOf(row.kind));
        optionalMember(out, "when", row.when);
        member(out, "meaning", row.meaning);
    });
}

void forms(JsonOut& out, std::span<const CommandForm> rows) {
    arrayMember(out, "commands", rows, [&](const CommandForm& row) {
        member(out, "form", row.form);
        optionalMember(out, "when", row.when);
        arrayMember(out, "example", row.example, [&](const ExampleParameter& parameter) {
            member(out, "key", parameter.key);
            member(out, "value", parameter.value);
        });
        member(out, "command", row.command);
    });
}

void flags(JsonOut& out, std::span<const ScreenFlag> rows) {
    arrayMember(out, "screens", rows, [&](const ScreenFlag& row) {
        optionalMember(out, "flag", row.flag);
        member(out, "mark", row.mark);
        member(out, "position", nameOf(row.position));
        if (row.position == MarkPosition::StartsLine || row.position == MarkPosition::InLine) {
            numberMember(out, "firstLine", row.firstLine);
            numberMember(out, "lastLine", row.lastLine);
        }
        optionalMember(out, "otherMark", row.other);
        optionalMember(out, "command", row.command);
    });
}

void errorNumber(JsonOut& out, ClassCall call, int number) {
    if (number == TransErrors::passesThrough) return;
    out.beginObject();
    member(out, "call", vantro::nameOf(call));
    numberMember(out, "number", number);
    member(out, "meaning", u"whatever fails in it");
    out.endObject();
}

void errors(JsonOut& out, const ClassRow& row) {
    out.key("errors");
    out.beginArray();
    errorNumber(out, ClassCall::CreateCommand, row.errors.createCommand);
    errorNumber(out, ClassCall::VerifyResponse, row.errors.verifyResponse);
    for (const ErrorRow& error : row.description.errors) {
        out.beginObject();
        member(out, "call", vantro::nameOf(error.call));
        numberMember(out, "number", error.number);
        member(out, "meaning", error.meaning);
        out.endObject();
    }
    out.endArray();
}

void interfaces(JsonOut& out, const ClassRow& row) {
    out.key("interfaces");
    out.beginArray();
    if (row.hasProfileTrans) out.text(u"IProfileTrans");
    if (row.hasProfileGet) out.text(u"IProfileGet");
    out.endArray();
}

void counts(JsonOut& out, const ClassRow& row) {
    out.key("counts");
    out.beginArray();
    for (const CountProperty& count : row.counts) out.text(count.name);
    out.endArray();
    optionalMember(out, "countsMeaning", row.description.counts);
}

void columns(JsonOut& out, const ClassRow& row) {
    const std::vector<NamedColumn> named = columnsOf(row);
    if (named.empty()) return;
    arrayMember(out, "columns", std::span<const NamedColumn>(named), [&](const NamedColumn& column) {
        member(out, "name", column.name);
        member(out, "meaning", column.meaning);
    });
}

void transaction(JsonOut& out, const ClassDescription& about) {
    parameters(out, "parameters", about.parameters);
    forms(out, about.forms);
    member(out, "passedCollection", nameOf(about.passed));
    parameters(out, "state", about.state);
    results(out, "results", about.results);
    flags(out, about.flags);
    optionalMember(out, "screensRule", about.flagRule);
}

}  // namespace

std::string classAsJson(const ClassRow& row) {
    const ClassDescription& about = row.description;
    std::string json;
    JsonOut out(json);
    out.beginObject();
    member(out, "class", row.name);
    member(out, "purpose", about.purpose);
    optionalMember(out, "remark", about.remark);
    interfaces(out, row);
    textsMember(out, "transactions", row.transactions);
    if (row.hasProfileTrans) transaction(out, about);
    columns(out, row);
    if (row.hasProfileGet) {
        parameters(out, "request", about.request);
        results(out, "elements", about.elements);
        arrayMember(out, "queries", queriesOf(row), [&](const QueryFacts& query) {
            member(out, "prefix", query.word);
            member(out, "meaning", query.meaning);
        });
    }
    counts(out, row);
    errors(out, row);
    out.endObject();
    return json + "\n";
}

}  // namespace vantro
