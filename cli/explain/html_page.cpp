#include "cli/explain/html_page.h"

#include "cli/explain/html_out.h"
#include "cli/explain/page_data.h"
#include "cli/explain/page_files.h"
#include "cli/explain/page_model.h"
#include "cli/explain/screen_segments.h"
#include "vantro/screen_lines.h"

#include <algorithm>
#include <span>

namespace vantro {

namespace {

using std::ptrdiff_t;

// A page with more values or decisions shows them folded, by query.
constexpr std::size_t mostUnfolded = 60;

ptrdiff_t asNumber(std::size_t value) { return static_cast<ptrdiff_t>(value); }

void writeCount(std::size_t count, std::string_view one, std::string_view many, HtmlOut& html) {
    html.number(asNumber(count)).markup(" ").markup(count == 1 ? one : many);
}

// A list that is folded with its heading: one query's values or decisions.
void beginGroup(const PageGroup& group, bool isOpen, HtmlOut& html) {
    html.markup(isOpen ? "<details open=\"\">" : "<details>").markup("<summary><span class=\"group\"><b>");
    html.text(group.name).markup("</b>");
    if (!group.meaning.empty()) html.markup(" <span class=\"meaning\">").text(group.meaning).markup("</span>");
    html.markup("</span> <span class=\"count\">");
}

// The screen

void writeRuler(HtmlOut& html) {
    html.markup("<div class=\"ruler\" aria-hidden=\"true\"><span class=\"gutter\"></span><span class=\"text\">");
    for (int column = 10; column <= screenWidth; column += 10) {
        html.markup(column < 100 ? "        " : "       ").number(column);
    }
    html.markup("\n");
    for (int column = 1; column <= screenWidth; ++column) html.number(column % 10);
    html.markup("</span></div>\n");
}

void writeSegment(const ScreenSegment& segment, HtmlOut& html) {
    if (segment.values.empty() && !segment.isMark && !segment.isLookAlike) {
        html.text(segment.text);
        return;
    }
    html.markup("<span class=\"");
    if (!segment.values.empty()) html.markup(segment.values.size() > 1 ? "value nested" : "value");
    if (segment.isMark) html.markup(" mark");
    if (segment.isLookAlike) html.markup(" tag");
    html.markup("\"");
    if (!segment.values.empty()) {
        // A blank between two parts is nothing to stop at.
        const bool isBlank = segment.text.find_first_not_of(u' ') == TextView::npos;
        if (!isBlank) html.markup(" role=\"button\" tabindex=\"-1\" aria-pressed=\"false\"");
        html.markup(" data-values=\"");
        std::string_view separator;
        for (const std::size_t value : segment.values) {
            html.markup(separator).number(asNumber(value));
            separator = " ";
        }
        html.markup("\"");
    }
    html.markup(" data-column=\"").number(asNumber(segment.column)).markup("\">").text(segment.text).markup("</span>");
}

void writeLine(const ScreenLine& line, std::size_t number, HtmlOut& html) {
    const bool isUnread = !line.isRead && !line.isBlank;
    html.markup("<li id=\"line-").number(asNumber(number)).markup("\" class=\"line");
    if (isUnread) html.markup(" unread");
    if (line.looksAlike) html.markup(" alike");
    html.markup("\"><span class=\"gutter\"><a class=\"number\" href=\"#line-").number(asNumber(number));
    html.markup("\" tabindex=\"").markup(number == 0 ? "0" : "-1").markup("\" data-line=\"");
    html.number(asNumber(number)).markup("\"><span class=\"unseen\">line </span>").number(asNumber(number));
    if (isUnread) html.markup("<span class=\"unseen\">, nothing was read from it</span>");
    if (line.looksAlike) html.markup("<span class=\"unseen\">, looks like an element and is none</span>");
    html.markup("</a></span><span class=\"text\">");
    for (const ScreenSegment& segment : line.segments) writeSegment(segment, html);
    html.markup("</span></li>\n");
}

void writeScreen(const std::vector<ScreenLine>& lines, HtmlOut& html) {
    html.markup(R"(<section class="screen" id="screen" aria-labelledby="screen-heading">
<h2 id="screen-heading">Screen</h2>
<ul class="legend" aria-label="What the marking means">
<li><span class="value">value</span> read here</li>
<li><span class="value nested">value</span> several values</li>
<li><span class="mark">mark</span> searched for and found</li>
<li class="unread"><span class="sign">line</span> nothing was read from it</li>
<li class="alike"><span class="sign tag">tag</span> looks like an element and is none</li>
</ul>
<p class="keys" id="screen-keys">Arrow keys move from value to value and from line to line, Enter selects, Escape ends
the selection.</p>
)");
    if (lines.empty()) {
        html.markup("<p>The screen is empty.</p>\n</section>\n");
        return;
    }
    html.markup(
        "<div class=\"box\" id=\"box\" role=\"group\" aria-labelledby=\"screen-heading\" "
        "aria-describedby=\"screen-keys\">\n");
    writeRuler(html);
    html.markup("<ol class=\"lines\">\n");
    for (std::size_t number = 0; number < lines.size(); ++number) writeLine(lines[number], number, html);
    html.markup("</ol>\n</div>\n</section>\n");
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
        html.markup("<a href=\"#line-").number(place->line).markup("\" data-value=\"").number(asNumber(at));
        html.markup("\">").text(value.text).markup("</a>");
    } else if (value.text.empty()) {
        html.markup("<span class=\"meaning\">empty</span>");
    } else {
        html.text(value.text);
    }
}

void writeValue(const PageValue& value, std::size_t at, HtmlOut& html) {
    html.markup("<tr id=\"value-").number(asNumber(at)).markup("\"><th scope=\"row\">");
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
        writeCount(group.values.size(), "value", "values", html);
    }
}

