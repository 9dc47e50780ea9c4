// The keys and error numbers in the rows of the classes, compared with what the classes read, add and raise for all
// samples and for generated parameters.
#include "tests/support/exchange_file.h"
#include "tests/support/parameter_worlds.h"
#include "tests/support/recorder.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"
#include "vantro/families.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace vantro::test {
namespace {

const std::filesystem::path samples = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples";

// The samples

std::vector<Text> sampleScreens() {
    std::vector<Text> screens{Text()};
    for (const auto& file : filesIn(samples / "exchanges", ".exchange")) {
        for (const ExchangeStep& step : readExchange(file)) {
            if (step.screen) screens.push_back(*step.screen);
        }
    }
    return screens;
}

Text displayIn(const std::filesystem::path& file) {
    std::ifstream in(file);
    Text display;
    for (std::string line; std::getline(in, line);) {
        display.resize((display.size() + 79) / 80 * 80, u' ');
        display += wide(line);
    }
    return display;
}

std::vector<Text> sampleDisplays() {
    std::vector<Text> displays{Text(), screen({u"", u"------- PROFILE NOTES", u"A NO END"})};
    for (const auto& file : filesIn(samples / "profiles", ".txt")) displays.push_back(displayIn(file));
    return displays;
}

// Every prefix that is known, and one that is not.
std::vector<TextView> allPrefixes() {
    std::vector<TextView> prefixes{u"XYZ"};
    for (const QueryFacts& query : profileQueries()) prefixes.push_back(query.word);
    return prefixes;
}

const std::vector<TextView> prefixes = allPrefixes();

// The observations of all runs of one call.
struct Observed {
    std::map<Text, std::set<Reading>> asked;
    std::set<std::vector<Text>> askedInOrder;     ///< the keys read by each call
    std::map<Text, std::set<std::size_t>> added;  ///< the alternatives of `ItemValue`
    std::set<std::vector<Text>> complete;         ///< the keys added by each call without a failure
    std::set<int> raised;
    std::set<bool> newCollection;  ///< whether the returned collection was not the passed one
    bool raisedWithoutCollection = false;
};

class Drive {
public:
    explicit Drive(const ClassRow& row) : row_(row), object_(createObject(row, terminal_)) {}

    Observed command() {
        const auto build = [&](const CollectionPtr& params) {
            object_->profileTrans()->CreateCommand(params);
            return CollectionPtr();
        };
        const auto run = [&](const Entries& params) { call(collection(params), build); };
        call(nullptr, build);
        forEachGood(row_.description.parameters, run);
        forEachOdd(row_.description.parameters, run);
        return std::exchange(observed_, {});
    }

    Observed verify() {
        for (const Text& response : sampleScreens()) {
            const auto read = [&](const CollectionPtr& state) {
                return object_->profileTrans()->VerifyResponse(response, state);
            };
            const auto run = [&](const Entries& state) { call(collection(state), read); };
            call(nullptr, read);
            forEachGood(row_.description.state, run);
            forEachOdd(row_.description.state, run);
        }
        return std::exchange(observed_, {});
    }

    Observed elements() {
        for (const Text& display : sampleDisplays()) {
            const auto ask = [&](const CollectionPtr& request) {
                return object_->profileGet()->ProfileElements(display, request);
            };
            const auto run = [&](const Entries& request) { call(collection(request), ask); };
            call(nullptr, ask);
            forEachRequest(run);
        }
        return std::exchange(observed_, {});
    }

private:
    // The prefix is a parameter like any other, but every known prefix is tested.
    void forEachRequest(const Visit& run) {
        const auto rows = row_.description.request;
        const bool readsFamilies = rows.front().values.empty();
        for (const TextView prefix : readsFamilies ? prefixes : std::vector<TextView>{u"ProfileNotes"}) {
            const auto withPrefix = [&](Entries request) {
                request.emplace_back(rows.front().key, Text(prefix));
                run(request);
            };
            forEachGood(rows.subspan(1), withPrefix);
            forEachOdd(rows.subspan(1), withPrefix);
        }
        forEachGood(rows, run);
        forEachOdd(rows, run);
    }

