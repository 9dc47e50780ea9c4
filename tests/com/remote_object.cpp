#include "tests/com/remote_object.h"

#include "server/com/array.h"
#include "server/com/error.h"
#include "tests/com/remote_collection.h"

namespace vantro::com {

namespace {

// Passes what was reported to the stand-in's reporter on to a reporter of this process.
class ReportRelay {
public:
    explicit ReportRelay(Terminal& terminal)
        : terminal_(terminal), control_(newRegistered(u"VantroKestoFaces.StandInControl")) {
        reset_.call(control_.get(), {});
    }
    ReportRelay(const ReportRelay&) = delete;
    ReportRelay& operator=(const ReportRelay&) = delete;
    ~ReportRelay() = default;

    void relay() {
        const int count = integer(count_.call(control_.get(), {}));
        for (std::int16_t index = 0; index < count; ++index) {
            const int number = integer(reported_.call(control_.get(), {borrowed(index)}));
            const Variant text = text_.call(control_.get(), {borrowed(index)});
            terminal_.errorReporter().ReportError(Error(number, {}, viewOf(text.get().bstrVal)), nullptr);
        }
    }

private:
    static int integer(const Variant& value) {
        Variant converted;
        check(convert(value.get(), VT_I4, converted));
        return converted.get().lVal;
    }

    Terminal& terminal_;
    Ptr<IDispatch> control_;
    Member reset_{u"Reset"};
    Member count_{u"ReportedCount"};
    Member reported_{u"Reported"};
    Member text_{u"ReportedText"};
};

class RemoteObject final : public ProfileObject, public IProfileTrans, public IProfileGet {
public:
    RemoteObject(const ClassRow& row, Terminal& terminal)
        : row_(row), terminal_(terminal), object_(newRegistered(Text(u"VantroProfileUtils.").append(row.name))) {}

    IProfileTrans* profileTrans() override { return row_.hasProfileTrans ? this : nullptr; }
    IProfileGet* profileGet() override { return row_.hasProfileGet ? this : nullptr; }

    const TextList* list(TextView name) const override {
        const Bstr nameText(name);
        Member elementList{u"ElementList"};
        kept_ = elementsIn(arrayIn(elementList.call(object_.get(), {borrowed(nameText.get())}).get()));
        return &kept_;
    }

    std::int16_t count(TextView property, const CountRequest& request) {
        return reporting([&] {
                   const Bstr text(request.text);
                   const Bstr search(request.searchString);
                   const Bstr qualifier(request.searchQualifier);
                   Member member(property);
                   const bool filtered = property == u"ProfileNotesElementsCount";
                   return filtered ? member.call(object_.get(), {borrowed(text.get()), borrowed(search.get()),
                                                                 borrowed(qualifier.get())})
                                   : member.call(object_.get(), {borrowed(text.get())});
               })
            .get()
            .iVal;
    }

    Text explained(const Variant& recording) { return textIn(explain_.call(object_.get(), {recording.get()}).get()); }

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override {
        const Ptr<IDispatch> passed = copiedOut(params);
        const Variant command = reporting([&] { return createCommand_.call(object_.get(), {borrowed(passed.get())}); });
        return textIn(command.get());
    }

    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) override {
        const Ptr<IDispatch> passed = copiedOut(collection);
        const Bstr text(response);
        const Variant results = reporting([&] {
            return verifyResponse_.call(object_.get(), {borrowed(text.get()), borrowed(passed.get())});
        });
        return broughtBack(results, passed, collection);
    }

    CollectionPtr IProfileGet_ProfileElements(TextView display, const CollectionPtr& collection,
                                              SelectionSource& selection) override {
        const Ptr<IDispatch> passed = copiedOut(collection);
        const Bstr text(display);
        const Bstr qualifierText(selection.qualifier());
        Variant list = Variant::arrayOfTexts(entriesOf(selection));
        const auto storeBack = [&] {
            const TextList changed = elementsIn(list.get().parray);
            for (std::size_t index = 0; index < changed.size(); ++index) selection.store(index, changed[index]);
            if (passed) copyBack(passed.get(), *collection);
        };
        try {
            const Variant unknown = reporting([&] {
                return profileElements_.call(
                    object_.get(), {borrowed(text.get()), borrowed(passed.get()), borrowedByReference(list.pointer()),
                                    borrowed(qualifierText.get())});
            });
            storeBack();
            return broughtBack(unknown, passed, collection);
        } catch (const Error&) {
            storeBack();
            throw;
        }
    }

    static TextList entriesOf(SelectionSource& selection) {
        TextList entries(selection.size());
        for (std::size_t index = 0; index < entries.size(); ++index) entries[index] = selection.entry(index);
        return entries;
    }

    // The returned object is the passed collection or a new one.
    static CollectionPtr broughtBack(const Variant& result, const Ptr<IDispatch>& passed,
                                     const CollectionPtr& collection) {
        const Ptr<IDispatch> object = objectIn(result.get());
        if (!object) return {};
        const CollectionPtr target = object.get() == passed.get() ? collection : std::make_shared<BuiltInCollection>();
        copyBack(object.get(), *target);
        return target;
    }

    template <class Call>
    Variant reporting(Call&& call) {
        ReportRelay relay(terminal_);
        try {
            Variant result = call();
            relay.relay();
            return result;
        } catch (const Error&) {
            relay.relay();
            throw;
        }
    }

    const ClassRow& row_;
    Terminal& terminal_;
    Ptr<IDispatch> object_;
    mutable TextList kept_;
    Member createCommand_{u"CreateCommand"};
    Member verifyResponse_{u"VerifyResponse"};
    Member profileElements_{u"ProfileElements"};
    Member explain_{u"Explain"};
};

}  // namespace

Apartment::Apartment() { check(CoInitialize(nullptr)); }
Apartment::~Apartment() { CoUninitialize(); }

std::unique_ptr<ProfileObject> newRemoteObject(const ClassRow& row, Terminal& terminal) {
    return std::make_unique<RemoteObject>(row, terminal);
}

Text explained(ProfileObject& object) { return static_cast<RemoteObject&>(object).explained(Variant::missing()); }

Text explained(ProfileObject& object, Recording recording) {
    return static_cast<RemoteObject&>(object).explained(Variant::of(recording == Recording::On));
}

std::int16_t countRemotely(ProfileObject& object, TextView property, const CountRequest& request) {
    return static_cast<RemoteObject&>(object).count(property, request);
}

}  // namespace vantro::com
