#include "vantro/interfaces.h"

#include "framework/constants.h"
#include "framework/error_frame.h"
#include "framework/observation.h"
#include "vantro/profile_object.h"

namespace vantro {

namespace {

/// A selection that needs no conversion.
class ListSelection final : public SelectionSource {
public:
    ListSelection(TextList* entries, TextView qualifier) : entries_(entries), qualifier_(qualifier) {}

    std::size_t size() override { return entries_ == nullptr ? 0 : entries_->size(); }
    Text entry(std::size_t index) override { return (*entries_)[index]; }
    void store(std::size_t index, const Text& changed) override { (*entries_)[index] = changed; }
    TextView qualifier() override { return qualifier_; }

private:
    TextList* entries_;
    TextView qualifier_;
};

// Constants, because the length of a literal is counted in every call.
constexpr TextView createCommand = u"CreateCommand";
constexpr TextView verifyResponse = u"VerifyResponse";
constexpr TextView profileElements = u"ProfileElements";

}  // namespace

const TextList* ProfileObject::list(TextView /*name*/) const { return nullptr; }

const FlagList* ProfileObject::flagList(TextView /*name*/) const { return nullptr; }

Text IProfileTrans::CreateCommand(const CollectionPtr& params) {
    if (!Watch(terminal_)) [[likely]]
        return create(params);
    return observed(terminal_, createCommand, {}, [&] {
        Text command = create(params);
        Watch(terminal_).read(u"command", command);
        return command;
    });
}

CollectionPtr IProfileTrans::VerifyResponse(TextView response, const CollectionPtr& collection) {
    return observed(terminal_, verifyResponse, response, [&] { return verify(response, collection); });
}

Text IProfileTrans::create(const CollectionPtr& params) {
    return raiseAs(errors_.createCommand, description::creatingCommand,
                   [&] { return IProfileTrans_CreateCommand(params); });
}

CollectionPtr IProfileTrans::verify(TextView response, const CollectionPtr& collection) {
    return raiseAs(errors_.verifyResponse, description::verifyingProfile,
                   [&] { return IProfileTrans_VerifyResponse(response, collection); });
}

// The default operations do nothing. `CPDMDTrans` keeps the second one: the screen after "PDMD" is read by the
// transaction that started the list.
Text IProfileTrans::IProfileTrans_CreateCommand(const CollectionPtr& /*params*/) { return {}; }

CollectionPtr IProfileTrans::IProfileTrans_VerifyResponse(TextView /*response*/, const CollectionPtr& /*collection*/) {
    return {};
}

CollectionPtr IProfileGet::ProfileElements(TextView display, const CollectionPtr& collection, TextList* selection,
                                           TextView qualifier) {
    ListSelection source(selection, qualifier);
    return ProfileElements(display, collection, source);
}

CollectionPtr IProfileGet::ProfileElements(TextView display, const CollectionPtr& collection,
                                           SelectionSource& selection) {
    return observed(terminal_, profileElements, display,
                    [&] { return IProfileGet_ProfileElements(display, collection, selection); });
}

CollectionPtr IProfileGet::IProfileGet_ProfileElements(TextView /*display*/, const CollectionPtr& /*collection*/,
                                                       SelectionSource& /*selection*/) {
    return {};
}

}  // namespace vantro
