// The calls of one batch run, the instances that are kept during it and where they come from.
#pragma once

#include "cli/batch/request.h"
#include "vantro/built_in_terminal.h"
#include "vantro/profile.h"
#include "vantro/registry.h"

#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace vantro {

/// Creates objects and reads their counts: the two steps that differ between the linked library and a registered
/// server. All other calls use the object's interfaces.
class Backend {
public:
    virtual ~Backend() = default;

    /// A new instance. Raises 429 for a class that cannot be created.
    virtual std::unique_ptr<ProfileObject> create(const ClassRow& row, Terminal& terminal) = 0;
    virtual std::int16_t count(ProfileObject& object, const CountProperty& property, const CountRequest& request) = 0;

protected:
    Backend() = default;
    Backend(const Backend&) = default;
    Backend& operator=(const Backend&) = default;
};

/// The library that the tool is linked with.
class LinkedBackend final : public Backend {
public:
    std::unique_ptr<ProfileObject> create(const ClassRow& row, Terminal& terminal) override;
    std::int16_t count(ProfileObject& object, const CountProperty& property, const CountRequest& request) override;
};

/// What a call returned or raised, and what was reported during it.
struct Reply {
    std::variant<Text, CollectionPtr, std::int16_t, Profile> result;
    std::optional<Error> error;  ///< when there is one, the result is meaningless
    std::vector<int> reported;
};

class Session {
public:
    /// The backend must outlive the session.
    explicit Session(Backend& backend) : backend_(backend) {}

    /// Makes the call. What it raises is in the reply, which is valid until the next call.
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
