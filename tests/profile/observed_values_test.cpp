// Whoever observes gets the same results, and every value's pieces are where the display shows them.
#include "tests/profile/effort.h"
#include "tests/profile/observed.h"
#include "tests/profile/profile_comparison.h"
#include "tests/profile/random_displays.h"
#include "tests/profile/samples.h"
#include "tests/support/own_lines_terminal.h"
#include "vantro/families.h"
#include "vantro/screen_lines.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>
#include <tuple>

namespace vantro {
namespace {

/// Not found by argument, as `std::quoted` would be for a `Text`.
std::string inQuotes(TextView text) { return quoted(text); }

std::string drawnPieces(ValuePieces pieces) {
    std::ostringstream out;
    for (const ValuePiece& piece : pieces) {
        out << '[' << utf8(piece.text) << ']';
        if (piece.place) out << piece.place->line << ':' << piece.place->column << '+' << piece.place->length;
    }
    return out.str();
}

/// Checks the pieces of every step against the display, and keeps the values that were read.
class PieceChecker final : public ReadingObserver {
public:
    explicit PieceChecker(const Text& display) : display_(display) {}

    void observe(const ReadingStep& step) override {
        if (step.rule != nullptr) rules.insert(step.rule);
        switch (step.kind) {
            case StepKind::CallBegins: EXPECT_EQ(inQuotes(step.text), inQuotes(display_)); break;
            case StepKind::QueryBegins: query_ = step.name; break;
            case StepKind::MarkSearched: checkPlaces(step); break;
            case StepKind::ValueRead:
                checkValue(step, isCounted(step, u"number"));
                values[{utf8(query_), utf8(step.name), step.index}] = utf8(step.text);
                break;
            case StepKind::KeyAdded:
                if (step.value == nullptr) checkValue(step, false);
                break;
            case StepKind::EntryAdded: checkValue(step, isCounted(step, u"strKeyElementNr()")); break;
            default: break;
        }
    }

    /// By query, name and index.
    std::map<std::tuple<std::string, std::string, int>, std::string> values;
    std::set<const ReadingRule*> rules;

private:
    /// The library counts the notes itself.
    bool isCounted(const ReadingStep& step, TextView name) const {
        return query_ == u"ProfileNotes" && step.name == name;
    }

    void checkValue(const ReadingStep& step, bool isCounted) const {
        checkPlaces(step);
        Text joined;
        bool isPlaced = false;
        for (const ValuePiece& piece : step.pieces) {
            joined += piece.text;
            isPlaced = isPlaced || piece.place;
        }
        EXPECT_EQ(inQuotes(joined), inQuotes(step.text));
        EXPECT_EQ(isPlaced, !isCounted && !step.text.empty())
            << utf8(query_) << " " << utf8(step.name) << " " << drawnPieces(step.pieces);
    }

    void checkPlaces(const ReadingStep& step) const {
        for (const ValuePiece& piece : step.pieces) {
            if (!piece.place) continue;
            const auto [line, column, length] = *piece.place;
            const auto begin = static_cast<std::size_t>(line) * screenWidth + static_cast<std::size_t>(column - 1);
            ASSERT_LE(begin + static_cast<std::size_t>(length), display_.size()) << drawnPieces(step.pieces);
            EXPECT_EQ(inQuotes(display_.substr(begin, static_cast<std::size_t>(length))), inQuotes(piece.text))
                << utf8(query_) << " " << utf8(step.name) << " " << drawnPieces(step.pieces);
        }
    }

