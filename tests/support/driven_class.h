// An object of a public class with a terminal that collects what is reported.
#pragma once

#include "tests/support/collections.h"
#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <memory>
#include <vector>

namespace vantro::test {

class DrivenClass {
public:
    explicit DrivenClass(TextView name)
        : terminal_([this](const Error& error) { reported.push_back(error); }),
          row_(*findClass(name)),
          object_(createObject(row_, terminal_)) {}

    DrivenClass(const DrivenClass&) = delete;
    DrivenClass& operator=(const DrivenClass&) = delete;

    Text command(const Entries& params) { return command(collection(params)); }
    Text command(const CollectionPtr& params) { return object_->profileTrans()->CreateCommand(params); }

    CollectionPtr read(TextView response, const CollectionPtr& state = {}) {
        return object_->profileTrans()->VerifyResponse(response, state);
    }
    CollectionPtr read(TextView response, const Entries& state) { return read(response, collection(state)); }

    int count(TextView property, TextView response) {
        return findCount(row_, property)->call(*object_, CountRequest{response});
    }

    ProfileObject& object() { return *object_; }

    std::vector<Error> reported;  ///< in the order reported

private:
    BuiltInTerminal terminal_;
    const ClassRow& row_;
    std::unique_ptr<ProfileObject> object_;
};

}  // namespace vantro::test
