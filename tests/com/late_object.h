// An automation object that a test defines, called by the names of its operations only.
#pragma once

#include "server/com/ptr.h"
#include "server/com/ref_counted.h"
#include "vantro/text.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace vantro::test {

/// The body of an operation: its arguments, in order, and the result to fill.
using Operation = std::function<HRESULT(const std::vector<VARIANT>& arguments, VARIANT& result, EXCEPINFO& exception)>;

using Operations = std::map<Text, Operation>;

/// A new object with these operations.
com::Ptr<IDispatch> newLateObject(Operations operations);

/// What was done with a class object.
struct ClassUse {
    HRESULT lockResult = S_OK;  ///< the result of a lock
    int created = 0;
    int locks = 0;
};

/// While an instance exists, this thread's new objects of a class are the test's own.
class TakenClass {
public:
    TakenClass(const CLSID& clsid, Operations operations, std::shared_ptr<ClassUse> use = std::make_shared<ClassUse>());
    TakenClass(const TakenClass&) = delete;
    TakenClass& operator=(const TakenClass&) = delete;
    ~TakenClass();

private:
    DWORD cookie_ = 0;
};

/// Runs in a new apartment, which has no objects of the terminal yet.
void inNewApartment(const std::function<void()>& body);

}  // namespace vantro::test
