#include "cli/classes/nearest.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace vantro {

namespace {

// A name of three characters or fewer may differ in one of them.
constexpr std::size_t shortName = 4;

char16_t lower(char16_t letter) {
    return letter >= u'A' && letter <= u'Z' ? static_cast<char16_t>(letter - u'A' + u'a') : letter;
}

}  // namespace

std::size_t editDistance(TextView left, TextView right) {
    // distances[i]: between what was read of `left` and the first i characters of `right`
    std::vector<std::size_t> distances(right.size() + 1);
    std::iota(distances.begin(), distances.end(), std::size_t{0});
    for (const char16_t letter : left) {
        std::size_t diagonal = distances[0]++;
        for (std::size_t i = 0; i < right.size(); ++i) {
            const std::size_t replaced = diagonal + (lower(letter) == lower(right[i]) ? 0 : 1);
            diagonal = distances[i + 1];
            distances[i + 1] = std::min({replaced, diagonal + 1, distances[i] + 1});
        }
    }
    return distances.back();
}

std::optional<TextView> nearestName(TextView misspelt, std::span<const TextView> names) {
    std::optional<TextView> nearest;
    std::size_t least = 0;
    for (const TextView name : names) {
        const std::size_t distance = editDistance(misspelt, name);
        if (3 * distance >= std::max(name.size(), shortName) || (nearest && distance >= least)) continue;
        nearest = name;
        least = distance;
    }
    return nearest;
}

}  // namespace vantro