    template <class Call>
    void call(std::shared_ptr<BuiltInCollection> input, Call&& make) {
        const CollectionPtr passed = terminal_.recorded(std::move(input));
        bool failed = true;
        try {
            const CollectionPtr returned = make(passed);
            if (returned) observed_.newCollection.insert(returned != passed);
            failed = !returned;
        } catch (const Error& error) {
            observed_.raised.insert(error.number());
            if (!passed) observed_.raisedWithoutCollection = true;
        }
        note(terminal_.take(), failed);
    }

    void note(const Record& record, bool failed) {
        for (const auto& [key, readings] : record.asked) observed_.asked[key].insert(readings.begin(), readings.end());
        observed_.askedInOrder.insert(record.firstAsked);
        std::vector<Text> keys;
        for (const auto& [key, value] : record.added) {
            observed_.added[key].insert(value.index());
            keys.push_back(key);
        }
        if (!failed && record.reports == 0) observed_.complete.insert(keys);
    }

    const ClassRow& row_;
    RecordingTerminal terminal_;
    std::unique_ptr<ProfileObject> object_;
    Observed observed_;
};

// How keys of a kind are read and stored.

std::set<Reading> readingsOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::String: return {Reading::AsText};
        case ValueKind::Boolean: return {Reading::AsBoolean};
        // Families with an optional index read it as text first.
        case ValueKind::Integer: return {Reading::AsText, Reading::AsValue};
        case ValueKind::StringList: return {Reading::AsValue};
        case ValueKind::IntegerOrString: break;
    }
    return {};
}

template <class Value>
std::size_t alternative() {
    return ItemValue(Value()).index();
}

std::set<std::size_t> storedAs(ValueKind kind) {
    switch (kind) {
        case ValueKind::String: return {alternative<Text>()};
        case ValueKind::Boolean: return {alternative<bool>()};
        case ValueKind::Integer: return {alternative<std::int16_t>()};
        case ValueKind::StringList: return {alternative<TextList>()};
        case ValueKind::IntegerOrString: break;
    }
    return {alternative<std::int16_t>(), alternative<Text>()};
}

/// The keys of the rows that are among these, in the order of the rows.
template <class Row>
std::vector<Text> inOrderOf(std::span<const Row> rows, const std::vector<Text>& keys) {
    std::vector<Text> ordered;
    for (const Row& row : rows) {
        if (std::ranges::count(keys, row.key) > 0) ordered.emplace_back(row.key);
    }
    return ordered;
}

void expectReads(std::span<const ParameterRow> rows, const Observed& observed) {
    std::map<Text, std::set<Reading>> expected;
    for (const ParameterRow& row : rows) expected[Text(row.key)] = readingsOf(row.kind);
    EXPECT_EQ(observed.asked, expected);
    for (const std::vector<Text>& keys : observed.askedInOrder) EXPECT_EQ(keys, inOrderOf(rows, keys));
}

void expectAdds(std::span<const ResultRow> rows, const Observed& observed) {
    std::map<Text, std::set<std::size_t>> expected;
    for (const ResultRow& row : rows) expected[Text(row.key)] = storedAs(row.kind);
    EXPECT_EQ(observed.added, expected);
}

// Keys without a condition are in every answer, keys with one are not in all, and the order is that of the rows.
void expectOrder(std::span<const ResultRow> rows, const Observed& observed) {
    for (const ResultRow& row : rows) {
        const bool isInAll = std::ranges::all_of(
            observed.complete, [&](const std::vector<Text>& keys) { return std::ranges::count(keys, row.key) == 1; });
        EXPECT_EQ(isInAll, row.when.empty()) << utf8(row.key);
    }
    for (const std::vector<Text>& keys : observed.complete) EXPECT_EQ(keys, inOrderOf(rows, keys));
}