    const Text& display_;
    Text query_;
};

void writeElement(std::ostream& out, const Element& element) {
    out << inQuotes(element.number) << inQuotes(element.text) << inQuotes(element.code) << inQuotes(element.airline)
        << inQuotes(element.frequentFlyerNumber) << inQuotes(element.freeText) << element.asterisk
        << static_cast<int>(element.kind) << '\n';
}

/// All that a profile contains.
std::string written(const Profile& profile) {
    std::ostringstream out;
    out << inQuotes(profile.name) << inQuotes(profile.recordLocator) << inQuotes(profile.officeIdentifier)
        << inQuotes(profile.companyName.text) << profile.companyName.number.has_value()
        << inQuotes(profile.companyName.number.value_or(u"")) << '\n';
    writeElement(out, profile.pin);
    if (profile.psl) writeElement(out, *profile.psl);
    for (const FamilyName& family : familyNames()) {
        out << utf8(family.prefix) << '\n';
        for (const Element& element : profile.elements(family.family)) writeElement(out, element);
    }
    for (const Note& note : profile.notes)
        out << note.number << inQuotes(note.qualifier) << inQuotes(note.text) << '\n';
    for (const Problem& problem : profile.problems) {
        out << utf8(problem.query) << problem.number << utf8(problem.description) << '\n';
    }
    out << profile.sections;
    return out.str();
}

/// The values of a profile, by query, name and index; without the empty ones.
std::map<std::tuple<std::string, std::string, int>, std::string> valuesOf(const Profile& profile) {
    std::map<std::tuple<std::string, std::string, int>, std::string> values;
    const auto add = [&](TextView query, TextView name, int index, TextView value) {
        if (!value.empty()) values[{utf8(query), utf8(name), index}] = utf8(value);
    };
    const auto addParts = [&](TextView query, int index, const Element& element) {
        add(query, u"number", index, element.number);
        add(query, u"text", index, element.text);
        add(query, u"code", index, element.code);
        add(query, u"airline", index, element.airline);
        add(query, u"frequentFlyerNumber", index, element.frequentFlyerNumber);
        add(query, u"freeText", index, element.freeText);
    };
    add(u"NM", u"name", 0, profile.name);
    add(u"RECLOC", u"recordLocator", 0, profile.recordLocator);
    add(u"OFFID", u"officeIdentifier", 0, profile.officeIdentifier);
    add(u"PCN", u"text", 0, profile.companyName.text);
    add(u"PCN", u"number", 0, profile.companyName.number.value_or(u""));
    addParts(u"PIN", 0, profile.pin);
    if (profile.psl) addParts(u"PSL", 0, *profile.psl);
    for (const FamilyName& family : familyNames()) {
        int index = 0;
        for (const Element& element : profile.elements(family.family)) addParts(family.prefix, ++index, element);
    }
    int index = 0;
    for (const Note& note : profile.notes) {
        ++index;
        add(u"ProfileNotes", u"number", index, wide(std::to_string(note.number)));
        add(u"ProfileNotes", u"qualifier", index, note.qualifier);
        add(u"ProfileNotes", u"text", index, note.text);
    }
    return values;
}

/// Compares whole profiles and every query with and without an observer, over many displays.
class ObservedDisplays : public testing::Test {
protected:
    void checkProfile(const Text& text) {
        SCOPED_TRACE(drawn(text));
        PieceChecker checker(text);
        const Profile observed = parseProfile(text, checker);
        EXPECT_EQ(written(observed), written(parseProfile(text)));
        for (const auto& [value, shown] : valuesOf(observed)) {
            const auto& [query, name, index] = value;
            const auto read = checker.values.find(value);
            ASSERT_NE(read, checker.values.end()) << query << " " << name << " " << index << " was not said";
            EXPECT_EQ(read->second, shown) << query << " " << name << " " << index;
        }
        keepRules(checker);
    }

    template <class MakeTerminal>
    void checkQueries(const Text& text, MakeTerminal makeTerminal) {
        SCOPED_TRACE(drawn(text));
        PieceChecker checker(text);
        Parser observed = observedParser(u"CProfile", makeTerminal(), checker);
        Parser plain(u"CProfile", makeTerminal());
        for (const std::string& word : queryWords) {
            SCOPED_TRACE(word);
            const std::int16_t last = word == "ALL" ? 0 : 2;
            for (std::int16_t index = 0; index <= last; ++index) {
                TextList selection{u"rm", u"S  ", u"ffn"};
                TextList plainSelection = selection;
                Request request = wanting(word, ItemValue(index));
                request.selection = &selection;
                const Answer answer = observed.query(text, request);
                request.selection = &plainSelection;
                EXPECT_EQ(answer, plain.query(text, request));
                EXPECT_EQ(selection, plainSelection);
            }
        }
        checkNotes(text, checker, makeTerminal);
        keepRules(checker);
    }

    std::set<const ReadingRule*> rules_;

private:
    template <class MakeTerminal>
    void checkNotes(const Text& text, PieceChecker& checker, MakeTerminal makeTerminal) {
        Parser observed = observedParser(u"CProfileNotes", makeTerminal(), checker);
        Parser plain(u"CProfileNotes", makeTerminal());
        for (const char* const qualifier : {"", "A"}) {
            Request request = wanting("ProfileNotes");
            request.given.emplace_back("strSearchQualifier", ItemValue(wide(qualifier)));
            EXPECT_EQ(observed.query(text, request), plain.query(text, request));
        }
    }

