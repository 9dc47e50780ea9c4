// The library's collection interfaces, implemented with the terminal's keyed collection and its items.
#pragma once

#include "server/com/late_call.h"
#include "vantro/collection.h"

#include <optional>

namespace vantro::com {

/// The operations of a collection and of its items. The terminal's own collections share one instance, so that names
/// are looked up once per thread; any other collection has its own.
struct CollectionMembers {
    Member add{u"Add"};
    Member item{u"Item"};
    Member value{u"Value"};
};

/// An item of the terminal. Its value is fetched on first use.
class ComItem final : public KeyedItem {
public:
    ComItem(Ptr<IDispatch> object, std::shared_ptr<CollectionMembers> members)
        : object_(std::move(object)), members_(std::move(members)) {}

    const ItemValue& Value() const override;
    std::size_t firstIndex() const override;

    IDispatch* object() const { return object_.get(); }

private:
    void fetch() const;

    Ptr<IDispatch> object_;
    std::shared_ptr<CollectionMembers> members_;
    mutable std::optional<ItemValue> value_;
    mutable std::size_t firstIndex_ = 0;
};

/// A collection that the terminal owns, or one of the terminal's that was created for results. One from an
/// argument reads the argument on first use, so an unused argument is never checked. The first use raises 13 for
/// anything but an object.
class ComCollection final : public KeyedCollection {
public:
    explicit ComCollection(Ptr<IDispatch> object);

    /// The collection in an argument that outlives it; null when the argument is absent.
    static CollectionPtr from(const VARIANT& argument);

    /// True when a use found that the argument is no object.
    static bool isRefused(const CollectionPtr& collection);

    /// The terminal's object of a collection that the library returns; null for none.
    static IDispatch* objectOf(const CollectionPtr& collection);

    void Add(TextView key, ItemValue value) override { store(key, value); }
    void AddShared(TextView key, std::shared_ptr<const ItemValue> value) override { store(key, *value); }
    ItemPtr Item(TextView key) const override;

private:
    explicit ComCollection(const VARIANT& argument) : argument_(&argument) {}

    void store(TextView key, const ItemValue& value);
    IDispatch* object() const;
    void take(Ptr<IDispatch> object) const;

    const VARIANT* argument_ = nullptr;  // until its object is taken
    mutable bool isRefused_ = false;
    mutable Ptr<IDispatch> object_;
    mutable std::shared_ptr<CollectionMembers> members_;
};

}  // namespace vantro::com
