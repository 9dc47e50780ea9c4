#include "cli/batch/request.h"

#include "cli/io/screen_input.h"
#include "cli/io/utf.h"

#include <algorithm>
#include <optional>

namespace vantro {

namespace {

// This count reads a list of linked profiles; all others read profile displays.
constexpr TextView countOfResponse = u"RecLocCount";

// Only this class reads a whole profile, a call that its interfaces do not have.
constexpr TextView parserOfProfiles = u"CProfile";

std::optional<Call> callNamed(TextView name) {
    if (name == u"CreateCommand") return Call::CreateCommand;
    if (name == u"VerifyResponse") return Call::VerifyResponse;
    if (name == u"ProfileElements") return Call::ProfileElements;
    if (name == u"ParseProfile") return Call::ParseProfile;
    return std::nullopt;
}

bool hasCall(const ClassRow& row, Call call) {
    if (call == Call::ParseProfile) return row.name == parserOfProfiles;
    return call == Call::ProfileElements ? row.hasProfileGet : row.hasProfileTrans;
}

}  // namespace

void RequestReader::read(std::span<char> line) {
    request_ = Request();
    unknownClass_ = {};
    JsonOutcome outcome = input_.readObject(line, members_);
    isObject_ = outcome.isObject;
    problem_ = std::move(outcome.problem);
    if (!outcome.isJson && findStrayCarriageReturn({line.data(), line.size()}) != std::string_view::npos) {
        problem_ = strayCarriageReturn("the line");
    }
    if (!problem_.empty()) return;
    if (isObject_) {
        assemble();
    } else {
        problem_ = "the line is JSON, but not an object; a request is {\"class\":...,\"call\":...}";
    }
}

void RequestReader::assemble() {
    chooseCall();
    if (!problem_.empty()) return;
    if (has("object")) request_.object = &object_;
    switch (request_.call) {
        case Call::CreateCommand: return takeParams();
        case Call::VerifyResponse: takeScreen("response", response_); return takeParams();
        case Call::ProfileElements: return takeArgumentsOfProfileElements();
        case Call::Count: return takeArgumentsOfCount();
        case Call::ParseProfile: return takeScreen("display", display_);
    }
}

void RequestReader::chooseCall() {
    if (!require("class") || !require("call")) return;
    request_.row = findClass(class_);
    if (request_.row == nullptr) {
        problem_ = "no class is named " + inQuotes(class_);
        unknownClass_ = class_;
        return;
    }
    const auto call = callNamed(call_);
    request_.call = call.value_or(Call::Count);
    if (!call) request_.count = findCount(*request_.row, call_);
    if (call ? !hasCall(*request_.row, *call) : request_.count == nullptr) {
        problem_ = inQuotes(class_) + " has no call " + inQuotes(call_);
    }
}

void RequestReader::takeScreen(std::string_view name, const JsonScreen& screen) {
    if (!require(name)) return;
    if (screen.isNull()) return complainAbout(name, "a screen is needed, null is none");
    request_.screen = screen.text();
}

void RequestReader::takeParams() {
    if (has("params")) request_.params = params_;
}

// The selection and the qualifier are passed with every prefix; only "ALL" uses them.
void RequestReader::takeArgumentsOfProfileElements() {
    takeScreen("display", display_);
    takeParams();
    if (has("selection")) request_.selection = &selection_;
    if (has("qualifier")) request_.qualifier = qualifier_;
}

void RequestReader::takeArgumentsOfCount() {
    if (request_.count->name == countOfResponse) return takeScreen("response", response_);
    takeScreen("display", display_);
    if (request_.count->name != u"ProfileNotesElementsCount") return;
    if (has("searchString")) request_.searchString = searchString_;
    if (has("searchQualifier")) request_.searchQualifier = searchQualifier_;
}

const JsonMember& RequestReader::member(std::string_view name) const {
    return *std::ranges::find(members_, name, &JsonMember::name);
}

/// True for a member that may be absent, is there and is good.
bool RequestReader::has(std::string_view name) { return member(name).isGiven && require(name); }

bool RequestReader::require(std::string_view name) {
    const JsonMember& required = member(name);
    if (!required.isGiven) {
        complainAbout(name, "the member is missing");
    } else if (!required.fault.empty()) {
        complainAbout(name, required.fault);
    }
    return required.isGood();
}

// Only the first problem is reported.
void RequestReader::complainAbout(std::string_view name, std::string_view fault) {
    if (!problem_.empty()) return;
    problem_ = std::string(name) + ": " + std::string(fault);
}

}  // namespace vantro
