// Where values are on their screen, as the readers say it, beside the values in JSON. Lines count from 0, columns
// from 1.
#pragma once

#include "cli/json/output.h"
#include "vantro/explanation.h"
#include "vantro/registry.h"

#include <map>
#include <span>
#include <string>
#include <tuple>
#include <vector>

namespace vantro {

using KeptPieces = std::vector<KeptPiece>;

/// The texts of the pieces, joined, are the value.
bool areOf(std::span<const KeptPiece> pieces, TextView value);

/// Writes the pieces as one array: {"line":12,"column":11,"length":13} for characters of the screen, {"inserted":","}
/// for text that the screen does not contain there.
void writePieces(std::span<const KeptPiece> pieces, JsonOut& out);

/// The pieces for people: "12:11-23", "12:11-23 13:11-19".
std::string placesOf(std::span<const KeptPiece> pieces);

/// Where the values of a profile or of the rows of a list are. An observer of one call at a time.
class ProfilePositions final : public ReadingObserver {
public:
    void observe(const ReadingStep& step) override;

    /// The pieces of a part of an element, note or row, by its index from 1, or, with index 0, of a header value. Null
    /// for a value that is not on the screen. `query` is the query's word, empty for rows.
    const KeptPieces* find(TextView query, std::int32_t index, TextView part, TextView value) const;

private:
    struct Value {
        Text text;
        KeptPieces pieces;
    };

    Text query_;
    std::map<std::tuple<Text, std::int32_t, Text>, Value> values_;
};

/// The values whose positions are asked for: those of a query, or of one of its elements (index from 1).
struct Positioned {
    const ProfilePositions* positions = nullptr;
    TextView query = {};
    std::int32_t index = 0;
};

/// Writes the member "positions" of an object, which has a member for each value that is on the screen.
class PositionsMember {
public:
    /// `followsPieces` says that the members above it were written as pieces, which add no comma.
    PositionsMember(const Positioned& what, JsonOut& out, bool followsPieces = false)
        : what_(what), out_(out), followsPieces_(followsPieces) {}

    void add(std::string_view name, TextView value) { add(what_.query, name, value); }
    void add(TextView query, std::string_view name, TextView value);
    void end();

private:
    const Positioned& what_;
    JsonOut& out_;
    bool followsPieces_;
    bool isBegun_ = false;
};

/// Where the values of a collection of results are. An observer of one call.
class ResultPositions final : public ReadingObserver {
public:
    /// The row's marks say which mark sets a flag. It must outlive the observer.
    explicit ResultPositions(const ClassRow& row) : row_(row) {}

    void observe(const ReadingStep& step) override;

    /// The pieces of a text, those of the mark that set a flag, or those of each entry of a list. Null for a value that
    /// is not on the screen.
    const std::vector<KeptPieces>* find(TextView key) const;

private:
    KeptPieces markOf(TextView flag) const;

    const ClassRow& row_;
    std::map<Text, std::vector<KeptPieces>, std::less<>> keys_;
    std::map<Text, KeptPieces, std::less<>> marks_;  // those that were found last
};

}  // namespace vantro
