// Compares the library's values with the oracle's, and prints both.
#pragma once

#include "tests/oracle/collection.h"
#include "vantro/built_in_terminal.h"

#include <string>

namespace vantro::fuzz {

bool same(const ItemValue& value, const oracle::Value& expected);

/// Same keys, same values, same order; null means no collection on either side.
bool same(const BuiltInCollection* collection, const oracle::Collection* expected);

oracle::Value oracleValue(const ItemValue& value);
oracle::Collection oracleCollection(const BuiltInCollection& collection);

/// As text, for messages.
std::string shown(TextView text);
std::string shown(const TextList& list);
std::string shown(const oracle::Value& value);
std::string shown(const oracle::Collection* collection);

/// The screen cut into lines.
std::string drawn(TextView screen, std::size_t width);

}  // namespace vantro::fuzz
