#include "tests/com/remote_collection.h"

#include "server/com/error.h"

namespace vantro::com {

namespace {

// The stand-in's collections are all of one class, and the ids of its operations never change.
struct Members {
    Member add{u"Add"};
    Member item{u"Item"};
    Member value{u"Value"};
    Member count{u"Count"};
    Member key{u"Key"};
};

Members& members() {
    static Members only;
    return only;
}

std::int16_t integerIn(const Variant& value) {
    const ItemValue converted = itemValueIn(value.get());
    const auto* const number = std::get_if<std::int16_t>(&converted);
    if (number == nullptr) fail(Failure::TypeMismatch);
    return *number;
}

}  // namespace

Ptr<IDispatch> newRegistered(TextView className) {
    CLSID clsid{};
    Ptr<IDispatch> object;
    const Bstr name(className);
    check(CLSIDFromProgID(name.get(), &clsid));
    check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.receiveAny()));
    return object;
}

Ptr<IDispatch> copiedOut(const CollectionPtr& collection) {
    if (!collection) return {};
    Ptr<IDispatch> copy = newRegistered(u"VantroKestoFaces.KeyedCollection");
    for (const BuiltInCollection::Entry& entry : static_cast<const BuiltInCollection&>(*collection).entries()) {
        Bstr key(entry.key());
        Variant value = Variant::of(entry.Value());
        members().add.call(copy.get(), {borrowedByReference(key.receive()), borrowedByReference(value.pointer())});
    }
    return copy;
}

void copyBack(IDispatch* source, KeyedCollection& collection) {
    const std::int16_t count = integerIn(members().count.call(source, {}));
    for (std::int16_t index = 0; index < count; ++index) {
        const Variant key = members().key.call(source, {borrowed(index)});
        const Variant item = members().item.call(source, {key.get()});
        const Ptr<IDispatch> object = objectIn(item.get());
        collection.Add(textIn(key.get()), itemValueIn(members().value.call(object.get(), {}).get()));
    }
}

}  // namespace vantro::com
