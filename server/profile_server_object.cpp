#include "server/profile_server_object.h"

#include "server/operations.h"
#include "vantro_profile_utils.h"

#include <type_traits>

namespace vantro::com {

namespace {

// Each class below implements one interface of an object. The type library says which of them an object has.

template <class Interface>
class ServedHalf : public DispatchHalf<Interface> {
public:
    ServedHalf(IUnknown& owner, const IID& iid, Served& served)
        : DispatchHalf<Interface>(owner, iid), served_(served) {}

protected:
    Served& served() { return served_; }

    Ptr<IDispatch> furtherMembers() final { return Ptr(&this->owner()).template as<IDispatch>(IID_IExplained); }

private:
    Served& served_;
};

// Not a `ServedHalf`: it is what those have in addition.
class ExplainedHalf final : public DispatchHalf<IExplained> {
public:
    ExplainedHalf(IUnknown& owner, const IID& iid, Served& served)
        : DispatchHalf<IExplained>(owner, iid), served_(served) {}

    HRESULT STDMETHODCALLTYPE Explain(VARIANT recording, BSTR* explanation) override {
        return explain(served_, iid(), recording, explanation);
    }

private:
    Served& served_;
};

template <class Interface>
class TransHalf : public ServedHalf<Interface> {
public:
    using ServedHalf<Interface>::ServedHalf;

    HRESULT STDMETHODCALLTYPE CreateCommand(VARIANT params, BSTR* command) final {
        return createCommand(this->served(), this->iid(), params, command);
    }
    HRESULT STDMETHODCALLTYPE VerifyResponse(BSTR response, VARIANT collection, IDispatch** results) final {
        return verifyResponse(this->served(), this->iid(), response, collection, results);
    }
};

template <class Base>
class GetHalf : public Base {
public:
    using Base::Base;

    HRESULT STDMETHODCALLTYPE ProfileElements(BSTR display, VARIANT collection, VARIANT* selection, VARIANT qualifier,
                                              IDispatch** unknownFamily) final {
        return profileElements(this->served(), this->iid(), display, collection, selection, qualifier, unknownFamily);
    }
};

template <class Base>
class ListOfHalf : public Base {
public:
    using Base::Base;

    HRESULT STDMETHODCALLTYPE ListOf(VARIANT collection, BSTR key, VARIANT* list) final {
        return listOf(this->iid(), collection, key, list);
    }
};

template <class Base>
class ElementListHalf : public Base {
public:
    using Base::Base;

    HRESULT STDMETHODCALLTYPE get_ElementList(BSTR name, VARIANT* list) final {
        return elementList(this->served(), this->iid(), name, list);
    }
};

class LinkedProfilesHalf final : public TransHalf<ICRLPTrans> {
public:
    using TransHalf<ICRLPTrans>::TransHalf;

    HRESULT STDMETHODCALLTYPE RecLocCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"RecLocCount", text, result);
    }
};

class NotesHalf final : public ElementListHalf<ListOfHalf<GetHalf<TransHalf<ICProfileNotes>>>> {
public:
    using ElementListHalf::ElementListHalf;

    HRESULT STDMETHODCALLTYPE ProfileNotesElementsCount(BSTR text, VARIANT searchString, VARIANT searchQualifier,
                                                        SHORT* result) override {
        return countNotes(served(), iid(), text, searchString, searchQualifier, result);
    }
};

class ProfileHalf final : public ElementListHalf<ListOfHalf<GetHalf<ServedHalf<ICProfile>>>> {
public:
    using ElementListHalf::ElementListHalf;

    HRESULT STDMETHODCALLTYPE get_PPRElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PPRElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PGLElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PGLElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PPSElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PPSElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PHIElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PHIElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PCIElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PCIElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PPCElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PPCElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PPHElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PPHElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PPHElementsCountold(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PPHElementsCountold", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PPAElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PPAElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PPKElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PPKElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PPIElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PPIElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PXCElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PXCElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PXAElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PXAElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PXKElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PXKElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PSHElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PSHElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PSCElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PSCElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PPTElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PPTElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PXTElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PXTElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_RemarkElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"RemarkElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_ContactElementsCount(BSTR text, VARIANT* result) override {
        return count(served(), iid(), u"ContactElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_OtherServiceElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"OtherServiceElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_FrequentFlyerElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"FrequentFlyerElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_ServiceRequestElementsCount(BSTR text, VARIANT* result) override {
        return count(served(), iid(), u"ServiceRequestElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_SeatElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"SeatElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_RemarkConfElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"RemarkConfElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PASElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PASElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PIVElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PIVElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PCEElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PCEElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PIDElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PIDElementsCount", text, result);
    }
    HRESULT STDMETHODCALLTYPE get_PFOElementsCount(BSTR text, SHORT* result) override {
        return count(served(), iid(), u"PFOElementsCount", text, result);
    }
};

struct HalfRow {
    const IID& iid;
    std::unique_ptr<Half> (*make)(IUnknown& owner, const IID& iid, Served& served);
};

template <class Made>
std::unique_ptr<Half> make(IUnknown& owner, const IID& iid, Served& served) {
    return std::make_unique<Made>(owner, iid, served);
}

const HalfRow halfRows[] = {
    {IID_IProfileTrans, make<TransHalf<::IProfileTrans>>},
    {IID_IProfileGet, make<GetHalf<ServedHalf<::IProfileGet>>>},
    {IID_ICPLTTrans, make<ListOfHalf<TransHalf<ICPLTTrans>>>},
    {IID_ICRLPTrans, make<LinkedProfilesHalf>},
    {IID_ICProfile, make<ProfileHalf>},
    {IID_ICProfileNotes, make<NotesHalf>},
    {IID_IExplained, make<ExplainedHalf>},
};

class ProfileServerObject final : public ComposedObject {
public:
    ProfileServerObject(const ClassInfo& info, const ClassRow& row) : ComposedObject(info.clsid), served_(row) {
        for (const IID& iid : info.interfaces) addHalf(iid);
    }

private:
    void addHalf(const IID& iid) {
        for (const HalfRow& row : halfRows) {
            if (row.iid == iid) add(row.make(identity(), row.iid, served_));
        }
    }

    Served served_;
};

}  // namespace

Ptr<IUnknown> newProfileObject(const ClassInfo& info) {
    const ClassRow* const row = findClass(info.name);
    if (row == nullptr) fail(Failure::CannotCreateObject);
    auto* const object = new ProfileServerObject(info, *row);
    return Ptr<IUnknown>(&object->identity());
}

}  // namespace vantro::com
