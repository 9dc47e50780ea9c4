// The commands in the rows of the classes: the examples, the forms, and which parameters a command needs.
#include "tests/support/driven_class.h"
#include "tests/support/parameter_worlds.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

// The form as a regular expression: a lower-case word is a value, "[...]" is optional, "[...]..." may be repeated.
std::string patternOf(const std::string& form, const std::string& value) {
    std::string pattern;
    for (std::size_t at = 0; at < form.size(); ++at) {
        const char sign = form[at];
        if (sign == '[') {
            pattern += "(?:";
        } else if (sign == ']') {
            const bool repeats = form.compare(at + 1, 3, "...") == 0;
            pattern += repeats ? ")*" : ")?";
            if (repeats) at += 3;
        } else if (sign >= 'a' && sign <= 'z') {
            if (at == 0 || form[at - 1] < 'a' || form[at - 1] > 'z') pattern += value;
        } else {
            pattern += sign == '*' ? std::string("\\*") : std::string(1, sign);
        }
    }
    return pattern;
}

bool fits(const std::string& command, const CommandForm& form, const std::string& value) {
    return std::regex_match(command, std::regex(patternOf(utf8(form.form), value)));
}

class FormsOf : public testing::TestWithParam<const ClassRow*> {
protected:
    const ClassDescription& about() const { return GetParam()->description; }

    /// The command, or nothing when it is empty or cannot be built.
    std::optional<std::string> command(const Entries& params) {
        try {
            const Text built = driven_.command(params);
            if (!built.empty()) return utf8(built);
        } catch (const Error&) {}
        return std::nullopt;
    }

private:
    DrivenClass driven_{GetParam()->name};
};

std::vector<const ClassRow*> transactionRows() {
    std::vector<const ClassRow*> rows;
    for (const ClassRow& row : classTable()) {
        if (row.hasProfileTrans) rows.push_back(&row);
    }
    return rows;
}

INSTANTIATE_TEST_SUITE_P(, FormsOf, testing::ValuesIn(transactionRows()),
                         [](const auto& test) { return className(*test.param); });

TEST_P(FormsOf, ItsExamplesBuildTheirCommands) {
    for (const CommandForm& form : about().forms) {
        EXPECT_EQ(command(entriesOf(form.example)), utf8(form.command));
        EXPECT_TRUE(fits(utf8(form.command), form, "[A-Z0-9,]+(?:/[A-Z]+)?")) << utf8(form.command);
    }
}

TEST_P(FormsOf, EveryCommandHasOneOfItsForms) {
    std::set<std::string> commands;
    forEachGood(about().parameters, [&](const Entries& params) {
        if (const auto built = command(params)) commands.insert(*built);
    });
    EXPECT_FALSE(commands.empty());
    for (const std::string& built : commands) {
        const auto hasForm = [&](const CommandForm& form) { return fits(built, form, "[A-Z]?[0-9]"); };
        EXPECT_TRUE(std::ranges::any_of(about().forms, hasForm)) << built;
    }
}

bool hasValue(const Entry& entry) {
    if (const auto* truth = std::get_if<bool>(&entry.value)) return *truth;
    if (const auto* list = std::get_if<TextList>(&entry.value)) return !list->empty();
    return !std::get<Text>(entry.value).empty();
}

// Observations of one key in commands from generated parameters.
struct Seen {
    bool lost = false;     ///< some command could not be built after the key was removed
    bool without = false;  ///< some command was built without the key
};

TEST_P(FormsOf, ParametersAreNeededAsTheirRowsSay) {
    std::map<Text, Seen> seen;
    forEachGood(about().parameters, [&](const Entries& params) {
        if (!command(params)) return;
        for (const ParameterRow& row : about().parameters) {
            const auto entry = std::ranges::find(params, row.key, &Entry::key);
            if (entry == params.end() || !hasValue(*entry)) {
                seen[Text(row.key)].without = true;
                continue;
            }
            Entries others = params;
            std::erase(others, *entry);
            if (!command(others)) seen[entry->key].lost = true;
        }
    });
    for (const ParameterRow& row : about().parameters) {
        const Seen& runs = seen[Text(row.key)];
        EXPECT_EQ(runs.lost, row.need != Need::Optional) << utf8(row.key);
        EXPECT_EQ(runs.without, row.need != Need::Required) << utf8(row.key);
        EXPECT_EQ(row.when.empty(), row.need != Need::Conditional) << utf8(row.key);
    }
}

TEST_P(FormsOf, AKnownTextBuildsADifferentCommand) {
    for (const ParameterRow& row : about().parameters) {
        for (const TextView known : row.values) {
            bool differs = false;
            forEachGood(about().parameters, [&](const Entries& params) {
                Entries others = params;
                const auto entry = std::ranges::find(others, Entry(row.key, Text(known)));
                if (entry == others.end()) return;
                entry->value = Text(u"X1");
                differs = differs || command(params) != command(others);
            });
            EXPECT_TRUE(differs) << utf8(row.key) << " " << utf8(known);
        }
    }
}

}  // namespace
}  // namespace vantro::test
