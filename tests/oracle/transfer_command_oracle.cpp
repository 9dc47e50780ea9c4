#include "parameters.h"

namespace oracle {

namespace {

struct Groups {
    std::vector<Text> elements;
    std::vector<Text> segments;
    std::vector<Text> passengers;
};

// The list is read anew for every entry.
Text listEntry(const Collection* params, const std::string& key, int index) {
    const Value& value = itemValue(item(params, key));
    const std::vector<Text>* list = std::get_if<std::vector<Text>>(&value);
    if (list == nullptr) {
        throw Failure{typeMismatch};
    }
    return entry(*list, index);
}

// Entries 0 to the highest index; a list cannot end before entry 0.
Groups readGroups(const Collection* params, int highest) {
    if (highest < 0) {
        throw Failure{outOfRange};
    }
    Groups groups;
    for (int i = 0; i <= highest; ++i) {
        groups.elements.push_back(listEntry(params, "strKeyElArray()", i));
        groups.segments.push_back(listEntry(params, "strKeySegArray()", i));
        groups.passengers.push_back(listEntry(params, "strKeyPasArray()", i));
    }
    return groups;
}

Text withAssociations(const Text& start, const Text& segment, const Text& passenger) {
    Text result = start;
    if (!segment.empty()) {
        result = result + u"/S" + segment;
    }
    if (!passenger.empty()) {
        result = result + u"/P" + passenger;
    }
    return result;
}

Text withGroups(const Text& start, const Groups& groups) {
    Text result = start;
    for (std::size_t i = 0; i < groups.elements.size(); ++i) {
        if (result.size() > 2) {
            result = result + u"/" + u"/";
        }
        result = result + groups.elements[i];
        result = withAssociations(result, groups.segments[i], groups.passengers[i]);
    }
    return result;
}

}  // namespace

Text transferCommand(const Collection* params) {
    const bool all = flag(params, "blnKeyAllPNR");
    const bool override = flag(params, "blnKeyOverride");
    const Text elements = text(params, "strKeyElements");
    const Text segments = text(params, "strKeySegAsso");
    const Text passengers = text(params, "strKeyPasAsso");
    const Text arraySize = text(params, "intKeyArraySize");
    if (!arraySize.empty() && (!elements.empty() || !segments.empty() || !passengers.empty())) {
        return Text();
    }
    Text result = u"PT";
    if (!arraySize.empty()) {
        const int highest = toInteger16(Value(arraySize));
        result = withGroups(result, readGroups(params, highest));
    }
    if (override) {
        result = result + u"O";
    }
    if (all) {
        result = result + u"*";
    }
    return withAssociations(result + elements, segments, passengers);
}

}  // namespace oracle
