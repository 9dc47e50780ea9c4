#include "whole_profile/re2_reader.h"

#include "whole_profile/assembler.h"

#include <re2/re2.h>
#include <cstdio>
#include <cstdlib>

namespace vantro::bench {

namespace {

std::unique_ptr<RE2> compiled(const char* source) {
    RE2::Options options;
    options.set_encoding(RE2::Options::EncodingLatin1);
    auto expression = std::make_unique<RE2>(source, options);
    if (expression->ok()) return expression;
    std::fprintf(stderr, "RE2 cannot compile the expression: %s\n", expression->error().c_str());
    std::exit(1);
}

}  // namespace

Re2Reader::Re2Reader() : end_(compiled(endExpression)), line_(compiled(lineExpression)) {}

Re2Reader::~Re2Reader() = default;

const Scanned<std::string_view>& Re2Reader::read(std::string_view display) {
    result_.prepare(display.size());
    Assembler<char> assembler(result_);
    const re2::StringPiece text(display.data(), display.size());
    re2::StringPiece groups[groupCount];
    const bool ends = end_->Match(text, 0, text.size(), RE2::UNANCHORED, groups, 1);
    const std::size_t end = ends ? static_cast<std::size_t>(groups[0].data() - display.data()) / 80 * 80 : text.size();
    for (std::size_t at = 0; at < end; at += 80) {
        MatchedLine<char> matched{display.substr(at, 80), {}};
        const re2::StringPiece line(matched.line.data(), matched.line.size());
        if (line_->Match(line, 0, line.size(), RE2::ANCHOR_START, groups, groupCount)) {
            for (std::size_t i = 1; i < groupCount; ++i) matched.groups[i] = {groups[i].data(), groups[i].size()};
        }
        assembler.take(matched);
    }
    assembler.finish();
    return result_;
}

}  // namespace vantro::bench
