#include "server/com_collection.h"

#include "server/com/array.h"
#include "server/com/error.h"
#include "server/com_terminal.h"
#include "server/terminal_ids.h"

namespace vantro::com {

namespace {

// Every collection in this process came from an argument or from the terminal's class.
const ComCollection& own(const CollectionPtr& collection) { return static_cast<const ComCollection&>(*collection); }

}  // namespace

void ComItem::fetch() const {
    if (value_) return;
    const Variant stored = members_->value.call(object_.get(), {});
    if (containsArray(stored.get())) {
        IndexedList list = indexedListIn(arrayIn(stored.get()));
        firstIndex_ = list.firstIndex;
        value_ = std::move(list.texts);
    } else {
        value_ = itemValueIn(stored.get());
    }
}

const ItemValue& ComItem::Value() const {
    fetch();
    return *value_;
}

std::size_t ComItem::firstIndex() const {
    fetch();
    return firstIndex_;
}

ComCollection::ComCollection(Ptr<IDispatch> object) { take(std::move(object)); }

CollectionPtr ComCollection::from(const VARIANT& argument) {
    return isAbsent(argument) ? CollectionPtr() : CollectionPtr(new ComCollection(argument));
}

bool ComCollection::isRefused(const CollectionPtr& collection) { return collection && own(collection).isRefused_; }

IDispatch* ComCollection::objectOf(const CollectionPtr& collection) {
    return collection ? own(collection).object() : nullptr;
}

void ComCollection::take(Ptr<IDispatch> object) const {
    object_ = std::move(object);
    const auto terminals = object_.as<IUnknown>(kesto::KeyedCollection_interface);
    members_ = terminals ? terminalMembers() : std::make_shared<CollectionMembers>();
}

IDispatch* ComCollection::object() const {
    if (object_) return object_.get();
    isRefused_ = true;
    Ptr<IDispatch> given = objectIn(*argument_);
    isRefused_ = false;
    take(std::move(given));
    return object_.get();
}

void ComCollection::store(TextView key, const ItemValue& value) {
    IDispatch* const collection = object();
    Bstr keyText(key);
    Variant stored = Variant::of(value);
    // The terminal declares both by reference. The returned item is released at once.
    members_->add.call(collection, {borrowedByReference(keyText.receive()), borrowedByReference(stored.pointer())});
}

ItemPtr ComCollection::Item(TextView key) const {
    IDispatch* const collection = object();
    const Bstr keyText(key);
    const Variant stored = members_->item.call(collection, {borrowed(keyText.get())});
    Ptr<IDispatch> item = objectIn(stored.get());
    return item ? std::make_shared<ComItem>(std::move(item), members_) : ItemPtr();
}

}  // namespace vantro::com
