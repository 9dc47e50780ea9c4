// Whole profiles as JSON.
#pragma once

#include "cli/json/output.h"
#include "vantro/profile.h"

namespace vantro {

/// The fields beside number and text that a family's elements have.
struct FurtherFields {
    bool code = false;
    bool account = false;  ///< airline and frequent flyer number
    bool freeText = false;
    bool asterisk = false;
};
FurtherFields furtherFields(Family family);

/// Writes a profile as one object. Its last member "problems" is there only when there are any.
void writeProfile(const Profile& profile, JsonOut& out);

}  // namespace vantro
