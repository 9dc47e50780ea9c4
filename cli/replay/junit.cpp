#include "cli/io/utf.h"
#include "cli/replay/report.h"

#include <algorithm>
#include <cstdio>

namespace vantro {

namespace {

bool isAllowed(char32_t character) {
    const bool isControl = character < 0x20 && character != '\t' && character != '\n' && character != '\r';
    return !isControl && character != 0xFFFE && character != 0xFFFF;
}

/// The character as XML, with an escape where it needs one. XML has none for control characters: they become U+FFFD.
std::string escaped(char32_t character) {
    switch (character) {
        case '&': return "&amp;";
        case '<': return "&lt;";
        case '>': return "&gt;";
        case '"': return "&quot;";
        case '\r': return "&#13;";
        default: break;
    }
    char bytes[4];
    return {bytes, writeUtf8(isAllowed(character) ? character : replacementCharacter, bytes)};
}

std::string escaped(const std::string& utf8) {
    std::string xml;
    const Text text = toUtf16(utf8);
    for (std::size_t at = 0; at < text.size();) {
        const CodePoint character = codePointAt(text, at);
        at += character.units;
        xml += escaped(character.value);
    }
    return xml;
}

/// An attribute, in one line.
std::string attribute(const char* name, std::string value) {
    std::ranges::replace(value, '\n', ' ');
    return std::string(" ") + name + "=\"" + escaped(value) + "\"";
}

std::string secondsOf(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6f", seconds);
    return text;
}

/// tests, failures, errors and time of a run. An accepted case is one that passes from now on.
std::string countsOf(const std::vector<CaseResult>& results) {
    ReplayTotals totals;
    double seconds = 0;
    for (const CaseResult& result : results) {
        totals.count(result.status);
        seconds += result.seconds;
    }
    return attribute("tests", std::to_string(results.size())) + attribute("failures", std::to_string(totals.failed)) +
           attribute("errors", std::to_string(totals.broken)) + attribute("time", secondsOf(seconds));
}

std::string messageOf(const CaseResult& result) {
    if (result.status == CaseStatus::Broken || result.differences.empty()) return result.problem;
    const Difference& first = result.differences.front();
    const std::size_t more = result.differences.size() - 1;
    return "line " + std::to_string(first.line) + ": " + first.where + ": expected " + first.expected + ", came " +
           first.actual + (more > 0 ? " (and " + std::to_string(more) + " more)" : "");
}

/// A failure or an error, and its details.
std::string element(const char* name, const CaseResult& result) {
    const std::string start = std::string("      <") + name + attribute("message", messageOf(result));
    const std::string details = differencesText(result);
    return details.empty() ? start + "/>\n" : start + ">" + escaped(details) + "</" + name + ">\n";
}

std::string testCase(const CaseResult& result) {
    const std::string& file = result.sample.file;
    const std::size_t slash = file.find_last_of("/\\");
    const std::string folder = slash == std::string::npos ? "." : file.substr(0, slash);
    const std::string name = file.substr(slash == std::string::npos ? 0 : slash + 1);
    const std::string start = "    <testcase" + attribute("classname", folder) + attribute("name", name) +
                              attribute("time", secondsOf(result.seconds));
    if (result.status == CaseStatus::Broken) return start + ">\n" + element("error", result) + "    </testcase>\n";
    if (result.status == CaseStatus::Failed) return start + ">\n" + element("failure", result) + "    </testcase>\n";
    return start + "/>\n";
}

}  // namespace

std::string junitText(const std::vector<CaseResult>& results) {
    const std::string counts = attribute("name", "vantro-profile replay") + countsOf(results);
    std::string xml =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + counts + ">\n  <testsuite" + counts + ">\n";
    for (const CaseResult& result : results) xml += testCase(result);
    return xml + "  </testsuite>\n</testsuites>\n";
}

}  // namespace vantro
