#pragma once

// The readers of the host's list screens, written step by step. They return no collection for an empty response; a
// failure is thrown with the reader's own number.

#include "collection.h"
#include "steps.h"

#include <optional>
#include <string>
#include <vector>

namespace oracle {

// Name search; 5075. A null state means an absent collection.
std::optional<Collection> verifyCPDNTrans(const Text& response, const Collection* state);

// Similar-name display; 5105.
std::optional<Collection> verifyCPDATrans(const Text& response, const Collection* state);

// Traveller list of an office; the state is not read.
std::optional<Collection> verifyCPLTTrans(const Text& response, const Collection* state);

// The lists of the profiles linked to a PNR, all of the same length.
struct LinkedProfiles {
    std::vector<bool> travellers;
    std::vector<bool> companies;
    std::vector<Text> recordLocators;
    std::vector<Text> associations;
};

// Refills the lists and returns their highest index.
int recLocCount(const Text& response, LinkedProfiles& linked);

// One linked profile; 5130.
std::optional<Collection> verifyCRLPTrans(const Text& response, const Collection* state);

// Screens from which little more than flags is read; the state is not read.
std::optional<Collection> verifyCPDTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPDITrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPDTTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPDRTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPCNTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPLCTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPHTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPTTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPBNTrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPBITrans(const Text& response, const Collection* state);
std::optional<Collection> verifyCPXTrans(const Text& response, const Collection* state);

// Reads no screen: it never returns a collection.
std::optional<Collection> verifyCPDMDTrans(const Text& response, const Collection* state);

// These two add their results to the state and return it; 5045.
std::optional<Collection> verifyCProfileMode(const Text& response, const Collection* state);
std::optional<Collection> verifyCProfileNotes(const Text& response, const Collection* state);

// The reader of the class with that name, null when there is none.
using Verify = std::optional<Collection> (*)(const Text& response, const Collection* state);
Verify verifyOf(const std::string& className);

}  // namespace oracle
