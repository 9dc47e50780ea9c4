// The public classes, one row each, and their creation.
#pragma once

#include "vantro/class_description.h"
#include "vantro/export.h"
#include "vantro/interfaces.h"
#include "vantro/profile_object.h"
#include "vantro/terminal.h"

#include <memory>
#include <span>

namespace vantro {

/// One public class: its name, interfaces, error numbers, creation and description.
struct ClassRow {
    TextView name;
    bool hasProfileTrans;
    bool hasProfileGet;
    std::span<const TextView> transactions;  ///< host transaction codes; empty for a parser
    std::span<const CountProperty> counts;
    TransErrors errors;
    std::unique_ptr<ProfileObject> (*creator)(Terminal& terminal, const TransErrors& errors);
    ClassDescription description = {};  ///< its purpose, parameters and results
};

/// All public classes: the transactions, then the two parsers.
VANTRO_EXPORT std::span<const ClassRow> classTable();

/// The row of the class with exactly this name, or null.
VANTRO_EXPORT const ClassRow* findClass(TextView name);

/// The count property with exactly this name, or null.
VANTRO_EXPORT const CountProperty* findCount(const ClassRow& row, TextView name);

/// Returns a new instance that uses this terminal library. Raises 429 when the class cannot be created.
VANTRO_EXPORT std::unique_ptr<ProfileObject> createObject(const ClassRow& row, Terminal& terminal);

/// The same for the class with exactly this name. Raises 429, with the name in the description, when there is none.
VANTRO_EXPORT std::unique_ptr<ProfileObject> createObject(TextView name, Terminal& terminal);

}  // namespace vantro
