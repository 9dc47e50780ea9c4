#include "cli/batch/session.h"

#include "cli/io/utf.h"

#include <exception>
#include <new>

namespace vantro {

namespace {

// The numbers by which automation clients know these two errors.
constexpr int outOfMemory = 7;
constexpr int internalError = 51;

constexpr TextView source = u"VantroProfileUtils";

}  // namespace

std::unique_ptr<ProfileObject> LinkedBackend::create(const ClassRow& row, Terminal& terminal) {
    return createObject(row, terminal);
}

std::int16_t LinkedBackend::count(ProfileObject& object, const CountProperty& property, const CountRequest& request) {
    return property.call(object, request);
}

const Reply& Session::call(const Request& request) {
    reply_.error.reset();
    reply_.reported.clear();
    try {
        perform(request);
    } catch (const Error& raised) {
        reply_.error = raised;
    } catch (const std::bad_alloc&) {
        reply_.error.emplace(outOfMemory, source, u"Out of memory");
    } catch (const std::exception& unexpected) {
        reply_.error.emplace(internalError, source, toUtf16(unexpected.what()));
    }
    return reply_;
}

void Session::perform(const Request& request) {
    if (request.call == Call::ParseProfile) {  // needs no instance
        reply_.result = parseProfile(Text(request.screen));
        return;
    }
    if (request.object != nullptr) return callOn(kept(*request.row, *request.object), request);
    const std::unique_ptr<ProfileObject> fresh = backend_.create(*request.row, terminal_);
    callOn(*fresh, request);
}

ProfileObject& Session::kept(const ClassRow& row, const Text& name) {
    const auto place = kept_.find({&row, name});
    if (place != kept_.end()) return *place->second;
    return *kept_.emplace(std::pair(&row, name), backend_.create(row, terminal_)).first->second;
}

void Session::callOn(ProfileObject& object, const Request& request) {
    switch (request.call) {
        case Call::CreateCommand: reply_.result = object.profileTrans()->CreateCommand(request.params); return;
        case Call::VerifyResponse:
            reply_.result = object.profileTrans()->VerifyResponse(request.screen, request.params);
            return;
        case Call::ProfileElements:
            reply_.result = object.profileGet()->ProfileElements(request.screen, request.params, request.selection,
                                                                 request.qualifier);
            return;
        case Call::Count:
            reply_.result =
                backend_.count(object, *request.count, {request.screen, request.searchString, request.searchQualifier});
            return;
        case Call::ParseProfile: return;
    }
}

}  // namespace vantro
