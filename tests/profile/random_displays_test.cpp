// Every reader is compared with the oracle on random displays.
#include "tests/profile/random_displays.h"
#include "tests/profile/effort.h"
#include "tests/profile/oracle_match.h"
#include "tests/support/own_lines_terminal.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

constexpr std::size_t callsOfAnObject = 40;  // the number of displays after which new objects are used

const std::vector<std::string> prefixes{
    "NM",  "SR",  "RM",  "AP",  "OS",  "FFN", "ST",  "RECLOC", "OFFID", "PCN", "PHI", "PPH",
    "PCI", "PPC", "PIN", "PSL", "ALL", "RC",  "PPR", "PPS",    "PGL",   "PPA", "PPK", "PPI",
    "PXC", "PXA", "PXK", "PSH", "PSC", "PPT", "PXT", "PAS",    "PIV",   "PCE", "PID", "PFO",
};

Request randomRequest(const std::string& prefix, RandomDisplays& random, TextList& selection) {
    Request request = wanting(prefix);
    if (!random.oneIn(8)) {
        const ItemValue index = static_cast<std::int16_t>(static_cast<int>(random.below(5)) - 1);
        request.given.emplace_back("intKeyIndex", index);
    }
    if (prefix != "ALL") return request;
    selection.clear();
    for (std::size_t entry = random.below(4); entry > 0; --entry) {
        selection.push_back((random.oneIn(3) ? u"s  " : u"") + random.word());
    }
    if (!random.oneIn(6)) request.selection = &selection;
    if (random.oneIn(3)) request.qualifier = u"RM";
    return request;
}

/// Every count property and every prefix on one display.
void matchAll(OracleMatch& match, const Text& text, RandomDisplays& random) {
    for (const MatchedProperty& property : match.properties()) {
        const std::string message = match.count(property, text);
        ASSERT_TRUE(message.empty()) << message;
    }
    TextList selection;
    for (const std::string& prefix : prefixes) {
        const std::string message = match.query(text, randomRequest(prefix, random, selection));
        ASSERT_TRUE(message.empty()) << message;
    }
}

template <class MakeTerminal, class MakeDisplay>
void matchMany(std::uint32_t seed, std::size_t displays, MakeTerminal&& makeTerminal, MakeDisplay&& makeDisplay) {
    RandomDisplays random(seed);
    std::unique_ptr<OracleMatch> match;
    for (std::size_t number = 0; number < displays; ++number) {
        if (number % callsOfAnObject == 0) match = std::make_unique<OracleMatch>(makeTerminal());
        matchAll(*match, makeDisplay(random), random);
        if (testing::Test::HasFatalFailure()) FAIL() << "at display " << number << " of seed " << seed;
    }
}

const auto builtIn = [] { return std::make_unique<BuiltInTerminal>(); };
const auto copying = [] { return std::make_unique<test::PaddingTerminal>(); };
const auto longLined = [] { return std::make_unique<test::PaddingTerminal>(100); };
const auto sections = [](RandomDisplays& random) { return random.sections(); };
const auto soup = [](RandomDisplays& random) { return random.soup(); };

TEST(RandomDisplay, SectionsAreReadAsTheOracleReadsThem) { matchMany(1, effort(2000), builtIn, sections); }

TEST(RandomDisplay, SoupIsReadAsTheOracleReadsIt) { matchMany(2, effort(2000), builtIn, soup); }

TEST(RandomDisplay, LinesThatAreNotSlicesAreReadTheSame) {
    matchMany(3, effort(300), copying, sections);
    matchMany(4, effort(300), copying, soup);
}

TEST(RandomDisplay, LinesLongerThanTheHostsAreReadTheSame) { matchMany(5, effort(300), longLined, sections); }

TEST(RandomDisplay, WithoutAnEndEveryReaderFailsAsTheOracleDoes) {
    const auto endless = [](RandomDisplays& random) {
        Text text = random.oneIn(2) ? random.sections() : random.soup();
        text.resize(random.below(text.size() + 1));
        for (char16_t& character : text) {
            if (character == u'>' || character == u'D') character = u'E';
        }
        return text;
    };
    matchMany(6, effort(12), builtIn, endless);
}

}  // namespace
}  // namespace vantro