    void keepRules(const PieceChecker& checker) { rules_.insert(checker.rules.begin(), checker.rules.end()); }
};

const auto builtIn = [] { return std::make_unique<BuiltInTerminal>(); };
const auto copying = [] { return std::make_unique<test::PaddingTerminal>(); };
const auto longLined = [] { return std::make_unique<test::PaddingTerminal>(100); };

/// A display as the host prints it below a line of its own.
Text belowHostLine(const Text& text) { return display({"PDR/ABC123", ""}) + display({"PF24 REQST", ""}) + text; }

Text withoutEnd(RandomDisplays& random) {
    Text text = random.oneIn(2) ? random.sections() : random.soup();
    text.resize(random.below(text.size() + 1));
    for (char16_t& character : text) {
        if (character == u'>' || character == u'D') character = u'E';
    }
    return text;
}

TEST_F(ObservedDisplays, Samples) {
    for (const std::string& name : sampleNames()) {
        const Text text = sampleDisplay(name);
        checkProfile(text);
        checkQueries(text, builtIn);
        checkQueries(text, copying);
        checkQueries(belowHostLine(text), longLined);
    }
}

TEST_F(ObservedDisplays, GeneratedOnes) {
    RandomDisplays random(31);
    for (std::size_t left = effort(2400); left > 0; --left) {
        Text text = random.oneIn(3) ? random.soup() : random.sections();
        if (random.oneIn(4)) text = belowHostLine(text);
        checkProfile(text);
        if (left % 3 == 0) checkQueries(text, builtIn);
        if (left % 3 == 1) checkQueries(text, copying);
        if (HasFatalFailure() || HasNonfatalFailure()) FAIL() << left << " displays were left";
    }
    const std::span<const ReadingRule* const> all = readingRules();
    for (const ReadingRule* const rule : rules_) {
        EXPECT_EQ(std::ranges::count(all, rule), 1) << rule->name << " is not listed";
    }
    EXPECT_GT(rules_.size(), 50U) << "the displays lead to few rules";
}

TEST_F(ObservedDisplays, GeneratedOnesWithoutAnEnd) {
    RandomDisplays random(32);
    for (std::size_t left = effort(400); left > 0; --left) {
        const Text text = withoutEnd(random);
        checkProfile(text);
        checkQueries(text, builtIn);
        if (HasFatalFailure() || HasNonfatalFailure()) FAIL() << left << " displays were left";
    }
}

TEST_F(ObservedDisplays, LinesThatAreNotSlicesWithoutAnEnd) {
    checkQueries(display({"PDR", "*T* A", "------- PNR TRANSFERABLE DATA", transferable('S', "1", "RM A")}), copying);
}

TEST_F(ObservedDisplays, AnEmptyOne) {
    checkProfile(u"");
    checkQueries(u"", builtIn);
    checkQueries(u"", copying);
}

// Where single values are

/// The pieces of all values, added keys and entries with this name, as "[text]line:column+length".
class PiecesOf final : public ReadingObserver {
public:
    explicit PiecesOf(TextView name) : name_(name) {}

    void observe(const ReadingStep& step) override {
        const bool hasPieces = step.kind == StepKind::ValueRead || step.kind == StepKind::EntryAdded ||
                               (step.kind == StepKind::KeyAdded && step.value == nullptr);
        if (hasPieces && step.name == name_) drawn.push_back(drawnPieces(step.pieces));
    }

