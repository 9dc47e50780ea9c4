// docs/glossary.md has a line for every transaction code, every query and every family.
#include "tests/support/text.h"
#include "vantro/families.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace vantro::test {
namespace {

std::string glossary() {
    std::ifstream file(std::string(VANTRO_SOURCE_DIR) + "/docs/glossary.md");
    return {std::istreambuf_iterator<char>(file), {}};
}

void expectRow(const std::string& beginning) {
    EXPECT_NE(glossary().find("\n| " + beginning + " | "), std::string::npos) << beginning;
}

TEST(Glossary, HasEveryTransactionWithItsClass) {
    for (const ClassRow& row : classTable()) {
        for (const TextView code : row.transactions) expectRow(utf8(code) + " | `" + utf8(row.name) + "`");
    }
}

TEST(Glossary, HasEveryFamilyWithItsSection) {
    const std::string rule = "------- ";
    for (const FamilyFacts& family : families()) {
        expectRow(utf8(family.word) + " | " + utf8(family.section).substr(rule.size()));
    }
}

TEST(Glossary, HasEveryOtherQuery) {
    for (std::size_t query = 0; query < otherQueryCount; ++query) {
        expectRow(utf8(factsOf(static_cast<OtherQuery>(query)).word));
    }
}

}  // namespace
}  // namespace vantro::test
