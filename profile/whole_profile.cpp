#include "framework/constants.h"
#include "framework/screen.h"
#include "notes/note_scanner.h"
#include "profile/extractors.h"
#include "profile/families.h"
#include "profile/header_readers.h"
#include "profile/query.h"
#include "vantro/built_in_terminal.h"
#include "vantro/profile.h"

#include <functional>

namespace vantro {

/// The display itself, the texts that were joined from several of its lines, and the lists.
struct Profile::Storage {
    explicit Storage(Text text) : display(std::move(text)) {}

    /// A view that lives as long as the storage: the display's own characters, or a copy.
    TextView keep(TextView text) {
        const char16_t* const begin = display.data();
        const bool isOwn = std::less_equal<>()(begin, text.data()) && std::less<>()(text.data(), begin + display.size());
        return isOwn || text.empty() ? text : joined.keep(Text(text));
    }

    Text display;
    TextStore joined;
    std::vector<Element> elements;
    std::vector<Note> notes;
};

namespace {

/// The first and the last but one place of a family's elements in the storage.
struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;
};

class Collector final : public ElementSink, public NoteSink {
public:
    explicit Collector(Profile::Storage& storage) : storage_(storage) {}

    void store(std::int16_t /*count*/, const FoundElement& element) override {
        storage_.elements.push_back({.number = storage_.keep(element.number),
                                     .text = storage_.keep(element.text),
                                     .code = storage_.keep(element.code),
                                     .airline = storage_.keep(element.carrier),
                                     .frequentFlyerNumber = storage_.keep(element.account),
                                     .freeText = storage_.keep(element.freeText)});
    }

    void store(std::int16_t /*count*/, const FoundNote& note) override {
        storage_.notes.push_back({note.number, note.qualifier, note.text});
    }

private:
    Profile::Storage& storage_;
};

/// Fills a profile query by query; a failing one leaves its value empty and is listed.
class WholeProfileReader {
public:
    WholeProfileReader(Profile& profile, Profile::Storage& storage)
        : profile_(profile), storage_(storage), display_(terminal_, withoutHostLine(storage.display)) {}

    void run() {
        readHeader();
        readFamilies();
        readNotes();
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
            profile_.companyName.text = storage_.keep(line.name);
            if (line.number) profile_.companyName.number = storage_.keep(*line.number);
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
        std::array<Range, familyCount> ranges{};
        Collector collector(storage_);
        for (const FamilyName& row : familyNames()) {
            Range& range = ranges[indexOf(row.family)];
            range.begin = storage_.elements.size();
            answer(row.prefix, [&] { extractRaising(row.family, collector); });
            range.end = storage_.elements.size();
        }
        for (std::size_t family = 0; family < familyCount; ++family) {
            const auto [begin, end] = ranges[family];
            profile_.families[family] = std::span<const Element>(storage_.elements).subspan(begin, end - begin);
        }
    }

    /// The family's elements, or its numbered error and none of them.
    void extractRaising(Family family, Collector& collector) {
        const std::size_t before = storage_.elements.size();
        if (display_.text().empty()) return;
        try {
            extract(family, display_, collector);
        } catch (const Error&) {
            storage_.elements.resize(before);
            throw Error(extractorError(family), applicationTitle, description::verifyingProfile);
        }
    }

    void readNotes() {
        if (display_.text().empty()) return;
        Collector collector(storage_);
        try {
            scanNotes(display_, {}, collector);
        } catch (const Error&) {
            storage_.notes.clear();
            profile_.problems.push_back({u"ProfileNotes", notesQueryError, Text(description::readingNotes)});
        }
        profile_.notes = storage_.notes;
    }

    BuiltInTerminal terminal_;
    Profile& profile_;
    Profile::Storage& storage_;
    Display display_;
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
