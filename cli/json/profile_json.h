// Whole profiles as JSON.
#pragma once

#include "cli/json/output.h"
#include "vantro/families.h"
#include "vantro/profile.h"

#include <bitset>

namespace vantro {

class ProfilePositions;

/// Some of the queries that a profile answers; at first all of them.
struct ProfileQueries {
    std::bitset<familyCount> families = std::bitset<familyCount>().set();
    std::bitset<otherQueryCount> others = std::bitset<otherQueryCount>().set();

    bool contain(Family family) const { return families[indexOf(family)]; }
    bool contain(OtherQuery query) const { return others[indexOf(query)]; }

    /// True if families were chosen: then each of them is to have an answer.
    bool chooseFamilies() const { return !families.all(); }

    /// True for the word of a query that is one of these ("PHI", "NM"), as in `Problem`.
    bool contain(TextView word) const;
};

/// What of a profile is written.
struct ProfileMembers {
    ProfileQueries queries = {};  ///< answers to other queries are left out
    bool isCompact = false;       ///< leaves out what is empty: families, lists, texts, flags that are not set
    const ProfilePositions* positions = nullptr;  ///< adds where the values are, unless null
};

/// Writes a profile as one object. Its last member "problems" is there only when there are any.
void writeProfile(const Profile& profile, const ProfileMembers& members, JsonOut& out);

}  // namespace vantro
