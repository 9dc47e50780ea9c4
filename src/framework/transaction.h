// The base of the transaction classes.
#pragma once

#include "framework/access.h"
#include "framework/constants.h"
#include "framework/error_frame.h"
#include "framework/screen.h"
#include "vantro/interfaces.h"
#include "vantro/profile_object.h"

namespace vantro {

/// An object with `IProfileTrans` and the terminal library that it uses.
class Transaction : public ProfileObject, public IProfileTrans {
public:
    Transaction(Terminal& terminal, const TransErrors& errors)
        : IProfileTrans(errors, &terminal), terminal_(terminal) {}

    IProfileTrans* profileTrans() override { return this; }

protected:
    Terminal& terminal() { return terminal_; }

    Parameters parameters(const CollectionPtr& collection) { return Parameters(terminal_, collection); }

    /// The command of insufficient parameters: nothing may be sent.
    Text nothingToSend(const ReadingRule& reason) {
        Watch(terminal_).decided(reason);
        return {};
    }

    /// The usual `VerifyResponse`: null for an empty response, otherwise a new collection that the reader fills. A
    /// failure of the reader is reported, and the results added before it stay.
    template <class Reader>
    CollectionPtr reportedResults(TextView response, Reader&& reader) {
        if (response.empty()) return {};
        CollectionPtr collection = terminal_.createCollection();
        Screen screen(terminal_, response);
        Results results(*collection, screen.watch());
        reportErrors(terminal_, [&] { reader(screen, results); });
        return collection;
    }

private:
    Terminal& terminal_;
};

}  // namespace vantro
