// A class's row in lines of at most 80 characters.
#include "cli/commands/describe.h"
#include "cli/commands/description_page.h"
#include "cli/commands/rows_view.h"
#include "cli/io/utf.h"

#include <span>
#include <vector>

namespace vantro {

namespace {

std::string needOf(const ParameterRow& row) {
    switch (row.need) {
        case Need::Required: return ", needed";
        case Need::Conditional: return ", needed " + toUtf8(row.when);
        case Need::Optional: break;
    }
    return "";
}

void addParameters(DescriptionPage& page, const std::string& title, std::span<const ParameterRow> parameters) {
    if (parameters.empty()) return;
    page.heading(title);
    DescriptionRows rows;
    for (const ParameterRow& row : parameters) {
        const std::string values = row.values.empty() ? "" : ", " + joined(row.values, " or ");
        rows.add(toUtf8(row.key), nameOf(row.kind) + values + needOf(row) + ". " + asSentence(row.meaning));
    }
    rows.print(page);
}

void addResults(DescriptionPage& page, const std::string& title, std::span<const ResultRow> results) {
    if (results.empty()) return;
    page.heading(title);
    DescriptionRows rows;
    for (const ResultRow& row : results) {
        const std::string when = row.when.empty() ? "" : ", " + toUtf8(row.when);
        rows.add(toUtf8(row.key), nameOf(row.kind) + when + ". " + asSentence(row.meaning));
    }
    rows.print(page);
}

// Brackets and asterisks mean something to a shell.
std::string forShell(const std::string& argument) {
    return argument.find_first_of("()*") == std::string::npos ? argument : "'" + argument + "'";
}

void addForms(DescriptionPage& page, const ClassRow& row) {
    if (row.description.forms.empty()) return;
    page.heading("Commands; what is in brackets can be left out:");
    for (const CommandForm& form : row.description.forms) {
        page.paragraph("  ", toUtf8(form.form));
        if (!form.when.empty()) page.paragraph("      ", toUtf8(form.when));
        std::string line = "vantro-profile command " + toUtf8(row.name);
        for (const ExampleParameter& parameter : form.example) line += " " + forShell(asArgument(parameter));
        page.paragraph("      $ ", line, " \\");
        page.paragraph("      ", toUtf8(form.command));
    }
}

std::string positionOf(const ScreenFlag& flag) {
    const std::string lines = std::to_string(flag.firstLine) + " to " + std::to_string(flag.lastLine);
    switch (flag.position) {
        case MarkPosition::StartsLine: return " begins one of the lines " + lines;
        case MarkPosition::InLine: return " is in one of the lines " + lines;
        case MarkPosition::NotOnScreen: return " is nowhere on the screen";
        case MarkPosition::SameLine: return " is in the line with " + inQuotes(flag.other);
        case MarkPosition::LineLater: return " is 80 characters or more after " + inQuotes(flag.other);
        case MarkPosition::EndsList: return " is in the line that ends a company list";
        case MarkPosition::OnScreen: break;
    }
    return " is anywhere on the screen";
}

std::string describedFlag(const ScreenFlag& flag) {
    const bool isSaid = flag.position == MarkPosition::SameLine || flag.position == MarkPosition::LineLater;
    return (flag.command.empty() ? "" : "after " + toUtf8(flag.command) + ": ") + inQuotes(flag.mark) +
           positionOf(flag) + (flag.other.empty() || isSaid ? "" : ", and " + inQuotes(flag.other) + " is shown");
}

void addFlags(DescriptionPage& page, const ClassDescription& about) {
    if (about.flags.empty()) return;
    page.heading("Screens that make a flag True; lines count from 0:");
    DescriptionRows rows;
    for (const ScreenFlag& flag : about.flags) {
        rows.add(flag.flag.empty() ? "(none)" : toUtf8(flag.flag), describedFlag(flag));
    }
    rows.print(page);
    if (!about.flagRule.empty()) page.paragraph("  ", toUtf8(about.flagRule));
}

void addErrors(DescriptionPage& page, const ClassRow& row) {
    DescriptionRows rows;
    if (row.errors.createCommand != TransErrors::passesThrough) {
        rows.add(std::to_string(row.errors.createCommand), "CreateCommand: whatever fails in it");
    }
    if (row.errors.verifyResponse != TransErrors::passesThrough) {
        rows.add(std::to_string(row.errors.verifyResponse), "VerifyResponse: whatever fails in it");
    }
    for (const ErrorRow& error : row.description.errors) {
        rows.add(std::to_string(error.number), nameOf(error.call) + ": " + toUtf8(error.meaning));
    }
    if (rows.empty()) return;
    page.heading("Errors:");
    rows.print(page);
}

void addColumns(DescriptionPage& page, const ClassRow& row) {
    DescriptionRows rows;
    for (const NamedColumn& column : columnsOf(row)) rows.add(toUtf8(column.name), asSentence(column.meaning));
    if (rows.empty()) return;
    page.heading("Columns of a list, with verify --rows:");
    rows.print(page);
}

std::string stateTitle(PassedCollection passed) {
    return passed == PassedCollection::Optional
               ? "State, read with a screen where a collection is passed:"
               : "State, read with a screen from the collection that has to be passed:";
}

std::string resultsTitle(PassedCollection passed) {
    return passed == PassedCollection::Returned ? "Results, added to the collection that is passed:"
                                                : "Results, in a new collection:";
}

void addCounts(DescriptionPage& page, const ClassRow& row) {
    if (row.counts.empty()) return;
    page.heading("Counts:");
    std::vector<TextView> names;
    for (const CountProperty& count : row.counts) names.push_back(count.name);
    page.paragraph("  ", joined(names, ", "));
    page.paragraph("  ", toUtf8(row.description.counts));
}

void addQueries(DescriptionPage& page, const ClassRow& row) {
    DescriptionRows rows;
    for (const QueryFacts& query : queriesOf(row)) rows.add(toUtf8(query.word), asSentence(query.meaning));
    if (rows.empty()) return;
    page.heading("Prefixes; vantro-profile describe PREFIX says more:");
    rows.print(page);
}

void addTitle(DescriptionPage& page, const ClassRow& row) {
    page.paragraph("", toUtf8(row.name));
    page.paragraph("  ", toUtf8(row.description.purpose));
    if (!row.description.remark.empty()) page.paragraph("  ", toUtf8(row.description.remark));
    if (!row.transactions.empty()) page.paragraph("  ", "Host transactions: " + joined(row.transactions, ", "));
    page.paragraph("  ", std::string("Interfaces: ") + (row.hasProfileTrans ? "IProfileTrans" : "") +
                             (row.hasProfileTrans && row.hasProfileGet ? ", " : "") +
                             (row.hasProfileGet ? "IProfileGet" : ""));
}

}  // namespace

std::string classesAsText() {
    DescriptionPage page;
    DescriptionRows rows;
    for (const ClassRow& row : classTable()) rows.add(toUtf8(row.name), toUtf8(row.description.purpose));
    rows.print(page);
    return page.text();
}

std::string classAsText(const ClassRow& row) {
    const ClassDescription& about = row.description;
    DescriptionPage page;
    addTitle(page, row);
    addParameters(page, "Parameters of the command:", about.parameters);
    addForms(page, row);
    addParameters(page, stateTitle(about.passed), about.state);
    addResults(page, resultsTitle(about.passed), about.results);
    addFlags(page, about);
    addColumns(page, row);
    addParameters(page, "Request for elements of a display:", about.request);
    addResults(page, "Elements, added to the request:", about.elements);
    addQueries(page, row);
    addCounts(page, row);
    addErrors(page, row);
    return page.text();
}

}  // namespace vantro
