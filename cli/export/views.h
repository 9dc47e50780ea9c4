// The views of an export's database: answers that people often want, ready to query.
#pragma once

#include <span>
#include <string_view>

namespace vantro {

struct ViewColumn {
    std::string_view name;
    std::string_view expression;
    std::string_view meaning;
};

struct ViewFacts {
    std::string_view name;
    std::string_view meaning;
    std::span<const ViewColumn> columns;
    std::string_view rows;  ///< what follows FROM
};

std::span<const ViewFacts> exportViews();

}  // namespace vantro
