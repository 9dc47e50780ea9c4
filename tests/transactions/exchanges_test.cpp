// Runs every sample exchange of samples/exchanges and compares commands and results with the file.
#include "tests/support/driven_class.h"
#include "tests/support/exchange_file.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

const std::filesystem::path folder = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "exchanges";

std::vector<std::string> exchangeNames() {
    std::vector<std::string> names;
    for (const auto& file : filesIn(folder, ".exchange")) names.push_back(file.stem().string());
    return names;
}

/// Runs the steps of one exchange, with one object per class.
class Player {
public:
    void play(const ExchangeStep& step) {
        SCOPED_TRACE("step on line " + std::to_string(step.line));
        ASSERT_NE(findClass(step.className), nullptr);
        DrivenClass& driven = objectOf(step.className);
        const CollectionPtr params = collectionOf(step.params);
        checkCommand(step, driven, params);
        if (step.screen) checkScreen(step, driven, step.statePrevious ? previous_ : params);
        checkReported(step, driven);
    }

private:
    DrivenClass& objectOf(const Text& name) {
        std::unique_ptr<DrivenClass>& object = objects_[name];
        if (!object) object = std::make_unique<DrivenClass>(name);
        object->reported.clear();
        return *object;
    }

    static void checkCommand(const ExchangeStep& step, DrivenClass& driven, const CollectionPtr& params) {
        if (!step.command && !step.commandRaises) return;
        try {
            const Text command = driven.command(params);
            EXPECT_EQ(utf8(command), utf8(step.command.value_or(Text(u"(an error)"))));
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), step.commandRaises.value_or(0));
        }
    }

    void checkScreen(const ExchangeStep& step, DrivenClass& driven, const CollectionPtr& state) {
        using Kind = ExchangeResults::Kind;
        if (step.count) {
            EXPECT_EQ(driven.count(u"RecLocCount", *step.screen), *step.count);
        }
        try {
            const CollectionPtr results = driven.read(*step.screen, state);
            ASSERT_NE(step.results->kind, Kind::Raised);
            ASSERT_EQ(results != nullptr, step.results->kind == Kind::Collection);
            if (results == nullptr) return;
            EXPECT_EQ(entriesOf(results), entriesOf(step.results->entries));
            previous_ = results;
        } catch (const Error& error) {
            ASSERT_EQ(step.results->kind, Kind::Raised) << "error " << error.number();
            EXPECT_EQ(error.number(), step.results->raised);
        }
    }

    static void checkReported(const ExchangeStep& step, const DrivenClass& driven) {
        std::vector<int> numbers;
        for (const Error& error : driven.reported) numbers.push_back(error.number());
        EXPECT_EQ(numbers, step.reported);
    }

    std::map<Text, std::unique_ptr<DrivenClass>> objects_;
    CollectionPtr previous_;
};

class SampleExchange : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(, SampleExchange, testing::ValuesIn(exchangeNames()),
                         [](const testing::TestParamInfo<std::string>& file) { return file.param; });

TEST_P(SampleExchange, ProducesTheWrittenCommandsAndResults) {
    Player player;
    for (const ExchangeStep& step : readExchange(folder / (GetParam() + ".exchange"))) player.play(step);
}

TEST(SampleExchanges, ExistForEveryTransactionClass) {
    std::vector<Text> missing;
    for (const ClassRow& row : classTable()) {
        if (row.hasProfileTrans) missing.emplace_back(row.name);
    }
    for (const auto& file : filesIn(folder, ".exchange")) {
        for (const ExchangeStep& step : readExchange(file)) std::erase(missing, step.className);
    }
    EXPECT_TRUE(missing.empty());
}

}  // namespace
}  // namespace vantro::test
