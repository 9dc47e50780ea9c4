// Values of the C interface as the tests compare them.
#pragma once

#include "bindings/c/include/vantro_c.h"
#include "tests/support/collections.h"

#include <memory>
#include <string_view>

namespace vantro::test {

struct FreeHandle {
    void operator()(vantro_string* string) const { vantro_string_free(string); }
    void operator()(vantro_profile* profile) const { vantro_profile_free(profile); }
    void operator()(vantro_collection* collection) const { vantro_collection_free(collection); }
    void operator()(vantro_object* object) const { vantro_object_free(object); }
};

template <class Handle>
using Owned = std::unique_ptr<Handle, FreeHandle>;

inline vantro_text argument(TextView text) { return {text.data(), text.size(), VANTRO_UTF16}; }
inline vantro_text argument(std::string_view utf8) { return {utf8.data(), utf8.size(), VANTRO_UTF8}; }

inline TextView viewed(vantro_view text) { return {reinterpret_cast<const char16_t*>(text.data), text.size}; }

/// A collection with these entries.
Owned<vantro_collection> cCollection(const Entries& entries);

/// The entries of a collection, in order.
Entries entriesOf(const vantro_collection* collection);

Owned<vantro_object> cObject(TextView className);

}  // namespace vantro::test
