// The public classes: one row each, and the only way to create them.
#pragma once

#include "vantro/class_description.h"
#include "vantro/export.h"
#include "vantro/interfaces.h"
#include "vantro/profile_object.h"
#include "vantro/terminal.h"

#include <memory>
#include <span>

namespace vantro {

/// One public class: how it is made, and all that there is to say about it.
struct ClassRow {
    TextView name;
    bool hasProfileTrans;
    bool hasProfileGet;
    std::span<const TextView> transactions;  ///< host transaction codes, none for a parser
    std::span<const CountProperty> counts;
    TransErrors errors;
    std::unique_ptr<ProfileObject> (*creator)(Terminal& terminal, const TransErrors& errors);
    ClassDescription description = {};  ///< what it is for, takes and adds
};

/// All public classes: the transactions, then the two parsers.
VANTRO_EXPORT std::span<const ClassRow> classTable();

/// The row of a class by its exact name, or null.
VANTRO_EXPORT const ClassRow* findClass(TextView name);

/// The count property by its exact name, or null.
VANTRO_EXPORT const CountProperty* findCount(const ClassRow& row, TextView name);

/// A new instance that works with this terminal library. Raises 429 when the class cannot be created.
VANTRO_EXPORT std::unique_ptr<ProfileObject> createObject(const ClassRow& row, Terminal& terminal);

/// The same by the class's exact name. Raises 429, with the name in the description, when there is no such class.
VANTRO_EXPORT std::unique_ptr<ProfileObject> createObject(TextView name, Terminal& terminal);

}  // namespace vantro
