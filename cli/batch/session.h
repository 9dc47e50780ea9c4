// The calls of one batch run, and the instances kept during it.
#pragma once

#include "cli/batch/backend.h"
#include "cli/batch/request.h"
#include "vantro/built_in_terminal.h"

#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace vantro {

/// What a call returned or raised, and what was reported during it.
struct Reply {
    std::variant<Text, CollectionPtr, std::int16_t> result;
    std::optional<Error> error;  ///< when there is one, the result means nothing
    std::vector<int> reported;
};

class Session {
public:
    /// The backend must outlive the session.
    explicit Session(Backend& backend) : backend_(backend) {}

    /// Makes the call. Whatever it raises is in the reply.
    const Reply& call(const Request& request);

private:
    void perform(const Request& request);
    ProfileObject& kept(const ClassRow& row, const Text& name);
    void callOn(ProfileObject& object, const Request& request);

    Backend& backend_;
    Reply reply_;
    BuiltInTerminal terminal_{[this](const Error& reported) { reply_.reported.push_back(reported.number()); }};
    std::map<std::pair<const ClassRow*, Text>, std::unique_ptr<ProfileObject>> kept_;
};

}  // namespace vantro
