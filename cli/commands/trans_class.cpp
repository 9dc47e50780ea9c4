#include "cli/commands/trans_class.h"

#include "cli/io/failure.h"
#include "cli/io/utf.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr const char* seeClasses = "; 'vantro-profile classes' lists the classes";

std::string unknownClass(const std::string& name) {
    const ClassRow* const meant = classOfTransaction(toUtf16(name));
    const std::string hint = meant != nullptr ? "; the class of " + name + " is " + toUtf8(meant->name) : seeClasses;
    return "no class is named '" + name + "'" + hint;
}

}  // namespace

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
