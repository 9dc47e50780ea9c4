// The classes and their operations.
#include "bindings/c/handles.h"

namespace vantro::c {

namespace {

[[noreturn]] void failWithoutMember(TextView member) {
    throw Error(noSuchMember, u"VantroProfileUtils", u"The object has no " + Text(member));
}

IProfileTrans& transactionOf(vantro_object& object, TextView member) {
    if (object.row == nullptr || !object.row->hasProfileTrans) failWithoutMember(member);
    return *object.object->profileTrans();
}

const TextList* listOf(const vantro_object* object, const vantro_text& name) {
    return object != nullptr ? object->object->list(TextArgument(name).view()) : nullptr;
}

/// A collection of this library's, whichever operation returned it.
vantro_collection* newHandle(const CollectionPtr& collection) {
    if (!collection) return nullptr;
    return new vantro_collection{std::static_pointer_cast<BuiltInCollection>(collection)};
}

}  // namespace

}  // namespace vantro::c

using namespace vantro;
using namespace vantro::c;

std::size_t vantro_class_count() { return classTable().size(); }

vantro_view vantro_class_name(std::size_t index) {
    return viewOf(index < classTable().size() ? classTable()[index].name : TextView());
}

std::int32_t vantro_object_new(vantro_text class_name, vantro_object** object) {
    *object = nullptr;
    return guarded([&] {
        const TextArgument name(class_name);
        auto made = std::make_unique<vantro_object>();
        made->object = createObject(name.view(), made->terminal);
        made->row = findClass(name.view());
        *object = made.release();
    });
}

void vantro_object_free(vantro_object* object) { delete object; }

std::int32_t vantro_create_command(vantro_object* object, const vantro_collection* parameters,
                                   vantro_string** command) {
    *command = nullptr;
    return guarded([&] {
        object->reported.clear();
        auto made = std::make_unique<vantro_string>();
        made->text = transactionOf(*object, u"CreateCommand").CreateCommand(collectionOf(parameters));
        *command = made.release();
    });
}

std::int32_t vantro_verify_response(vantro_object* object, vantro_text screen, vantro_collection* state,
                                    vantro_collection** results) {
    *results = nullptr;
    return guarded([&] {
        object->reported.clear();
        const TextArgument response(screen);
        IProfileTrans& transaction = transactionOf(*object, u"VerifyResponse");
        *results = newHandle(transaction.VerifyResponse(response.view(), collectionOf(state)));
    });
}

std::int32_t vantro_profile_elements(vantro_object* object, vantro_text display, vantro_collection* request,
                                     const vantro_text* selection, std::size_t selection_count, vantro_text qualifier,
                                     std::int32_t* is_known) {
    if (is_known != nullptr) *is_known = 0;
    return guarded([&] {
        object->reported.clear();
        if (!object->row->hasProfileGet) failWithoutMember(u"ProfileElements");
        const TextArgument text(display);
        TextList entries;
        for (std::size_t index = 0; index < selection_count; ++index) {
            entries.push_back(TextArgument(selection[index]).text());
        }
        const CollectionPtr unknown = object->object->profileGet()->ProfileElements(
            text.view(), collectionOf(request), &entries, TextArgument(qualifier).view());
        if (is_known != nullptr) *is_known = unknown ? 0 : 1;
    });
}

std::int32_t vantro_count(vantro_object* object, vantro_text name, vantro_text display, vantro_text search_string,
                          vantro_text qualifier, std::int16_t* count) {
    *count = 0;
    return guarded([&] {
        object->reported.clear();
        const TextArgument property(name);
        const CountProperty* const found = findCount(*object->row, property.view());
        if (found == nullptr) failWithoutMember(property.view());
        const TextArgument text(display);
        const TextArgument searched(search_string);
        const TextArgument wanted(qualifier);
        *count = found->call(*object->object, {text.view(), searched.view(), wanted.view()});
    });
}

std::size_t vantro_list_size(const vantro_object* object, vantro_text name) {
    return guardedOr(std::size_t{0}, [&] {
        const TextList* const list = listOf(object, name);
        return list != nullptr ? list->size() : 0;
    });
}

vantro_view vantro_list_entry(const vantro_object* object, vantro_text name, std::size_t index) {
    return guardedOr(viewOf({}), [&] {
        const TextList* const list = listOf(object, name);
        return viewOf(list != nullptr && index < list->size() ? TextView((*list)[index]) : TextView());
    });
}

std::size_t vantro_reported_count(const vantro_object* object) {
    return object != nullptr ? object->reported.size() : 0;
}

std::int32_t vantro_reported_number(const vantro_object* object, std::size_t index) {
    return index < vantro_reported_count(object) ? object->reported[index].number() : 0;
}

vantro_view vantro_reported_description(const vantro_object* object, std::size_t index) {
    const bool isReported = index < vantro_reported_count(object);
    return viewOf(isReported ? TextView(object->reported[index].description()) : TextView());
}
