#include "common/element_set.h"
#include "list_screen/readers.h"

#include <re2/re2.h>
#include <cstdio>
#include <cstdlib>

namespace vantro::bench {

namespace {

RE2::Options latin1() {
    RE2::Options options;
    options.set_encoding(RE2::Options::EncodingLatin1);
    return options;
}

}  // namespace

struct Re2Lists::Expression {
    explicit Expression(const char* source) : re2(source, latin1()) {
        if (re2.ok()) return;
        std::fprintf(stderr, "RE2 cannot compile the expression: %s\n", re2.error().c_str());
        std::exit(1);
    }

    /// The group that matched, 0 when nothing matched.
    int groupIn(std::string_view line, int groupCount) {
        const re2::StringPiece piece(line.data(), line.size());
        if (!re2.Match(piece, 0, line.size(), RE2::ANCHOR_START, groups, groupCount)) return 0;
        for (int group = 1; group < groupCount; ++group) {
            if (groups[group].data() != nullptr) return group;
        }
        return 0;
    }

    /// The index of the first match; the text's size when there is none.
    std::size_t find(std::string_view text) {
        const re2::StringPiece piece(text.data(), text.size());
        if (!re2.Match(piece, 0, piece.size(), RE2::UNANCHORED, groups, 1)) return text.size();
        return static_cast<std::size_t>(groups[0].data() - text.data());
    }

    std::u16string text(int group) const { return {groups[group].begin(), groups[group].end()}; }

    RE2 re2;
    re2::StringPiece groups[companyGroups];
};

Re2Lists::Re2Lists()
    : end_(std::make_unique<Expression>(listEndExpression)),
      company_(std::make_unique<Expression>(companyExpression)),
      traveller_(std::make_unique<Expression>(travellerExpression)) {}

Re2Lists::~Re2Lists() = default;

CompanyList Re2Lists::companies(std::string_view screen) {
    CompanyAssembler assembler;
    const std::size_t end = end_->find(screen);
    for (std::size_t n = 1; n < end / 80; ++n) {
        const std::string_view line = screen.substr(n * 80, 80);
        const int group = company_->groupIn(line, companyGroups);
        if (group == 0) continue;
        assembler.take(group, company_->text(group), static_cast<int>(company_->groups[group].data() - line.data()));
    }
    return assembler.finished(end < screen.size() && screen[end] == 'E');
}

TravellerList Re2Lists::travellers(std::string_view screen) {
    TravellerAssembler assembler;
    const std::size_t lines = end_->find(screen) / 80;
    for (std::size_t n = 1; n < lines; ++n) {
        const int group = traveller_->groupIn(screen.substr(n * 80, 80), travellerGroups);
        if (group != 0) assembler.take(group, traveller_->text(group));
    }
    return std::move(assembler.list);
}

}  // namespace vantro::bench
