#include "cli/classes/nearest.h"

#include <algorithm>
#include <numeric>
#include <utility>
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
    const auto same = [&](std::size_t l, std::size_t r) { return lower(left[l]) == lower(right[r]); };
    // distances[i]: between the first characters of `left`, as many as were read, and the first i of `right`
    std::vector<std::size_t> distances(right.size() + 1);
    std::iota(distances.begin(), distances.end(), std::size_t{0});
    std::vector<std::size_t> before;  // for one character less of `left`
    std::vector<std::size_t> twoBefore;
    for (std::size_t l = 0; l < left.size(); ++l) {
        twoBefore = std::exchange(before, distances);
        ++distances[0];
        for (std::size_t r = 0; r < right.size(); ++r) {
            const std::size_t replaced = before[r] + (same(l, r) ? 0 : 1);
            distances[r + 1] = std::min({replaced, before[r + 1] + 1, distances[r] + 1});
            const bool isSwapped = l > 0 && r > 0 && same(l, r - 1) && same(l - 1, r);
            if (isSwapped) distances[r + 1] = std::min(distances[r + 1], twoBefore[r - 1] + 1);
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
