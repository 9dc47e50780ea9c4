// A stream of bytes as a batch reads it: one response line a request line, whatever stands there.
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

constexpr unsigned strict = rapidjson::kParseValidateEncodingFlag | rapidjson::kParseIterativeFlag;
constexpr unsigned spelled = strict | rapidjson::kParseNumbersAsStringsFlag;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Bytes between the lines of the request, and the lines as a batch must see them.
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

/// The member that stands last under this name, as the protocol counts a member that is given twice.
const rapidjson::Value* lastMember(const Document& object, std::string_view name) {
    const rapidjson::Value* found = nullptr;
    for (const auto& member : object.GetObject()) {
        if (std::string_view(member.name.GetString(), member.name.GetStringLength()) == name) found = &member.value;
    }
    return found;
}

/// Same values in the same order; numbers by their spelling, which is parsed as text.
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

/// A response line's form: JSON in sound text, an object, a result or an error, an id first if there is one.
std::string formOf(const std::string& line, Document& response) {
    if (line.find('\0') != std::string::npos) return "a zero byte";
    response.Parse<spelled>(line.data(), line.size());
    if (response.HasParseError()) return rapidjson::GetParseError_En(response.GetParseError());
    if (!response.IsObject()) return "no object";
    const bool hasResult = response.HasMember("result");
    if (hasResult == response.HasMember("error")) return "not either a result or an error";
    if (response.HasMember("id") && response.MemberBegin()->name != "id") return "the id is not the first member";
    if (!hasResult && !(response["error"].IsObject() && response["error"].MemberCount() == 3)) return "an odd error";
    return {};
}

bool isBadRequest(const Document& response) {
    return response.HasMember("error") && response["error"]["number"] == "0" &&
           response["error"]["source"] == "request";
}

/// What the request lets one say about the response.
std::string apart(const std::string& line, const Document& response) {
    const bool containsZero = line.find('\0') != std::string::npos;
    Document request;
    request.Parse<spelled>(line.data(), line.size());
    // The library's own parser takes a byte order mark in front of any text; a batch takes one in front of the stream.
    const bool containsMark = line.starts_with(byteOrderMark);
    if (containsZero || containsMark || request.HasParseError() || !request.IsObject()) {
        return isBadRequest(response) ? std::string() : "something else than a bad request for no JSON object";
    }
    Document checked;
    if (checked.Parse<strict>(line.data(), line.size()).HasParseError()) return {};  // a number beyond a double
    const rapidjson::Value* const id = lastMember(request, "id");
    if ((id != nullptr) != response.HasMember("id")) return "the id is missing, or comes from nowhere";
    // An escaped surrogate without its partner is read as U+FFFD, which this parser does not do.
    const bool maybeMended = line.find("\\ud") != std::string::npos || line.find("\\uD") != std::string::npos;
    if (maybeMended && isBadRequest(response)) return {};
    if (id != nullptr && !sameJson(*id, response["id"])) return "the id is another one";
    return {};
}

/// The tool's loop over its input, as one text with the responses.
std::string answered(Bytes input) {
    // The first byte sizes the blocks in which the stream arrives.
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
    for (std::size_t place = 0; place < requests.size(); ++place) {
        Document response;
        std::string message = formOf(responses[place], response);
        if (message.empty()) message = apart(requests[place], response);
        if (!message.empty())
            return message + "\nrequest  " + requests[place] + "\nresponse " + responses[place] + "\n";
    }
    return {};
}

}  // namespace vantro::fuzz
