// The pattern of --id and the names of --only.
#include "cli/commands/id_pattern.h"
#include "cli/commands/chosen_queries.h"
#include "cli/io/failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantro {
namespace {

using testing::HasSubstr;

const IdValues values{.file = "in/old.b/a.b.txt", .locator = "H4T9QZ", .title = "A LINE", .display = 3, .line = 17};

std::string idFor(std::string_view pattern) { return IdPattern(pattern).idOf(values); }

template <class Action>
std::string refusalOf(Action action) {
    try {
        action();
    } catch (const UsageError& problem) {
        return problem.what();
    }
    return "";
}

TEST(IdPattern, HasPlaceholders) {
    EXPECT_EQ(idFor("{locator}"), "H4T9QZ");
    EXPECT_EQ(idFor("{file}:{line}/{display}"), "in/old.b/a.b.txt:17/3");
    EXPECT_EQ(idFor("[{title}] {name}"), "[A LINE] a");
    EXPECT_EQ(idFor("plain }"), "plain }");
    EXPECT_EQ(idFor(""), "");
}

TEST(IdPattern, ANameIsAFileWithoutFolderAndExtensions) {
    const IdPattern pattern("{name}");
    EXPECT_EQ(pattern.idOf({.file = "x.tar.gz"}), "x");
    EXPECT_EQ(pattern.idOf({.file = "C:\\captures\\x.txt"}), "x");
    EXPECT_EQ(pattern.idOf({.file = "a/.hidden"}), ".hidden");
    EXPECT_EQ(pattern.idOf({.file = "-"}), "-");
    EXPECT_EQ(pattern.idOf({.file = "a/"}), "");
}

TEST(IdPattern, AnUnknownPlaceholderNamesTheNearest) {
    EXPECT_EQ(refusalOf([] { IdPattern("{locater}"); }),
              "--id: there is no placeholder {locater}; did you mean {locator}?");
    EXPECT_EQ(refusalOf([] { IdPattern("x{date}"); }),
              "--id: there is no placeholder {date}; there are {locator} {title} {file} {name} {display} {line}");
    EXPECT_THAT(refusalOf([] { IdPattern("{}"); }), HasSubstr("no placeholder {}"));
    EXPECT_THAT(refusalOf([] { IdPattern("{line"); }), HasSubstr("a brace is not closed"));
}

TEST(ChosenQueries, AreAllWithoutNames) {
    EXPECT_TRUE(chosenQueries({}).families.all());
    EXPECT_TRUE(chosenQueries({}).others.all());
}

TEST(ChosenQueries, AreNamedByPrefixOrJsonName) {
    const std::vector<std::string> names{"PPR", "RM", "NM", "officeIdentifier", "notes"};
    const ProfileQueries queries = chosenQueries(names);
    EXPECT_EQ(queries.families.count(), 2U);
    EXPECT_TRUE(queries.contain(Family::PPR) && queries.contain(Family::Remark));
    EXPECT_EQ(queries.others.count(), 3U);
    EXPECT_TRUE(queries.contain(OtherQuery::Name) && queries.contain(OtherQuery::OfficeIdentifier));
    EXPECT_TRUE(queries.contain(OtherQuery::Notes));
}

TEST(ChosenQueries, AnUnknownNameIsRefusedWithTheNearest) {
    const auto refusal = [](const std::string& name) {
        return refusalOf([&] { chosenQueries(std::vector<std::string>{"PPR", name}); });
    };
    EXPECT_EQ(refusal("ppr"), "--only: nothing in a profile is named 'ppr'; did you mean PPR?");
    EXPECT_EQ(refusal("recordLocater"),
              "--only: nothing in a profile is named 'recordLocater'; did you mean recordLocator?");
    EXPECT_THAT(refusal("WHAT"), HasSubstr("'WHAT'; there are SR RM AP "));
    EXPECT_THAT(refusal("ALL"), HasSubstr("nothing in a profile is named 'ALL'"));
    EXPECT_THAT(refusal(""), HasSubstr("named ''"));
}

}  // namespace
}  // namespace vantro
