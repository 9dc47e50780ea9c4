#include "server/com_collection.h"

#include "server/com_terminal.h"
#include "server/terminal_ids.h"

namespace vantro::com {

const ItemValue& ComItem::Value() const {
    if (!value_) value_ = itemValueIn(members_->value.call(object_.get(), {}).get());
    return *value_;
}

ComCollection::ComCollection(Ptr<IDispatch> object) : object_(std::move(object)) {
    const auto own = object_.as<IUnknown>(kesto::KeyedCollection_interface);
    members_ = own ? terminalMembers() : std::make_shared<CollectionMembers>();
}

CollectionPtr ComCollection::from(const VARIANT& argument) {
    Ptr<IDispatch> object = objectIn(argument);
    return object ? std::make_shared<ComCollection>(std::move(object)) : CollectionPtr();
}

IDispatch* ComCollection::objectOf(const CollectionPtr& collection) {
    // Every collection in this process came from `from` or from the terminal's class.
    return collection ? static_cast<const ComCollection&>(*collection).object_.get() : nullptr;
}

void ComCollection::Add(TextView key, ItemValue value) {
    Bstr keyText(key);
    Variant stored = Variant::of(value);
    // The terminal declares both by reference. The item that comes back is released at once.
    members_->add.call(object_.get(), {borrowedByReference(keyText.receive()), borrowedByReference(stored.pointer())});
}

ItemPtr ComCollection::Item(TextView key) const {
    const Bstr keyText(key);
    const Variant stored = members_->item.call(object_.get(), {borrowed(keyText.get())});
    Ptr<IDispatch> item = objectIn(stored.get());
    return item ? std::make_shared<ComItem>(std::move(item), members_) : ItemPtr();
}

}  // namespace vantro::com
