#include "cli/explain/page_screen.h"

#include "vantro/screen_lines.h"

#include <algorithm>
#include <string_view>

namespace vantro {

namespace {

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
            html.markup(separator).number(value);
            separator = " ";
        }
        html.markup("\"");
    }
    html.markup(" data-column=\"").number(segment.column).markup("\">").text(segment.text).markup("</span>");
}

void writeLine(const ScreenLine& line, std::size_t number, HtmlOut& html) {
    const bool isUnread = line.isUnread();
    html.markup("<li id=\"line-").number(number).markup("\" class=\"line");
    if (isUnread) html.markup(" unread");
    if (line.looksAlike) html.markup(" alike");
    html.markup("\"><span class=\"gutter\"><a class=\"number\" href=\"#line-").number(number);
    html.markup("\" tabindex=\"").markup(number == 0 ? "0" : "-1").markup("\" data-line=\"");
    html.number(number).markup("\"><span class=\"unseen\">line </span>").number(number);
    if (isUnread) html.markup("<span class=\"unseen\">, nothing was read from it</span>");
    if (line.looksAlike) html.markup("<span class=\"unseen\">, looks like an element and is none</span>");
    html.markup("</a></span><span class=\"text\">");
    for (const ScreenSegment& segment : line.segments) writeSegment(segment, html);
    html.markup("</span></li>\n");
}

void writeLegend(bool hasLookAlikes, HtmlOut& html) {
    html.markup(R"(<ul class="legend" aria-label="What the marking means">
<li><span class="value">value</span> read here</li>
<li><span class="value nested">value</span> several values</li>
<li><span class="mark">mark</span> searched for and found</li>
<li class="unread"><span class="sign">line</span> nothing was read from it</li>
)");
    if (hasLookAlikes) {
        html.markup("<li class=\"alike\"><span class=\"sign tag\">tag</span> looks like an element and is none</li>\n");
    }
    html.markup(R"(</ul>
<p class="keys" id="screen-keys">Arrow keys move from value to value and from line to line, Enter selects, Escape ends
the selection.</p>
)");
}

}  // namespace

void writeScreen(std::span<const ScreenLine> lines, HtmlOut& html) {
    html.markup(
        "<section class=\"screen\" id=\"screen\" aria-labelledby=\"screen-heading\">\n"
        "<h2 id=\"screen-heading\">Screen</h2>\n");
    writeLegend(std::ranges::any_of(lines, &ScreenLine::looksAlike), html);
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

}  // namespace vantro