    Texts drawn;

private:
    TextView name_;
};

Texts pieces(TextView className, TextView name, const Lines& lines, const Request& request) {
    PiecesOf observer(name);
    Parser parser = observedParser(className, builtIn(), observer);
    EXPECT_EQ(parser.query(display(lines + Lines{"END OF DISPLAY"}), request).raised, Raised{});
    return observer.drawn;
}

Texts pieces(TextView name, const std::string& prefix, const Lines& lines) {
    return pieces(u"CProfile", name, lines, wanting(prefix));
}

TEST(ObservedPieces, OfALineThatIsJoinedAfterABlank) {
    const Lines lines{"------- PRE-STORED ENTRIES", "   1 PPS/ AN01", from(10, "AT:NOON"), from(12, "NOW")};
    EXPECT_EQ(pieces(u"strKeyElement()", "PPS", lines), (Texts{"", "[AN01]1:11+4[ ][AT:NOON]2:10+7[NOW]3:12+3"}));
    EXPECT_EQ(pieces(u"strKeyElementNr()", "PPS", lines), (Texts{"", "[1]1:4+1"}));
}

TEST(ObservedPieces, OfACompanyName) {
    const Lines lines{"", "   2 PCN/ ACME", from(15, "TRADING")};
    // The continuation line is cut from the slash's column on, counted without the margin.
    EXPECT_EQ(pieces(u"strKeyElement", "PCN", lines), (Texts{"[ACME]1:11+4[ ][TRADING]2:15+7"}));
    EXPECT_EQ(pieces(u"strKeyElementNr", "PCN", lines), (Texts{"[2]1:4+1"}));
    EXPECT_EQ(pieces(u"strKeyElementNr", "PCN", {"", "  PCN/ ACME"}), Texts{});
}

TEST(ObservedPieces, OfAFullCompanyNameLine) {
    const std::string name(55, 'A');
    EXPECT_EQ(pieces(u"strKeyElement", "PCN", {"", "  1 PCN/ " + name, from(15, "B")}),
              (Texts{"[" + name + "]1:10+55[B]2:15+1"}));
}

TEST(ObservedPieces, OfHeaderValues) {
    EXPECT_EQ(pieces(u"strKeyElement", "NM", {"", "  1 NM A/B"}), (Texts{"[A/B]1:8+3"}));
    EXPECT_EQ(pieces(u"strKeyElement", "RECLOC", {"", "*T*    ABC123"}), (Texts{"[ABC123]1:8+6"}));
    EXPECT_EQ(pieces(u"strKeyElement", "OFFID", {"", "*T*", "----- NCEVN0900"}), (Texts{"[NCEVN0900]2:7+9"}));
    EXPECT_EQ(pieces(u"strKeyElement", "PIN", {"  3 PIN/ 1"}), (Texts{"[1]0:10+1"}));
    EXPECT_EQ(pieces(u"strKeyElementNr", "PSL", {"", " 4 PSL/ 1"}), (Texts{"[4 PSL/ 1]1:2+8"}));
    EXPECT_EQ(pieces(u"text", "PSL", {"", "  4     PSL/ 1"}), (Texts{"[1]1:14+1"}));
}

TEST(ObservedPieces, OfSelectedNumbers) {
    TextList selection{u"RM"};
    Request request = wanting("ALL");
    request.selection = &selection;
    const Lines lines{"------- PNR TRANSFERABLE DATA", transferable('S', "12", "RM A"), transferable('A', "3", "AP"),
                      transferable('A', "4", "RM B")};
    EXPECT_EQ(pieces(u"CProfile", u"strKeyElNbrsArray", lines, request), (Texts{"", "[12]1:7+2", "[4]3:8+1"}));
}

TEST(ObservedPieces, OfNotes) {
    const Lines lines{"", "------- PROFILE NOTES", "A CALL", "B"};
    const auto entries = [&](TextView name) { return pieces(u"CProfileNotes", name, lines, wanting("ProfileNotes")); };
    EXPECT_EQ(entries(u"strKeyElement()"), (Texts{"", "[CALL]2:3+4", ""}));
    EXPECT_EQ(entries(u"strKeyElementNr()"), (Texts{"", "[1]", "[2]"}));
    EXPECT_EQ(entries(u"strKeyQualifier()"), (Texts{"", "[A ]2:1+2", "[B ]3:1+2"}));
}

TEST(ObservedPieces, OfAServiceRequest) {
    const Lines lines{"------- PNR TRANSFERABLE DATA", transferable('S', "7", "SR  FQTVXQ 12"), from(18, "34-GOLD")};
    const auto part = [&](TextView key) {
        return pieces(u"CProfile", key, lines, wanting("SR", ItemValue(std::int16_t{1})));
    };
    EXPECT_EQ(part(u"strKeyCode"), (Texts{"[FQTV]1:18+4"}));
    EXPECT_EQ(part(u"strKeyAirline"), (Texts{"[XQ]1:22+2"}));
    EXPECT_EQ(part(u"strKeyFFNbr"), (Texts{"[12]1:25+2[34-GOLD]2:18+7"}));
    EXPECT_EQ(part(u"strKeyFreeText"), (Texts{"[GOLD]2:21+4"}));
}

}  // namespace
}  // namespace vantro
