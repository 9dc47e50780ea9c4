#include "display/families.h"
#include "framework/constants.h"
#include "framework/error_frame.h"
#include "framework/observation.h"
#include "framework/screen.h"
#include "profile/element_steps.h"
#include "readers/extractors.h"
#include "readers/forward_pass.h"
#include "readers/header_readers.h"
#include "readers/host_line.h"
#include "readers/note_scanner.h"
#include "vantro/built_in_terminal.h"
#include "vantro/families.h"
#include "vantro/profile.h"

#include <array>
#include <utility>

namespace vantro {

/// The display, the texts that were joined from several of its lines, and the lists.
struct Profile::Storage {
    explicit Storage(Text text) : display(std::move(text)) {}

    Text display;
    std::array<char16_t, 2048> firstTexts;  // not initialised; where the first joined texts are
    TextArena joinedTexts;
    std::unique_ptr<std::byte[]> elements;
    std::vector<Note> notes;
};

namespace {

/// Collects the notes.
class NoteCollector final : public NoteSink {
public:
    explicit NoteCollector(std::vector<Note>& notes) : notes_(notes) {}

    void store(std::int16_t /*count*/, const FoundNote& note) override {
        constexpr std::size_t usualNotes = 32;
        if (notes_.empty()) notes_.reserve(usualNotes);
        notes_.push_back({note.number, note.qualifier, note.text});
    }

    void storeEmpty(std::int16_t /*number*/, std::int16_t /*amount*/) override {
    }  // the scan fails, its notes are dropped

private:
    std::vector<Note>& notes_;
};

/// Splits the elements into their parts and sorts them by family. The elements of the families that failed are dropped.
void storeElements(const FoundElements& found, FamilySet failed, Profile& profile,
                   std::unique_ptr<std::byte[]>& memory) {
    std::array<std::size_t, familyCount> counts{};
    for (const FoundElement& element : found) ++counts[indexOf(element.family())];
    static_assert(std::is_trivially_destructible_v<Element>);
    memory = std::make_unique_for_overwrite<std::byte[]>(found.size() * sizeof(Element));
    std::array<Element*, familyCount> next{};
    auto* begin = reinterpret_cast<Element*>(memory.get());
    for (std::size_t family = 0; family < familyCount; ++family) {
        next[family] = begin;
        if (!failed.contains(static_cast<Family>(family))) profile.families[family] = {begin, counts[family]};
        begin += counts[family];
    }
    for (const FoundElement& element : found) {
        void* const place = next[indexOf(element.family())]++;
        ::new (place) Element(split(element));  // Not covered: never null
    }
}

/// Fills a profile query by query. A query that fails leaves its value empty and is added to the problems.
class WholeProfileReader {
public:
    WholeProfileReader(Terminal& terminal, Profile& profile, Profile::Storage& storage)
        : profile_(profile),
          storage_(storage),
          display_(terminal, withoutHostLine(terminal, storage.display, ShortDisplay::IsEmpty)),
          joiner_(display_, storage.firstTexts) {}

    void run() {
        FoundElements found(display_.scratchMemory());
        found.reserve(display_.size());  // few displays have an element in every line
        FamilySet failed;
        // An observer is told of one query after the other.
        const bool isObserved = static_cast<bool>(display_.watch());
        const auto passed = isObserved ? std::nullopt : passForward(joiner_, found, storage_.notes);
        if (passed) {
            readHeader(passed->firstHeader);
            profile_.sections = passed->sections;
        } else {
            found.clear();
            storage_.notes.clear();
            display_.readAhead(Counter(0), Display::ReadTo::DisplayEnd);
            readHeader({});
            failed = readFamilies(found);
            readNotes();
            profile_.sections = display_.sectionsRead();
        }
        storeElements(found, failed, profile_, storage_.elements);
        profile_.notes = storage_.notes;
        storage_.joinedTexts = joiner_.takeTexts();
    }

private:
    template <class Read>
    void answer(OtherQuery query, Read&& read) {
        const TextView word = factsOf(query).word;
        try {
            observedQuery(display_.watch(), word, {}, std::forward<Read>(read));
        } catch (const Error& error) {  // Not covered: memory that runs out passes
            addProblem(word, error.number(), error.description());
        }
    }

