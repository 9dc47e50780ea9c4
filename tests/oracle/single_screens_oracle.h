#pragma once

// The readers of the host's single screens, written out step by step. No collection comes back for an empty response; a
// failure is thrown with the operation's number, or as it is where the operation has none.

#include "collection.h"
#include "steps.h"

#include <optional>

namespace oracle {

std::optional<Collection> verifyCPBITrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPBNTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPCNTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPDITrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPDMDTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPDRTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPDTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPDTTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPHTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPLCTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPTTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPXTrans(const Text& response, const Collection* state);

// These two add their results to the collection that came in; 5045 for both.
std::optional<Collection> verifyCProfileMode(const Text& response, const Collection* state);
std::optional<Collection> verifyCProfileNotes(const Text& response, const Collection* state);

}  // namespace oracle
