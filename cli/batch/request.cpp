#include "cli/batch/request.h"

#include "cli/io/screen_input.h"
#include "cli/io/utf.h"

#include <algorithm>
#include <optional>

namespace vantro {

namespace {

constexpr const char* wantedScreen = "a text or an array of texts is expected";

// This count reads a list of linked profiles; all others read profile displays.
constexpr TextView countOfResponse = u"RecLocCount";

std::optional<Call> callNamed(TextView name) {
    if (name == u"CreateCommand") return Call::CreateCommand;
    if (name == u"VerifyResponse") return Call::VerifyResponse;
    if (name == u"ProfileElements") return Call::ProfileElements;
    return std::nullopt;
}

bool hasCall(const ClassRow& row, Call call) {
    return call == Call::ProfileElements ? row.hasProfileGet : row.hasProfileTrans;
}

}  // namespace

void ScreenReader::clear() {
    screen_.clear();
    lines_ = 0;
    inList_ = false;
    null_ = false;
}

void ScreenReader::takeWanted(const JsonEvent& event) {
    if (event.kind == JsonKind::String && !inList_) {
        appendUtf16(event.text, screen_);
    } else if (event.kind == JsonKind::String) {
        addLine(event.text);
    } else if (event.kind == JsonKind::StartArray && !inList_) {
        inList_ = true;
    } else if (event.kind == JsonKind::Null && !inList_) {
        null_ = true;
    } else if (event.kind != JsonKind::EndArray) {
        refuse(wantedScreen);
    }
}

// A line is padded only when another one follows.
void ScreenReader::addLine(std::string_view line) {
    screen_.resize(lines_ * screenWidth, u' ');
    const std::size_t start = screen_.size();
    appendUtf16(line, screen_);
    ++lines_;
    const std::size_t length = screen_.size() - start;
    if (length > screenWidth) refuse(tooLongLine(lines_, length));
}

void RequestReader::read(std::span<char> line) {
    forget();
    const JsonOutcome outcome = readJson(line, *this);
    isObject_ = isObject_ && outcome.isJson;
    problem_ = outcome.problem;
    const bool containsStray = !outcome.isJson && findStrayCarriageReturn({line.data(), line.size()}) != TextView::npos;
    if (containsStray) problem_ = strayCarriageReturn("the line");
    if (!problem_.empty()) return;
    if (isObject_) {
        assemble();
    } else {
        problem_ = "the line is JSON, but not an object; a request is {\"class\":...,\"call\":...}";
    }
}

void RequestReader::forget() {
    for (const Member& member : members_) member.reader->forget();
    current_ = &ignored_;
    depth_ = 0;
    isObject_ = false;
    request_ = Request();
}

void RequestReader::take(const JsonEvent& event) {
    const bool opens = event.kind == JsonKind::StartObject || event.kind == JsonKind::StartArray;
    const bool closes = event.kind == JsonKind::EndObject || event.kind == JsonKind::EndArray;
    if (depth_ == 0 && opens) {
        isObject_ = event.kind == JsonKind::StartObject;
    } else if (depth_ == 1 && event.kind == JsonKind::Key) {
        current_ = &memberNamed(event.text);
        current_->begin();
    } else if (depth_ > 1 || !closes) {
        current_->take(event);
    }
    depth_ += static_cast<int>(opens) - static_cast<int>(closes);
}

ValueReader& RequestReader::memberNamed(std::string_view name) {
    const auto member = std::ranges::find(members_, name, &Member::name);
    return member == members_.end() ? ignored_ : *member->reader;
}

void RequestReader::assemble() {
    chooseCall();
    if (!problem_.empty()) return;
    if (object_.isGiven() && require("object", object_)) request_.object = &object_.text();
    switch (request_.call) {
        case Call::CreateCommand: return takeParams();
        case Call::VerifyResponse: takeScreen("response", response_); return takeParams();
        case Call::ProfileElements: return takeArgumentsOfProfileElements();
        case Call::Count: return takeArgumentsOfCount();
    }
}

void RequestReader::chooseCall() {
    if (!require("class", class_) || !require("call", call_)) return;
    request_.row = findClass(class_.text());
    if (request_.row == nullptr) {
        problem_ = "no class is named " + inQuotes(class_.text());
        return;
    }
    const auto call = callNamed(call_.text());
    request_.call = call.value_or(Call::Count);
    if (!call) request_.count = findCount(*request_.row, call_.text());
    if (call ? !hasCall(*request_.row, *call) : request_.count == nullptr) {
        problem_ = inQuotes(class_.text()) + " has no call " + inQuotes(call_.text());
    }
}

void RequestReader::takeScreen(std::string_view member, ScreenReader& screen) {
    if (!require(member, screen)) return;
    if (screen.isNull()) return complainAbout(member, "a screen is needed, null is none");
    request_.screen = screen.screen();
}

void RequestReader::takeText(std::string_view member, const TextReader& reader, TextView& target) {
    if (reader.isGiven() && require(member, reader)) target = reader.text();
}

void RequestReader::takeParams() {
    if (params_.isGiven() && require("params", params_)) request_.params = params_.collection();
}

// The selection and the qualifier are passed with every prefix; only "ALL" uses them.
void RequestReader::takeArgumentsOfProfileElements() {
    takeScreen("display", display_);
    takeParams();
    if (selection_.isGiven() && require("selection", selection_)) request_.selection = &selection_.list();
    takeText("qualifier", qualifier_, request_.qualifier);
}

void RequestReader::takeArgumentsOfCount() {
    if (request_.count->name == countOfResponse) return takeScreen("response", response_);
    takeScreen("display", display_);
    if (request_.count->name != u"ProfileNotesElementsCount") return;
    takeText("searchString", searchString_, request_.searchString);
    takeText("searchQualifier", searchQualifier_, request_.searchQualifier);
}

bool RequestReader::require(std::string_view member, const ValueReader& reader) {
    if (!reader.isGiven()) {
        complainAbout(member, "the member is missing");
    } else if (!reader.fault().empty()) {
        complainAbout(member, reader.fault());
    }
    return reader.isGood();
}

// Only the first problem is reported.
void RequestReader::complainAbout(std::string_view member, std::string_view fault) {
    if (!problem_.empty()) return;
    problem_ = std::string(member) + ": " + std::string(fault);
}

}  // namespace vantro
