// All rules of all readers. A new group of rules is one line here.
#include "display/rules.h"
#include "profile/notes_rules.h"
#include "transactions/rules.h"
#include "vantro/observer.h"

#include <algorithm>
#include <array>

namespace vantro {

namespace {

template <std::size_t... Sizes>
constexpr auto joined(const std::array<const ReadingRule*, Sizes>&... groups) {
    std::array<const ReadingRule*, (Sizes + ...)> all{};
    auto next = all.begin();
    ((next = std::ranges::copy(groups, next).out), ...);
    return all;
}

constexpr auto allRules = joined(sectionRules, prefixedRules, transferableRules, selectionRules, documentRules,
                                 noteRules, headerRules, hostLineRules, transactionRules, notesTransactionRules);

}  // namespace

std::span<const ReadingRule* const> readingRules() noexcept { return allRules; }

}  // namespace vantro
