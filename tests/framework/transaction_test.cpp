// The behaviour that the interfaces and the common base have for every transaction class.
#include "framework/transaction.h"

#include "tests/framework/raised.h"
#include "vantro/built_in_terminal.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <vector>

namespace vantro {
namespace {

constexpr TransErrors numbered{7001, 7002};
constexpr Key<bool> firstKey{u"blnFirst"};
constexpr Key<bool> secondKey{u"blnSecond"};

using Step = void (*)();

/// A transaction whose behaviour the test sets.
class Probe final : public Transaction {
public:
    Probe(Terminal& terminal, const TransErrors& errors) : Transaction(terminal, errors), terminal_(terminal) {}

    bool failing = false;       ///< every operation fails
    Step step = {};             ///< what the reader does between its two results
    bool reporting = false;     ///< the reader reports its failure instead of raising it
    bool failsHalfway = false;  ///< the reader fails between its two results

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override {
        if (failing) fail(Failure::Overflow);
        return Text(parameters(params).read(key::strKeyName));
    }

    CollectionPtr IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& /*collection*/) override {
        if (failing) fail(Failure::Overflow);
        const auto read = [this](Screen& screen, Results& results) {
            results.add(firstKey, screen.line(std::int16_t{0}) == u"YES");
            if (failsHalfway) fail(Failure::TypeMismatch);
            if (step) step();
            results.add(secondKey, true);
        };
        if (reporting) return reportedResults(response, read);
        if (response.empty()) return {};
        const CollectionPtr added = terminal_.createCollection();
        Screen screen(terminal_, response);
        Results results(*added);
        read(screen, results);
        return added;
    }

    Terminal& terminal_;
};

class TransactionTest : public testing::Test {
protected:
    std::size_t keysOf(const CollectionPtr& results) {
        return dynamic_cast<const BuiltInCollection&>(*results).entries().size();
    }