    void readHeader(SearchEnd end) {
        answer(OtherQuery::Name, [&] { profile_.name = readName(display_); });
        answer(OtherQuery::RecordLocator, [&] { profile_.recordLocator = readRecordLocator(display_); });
        answer(OtherQuery::OfficeIdentifier, [&] { profile_.officeIdentifier = readOfficeIdentifier(display_); });
        answer(OtherQuery::CompanyName, [&] {
            const CompanyNameLine line(display_, end);
            profile_.companyName.text = joiner_.keep(line.name());
            if (line.number()) profile_.companyName.number = joiner_.keep(*line.number());
        });
        answer(OtherQuery::Pin, [&] {
            const NumberedText pin = readPin(display_, end);
            profile_.pin = {.number = pin.number, .text = pin.text};
        });
        answer(OtherQuery::Psl, [&] {
            if (const std::optional<NumberedText> psl = readPsl(display_, end)) {
                profile_.psl = Element{.number = psl->number, .text = psl->text};
            }
        });
    }

    /// Returns the families that fail.
    FamilySet readFamilies(FoundElements& found) {
        if (display_.text().empty()) return {};
        const bool atOnce = isFarFromCountersEnd() && !display_.watch();
        const FamilySet failed = atOnce ? readSections(found) : readOneByOne(found);
        for (const FamilyName& row : familyNames()) {
            if (failed.contains(row.family)) addProblem(row);
        }
        return failed;
    }

    /// True if no reader, some of which look two lines ahead, can reach the end of the 16-bit line counter.
    bool isFarFromCountersEnd() const {
        constexpr std::size_t farEnough = 32'000;
        return display_.size() < farEnough;
    }

    FamilySet readSections(FoundElements& found) {
        FamilySet failed;
        for (std::size_t section = 0; section < sectionHeaders.size(); ++section) {
            const FamilySet families = familiesOf(static_cast<Section>(section));
            if (!families.empty()) failed.add(extract(families, joiner_, found));
        }
        return failed;
    }

    /// Each family fails at its own line, if it comes near the line counter's end.
    FamilySet readOneByOne(FoundElements& found) {
        FamilySet failed;
        for (const FamilyFacts& row : families()) {
            try {
                observedQuery(display_.watch(), row.word, row.family, [&] { readFamily(row, found); });
            } catch (const Error&) {  // Not covered: memory that runs out passes
                failed.add(*row.family);
            }
        }
        return failed;
    }

    void readFamily(const FamilyFacts& row, FoundElements& found) {
        raiseAs(row.countError, description::verifyingProfile, [&] {
            const std::size_t first = found.size();
            const bool isComplete = extract(FamilySet(*row.family), joiner_, found).empty();
            if (display_.watch()) sayElements(display_.watch(), row, std::span(found).subspan(first));
            if (!isComplete) fail(Failure::Overflow);
        });
    }

    void addProblem(const FamilyName& row) {
        addProblem(row.prefix, factsOf(row.family).countError, description::verifyingProfile);
    }

    void addProblem(TextView query, int number, TextView description) {
        // Filled in place: GCC 12 for Windows warns of an access out of bounds where a short text is moved into it.
        Problem& problem = profile_.problems.emplace_back();
        problem.query = query;
        problem.number = number;
        problem.description = description;
    }

    void readNotes() {
        if (display_.text().empty()) return;
        try {
            observedQuery(display_.watch(), factsOf(OtherQuery::Notes).word, {}, [&] {
                NoteCollector collector(storage_.notes);
                scanNotes(display_, {}, collector);
            });
        } catch (const Error&) {  // Not covered: memory that runs out passes
            storage_.notes.clear();
            addProblem(factsOf(OtherQuery::Notes).word, number::notesQuery, description::readingNotes);
        }
    }

    Profile& profile_;
    Profile::Storage& storage_;
    Display display_;
    Joiner joiner_;
};

}  // namespace

namespace {

Profile parse(Text display, Terminal& terminal) {
    const auto storage = std::make_shared<Profile::Storage>(std::move(display));
    Profile profile;
    profile.storage = storage;
    observed(&terminal, u"parseProfile", storage->display,
             [&] { WholeProfileReader(terminal, profile, *storage).run(); });
    return profile;
}

}  // namespace

Profile parseProfile(Text display) {
    BuiltInTerminal terminal;
    return parse(std::move(display), terminal);
}

Profile parseProfile(Text display, ReadingObserver& observer) {
    BuiltInTerminal terminal;
    ObservedTerminal observedTerminal(terminal, &observer);
    return parse(std::move(display), observedTerminal);
}

}  // namespace vantro
