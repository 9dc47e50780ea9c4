#include "framework/constants.h"
#include "framework/screen.h"
#include "notes/note_scanner.h"
#include "profile/extractors.h"
#include "profile/families.h"
#include "profile/header_readers.h"
#include "profile/host_line.h"
#include "vantro/built_in_terminal.h"
#include "vantro/profile.h"

#include <utility>

namespace vantro {

/// The display itself, the texts that were joined from several of its lines, and the lists.
struct Profile::Storage {
    explicit Storage(Text text) : display(std::move(text)) {}

    Text display;
    TextArena joinedElements;
    TextArena joinedNames;
    std::vector<Element> elements;
    std::vector<Note> notes;
};

namespace {

/// Collects elements and notes. The elements are kept by family at the end, whatever order they came in.
class Collector final : public ElementSink, public NoteSink {
public:
    explicit Collector(std::size_t expected) { found_.reserve(expected); }

    void store(Family family, std::int16_t /*count*/, const FoundElement& element) override {
        found_.push_back({element, family});
        ++counts_[indexOf(family)];
    }

    void store(std::int16_t /*count*/, const FoundNote& note) override {
        notes_.push_back({note.number, note.qualifier, note.text});
    }

    /// Forgets a family's elements.
    void drop(Family family) {
        std::erase_if(found_, [&](const Tagged& tagged) { return tagged.family == family; });
        counts_[indexOf(family)] = 0;
    }

    void dropNotes() { notes_.clear(); }

    void keepIn(Profile& profile, Profile::Storage& storage) {
        storage.elements.resize(found_.size());
        std::array<Element*, familyCount> next{};
        Element* place = storage.elements.data();
        for (std::size_t family = 0; family < familyCount; ++family) {
            next[family] = place;
            profile.families[family] = {place, counts_[family]};
            place += counts_[family];
        }
        for (const Tagged& tagged : found_) {
            const FoundElement& found = tagged.element;
            *next[indexOf(tagged.family)]++ = {.number = found.number,
                                               .text = found.text,
                                               .code = found.code,
                                               .airline = found.carrier,
                                               .frequentFlyerNumber = found.account,
                                               .freeText = found.freeText};
        }
        storage.notes = std::move(notes_);
        profile.notes = storage.notes;
    }

private:
    struct Tagged {
        FoundElement element;
        Family family;
    };

    std::vector<Tagged> found_;
    std::array<std::size_t, familyCount> counts_{};
    std::vector<Note> notes_;
};

/// Fills a profile query by query; a failing one leaves its value empty and is listed.
class WholeProfileReader {
public:
    WholeProfileReader(Profile& profile, Profile::Storage& storage)
        : profile_(profile),
          storage_(storage),
          display_(terminal_, withoutHostLine(storage.display)),
          collector_(storage.display.size() / screenWidth) {}  // few displays hold more than an element a line

    void run() {
        readHeader();
        readFamilies();
        readNotes();
        collector_.keepIn(profile_, storage_);
        storage_.joinedElements = display_.takeJoinedTexts();
    }

private:
    TextView withoutHostLine(TextView display) {
        Screen screen(terminal_, display);
        return hasHostLine(screen) ? display.substr(screenWidth) : display;
    }

    template <class Read>
    void answer(TextView query, Read&& read) {
        try {
            read();
        } catch (const Error& error) {
            profile_.problems.push_back({query, error.number(), error.description()});
        }
    }

    void readHeader() {
        answer(u"NM", [&] { profile_.name = readName(display_); });
        answer(u"RECLOC", [&] { profile_.recordLocator = readRecordLocator(display_); });
        answer(u"OFFID", [&] { profile_.officeIdentifier = readOfficeIdentifier(display_); });
        answer(u"PCN", [&] {
            const CompanyNameLine line = readCompanyName(display_);
            profile_.companyName.text = storage_.joinedNames.keep(line.name);
            if (line.number) profile_.companyName.number = storage_.joinedNames.keep(*line.number);
        });
        answer(u"PIN", [&] {
            const NumberedText pin = readPin(display_);
            profile_.pin = {.number = pin.number, .text = pin.text};
        });
        answer(u"PSL", [&] {
            if (const std::optional<NumberedText> psl = readPsl(display_)) {
                profile_.psl = Element{.number = psl->number, .text = psl->text};
            }
        });
    }

    void readFamilies() {
        if (display_.text().empty()) return;
        const bool sharedPassFailed = !readTransferable();
        for (const FamilyName& row : familyNames()) {
            if (isTransferable(row.family) && !sharedPassFailed) continue;
            try {
                extract(row.family, display_, collector_);
            } catch (const Error&) {
                collector_.drop(row.family);
                profile_.problems.push_back(
                    {row.prefix, extractorError(row.family), Text(description::verifyingProfile)});
            }
        }
    }

    /// All transferable families at once; false when one of them failed, and then none is read.
    bool readTransferable() {
        try {
            extractTransferable(display_, collector_);
            return true;
        } catch (const Error&) {
            for (const TransferableFamily& row : transferableFamilies) collector_.drop(row.family);
            return false;
        }
    }

    void readNotes() {
        if (display_.text().empty()) return;
        try {
            scanNotes(display_, {}, collector_);
        } catch (const Error&) {
            collector_.dropNotes();
            profile_.problems.push_back({u"ProfileNotes", notesQueryError, Text(description::readingNotes)});
        }
    }

    BuiltInTerminal terminal_;
    Profile& profile_;
    Profile::Storage& storage_;
    Display display_;
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