void writeValues(const PageModel& model, HtmlOut& html) {
    html.markup(
        "<section id=\"values\" tabindex=\"-1\" aria-labelledby=\"values-heading\">\n"
        "<h2 id=\"values-heading\">Values</h2>\n"
        "<p class=\"note\">Empty: the search went well, and there is nothing. Failed: an error ended it, and "
        "nobody knows.</p>\n");
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

// Decisions

void writeLines(const KeptStep& step, HtmlOut& html) {
    if (step.line == noLine) return;
    html.markup("<span class=\"lines-of\">").markup(step.lastLine > step.line ? "lines " : "line ").number(step.line);
    if (step.lastLine > step.line) html.markup("&#8211;").number(step.lastLine);
    html.markup("</span> ");
}

std::int32_t firstLineOf(const KeptStep& step) {
    for (const KeptPiece& piece : step.pieces) {
        if (piece.place) return piece.place->line;
    }
    return step.line;
}

void writeDecision(const PageDecision& decision, std::size_t number, HtmlOut& html) {
    const std::int32_t line = firstLineOf(decision.step);
    html.markup("<li id=\"decision-").number(asNumber(number)).markup("\" value=\"").number(asNumber(number) + 1);
    html.markup("\">");
    if (line != noLine) {
        html.markup("<a class=\"step\" href=\"#line-").number(line).markup("\" data-decision=\"");
        html.number(asNumber(number)).markup("\">");
    } else {
        html.markup("<span class=\"step\">");
    }
    writeLines(decision.step, html);
    html.markup("<span>").text(decision.sentence).markup("</span>");
    if (!decision.meaning.empty()) html.markup(" <span class=\"meaning\">").text(decision.meaning).markup("</span>");
    html.markup(line != noLine ? "</a></li>\n" : "</span></li>\n");
}

void writeDecisions(const PageModel& model, std::size_t count, HtmlOut& html) {
    html.markup(
        "<section id=\"decisions\" tabindex=\"-1\" aria-labelledby=\"decisions-heading\">\n"
        "<h2 id=\"decisions-heading\">Decisions</h2>\n"
        "<p class=\"note\">In the order in which they were made. Lines count from 0, columns from 1.</p>\n");
    std::size_t number = 0;
    for (const PageGroup& group : model.groups) {
        if (group.decisions.empty()) continue;
        beginGroup(group, count <= mostUnfolded, html);
        writeCount(group.decisions.size(), "decision", "decisions", html);
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
        html.number(found.line).markup("\"><span class=\"lines-of\">line ").number(found.line).markup("</span> <b>");
        html.text(factsOf(found.family).word)
            .markup("</b> <span>")
            .text(lookAlike.sentence)
            .markup("</span></a></li>\n");
    }
    html.markup("</ul>\n</section>\n");
}

bool isUnread(const ScreenLine& line) { return !line.isRead && !line.isBlank; }

void writeUnread(std::span<const ScreenLine> lines, HtmlOut& html) {
    html.markup(
        "<section id=\"unread\" tabindex=\"-1\" aria-labelledby=\"unread-heading\">\n"
        "<h2 id=\"unread-heading\">Lines that nothing was read from</h2>\n");
    if (std::ranges::none_of(lines, isUnread)) {
        html.markup("<p>Something was read from every line that is not blank.</p>\n</section>\n");
        return;
    }
    html.markup("<ul class=\"unread-lines\">\n");
    for (std::size_t first = 0; first < lines.size();) {
        std::size_t end = first;
        while (end < lines.size() && isUnread(lines[end])) ++end;
        if (end == first) {
            ++first;
            continue;
        }
        html.markup("<li><a href=\"#line-").number(asNumber(first)).markup("\" data-line=\"").number(asNumber(first));
        html.markup("\" data-last=\"").number(asNumber(end) - 1).markup("\">").number(asNumber(first));
        if (end > first + 1) html.markup("&#8211;").number(asNumber(end) - 1);
        html.markup("</a></li>\n");
        first = end;
    }
    html.markup("</ul>\n</section>\n");
}

// The page

struct Counts {
    std::size_t values = 0;
    std::size_t decisions = 0;
    std::size_t lookAlikes = 0;
    std::size_t unread = 0;
    std::size_t empty = 0;
    std::size_t failed = 0;
};

Counts countsOf(const PageModel& model, std::span<const ScreenLine> lines) {
    Counts counts{.values = model.values.size(), .lookAlikes = model.lookAlikes.size()};
    for (const PageGroup& group : model.groups) {
        counts.decisions += group.decisions.size();
        if (group.error) {
            ++counts.failed;
        } else if (group.values.empty()) {
            ++counts.empty;
        }
    }
    counts.unread = static_cast<std::size_t>(std::ranges::count_if(lines, isUnread));
    return counts;
}

void writeHead(std::string_view title, HtmlOut& html) {
    html.markup(R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8"/>
<meta name="viewport" content="width=device-width, initial-scale=1"/>
<meta name="color-scheme" content="light dark"/>
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; script-src 'unsafe-inline'"/>
<title>)")
        .text(title)
        .markup("</title>\n<style>\n")
        .markup(pageStyle())
        .markup(R"(</style>
</head>
<body>
<a class="skip" href="#values">Skip to the values</a>
<a class="skip" href="#decisions">Skip to the decisions</a>
<header>
<h1>)")
        .text(title)
        .markup("</h1>\n<p class=\"summary\">");
}

void writeSummary(const PageModel& model, std::size_t lines, const Counts& counts, HtmlOut& html) {
    writeCount(lines, "line", "lines", html);
    html.markup(", ");
    writeCount(counts.values, "value", "values", html);
    html.markup(", ");
    writeCount(counts.decisions, "decision", "decisions", html);
    html.markup(". ");
    if (model.groups.size() > 1) {
        html.markup("Of ").number(asNumber(model.groups.size())).markup(" queries, ").number(asNumber(counts.empty));
        html.markup(" found nothing and <span class=\"").markup(counts.failed > 0 ? "failed" : "none").markup("\">");
        html.number(asNumber(counts.failed)).markup(" failed</span>.");
    } else if (counts.failed > 0) {
        html.markup("<strong class=\"failed\">The call failed: error ").number(model.groups[0].error->number());
        html.markup(", ").text(model.groups[0].error->description()).markup(".</strong>");
    }
    html.markup("</p>\n</header>\n");
}

void writeTo(std::string_view target, std::string_view name, std::size_t count, HtmlOut& html) {
    html.markup("<li><a href=\"#").markup(target).markup("\">").markup(name).markup(" <span class=\"count\">");
    html.number(asNumber(count)).markup("</span></a></li>\n");
}

void writePanel(const PageModel& model, std::span<const ScreenLine> lines, const Counts& counts, HtmlOut& html) {
    html.markup(R"(<div class="panel" id="panel">
<section class="selection" id="selection" aria-label="Selection" aria-live="polite"></section>
<nav aria-label="Lists"><ul>
)");
    writeTo("values", "Values", counts.values, html);
    writeTo("decisions", "Decisions", counts.decisions, html);
    if (counts.lookAlikes > 0) writeTo("look-alikes", "Look-alikes", counts.lookAlikes, html);
    writeTo("unread", "Unread lines", counts.unread, html);
    html.markup("</ul></nav>\n<div class=\"lists\">\n");
    writeValues(model, html);
    writeDecisions(model, counts.decisions, html);
    writeLookAlikes(model.lookAlikes, html);
    writeUnread(lines, html);
    html.markup("</div>\n</div>\n");
}

}  // namespace

std::string htmlPage(const Explanation& explanation, const ClassRow* row, std::string_view title) {
    const PageModel model = pageModel(explanation, row);
    const std::vector<ScreenLine> lines = screenLines(model);
    const Counts counts = countsOf(model, lines);
    std::string page;
    HtmlOut html(page);
    writeHead(title, html);
    writeSummary(model, lines.size(), counts, html);
    html.markup("<main>\n");
    writeScreen(lines, html);
    writePanel(model, lines, counts, html);
    html.markup("</main>\n<script type=\"application/json\" id=\"data\">").markup(pageData(model));
    html.markup("</script>\n<script>\n").markup(pageScript()).markup("</script>\n</body>\n</html>\n");
    return page;
}

}  // namespace vantro
