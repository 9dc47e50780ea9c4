#include "display/families.h"
#include "framework/constants.h"
#include "framework/screen.h"
#include "readers/extractors.h"
#include "readers/header_readers.h"
#include "readers/host_line.h"
#include "readers/note_scanner.h"
#include "vantro/built_in_terminal.h"
#include "vantro/families.h"
#include "vantro/profile.h"

#include <utility>

namespace vantro {

/// The display, the texts that were joined from several of its lines, and the lists.
struct Profile::Storage {
    explicit Storage(Text text) : display(std::move(text)) {}

    Text display;
    TextArena joinedElements;
    TextArena joinedNames;
    std::vector<Element> elements;
    std::vector<Note> notes;
};

namespace {

/// Collects elements and notes. The elements of a family are stored one after the other.
class Collector final : public ElementSink, public NoteSink {
public:
    Collector(Profile::Storage& storage, std::size_t usualElements) : storage_(storage) {
        storage_.elements.reserve(usualElements);
    }

    void store(Family /*family*/, std::int16_t /*count*/, const FoundElement& found) override {
        storage_.elements.push_back(found);
    }

    void store(std::int16_t /*count*/, const FoundNote& note) override {
        constexpr std::size_t usualNotes = 32;
        if (storage_.notes.empty()) storage_.notes.reserve(usualNotes);
        storage_.notes.push_back({note.number, note.qualifier, note.text});
    }

    void storeEmpty(std::int16_t /*number*/, std::int16_t /*amount*/) override {
    }  // the scan fails, its notes are dropped

    std::size_t size() const { return storage_.elements.size(); }

    /// Drops the elements from an index on.
    void dropFrom(std::size_t index) { storage_.elements.resize(index); }

    /// Makes the elements from an index on those of a family.
    void assignFrom(std::size_t index, Family family) { ranges_[indexOf(family)] = {index, size() - index}; }

    void storeIn(Profile& profile) const {
        for (std::size_t family = 0; family < familyCount; ++family) {
            const auto [begin, count] = ranges_[family];
            if (count > 0) profile.families[family] = {storage_.elements.data() + begin, count};
        }
        profile.notes = storage_.notes;
    }

private:
    struct Range {
        std::size_t begin = 0;
        std::size_t count = 0;
    };

    Profile::Storage& storage_;
    std::array<Range, familyCount> ranges_;
};

/// The elements of several families in the order of the display.
class MixedElements final : public ElementSink {
public:
    void store(Family family, std::int16_t /*count*/, const FoundElement& found) override {
        constexpr std::size_t usualElements = 64;
        if (elements_.empty()) elements_.reserve(usualElements);
        elements_.push_back({family, found});
    }

    void copyTo(Collector& collector, Family family) const {
        const std::size_t begin = collector.size();
        for (const auto& [itsFamily, element] : elements_) {
            if (itsFamily == family) collector.store(family, 0, element);
        }
        collector.assignFrom(begin, family);
    }

private:
    struct Mixed {
        Family family;
        Element element;
    };

    std::vector<Mixed> elements_;
};

/// Fills a profile query by query. A query that fails leaves its value empty and is added to the problems.
class WholeProfileReader {
public:
    WholeProfileReader(Profile& profile, Profile::Storage& storage)
        : profile_(profile),
          storage_(storage),
          display_(terminal_, withoutHostLine(terminal_, storage.display, ShortDisplay::IsEmpty)),
          joiner_(display_),
          collector_(storage, storage.display.size() / screenWidth) {}  // few displays have an element in every line

    void run() {
        display_.readAhead();
        readHeader();
        readFamilies();
        readNotes();
        collector_.storeIn(profile_);
        storage_.joinedElements = joiner_.takeTexts();
    }

private:
    template <class Read>
    void answer(OtherQuery query, Read&& read) {
        try {
            read();
        } catch (const Error& error) {  // Not covered: memory that runs out passes
            addProblem(factsOf(query).word, error.number(), error.description());
        }
    }

    void readHeader() {
        answer(OtherQuery::Name, [&] { profile_.name = readName(display_); });
        answer(OtherQuery::RecordLocator, [&] { profile_.recordLocator = readRecordLocator(display_); });
        answer(OtherQuery::OfficeIdentifier, [&] { profile_.officeIdentifier = readOfficeIdentifier(display_); });
        answer(OtherQuery::CompanyName, [&] {
            const CompanyNameLine line = readCompanyName(display_);
            profile_.companyName.text = storage_.joinedNames.keep(line.name);
            if (line.number) profile_.companyName.number = storage_.joinedNames.keep(*line.number);
        });
        answer(OtherQuery::Pin, [&] {
            const NumberedText pin = readPin(display_);
            profile_.pin = {.number = pin.number, .text = pin.text};
        });
        answer(OtherQuery::Psl, [&] {
            if (const std::optional<NumberedText> psl = readPsl(display_)) {
                profile_.psl = Element{.number = psl->number, .text = psl->text};
            }
        });
    }

    void readFamilies() {
        if (display_.text().empty()) return;
        const bool isShared = isFarFromCountersEnd();
        const FamilySet failed = isShared ? readTransferable() : FamilySet();
        for (const FamilyName& row : familyNames()) {
            if (!isTransferable(row.family) || !isShared) {
                readFamily(row);
            } else if (failed.contains(row.family)) {
                addProblem(row);
            }
        }
    }

    bool isFarFromCountersEnd() const {
        constexpr std::size_t farEnough = 32'000;
        return storage_.display.size() < farEnough * screenWidth;
    }

    FamilySet readTransferable() {
        MixedElements found;
        const FamilySet failed = extractTransferable(joiner_, found);
        for (const TransferableFamily& row : transferableFamilies) {
            if (!failed.contains(row.family)) found.copyTo(collector_, row.family);
        }
        return failed;
    }

    void readFamily(const FamilyName& row) {
        const std::size_t before = collector_.size();
        try {
            extract(row.family, joiner_, collector_);
            collector_.assignFrom(before, row.family);
        } catch (const Error&) {  // Not covered: memory that runs out passes
            collector_.dropFrom(before);
            addProblem(row);
        }
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
            scanNotes(display_, {}, collector_);
        } catch (const Error&) {
            storage_.notes.clear();
            addProblem(factsOf(OtherQuery::Notes).word, number::notesQuery, description::readingNotes);
        }
    }

    BuiltInTerminal terminal_;
    Profile& profile_;
    Profile::Storage& storage_;
    Display display_;
    Joiner joiner_;
    Collector collector_;
};

}  // namespace

Profile parseProfile(Text display) {
    const auto storage = std::make_shared<Profile::Storage>(std::move(display));
    Profile profile;
    profile.storage = storage;
    WholeProfileReader(profile, *storage).run();
    return profile;
}

}  // namespace vantro
