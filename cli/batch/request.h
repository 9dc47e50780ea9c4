// One line of a batch: the call and its arguments.
#pragma once

#include "cli/json/values.h"
#include "vantro/registry.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace vantro {

enum class Call { CreateCommand, VerifyResponse, ProfileElements, Count };

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

/// A host screen: a string, or an array of strings, each one screen line of up to 80 characters.
class ScreenReader final : public ValueReader {
public:
    bool isNull() const { return null_; }
    const Text& screen() const { return screen_; }

private:
    void clear() override;
    void takeWanted(const JsonEvent& event) override;
    void addLine(std::string_view line);

    Text screen_;
    std::size_t lines_ = 0;
    bool inList_ = false;
    bool null_ = false;
};

/// Reads requests, one line after the other. Its buffers are reused from line to line.
class RequestReader final : private JsonEvents {
public:
    RequestReader() = default;

    /// Reads a line, which is decoded in place (see `readJson`).
    void read(std::span<char> line);

    /// The problem with the line, for the response; empty for a well-formed request.
    const std::string& problem() const { return problem_; }

    /// The request; valid only when it is well-formed, until the next line is read.
    Request& request() { return request_; }

    /// The request's id as JSON; null when it has none, or when the line is no JSON object.
    const std::string* id() const { return isObject_ && id_.isGiven() ? &id_.json() : nullptr; }

private:
    struct Member {
        std::string_view name;
        ValueReader* reader;
    };

    void forget();
    void take(const JsonEvent& event) override;
    ValueReader& memberNamed(std::string_view name);

    void assemble();
    void chooseCall();
    void takeScreen(std::string_view member, ScreenReader& screen);
    void takeText(std::string_view member, const TextReader& reader, TextView& target);
    void takeParams();
    void takeArgumentsOfProfileElements();
    void takeArgumentsOfCount();
    bool require(std::string_view member, const ValueReader& reader);
    void complainAbout(std::string_view member, std::string_view fault);

    TextReader class_;
    TextReader call_;
    TextReader object_;
    TextReader qualifier_;
    TextReader searchString_;
    TextReader searchQualifier_;
    CollectionReader params_;
    ScreenReader response_;
    ScreenReader display_;
    ListReader selection_;
    CopyReader id_;
    IgnoringReader ignored_;

    const std::array<Member, 11> members_{{
        {"class", &class_},
        {"call", &call_},
        {"id", &id_},
        {"object", &object_},
        {"params", &params_},
        {"response", &response_},
        {"display", &display_},
        {"selection", &selection_},
        {"qualifier", &qualifier_},
        {"searchString", &searchString_},
        {"searchQualifier", &searchQualifier_},
    }};

    ValueReader* current_ = &ignored_;
    int depth_ = 0;
    bool isObject_ = false;
    std::string problem_;
    Request request_;
};

}  // namespace vantro
