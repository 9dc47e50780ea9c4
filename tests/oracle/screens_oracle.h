#pragma once

// The readers of the host's list screens, written out step by step. No collection comes back for an
// empty response; a failure is thrown with the reader's own number.

#include "collection.h"
#include "steps.h"

#include <optional>
#include <vector>

namespace oracle {

// Name search; 5075. A null state is an absent collection.
std::optional<Collection> verifyCPDNTrans(const Text& response, const Collection* state);

// Similar-name display; 5105.
std::optional<Collection> verifyCPDATrans(const Text& response, const Collection* state);

// Traveller list of an office; the state is not read.
std::optional<Collection> verifyCPLTTrans(const Text& response, const Collection* state);

// The lists of the profiles linked to a booking, all of the same length.
struct LinkedProfiles {
    std::vector<bool> travellers;
    std::vector<bool> companies;
    std::vector<Text> recordLocators;
    std::vector<Text> associations;
};

// Fills the lists afresh and returns their highest index.
int recLocCount(const Text& response, LinkedProfiles& linked);

// One linked profile; 5130.
std::optional<Collection> verifyCRLPTrans(const Text& response, const Collection* state);

}  // namespace oracle