    std::vector<int> reported;
    BuiltInTerminal terminal{[this](const Error& error) { reported.push_back(error.number()); }};
    Probe probe{terminal, numbered};
};

TEST_F(TransactionTest, CreateCommandReturnsTheClasssText) {
    const CollectionPtr params = terminal.createCollection();
    params->Add(u"strKeyName", Text(u"SMITH"));
    EXPECT_EQ(probe.CreateCommand(params), u"SMITH");
}

TEST_F(TransactionTest, AFailureInCreateCommandRaisesTheClasssNumber) {
    probe.failing = true;
    const auto error = raised([&] { probe.CreateCommand(terminal.createCollection()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 7001);
    EXPECT_EQ(error->description(), u"An error has occurred while creating a profile command.");
    EXPECT_EQ(error->source(), u"VantroProfileUtils");
}

TEST_F(TransactionTest, AFailureInVerifyResponseRaisesTheClasssNumber) {
    probe.failing = true;
    const auto error = raised([&] { probe.VerifyResponse(u"YES", nullptr); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 7002);
    EXPECT_EQ(error->description(), u"An error has occurred while verifying the profile.");
    EXPECT_EQ(error->source(), u"VantroProfileUtils");
}

TEST_F(TransactionTest, WithoutNumbersTheStepsErrorsPassUnchanged) {
    Probe plain(terminal, TransErrors{});
    EXPECT_EQ(raisedNumber([&] { plain.CreateCommand(nullptr); }), 91);
    plain.failing = true;
    EXPECT_EQ(raisedNumber([&] { plain.VerifyResponse(u"YES", nullptr); }), 6);
}

TEST_F(TransactionTest, AnEmptyResponseReturnsNoCollection) {
    EXPECT_EQ(probe.VerifyResponse(u"", nullptr), nullptr);
    probe.reporting = true;
    EXPECT_EQ(probe.VerifyResponse(u"", nullptr), nullptr);
}

TEST_F(TransactionTest, ResultsAreReturnedInANewCollection) {
    const CollectionPtr given = terminal.createCollection();
    const CollectionPtr results = probe.VerifyResponse(u"YES", given);
    ASSERT_NE(results, nullptr);
    EXPECT_NE(results, given);
    EXPECT_EQ(keysOf(given), 0U);
    ASSERT_EQ(keysOf(results), 2U);
    EXPECT_EQ(results->Item(u"blnFirst")->Value(), ItemValue(true));
    EXPECT_EQ(results->Item(u"blnSecond")->Value(), ItemValue(true));
}

TEST_F(TransactionTest, AFailingReaderNeverReturnsAPartialResult) {
    probe.failsHalfway = true;
    EXPECT_EQ(raisedNumber([&] { probe.VerifyResponse(u"YES", nullptr); }), 7002);
    EXPECT_TRUE(reported.empty());
}

TEST_F(TransactionTest, AReportingReaderKeepsTheResultsAddedBefore) {
    probe.failsHalfway = true;
    probe.reporting = true;
    const CollectionPtr results = probe.VerifyResponse(u"YES", nullptr);
    ASSERT_NE(results, nullptr);
    EXPECT_EQ(keysOf(results), 1U);
    EXPECT_EQ(results->Item(u"blnFirst")->Value(), ItemValue(true));
    EXPECT_EQ(reported, std::vector<int>{13});
}

// A terminal may throw exceptions of any type.
struct Thrown {
    Step step;
    int number;
    TextView description;
};

class ForeignException : public TransactionTest, public testing::WithParamInterface<Thrown> {};

INSTANTIATE_TEST_SUITE_P(All, ForeignException,
                         testing::Values(Thrown{[] { throw std::bad_alloc(); }, 7, u"Out of memory"},
                                         Thrown{[] { throw std::runtime_error("line lost"); }, 51, u"Internal error"},
                                         Thrown{[] { throw 42; }, 51, u"Internal error"}));

TEST_P(ForeignException, BecomesTheOperationsNumber) {
    probe.step = GetParam().step;
    EXPECT_EQ(raisedNumber([&] { probe.VerifyResponse(u"YES", nullptr); }), 7002);
}

TEST_P(ForeignException, IsReportedLikeAnyOtherFailure) {
    std::vector<Error> errors;
    BuiltInTerminal listening{[&](const Error& error) { errors.push_back(error); }};
    Probe reader(listening, numbered);
    reader.reporting = true;
    reader.step = GetParam().step;
    EXPECT_EQ(keysOf(reader.VerifyResponse(u"YES", nullptr)), 1U);
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].number(), GetParam().number);
    EXPECT_EQ(errors[0].description(), GetParam().description);
    EXPECT_EQ(errors[0].source(), u"VantroProfileUtils");
}

TEST_P(ForeignException, PassesUnchangedWhereTheOperationHasNoNumber) {
    Probe plain(terminal, TransErrors{});
    plain.step = GetParam().step;
    bool isError = false;
    bool isOther = false;
    try {
        plain.VerifyResponse(u"YES", nullptr);
    } catch (const Error&) {
        isError = true;
    } catch (...) {
        isOther = true;
    }
    EXPECT_FALSE(isError);
    EXPECT_TRUE(isOther);
}

TEST_F(TransactionTest, HasOnlyTheTransactionInterface) {
    EXPECT_EQ(probe.profileTrans(), static_cast<IProfileTrans*>(&probe));
    EXPECT_EQ(probe.profileGet(), nullptr);
    EXPECT_EQ(probe.list(u"strPPRText"), nullptr);
    EXPECT_EQ(probe.flagList(u"blnServiceRequestFlag"), nullptr);
}

struct BareParser final : IProfileGet {};

TEST(Interfaces, TheirDefaultsDoNothing) {
    BuiltInTerminal terminal;
    const CollectionPtr collection = terminal.createCollection();
    TextList selection{u"S"};

    IProfileTrans trans;
    EXPECT_EQ(trans.CreateCommand(collection), u"");
    EXPECT_EQ(trans.CreateCommand(nullptr), u"");
    EXPECT_EQ(trans.VerifyResponse(u"*T* SMITH", collection), nullptr);
    BareParser parser;
    EXPECT_EQ(parser.ProfileElements(u"END OF DISPLAY", collection, &selection, u"RM"), nullptr);

    EXPECT_TRUE(dynamic_cast<const BuiltInCollection&>(*collection).entries().empty());
    EXPECT_EQ(selection, TextList{u"S"});
}

}  // namespace
}  // namespace vantro
