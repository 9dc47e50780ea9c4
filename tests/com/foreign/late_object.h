// An object that offers automation alone: names and calls by name, no type information, no other interface.
#pragma once

#include "tests/com/foreign/values.h"
#include "tests/com/foreign/watch.h"

#include <atomic>
#include <span>
#include <string>
#include <vector>

namespace foreign {

/// The arguments of a call, in their order; those that were left out at the end are missing ones.
using Arguments = std::vector<VARIANT>;

/// An operation: its name in any case, its id, and how many arguments it takes.
struct MemberRow {
    const wchar_t* name;
    DISPID id;
    WORD kinds;  ///< DISPATCH_METHOD, DISPATCH_PROPERTYGET or both
    UINT fewest;
    UINT most;
};

class LateObject : public IDispatch {
public:
    LateObject(const LateObject&) = delete;
    LateObject& operator=(const LateObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) final;
    ULONG STDMETHODCALLTYPE AddRef() final;
    ULONG STDMETHODCALLTYPE Release() final;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) final;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) final;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, OLECHAR** names, UINT count, LCID, DISPID* ids) final;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) final;

protected:
    explicit LateObject(std::span<const MemberRow> members);
    virtual ~LateObject();

    virtual Held call(DISPID member, const Arguments& arguments) = 0;

    /// The call as the watch records it; empty for one that is not watched.
    virtual std::wstring watched(DISPID member, const Arguments& arguments) const = 0;

    /// The fault of the call.
    virtual Fault faultOf(DISPID member, const Arguments& arguments) const;

private:
    const MemberRow* find(DISPID member) const;

    std::span<const MemberRow> members_;
    std::atomic<ULONG> references_{1};
};

/// The result code of an error that a test has asked for.
HRESULT resultOfNumber(LONG number);

inline constexpr const wchar_t* librarySource = L"VantroKestoFaces";
inline constexpr const wchar_t* askedDescription = L"The terminal failed, as it was asked to.";

}  // namespace foreign
