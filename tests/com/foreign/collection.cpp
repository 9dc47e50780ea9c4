// The keyed collection and its items. The ids are in no order, and the same numbers mean different operations in
// different classes, so that a caller has to look them up for each class.
#include "tests/com/foreign/objects.h"

#include <mutex>
#include <set>
#include <utility>

namespace foreign {

namespace {

constexpr DISPID valueId = 1000003;
constexpr DISPID addId = 77777;
constexpr DISPID itemId = 1000003;
constexpr DISPID countId = 8191;
constexpr DISPID keyId = 90001;

constexpr MemberRow itemMembers[] = {{L"Value", valueId, DISPATCH_PROPERTYGET, 0, 0}};

constexpr MemberRow collectionMembers[] = {
    {L"Key", keyId, DISPATCH_PROPERTYGET, 1, 1},
    {L"Add", addId, DISPATCH_METHOD, 2, 2},
    {L"Count", countId, DISPATCH_PROPERTYGET, 0, 0},
    {L"Item", itemId, DISPATCH_METHOD | DISPATCH_PROPERTYGET, 1, 1},
};

// The living items. An object that offers automation alone can be recognised only by its address.
class LiveItems {
public:
    static LiveItems& only() {
        static LiveItems items;
        return items;
    }

    void add(const IDispatch* item) {
        const std::lock_guard lock(mutex_);
        items_.insert(item);
    }
    void remove(const IDispatch* item) {
        const std::lock_guard lock(mutex_);
        items_.erase(item);
    }
    bool has(const IDispatch* item) {
        const std::lock_guard lock(mutex_);
        return items_.contains(item);
    }

private:
    std::mutex mutex_;
    std::set<const IDispatch*> items_;
};

class Item final : public LateObject {
public:
    explicit Item(Held value) : LateObject(itemMembers), value_(std::move(value)) { LiveItems::only().add(this); }

    const VARIANT& value() const { return value_.value; }

private:
    ~Item() override { LiveItems::only().remove(this); }

    Held call(DISPID, const Arguments&) override { return copyOf(value_.value); }
    std::wstring watched(DISPID, const Arguments&) const override { return L"Value"; }

    Held value_;
};

struct Entry {
    std::wstring key;
    Held value;
};

class Collection final : public LateObject {
public:
    Collection() : LateObject(collectionMembers) {}

private:
    Held call(DISPID member, const Arguments& arguments) override {
        switch (member) {
            case addId: return add(textIn(arguments[0]), keptForm(arguments[1]));
            case itemId: return item(textIn(arguments[0]));
            case keyId: return textValue(at(longIn(arguments[0])).key);
            default: return longValue(static_cast<LONG>(entries_.size()));
        }
    }

    std::wstring watched(DISPID member, const Arguments& arguments) const override {
        if (member != addId && member != itemId) return {};
        const wchar_t* const name = member == addId ? L"Add " : L"Item ";
        return name + std::wstring(textIn(arguments[0]));
    }

    // An existing key keeps its position.
    Held add(std::wstring_view key, Held value) {
        Entry* entry = find(key);
        if (entry == nullptr) entry = &entries_.emplace_back(Entry{std::wstring(key), {}});
        entry->value = std::move(value);
        return newItem(entry->value);
    }

    // An absent key has no item: no value, rather than a null object.
    Held item(std::wstring_view key) {
        const Entry* const entry = find(key);
        return entry == nullptr ? Held() : newItem(entry->value);
    }

    static Held newItem(const Held& value) {
        Item* const made = new Item(copyOf(value.value));
        Held object = objectValue(made);
        made->Release();
        return object;
    }

    Entry* find(std::wstring_view key) {
        for (Entry& entry : entries_) {
            if (entry.key == key) return &entry;
        }
        return nullptr;
    }

    const Entry& at(LONG index) const {
        if (index < 0 || static_cast<std::size_t>(index) >= entries_.size()) throw Failed{9, L"No such entry."};
        return entries_[static_cast<std::size_t>(index)];
    }

    std::vector<Entry> entries_;
};

}  // namespace

IDispatch* newCollection() { return new Collection; }

const VARIANT* valueOfItem(IDispatch* item) {
    if (item == nullptr) return nullptr;
    if (!LiveItems::only().has(item)) mismatch();
    return &static_cast<Item*>(item)->value();
}

}  // namespace foreign
