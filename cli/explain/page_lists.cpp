#include "cli/explain/page_lists.h"

#include <algorithm>
#include <string_view>

namespace vantro {

namespace {

// A page with more values or decisions shows them folded, by query.
constexpr std::size_t mostUnfolded = 60;

// A list that is folded with its heading: one query's values or decisions.
void beginGroup(const PageGroup& group, bool isOpen, HtmlOut& html) {
    html.markup(isOpen ? "<details open=\"\">" : "<details>").markup("<summary><span class=\"group\"><b>");
    html.text(group.name).markup("</b>");
    if (!group.meaning.empty()) html.markup(" <span class=\"meaning\">").text(group.meaning).markup("</span>");
    html.markup("</span> <span class=\"count\">");
}

// Values

void writePlace(const Place& place, HtmlOut& html) {
    const int last = place.column + place.length - 1;
    html.markup("line ").number(place.line).markup(last > place.column ? ", columns " : ", column ");
    html.number(place.column);
    if (last > place.column) html.markup("&#8211;").number(last);
}

void writePlaces(const PageValue& value, HtmlOut& html) {
    if (!value.firstPlace()) {
        html.markup("<span class=\"meaning\">not on the screen</span>");
        return;
    }
    std::string_view separator;
    for (const KeptPiece& piece : value.pieces) {
        if (!piece.place) continue;
        html.markup(separator);
        writePlace(*piece.place, html);
        separator = "<br/>";
    }
}

void writeValueText(const PageValue& value, std::size_t at, HtmlOut& html) {
    const auto place = value.firstPlace();
    if (place) {
        html.markup("<a href=\"#line-").number(place->line).markup("\" data-value=\"").number(at);
        html.markup("\">").text(value.text).markup("</a>");
    } else if (value.text.empty()) {
        html.markup("<span class=\"meaning\">empty</span>");
    } else {
        html.text(value.text);
    }
}

void writeValue(const PageValue& value, std::size_t at, HtmlOut& html) {
    html.markup("<tr id=\"value-").number(at).markup("\"><th scope=\"row\">");
    std::string_view separator;
    for (const Text& name : value.names) {
        html.markup(separator).text(name);
        separator = "<br/>";
    }
    if (value.index > 0) html.markup(" <span class=\"index\">").number(value.index).markup("</span>");
    html.markup("</th><td class=\"content\">");
    writeValueText(value, at, html);
    html.markup("</td><td class=\"where\">");
    writePlaces(value, html);
    html.markup("</td></tr>\n");
}

// Nothing there, or no answer: the difference that everybody asks for.
void writeOutcome(const PageGroup& group, HtmlOut& html) {
    if (group.error) {
        html.markup("<strong class=\"failed\">failed: error ").number(group.error->number()).markup(", ");
        html.text(group.error->description()).markup("</strong>");
    } else if (group.values.empty()) {
        html.markup("<em class=\"empty\">empty</em>");
    } else {
        html.count(group.values.size(), "value", "values");
    }
}

}  // namespace

void writeValues(const PageModel& model, HtmlOut& html) {
    html.markup(
        "<section id=\"values\" tabindex=\"-1\" aria-labelledby=\"values-heading\">\n"
        "<h2 id=\"values-heading\">Values</h2>\n"
        "<p class=\"note\">Empty: the search went well, and there is nothing. Failed: an error ended it, so "
        "nothing is known.</p>\n");
    const bool isOpen = model.values.size() <= mostUnfolded;
    for (const PageGroup& group : model.groups) {
        beginGroup(group, isOpen && !group.values.empty(), html);
        writeOutcome(group, html);
        html.markup("</span></summary>\n");
        if (group.values.empty()) {
            html.markup(group.error ? "<p>The error ended the search: no value.</p>\n" : "<p>Nothing was found.</p>\n");
        } else {
            html.markup(
                "<table><thead><tr><th scope=\"col\">Name</th><th scope=\"col\">Value</th>"
                "<th scope=\"col\">Where</th></tr></thead><tbody>\n");
            for (const std::size_t value : group.values) writeValue(model.values[value], value, html);
            html.markup("</tbody></table>\n");
        }
        html.markup("</details>\n");
    }
    html.markup("</section>\n");
}

namespace {

// Decisions

std::int32_t firstLineOf(const KeptStep& step) {
    for (const KeptPiece& piece : step.pieces) {
        if (piece.place) return piece.place->line;
    }
    return step.line;
}

void writeDecision(const PageDecision& decision, std::size_t number, HtmlOut& html) {
    const std::int32_t line = firstLineOf(decision.step);
    html.markup("<li id=\"decision-").number(number).markup("\" value=\"").number(number + 1);
    html.markup("\">");
    if (line != noLine) {
        html.markup("<a class=\"step\" href=\"#line-").number(line).markup("\" data-decision=\"");
        html.number(number).markup("\">");
    } else {
        html.markup("<span class=\"step\">");
    }
    if (!decision.lines.empty()) html.markup("<span class=\"lines-of\">").text(decision.lines).markup("</span>: ");
    html.markup("<span>").text(decision.sentence).markup("</span>");
    if (!decision.meaning.empty())
        html.markup(" <span class=\"meaning\">&#8212; ").text(decision.meaning).markup("</span>");
    html.markup(line != noLine ? "</a></li>\n" : "</span></li>\n");
}

}  // namespace

void writeDecisions(const PageModel& model, std::size_t count, HtmlOut& html) {
    html.markup(
        "<section id=\"decisions\" tabindex=\"-1\" aria-labelledby=\"decisions-heading\">\n"
        "<h2 id=\"decisions-heading\">Decisions</h2>\n"
        "<p class=\"note\">In the order in which they were made. Lines count from 0, columns from 1.</p>\n");
    std::size_t number = 0;
    for (const PageGroup& group : model.groups) {
        if (group.decisions.empty()) continue;
        beginGroup(group, count <= mostUnfolded, html);
        html.count(group.decisions.size(), "decision", "decisions");
        html.markup("</span></summary>\n<ol>\n");
        for (const PageDecision& decision : group.decisions) writeDecision(decision, number++, html);
        html.markup("</ol>\n</details>\n");
    }
    html.markup("</section>\n");
}

// What is no value

void writeLookAlikes(std::span<const PageLookAlike> lookAlikes, HtmlOut& html) {
    if (lookAlikes.empty()) return;
    html.markup(
        "<section id=\"look-alikes\" tabindex=\"-1\" aria-labelledby=\"look-alikes-heading\">\n"
        "<h2 id=\"look-alikes-heading\">Look-alikes</h2>\n"
        "<p class=\"note\">Lines with a family's tag that are no elements, and why.</p>\n<ul class=\"plain\">\n");
    for (const PageLookAlike& lookAlike : lookAlikes) {
        const LookAlike& found = lookAlike.found;
        html.markup("<li><a class=\"step\" href=\"#line-").number(found.line).markup("\" data-line=\"");
        html.number(found.line).markup("\">").text(lookAlike.sentence).markup("</a></li>\n");
    }
    html.markup("</ul>\n</section>\n");
}

void writeUnread(std::span<const ScreenLine> lines, HtmlOut& html) {
    html.markup(
        "<section id=\"unread\" tabindex=\"-1\" aria-labelledby=\"unread-heading\">\n"
        "<h2 id=\"unread-heading\">Lines that nothing was read from</h2>\n");
    if (std::ranges::none_of(lines, &ScreenLine::isUnread)) {
        html.markup("<p>Something was read from every line that is not blank.</p>\n</section>\n");
        return;
    }
    html.markup("<ul class=\"unread-lines\">\n");
    for (std::size_t first = 0; first < lines.size();) {
        std::size_t end = first;
        while (end < lines.size() && lines[end].isUnread()) ++end;
        if (end == first) {
            ++first;
            continue;
        }
        html.markup("<li><a href=\"#line-").number(first).markup("\" data-line=\"").number(first);
        html.markup("\" data-last=\"").number(end - 1).markup("\">").number(first);
        if (end > first + 1) html.markup("&#8211;").number(end - 1);
        html.markup("</a></li>\n");
        first = end;
    }
    html.markup("</ul>\n</section>\n");
}

}  // namespace vantro
