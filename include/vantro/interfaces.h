// The two interfaces of the public classes.
#pragma once

#include "vantro/collection.h"
#include "vantro/export.h"
#include "vantro/text.h"

#include <cstddef>

namespace vantro {

class Terminal;

/// The error numbers of a transaction class's two operations. `passesThrough` marks an operation without a number: it
/// passes on the error of the failing step.
struct TransErrors {
    static constexpr int passesThrough = 0;

    int createCommand = passesThrough;
    int verifyResponse = passesThrough;
};

/// A host transaction: builds the command and reads the host's response.
class VANTRO_EXPORT IProfileTrans {
public:
    /// The observer of the terminal library, if there is one, receives the steps of the operations.
    explicit IProfileTrans(TransErrors errors = {}, const Terminal* terminal = nullptr)
        : errors_(errors), terminal_(terminal) {}
    virtual ~IProfileTrans() = default;

    /// Returns the command for these parameters, exactly as it must be sent; empty when they are insufficient and
    /// nothing may be sent. Raises the class's number with "An error has occurred while creating a profile command.",
    /// or the failing step's error when the class has no number.
    Text CreateCommand(const CollectionPtr& params);

    /// Reads the host's screen (lines of 80 characters joined without separators). The collection contains the state of
    /// the transaction and may be null for most classes. Returns a new collection of results (the passed one for
    /// `CProfileMode` and `CProfileNotes`), or null for an empty response. Raises the class's number with "An error has
    /// occurred while verifying the profile.", or the failing step's error when the class has no number.
    CollectionPtr VerifyResponse(TextView response, const CollectionPtr& collection);

protected:
    IProfileTrans(const IProfileTrans&) = default;
    IProfileTrans& operator=(const IProfileTrans&) = default;

private:
    Text create(const CollectionPtr& params);
    CollectionPtr verify(TextView response, const CollectionPtr& collection);

    virtual Text IProfileTrans_CreateCommand(const CollectionPtr& params);
    virtual CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection);

    TransErrors errors_;
    const Terminal* terminal_;
};

/// The selection and the qualifier of a query, for a caller that must convert them first. Only the prefix "ALL" calls
/// it, so that other queries convert nothing and cannot fail in it. Its exceptions pass through the query.
class VANTRO_EXPORT SelectionSource {
public:
    virtual ~SelectionSource() = default;

    /// The number of entries; 0 without a selection.
    virtual std::size_t size() = 0;

    /// The entry at an index from 0, below `size`.
    virtual Text entry(std::size_t index) = 0;

    /// Stores an entry that the scanner has changed; called before the next entry is read.
    virtual void store(std::size_t index, const Text& changed) = 0;

    /// The qualifier, read after the last entry; the view is valid as long as the source.
    virtual TextView qualifier() = 0;

protected:
    SelectionSource() = default;
    SelectionSource(const SelectionSource&) = default;
    SelectionSource& operator=(const SelectionSource&) = default;
};

/// A parser of profile displays.
class VANTRO_EXPORT IProfileGet {
public:
    /// The observer of the terminal library, if there is one, receives the steps of the operation.
    explicit IProfileGet(const Terminal* terminal = nullptr) : terminal_(terminal) {}
    virtual ~IProfileGet() = default;

    /// Reads the element family that the collection names under "strKeyPrefix" from a display and adds it to the same
    /// collection. Returns null for a known family, the collection itself for an unknown one. `selection` and
    /// `qualifier` are used by the prefix "ALL" only, which changes the selection in place. Raises 5065 for an empty
    /// prefix, the family's own number, or the failing step's error; keys added before the failure stay in the
    /// collection.
    CollectionPtr ProfileElements(TextView display, const CollectionPtr& collection, TextList* selection = nullptr,
                                  TextView qualifier = {});

    /// The same with a selection and a qualifier that are converted only when the prefix needs them.
    CollectionPtr ProfileElements(TextView display, const CollectionPtr& collection, SelectionSource& selection);

protected:
    IProfileGet(const IProfileGet&) = default;
    IProfileGet& operator=(const IProfileGet&) = default;

private:
    virtual CollectionPtr IProfileGet_ProfileElements(TextView display, const CollectionPtr& collection,
                                                      SelectionSource& selection);

    const Terminal* terminal_;
};

}  // namespace vantro
