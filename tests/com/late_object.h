// An automation object of the test's own, reached by the names of its operations only.
#pragma once

#include "server/com/ptr.h"
#include "server/com/ref_counted.h"
#include "vantro/text.h"

#include <functional>
#include <map>
#include <vector>

namespace vantro::test {

/// What an operation does with its arguments, which stand in their order; the result is there for it to fill.
using Operation = std::function<HRESULT(const std::vector<VARIANT>& arguments, VARIANT& result, EXCEPINFO& exception)>;

using Operations = std::map<Text, Operation>;

/// A new object with these operations.
com::Ptr<IDispatch> newLateObject(Operations operations);

/// Makes this thread's next objects of a class be of the test's making, as long as it lives.
class TakenClass {
public:
    TakenClass(const CLSID& clsid, Operations operations);
    TakenClass(const TakenClass&) = delete;
    TakenClass& operator=(const TakenClass&) = delete;
    ~TakenClass();

private:
    DWORD cookie_ = 0;
};

/// Runs in an apartment of its own, where nothing of the terminal is known yet.
void inNewApartment(const std::function<void()>& body);

}  // namespace vantro::test
