// What the page of an explanation shows: the values, and the decisions in order, grouped by query.
#pragma once

#include "vantro/explanation.h"
#include "vantro/registry.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace vantro {

/// A value that was read or added. The same characters under several names are one value.
struct PageValue {
    std::vector<Text> names = {};  ///< its part or its keys: "text", "strKeyElement()"
    std::int32_t index = 0;        ///< of its element, note or row, from 1; 0 for none
    std::size_t group = 0;
    Text meaning = {};
    const ReadingRule* rule = nullptr;  ///< the last one that decided about its first line; null for none
    Text text = {};
    std::vector<KeptPiece> pieces = {};  ///< empty for a value that the screen does not contain

    std::optional<Place> firstPlace() const;
};

/// A decision, a search or a failure. Equal decisions about lines that follow each other are one.
struct PageDecision {
    KeptStep step = {};
    Text lines = {};     ///< the beginning of its sentence: "lines 3 to 5"; empty if it is about no lines
    Text sentence = {};  ///< what follows
    Text meaning = {};   ///< empty if its group has the same one
};

/// The steps of one query, or those of a call outside its queries.
struct PageGroup {
    Text name = {};     ///< the query's word, or the call's name
    Text meaning = {};  ///< empty for a call
    std::optional<Error> error = {};
    std::vector<PageDecision> decisions = {};
    std::vector<std::size_t> values = {};
};

/// A line that looks like an element and is none.
struct PageLookAlike {
    LookAlike found;
    Text sentence = {};
};

struct PageModel {
    Text screen;
    std::vector<PageGroup> groups;  ///< in the order in which they began; those of a call without steps are left out
    std::vector<PageValue> values;
    std::vector<PageLookAlike> lookAlikes;
};

/// The row may be null.
PageModel pageModel(const Explanation& explanation, const ClassRow* row);

}  // namespace vantro
