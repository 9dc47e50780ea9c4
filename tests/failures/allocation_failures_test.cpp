// The k-th allocation fails, k = 1, 2, 3, ... until the operation needs no further one.
#include "tests/failures/allocations.h"
#include "tests/failures/outcome.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

namespace vantro::test {
namespace {

using Extent = FailingAllocation::Extent;

const std::string badAlloc = thrownAs(FailureKind::OutOfMemory);

/// Every number up to 400, every 17th after that.
long after(long number) { return number < 400 ? number + 1 : number + 17; }

/// The reported numbers; it does not allocate.
class Numbers {
public:
    void add(const Error& error) {
        if (size_ < numbers_.size()) numbers_[size_++] = error.number();
    }
    std::vector<int> taken() const { return {numbers_.begin(), numbers_.begin() + static_cast<std::ptrdiff_t>(size_)}; }

private:
    std::array<int, 8> numbers_{};
    std::size_t size_ = 0;
};

struct Result {
    std::string thrown;
    Entries results;
    Entries given;
    Text command;
    int count = 0;
    TextList selection;
    bool returnedCollection = false;
    std::vector<int> reported;
    long asked = 0;

    bool sameAnswer(const Result& other) const {
        return thrown == other.thrown && results == other.results && given == other.given && command == other.command &&
               count == other.count && selection == other.selection && returnedCollection == other.returnedCollection &&
               reported == other.reported;
    }
};

/// An object with the built-in terminal.
class Called {
public:
    explicit Called(const Input& input)
        : input_(input),
          terminal_([this](const Error& error) { reported_.add(error); }),
          object_(createObject(*findClass(input.className), terminal_)) {}

    Result call(long failing, Extent extent) {
        Result result;
        reported_ = {};
        const CollectionPtr given = input_.collection ? collection(*input_.collection) : nullptr;
        Answer answer;
        answer.selection = input_.selection;
        result.thrown = thrownBy([&] {
            const FailingAllocation armed(failing, extent);
            test::call(*object_, input_, given, answer);
        });
        result.asked = FailingAllocation::asked();
        result.returnedCollection = answer.collection != nullptr;
        if (given) result.given = entriesOf(given);
        if (answer.collection) result.results = entriesOf(answer.collection);
        result.command = answer.command;
        result.count = answer.count;
        result.selection = answer.selection;
        result.reported = reported_.taken();
        return result;
    }

private:
    const Input& input_;
    Numbers reported_;
    BuiltInTerminal terminal_;
    std::unique_ptr<ProfileObject> object_;
};

/// The possible outcomes of an operation, whichever of its steps fails.
struct Allowed {
    std::vector<std::string> thrown;
    Reader reader = Reader::None;  ///< its failures may be reported instead
    bool hasInnerReader = false;
};

std::string raised(int number, std::string_view description) {
    return number == passes ? badAlloc : described(number, ownSource, description);
}

Allowed allowedFor(const Input& input) {
    const std::string className = utf8(input.className);
    const std::string of = utf8(input.of);
    const auto family = std::ranges::find(familyRules, of, &FamilyRule::prefix);
    switch (input.operation) {
        case Operation::CreateCommand: return {{raised(transRule(className).create, creatingCommand)}};
        case Operation::VerifyResponse: {
            const TransRule& rule = transRule(className);
            return {{raised(rule.verify, verifyingProfile)}, rule.reader, !rule.innerTitles[0].empty()};
        }
        case Operation::ProfileElements:
            if (className != "CProfile") return {{badAlloc, raised(5500, readingNotes)}};
            if (family == familyRules.end()) return {{badAlloc}};
            return {{badAlloc, raised(family->number, verifyingProfile)}};
        case Operation::Count: break;
    }
    if (of == "RecLocCount") return {{badAlloc}, Reader::FillsResults};
    const Consequence expected = countConsequence(of);
    return {{raised(expected.number, expected.description)}};
}

bool isBeginningOf(const Entries& begun, const Entries& whole) {
    return begun.size() <= whole.size() && std::equal(begun.begin(), begun.end(), whole.begin());
}

class Starved {
public:
    /// `callsBefore` calls come before the one that fails: the object may know the display from them.
    explicit Starved(const Input& input, int callsBefore = 0)
        : input_(input), callsBefore_(callsBefore), allowed_(allowedFor(input)) {
        Called called(input_);
        callBefore(called);
        normal_ = called.call(0, Extent::One);
    }

