// The answers of a transaction and of the oracle in one form.
#pragma once

#include "tests/oracle/screens_oracle.h"
#include "tests/support/collections.h"
#include "tests/support/driven_class.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantro::test {

/// The entries of the returned collection, or the error number; neither when no collection is returned.
struct OracleAnswer {
    std::vector<std::pair<std::string, oracle::Value>> entries;
    int error = 0;
    bool hasCollection = false;

    friend bool operator==(const OracleAnswer&, const OracleAnswer&) = default;
};

std::string printed(const OracleAnswer& answer);

oracle::Collection oracleCollection(const Entries& entries);

OracleAnswer libraryAnswer(DrivenClass& driven, const Text& response, const std::optional<Entries>& state);
OracleAnswer oracleAnswer(oracle::Verify verify, const Text& response, const std::optional<Entries>& state);

/// The screen drawn with a bar at both ends of each line.
std::string drawn(const Text& response);

}  // namespace vantro::test
