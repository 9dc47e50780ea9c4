#include "cli/classes/trans_class.h"

#include "cli/classes/nearest.h"
#include "cli/io/failure.h"
#include "cli/io/utf.h"

#include <algorithm>
#include <vector>

namespace vantro {

namespace {

constexpr const char* seeClasses = "; 'vantro-profile classes' lists the classes";

}  // namespace

std::string unknownClass(const std::string& name) {
    const std::string problem = "no class is named '" + name + "'";
    const Text wanted = toUtf16(name);
    if (const ClassRow* const meant = classOfTransaction(wanted)) {
        return problem + "; the class of " + name + " is " + toUtf8(meant->name);
    }
    std::vector<TextView> names;
    for (const ClassRow& row : classTable()) names.push_back(row.name);
    if (const auto nearest = nearestName(wanted, names)) return problem + "; did you mean " + toUtf8(*nearest) + "?";
    return problem + "; 'vantro-profile describe' lists the classes";
}

const ClassRow* classOfTransaction(TextView code) {
    for (const ClassRow& row : classTable()) {
        if (std::ranges::count(row.transactions, code) > 0) return &row;
    }
    return nullptr;
}

const ClassRow& transactionClass(const std::string& name) {
    const ClassRow* const row = findClass(toUtf16(name));
    if (row == nullptr) throw UsageError(unknownClass(name));
    if (!row->hasProfileTrans) {
        throw UsageError(name + " parses displays: it builds no command and reads no response" + seeClasses);
    }
    return *row;
}

}  // namespace vantro
