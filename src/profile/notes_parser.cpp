// The parser side of `CProfileNotes`: queries, lists and the count property.
#include "framework/constants.h"
#include "framework/int16.h"
#include "profile/profile_notes.h"
#include "readers/host_line.h"
#include "vantro/families.h"
#include "vantro/lists.h"

namespace vantro {

namespace {

void storeLast(TextList& list, std::size_t length, Text text) {
    list.resize(length);
    list.back() = std::move(text);
}

std::int16_t countNotes(ProfileObject& object, const CountRequest& request) {
    return static_cast<CProfileNotes&>(object).countObserved(request);
}

}  // namespace

const std::array<CountProperty, 1> notesCounts{{{u"ProfileNotesElementsCount", countNotes}}};

class CProfileNotes::ListsSink final : public NoteSink {
public:
    ListsSink(NoteLists& lists, const Watch& watch) : lists_(lists), watch_(watch) {}

    void store(std::int16_t count, const FoundNote& note) override {
        const auto length = static_cast<std::size_t>(count) + 1;
        storeLast(lists_.text, length, Text(note.text));
        storeLast(lists_.number, length, decimal(note.number));
        storeLast(lists_.qualifier, length, Text(note.qualifier));
        if (watch_) stored_.push_back(note);
    }

    void storeEmpty(std::int16_t number, std::int16_t amount) override {
        const std::size_t first = lists_.text.size();
        const std::size_t length = first + static_cast<std::size_t>(amount);
        // All allocations first, so that the lists have the same length even if one of them fails.
        for (TextList* const list : {&lists_.text, &lists_.number, &lists_.qualifier}) list->reserve(length);
        lists_.text.resize(length);
        lists_.qualifier.resize(length);
        for (int added = 0; added < amount; ++added)
            lists_.number.push_back(decimal(static_cast<std::int16_t>(number + added)));
    }

    /// Says which texts the lists contain. Called after the last note, because lists that grow move their texts.
    void sayStored() const {
        for (std::size_t index = 0; index < stored_.size(); ++index) {
            watch_.copied(lists_.text[index + 1], stored_[index].text);
            watch_.copied(lists_.number[index + 1], {});  // counted, not on the screen
            watch_.copied(lists_.qualifier[index + 1], stored_[index].qualifier);
        }
    }

private:
    NoteLists& lists_;
    const Watch& watch_;
    std::vector<FoundNote> stored_;  // empty unless the call is observed
};

CProfileNotes::CProfileNotes(Terminal& terminal, const TransErrors& errors)
    : Transaction(terminal, errors), IProfileGet(&terminal) {
    lists_.cutToEntry0();
}

std::int16_t CProfileNotes::countObserved(const CountRequest& request) {
    return observed(&terminal(), notesCounts.front().name, request.text, [&] {
        return ProfileNotesElementsCount(request.text, request.searchString, request.searchQualifier);
    });
}

std::int16_t CProfileNotes::ProfileNotesElementsCount(TextView display, TextView searchString,
                                                      TextView searchQualifier) {
    return raiseAs(number::notesCount, description::readingNotes, [&]() -> std::int16_t {
        lists_.cutToEntry0();
        if (display.empty()) return 0;
        return observedQuery(Watch(terminal()), factsOf(OtherQuery::Notes).word, {}, [&] {
            return scanLists(display, {searchString, searchQualifier});
        });
    });
}

std::int16_t CProfileNotes::scanLists(TextView display, const NoteFilter& filter) {
    Display lines(terminal(), display);
    ListsSink sink(lists_, lines.watch());
    const std::int16_t count = scanNotes(lines, filter, sink);
    sink.sayStored();
    return count;
}

void CProfileNotes::NoteLists::cutToEntry0() {
    for (TextList* const list : {&text, &number, &qualifier}) list->resize(1);
}

const TextList* CProfileNotes::list(TextView name) const {
    if (name == noteTextList) return &lists_.text;
    if (name == noteNumberList) return &lists_.number;
    if (name == noteQualifierList) return &lists_.qualifier;
    return nullptr;
}

CollectionPtr CProfileNotes::IProfileGet_ProfileElements(TextView display, const CollectionPtr& collection,
                                                         SelectionSource& /*selection*/) {
    Parameters request = parameters(collection);
    const TextView prefix = request.read(key::strKeyPrefix);
    const NoteFilter filter{request.read(key::strSearchString), request.read(key::strSearchQualifier)};
    display = withoutHostLine(terminal(), display, ShortDisplay::IsEmpty);
    if (prefix.empty()) throw Error(number::emptyPrefix, applicationTitle, description::verifyingProfile);
    // Meant: an answered prefix returns no object, an unknown one returns the collection.
    if (trimmed(prefix) != factsOf(OtherQuery::Notes).word) return collection;
    addNotes(display, collection, filter);
    return {};
}

// A failure of the count has this operation's number here, not its own.
void CProfileNotes::addNotes(TextView display, const CollectionPtr& collection, const NoteFilter& filter) {
    raiseAs(number::notesQuery, description::readingNotes, [&] {
        ProfileNotesElementsCount(display, filter.searchString, filter.qualifier);
        Results results(*collection, Watch(terminal()));
        results.add(key::strKeyElement_list, lists_.text);
        results.add(key::strKeyElementNr_list, lists_.number);
        results.add(key::strKeyQualifier_list, lists_.qualifier);
    });
}

}  // namespace vantro