    void failEveryAllocation(Extent extent) {
        for (long failing = 1; failing <= normal_.asked; failing = after(failing)) {
            const long live = liveAllocations();
            ASSERT_NO_FATAL_FAILURE(fail(failing, extent)) << input_.name << ", allocation " << failing;
            ASSERT_EQ(liveAllocations(), live) << input_.name << ", allocation " << failing;
            ++tried_;
        }
    }

    /// The samples also contain calls that fail anyway.
    bool succeedsNormally() const { return normal_.thrown.empty() && normal_.reported.empty(); }

    long tried() const { return tried_; }

private:
    void fail(long failing, Extent extent) {
        Called called(input_);
        callBefore(called);
        const Result result = called.call(failing, extent);
        if (callsBefore_ > 0 && result.sameAnswer(normal_)) {
            // What is kept of a display only makes the answer faster.
        } else if (result.thrown.empty()) {
            ASSERT_NO_FATAL_FAILURE(expectReported(result));
        } else {
            const bool isAllowed = std::ranges::count(allowed_.thrown, result.thrown) > 0;
            // Without any memory left an error cannot have texts.
            ASSERT_TRUE(isAllowed || (extent == Extent::AllFrom && result.thrown == badAlloc)) << result.thrown;
            ASSERT_TRUE(result.reported.empty());
            ASSERT_FALSE(result.returnedCollection);
        }
        ASSERT_TRUE(isBeginningOf(result.given, normal_.given));
        ASSERT_TRUE(called.call(0, extent).sameAnswer(normal_)) << "the failure had a lasting effect";
    }

    void expectReported(const Result& result) {
        ASSERT_NE(allowed_.reader, Reader::None) << "the failure went unnoticed";
        ASSERT_FALSE(result.reported.empty()) << "the failure went unnoticed";
        const bool isLinked = input_.className == u"CRLPTrans";
        for (const int number : result.reported) ASSERT_EQ(number, isLinked ? 5130 : outOfMemory.number);
        if (input_.operation == Operation::Count) {
            ASSERT_EQ(result.count, 0);
            return;
        }
        ASSERT_TRUE(result.returnedCollection);
        const bool hasAllKeys = result.results.size() == normal_.results.size();
        ASSERT_TRUE(hasAllKeys || allowed_.reader == Reader::FillsResults);
        ASSERT_TRUE(std::ranges::equal(result.results, std::span(normal_.results).first(result.results.size()), {},
                                       &Entry::key, &Entry::key));
        const bool keysAreComplete = allowed_.reader == Reader::FillsResults && !allowed_.hasInnerReader;
        ASSERT_TRUE(!keysAreComplete || isBeginningOf(result.results, normal_.results));
    }

    void callBefore(Called& called) const {
        for (int call = 0; call < callsBefore_; ++call) called.call(0, Extent::One);
    }

    const Input& input_;
    int callsBefore_;
    Allowed allowed_;
    Result normal_;
    long tried_ = 0;
};

void starve(const std::vector<Input>& inputs, Extent extent, int callsBefore = 0) {
    long tried = 0;
    for (const Input& input : inputs) {
        Starved one(input, callsBefore);
        if (!one.succeedsNormally()) continue;
        ASSERT_NO_FATAL_FAILURE(one.failEveryAllocation(extent));
        tried += one.tried();
    }
    std::cout << tried << " failing allocations\n";
}

class FailingAllocationOf : public testing::TestWithParam<Extent> {};

INSTANTIATE_TEST_SUITE_P(Extent, FailingAllocationOf, testing::Values(Extent::One, Extent::AllFrom),
                         [](const auto& extent) { return extent.param == Extent::One ? "One" : "AllFromOneOn"; });

TEST_P(FailingAllocationOf, ATransaction) { starve(exchangeInputs(), GetParam()); }

TEST_P(FailingAllocationOf, AQuery) {
    for (const char* const sample : {emptyDisplay, "every_family", "header_pf24"})
        starve(queryInputs(sample), GetParam());
}

TEST_P(FailingAllocationOf, ACount) {
    for (const char* const sample : {emptyDisplay, "every_family", "odd_notes"})
        starve(countInputs(sample), GetParam());
}

// The object makes room for what it keeps of a display when the display comes for the second time.
TEST_P(FailingAllocationOf, ACountOfADisplayThatComesAgain) {
    for (const int callsBefore : {1, 2}) starve(countInputs("every_family"), GetParam(), callsBefore);
}

}  // namespace
}  // namespace vantro::test
