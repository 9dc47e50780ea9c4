#include "cli/explain/html_page.h"

#include "cli/explain/html_out.h"
#include "cli/explain/page_data.h"
#include "cli/explain/page_files.h"
#include "cli/explain/page_lists.h"
#include "cli/explain/page_model.h"
#include "cli/explain/page_screen.h"
#include "cli/explain/screen_segments.h"

#include <algorithm>
#include <span>

namespace vantro {

namespace {

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
    counts.unread = static_cast<std::size_t>(std::ranges::count_if(lines, &ScreenLine::isUnread));
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
    html.count(lines, "line", "lines");
    html.markup(", ");
    html.count(counts.values, "value", "values");
    html.markup(", ");
    html.count(counts.decisions, "decision", "decisions");
    html.markup(". ");
    if (model.groups.size() > 1) {
        html.markup("Of ").number(model.groups.size()).markup(" queries, ").number(counts.empty);
        html.markup(" found nothing and <span class=\"").markup(counts.failed > 0 ? "failed" : "none").markup("\">");
        html.number(counts.failed).markup(" failed</span>.");
    } else if (counts.failed > 0) {
        html.markup("<strong class=\"failed\">The call failed: error ").number(model.groups[0].error->number());
        html.markup(", ").text(model.groups[0].error->description()).markup(".</strong>");
    }
    html.markup("</p>\n</header>\n");
}

void writeTo(std::string_view target, std::string_view name, std::size_t count, HtmlOut& html) {
    html.markup("<li><a href=\"#").markup(target).markup("\">").markup(name).markup(" <span class=\"count\">");
    html.number(count).markup("</span></a></li>\n");
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
