// A stream of bytes read as a batch: one response line per request line, whatever it contains.
#include "cli/batch/line_reader.h"
#include "cli/batch/request.h"
#include "cli/batch/response.h"
#include "cli/batch/session.h"
#include "fuzz/targets.h"

#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

#include <algorithm>
#include <cstring>
#include <optional>

namespace vantro::fuzz {

namespace {

using rapidjson::Document;

constexpr unsigned spelled =
    rapidjson::kParseValidateEncodingFlag | rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The request lines that a batch must read: the bytes between line ends.
std::vector<std::string> linesOf(std::string_view text) {
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// The last member with this name: where a request repeats a member, the last one counts.
const rapidjson::Value* lastMember(const Document& object, std::string_view name) {
    const rapidjson::Value* found = nullptr;
    for (const auto& member : object.GetObject()) {
        if (std::string_view(member.name.GetString(), member.name.GetStringLength()) == name) found = &member.value;
    }
    return found;
}

/// The same values in the same order; numbers are parsed as texts and compared by their spelling.
bool sameJson(const rapidjson::Value& value, const rapidjson::Value& other) {
    if (value.IsArray() && other.IsArray()) {
        return std::equal(value.Begin(), value.End(), other.Begin(), other.End(), sameJson);
    }
    if (value.IsObject() && other.IsObject()) {
        return std::equal(value.MemberBegin(), value.MemberEnd(), other.MemberBegin(), other.MemberEnd(),
                          [](const auto& member, const auto& wanted) {
                              return member.name == wanted.name && sameJson(member.value, wanted.value);
                          });
    }
    return value == other;
}

/// Checks the form of a response line: valid JSON text, an object, a result or an error, the id first if there is one.
std::string formOf(const std::string& line, Document& response) {
    if (line.find('\0') != std::string::npos) return "a zero byte";
    response.Parse<spelled>(line.data(), line.size());
    if (response.HasParseError()) return rapidjson::GetParseError_En(response.GetParseError());
    if (!response.IsObject()) return "not an object";
    const bool hasResult = response.HasMember("result");
    if (hasResult == response.HasMember("error")) return "neither or both of a result and an error";
    if (response.HasMember("id") && response.MemberBegin()->name != "id") return "the id is not the first member";
    if (!hasResult && !(response["error"].IsObject() && response["error"].MemberCount() == 3))
        return "an error without its three members";
    return {};
}

/// True for a line that only the tool can read: this parser refuses large exponents.
bool containsHugeNumber(const std::string& line) {
    Document request;
    return request.Parse<spelled>(line.data(), line.size()).GetParseError() == rapidjson::kParseErrorNumberTooBig;
}

bool isBadRequest(const Document& response) {
    return response.HasMember("error") && response["error"]["number"] == "0" &&
           response["error"]["source"] == "request";
}

/// Checks the response against the request as far as the request determines it.
std::string mismatch(const std::string& line, const Document& response) {
    const bool containsZero = line.find('\0') != std::string::npos;
    Document request;
    request.Parse<spelled>(line.data(), line.size());
    // The library's own parser accepts a byte order mark before any text; a batch accepts one only at the beginning of
    // the stream.
    const bool containsMark = line.starts_with(byteOrderMark);
    if (containsZero || containsMark || request.HasParseError() || !request.IsObject()) {
        return isBadRequest(response) ? std::string() : "no bad request error for a line without a JSON object";
    }
    const rapidjson::Value* const id = lastMember(request, "id");
    if ((id != nullptr) != response.HasMember("id")) return "the id is missing, or was not in the request";
    // The tool reads an escaped unpaired surrogate as U+FFFD; this parser does not.
    const bool mayBeReplaced = line.find("\\ud") != std::string::npos || line.find("\\uD") != std::string::npos;
    if (mayBeReplaced && isBadRequest(response)) return {};
    if (id != nullptr && !sameJson(*id, response["id"])) return "the id differs";
    return {};
}

/// Runs the tool's loop over its input and returns all responses as one text.
std::string answered(Bytes input) {
    // The first byte is the size of the blocks in which the stream arrives.
    const std::size_t block = input.empty() ? 1 : 1 + input.front() % 64;
    Bytes left = input;
    LineReader lines(
        [&left](std::span<char> room) {
            const std::size_t count = std::min(room.size(), left.size());
            if (count > 0) std::memcpy(room.data(), left.data(), count);
            left = left.subspan(count);
            return count;
        },
        defaultMaxLine, block);
    LinkedBackend backend;
    RequestReader reader;
    Session session(backend);
    std::string out;
    while (const auto line = lines.next()) {
        reader.read(*line);
        if (reader.problem().empty()) {
            appendResponse(reader.request(), session.call(reader.request()), reader.id(), out);
        } else {
            appendBadRequest(reader.problem(), reader.id(), out);
        }
    }
    return out;
}

}  // namespace

std::string batchLines(Bytes input) {
    const std::string_view text(reinterpret_cast<const char*>(input.data()), input.size());
    const std::vector<std::string> requests = linesOf(text);
    const std::string out = answered(input);
    if (!out.empty() && out.back() != '\n') return "the last response has no line end: " + out;
    const std::vector<std::string> responses = linesOf(out);
    if (responses.size() != requests.size()) {
        return std::to_string(responses.size()) + " responses to " + std::to_string(requests.size()) + " requests\n";
    }
    for (std::size_t index = 0; index < requests.size(); ++index) {
        if (containsHugeNumber(requests[index])) continue;
        Document response;
        std::string message = formOf(responses[index], response);
        if (message.empty()) message = mismatch(requests[index], response);
        if (!message.empty())
            return message + "\nrequest  " + requests[index] + "\nresponse " + responses[index] + "\n";
    }
    return {};
}

}  // namespace vantro::fuzz
