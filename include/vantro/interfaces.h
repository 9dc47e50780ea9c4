// The two interfaces through which a terminal uses every class.
#pragma once

#include "vantro/collection.h"
#include "vantro/export.h"
#include "vantro/text.h"

#include <cstddef>

namespace vantro {

/// The error numbers of a transaction class's two operations. `passesThrough` marks an operation without a
/// number: a failure inside it reaches the caller as the failing step's own error.
struct TransErrors {
    static constexpr int passesThrough = 0;

    int createCommand = passesThrough;
    int verifyResponse = passesThrough;
};

/// A host transaction: builds the command line and reads the screen that the host answers with.
class VANTRO_EXPORT IProfileTrans {
public:
    explicit IProfileTrans(TransErrors errors = {}) : errors_(errors) {}
    virtual ~IProfileTrans() = default;

    /// The command for these parameters, exactly as it is to be sent; empty when they are insufficient and
    /// nothing is to be sent. Raises the class's number with "An error has occurred while creating a profile
    /// command.", or the failing step's error where the class has no number.
    Text CreateCommand(const CollectionPtr& params);

    /// Reads the host's screen (lines of 80 characters joined without separators). The collection carries the
    /// state of the transaction and may be null for most classes. Gives a new collection of results (the
    /// passed one for `CProfileMode` and `CProfileNotes`), or null for an empty response. Raises the class's
    /// number with "An error has occurred while verifying the profile.", or the failing step's error.
    CollectionPtr VerifyResponse(TextView response, const CollectionPtr& collection);

protected:
    IProfileTrans(const IProfileTrans&) = default;
    IProfileTrans& operator=(const IProfileTrans&) = default;

private:
    virtual Text IProfileTrans_CreateCommand(const CollectionPtr& params);
    virtual CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection);

    TransErrors errors_;
};

/// The selection and the qualifier of a query where the caller has to convert them first. Only the prefix "ALL"
/// asks for anything here: what no other prefix uses is not converted, and cannot fail. A failure is the query's.
class VANTRO_EXPORT SelectionSource {
public:
    virtual ~SelectionSource() = default;

    /// How many entries the selection has; 0 without one.
    virtual std::size_t size() = 0;

    /// The entry at an index (from 0, below `size`).
    virtual Text entry(std::size_t index) = 0;

    /// Takes an entry as the scanner has changed it, before the next one is asked for.
    virtual void store(std::size_t index, const Text& changed) = 0;

    /// The qualifier, asked for after the last entry; the view lives as long as the source.
    virtual TextView qualifier() = 0;

protected:
    SelectionSource() = default;
    SelectionSource(const SelectionSource&) = default;
    SelectionSource& operator=(const SelectionSource&) = default;
};

/// A parser of profile displays.
class VANTRO_EXPORT IProfileGet {
public:
    virtual ~IProfileGet() = default;

    /// Reads the element family that the collection names under "strKeyPrefix" out of a display and adds it
    /// to the same collection. Gives null when the family is known, the collection itself when it is not.
    /// `selection` and `qualifier` serve the prefix "ALL" alone, which changes the selection in place.
    /// Raises 5065 for an empty prefix, the family's own number, or the failing step's error; keys added
    /// before the failure stay in the collection.
    CollectionPtr ProfileElements(TextView display, const CollectionPtr& collection, TextList* selection = nullptr,
                                  TextView qualifier = {});

    /// The same with a selection and a qualifier that are made when the prefix asks for them.
    CollectionPtr ProfileElements(TextView display, const CollectionPtr& collection, SelectionSource& selection);

protected:
    IProfileGet() = default;
    IProfileGet(const IProfileGet&) = default;
    IProfileGet& operator=(const IProfileGet&) = default;

private:
    virtual CollectionPtr IProfileGet_ProfileElements(TextView display, const CollectionPtr& collection,
                                                      SelectionSource& selection);
};

}  // namespace vantro