// A call raises the number of the whole operation or one of those in the row; each of these is raised at least once.
void expectErrors(const ClassRow& row, ClassCall call, int number, std::set<int> raised) {
    raised.erase(number);
    std::set<int> listed;
    for (const ErrorRow& error : row.description.errors) {
        if (error.call == call) listed.insert(error.number);
    }
    EXPECT_EQ(raised, listed) << "raised, and listed in the class's row";
}

// The numbers of the families are in their own rows.
std::set<int> withoutFamilies(std::set<int> raised) {
    for (const FamilyFacts& family : families()) {
        raised.erase(family.countError);
        if (family.indexError != 0) raised.erase(family.indexError);
    }
    return raised;
}

class DescribedClass : public testing::TestWithParam<const ClassRow*> {};

std::vector<const ClassRow*> classesWhere(bool ClassRow::*has) {
    std::vector<const ClassRow*> rows;
    for (const ClassRow& row : classTable()) {
        if (row.*has) rows.push_back(&row);
    }
    return rows;
}

const auto nameOfClass = [](const auto& test) { return className(*test.param); };

class DescribedTransaction : public DescribedClass {};
INSTANTIATE_TEST_SUITE_P(, DescribedTransaction, testing::ValuesIn(classesWhere(&ClassRow::hasProfileTrans)),
                         nameOfClass);

TEST_P(DescribedTransaction, ReadsItsParametersForACommand) {
    const ClassRow& row = *GetParam();
    const Observed observed = Drive(row).command();
    expectReads(row.description.parameters, observed);
    EXPECT_TRUE(observed.added.empty());
    expectErrors(row, ClassCall::CreateCommand, row.errors.createCommand, observed.raised);
}

TEST_P(DescribedTransaction, ReadsItsStateAndAddsItsResultsForAScreen) {
    const ClassRow& row = *GetParam();
    const Observed observed = Drive(row).verify();
    expectReads(row.description.state, observed);
    expectAdds(row.description.results, observed);
    expectOrder(row.description.results, observed);
    expectErrors(row, ClassCall::VerifyResponse, row.errors.verifyResponse, observed.raised);
}

TEST_P(DescribedTransaction, TreatsThePassedCollectionAsItsRowSays) {
    const ClassRow& row = *GetParam();
    const PassedCollection passed = row.description.passed;
    const Observed observed = Drive(row).verify();
    const bool isNeeded = passed == PassedCollection::Required || passed == PassedCollection::Returned;
    EXPECT_EQ(observed.raisedWithoutCollection, isNeeded);
    EXPECT_EQ(!observed.asked.empty(), passed != PassedCollection::Ignored);
    if (!row.description.results.empty()) {
        EXPECT_EQ(observed.newCollection, std::set<bool>{passed != PassedCollection::Returned});
    }
}

class DescribedParser : public DescribedClass {};
INSTANTIATE_TEST_SUITE_P(, DescribedParser, testing::ValuesIn(classesWhere(&ClassRow::hasProfileGet)), nameOfClass);

TEST_P(DescribedParser, ReadsItsRequestAndAddsItsElements) {
    const ClassRow& row = *GetParam();
    const Observed observed = Drive(row).elements();
    expectReads(row.description.request, observed);
    expectAdds(row.description.elements, observed);
    expectErrors(row, ClassCall::ProfileElements, 0, withoutFamilies(observed.raised));
}

TEST(DescribedCounts, RaiseTheNumbersOfTheirRows) {
    BuiltInTerminal terminal;
    const Text endless = screen({u"", u"------- PROFILE NOTES", u"A NO END"});
    for (const ClassRow& row : classTable()) {
        std::set<int> raised;
        for (const CountProperty& count : row.counts) {
            try {
                count.call(*createObject(row, terminal), CountRequest{endless});
            } catch (const Error& error) {
                raised.insert(error.number());
            }
        }
        expectErrors(row, ClassCall::Count, 0, withoutFamilies(raised));
    }
}

}  // namespace
}  // namespace vantro::test
