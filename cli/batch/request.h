// One line of a batch: the call and its arguments.
#pragma once

#include "cli/json/input.h"
#include "vantro/registry.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace vantro {

enum class Call { CreateCommand, VerifyResponse, ProfileElements, Count, ParseProfile };

/// A well-formed request. Its texts are views into the reader that read it.
struct Request {
    const ClassRow* row = nullptr;
    Call call = Call::CreateCommand;
    const CountProperty* count = nullptr;  ///< for Call::Count
    const Text* object = nullptr;          ///< the name of a kept instance, or null
    CollectionPtr params;                  ///< null for no collection
    TextView screen;                       ///< the response or the display
    TextList* selection = nullptr;         ///< null when the request has none
    TextView qualifier;
    TextView searchString;
    TextView searchQualifier;
};

/// Reads requests, one line after the other. Its buffers are reused from line to line.
class RequestReader {
public:
    RequestReader() = default;

    /// Reads a line, which `jsonPadding` bytes must follow.
    void read(std::span<char> line);

    /// The problem with the line, for the response; empty for a well-formed request.
    const std::string& problem() const { return problem_; }

    /// The line's class when there is none of this name; else empty.
    TextView unknownClass() const { return unknownClass_; }

    /// The request; valid only when it is well-formed, until the next line is read.
    Request& request() { return request_; }

    /// The request's id as JSON; null when it has none, or when the line is no JSON object.
    const std::string* id() const { return isObject_ && members_[0].isGiven ? &id_ : nullptr; }

private:
    void assemble();
    void chooseCall();
    void takeScreen(std::string_view name, const JsonScreen& screen);
    void takeParams();
    void takeArgumentsOfProfileElements();
    void takeArgumentsOfCount();
    const JsonMember& member(std::string_view name) const;
    bool has(std::string_view name);
    bool require(std::string_view name);
    void complainAbout(std::string_view name, std::string_view fault);

    JsonInput input_;
    JsonCopy id_;
    Text class_;
    Text call_;
    Text object_;
    Text qualifier_;
    Text searchString_;
    Text searchQualifier_;
    JsonCollection params_;
    JsonScreen response_;
    JsonScreen display_;
    TextList selection_;

    std::array<JsonMember, 11> members_{{
        {"id", &id_},
        {"class", &class_},
        {"call", &call_},
        {"object", &object_},
        {"params", &params_},
        {"response", &response_},
        {"display", &display_},
        {"selection", &selection_},
        {"qualifier", &qualifier_},
        {"searchString", &searchString_},
        {"searchQualifier", &searchQualifier_},
    }};

    bool isObject_ = false;
    std::string problem_;
    TextView unknownClass_;
    Request request_;
};

}  // namespace vantro
