#include "cli/explain/html_page.h"

#include "cli/io/utf.h"

namespace vantro {

namespace {

std::string escaped(std::string_view text) {
    std::string html;
    for (const char character : text) {
        if (character == '<') {
            html += "&lt;";
        } else if (character == '&') {
            html += "&amp;";
        } else {
            html += character;
        }
    }
    return html;
}

}  // namespace

std::string htmlPage(const Explanation& explanation, const ClassRow* row, std::string_view title) {
    return "<!DOCTYPE html><meta charset=\"utf-8\"><title>" + escaped(title) + "</title><pre>" +
           escaped(toUtf8(textOf(explanation, row))) + "</pre>\n";
}

}  // namespace vantro
