#include "profile/element_query.h"

#include "framework/constants.h"
#include "framework/int16.h"
#include "profile/element_parts.h"
#include "readers/header_readers.h"
#include "readers/host_line.h"
#include "readers/transferable_scanner.h"

#include <optional>

namespace vantro {

namespace {

void checkIndex(const FamilyFacts& family, std::int16_t index, std::int16_t count) {
    if (index > count) throw Error(family.indexError, applicationTitle, description::verifyingProfile);
}

void addNumbered(const NumberedText& line, Results& results) {
    results.add(key::strKeyElement, line.text);
    results.add(key::strKeyElementNr, line.number);
}

void addCompanyName(const CompanyNameLine& line, Results& results) {
    results.add(key::strKeyElement, line.name());
    if (line.number()) results.add(key::strKeyElementNr, *line.number());
}

}  // namespace

CollectionPtr ProfileQuery::answer(TextView display) {
    const TextView prefix = request_.read(key::strKeyPrefix);
    display_ = withoutHostLine(terminal_, display, ShortDisplay::Fails);
    if (prefix.empty()) throw Error(number::emptyPrefix, applicationTitle, description::verifyingProfile);
    const QueryFacts* const query = queryFor(prefix);
    // Meant: an answered prefix returns no object, an unknown one returns the collection.
    if (query == nullptr) return collection_;
    add(*query);
    return {};
}

void ProfileQuery::add(const QueryFacts& query) {
    if (query.family) {
        addFamily(factsOf(*query.family));
    } else {
        observedQuery(Watch(terminal_), query.word, {}, [&] { addOther(*query.other); });
    }
}

void ProfileQuery::addFamily(const FamilyFacts& family) {
    switch (family.output) {  // Not covered: every output has its case
        case ElementOutput::Lists:
            lists_.refill(*family.family, display_);
            addWholeLists(*family.family);
            break;
        case ElementOutput::ElementAndLists: addElementAndLists(family); break;
        case ElementOutput::Element: addElement(family); break;
    }
}

void ProfileQuery::addOther(OtherQuery query) {
    Display display(terminal_, display_);
    Results results(*collection_, display.watch());
    switch (query) {  // Not covered: every query has its case
        case OtherQuery::Name: results.add(key::strKeyElement, readName(display)); break;
        case OtherQuery::RecordLocator: results.add(key::strKeyElement, readRecordLocator(display)); break;
        case OtherQuery::OfficeIdentifier: results.add(key::strKeyElement, readOfficeIdentifier(display)); break;
        case OtherQuery::CompanyName: addCompanyName(CompanyNameLine(display), results); break;
        case OtherQuery::Pin: addNumbered(readPin(display), results); break;
        case OtherQuery::Psl:
            if (const std::optional<NumberedText> psl = readPsl(display)) addNumbered(*psl, results);
            break;
        case OtherQuery::TransferableNumbers:
            results.add(key::strKeyElNbrsArray, scanTransferable(display, selection_));
            break;
        case OtherQuery::Notes: break;  // Not covered: the class for notes answers it
    }
}

void ProfileQuery::addWholeLists(Family family) {
    Results results(*collection_, Watch(terminal_));
    results.addShared(key::strKeyElement_list, lists_.share(family, ElementPart::WholeText));
    results.addShared(key::strKeyElementNr_list, lists_.share(family, ElementPart::Number));
}

void ProfileQuery::addElementAndLists(const FamilyFacts& family) {
    const TextView indexText = request_.readAsText(key::intKeyIndex);
    const std::int16_t count = lists_.refill(*family.family, display_);
    // Converted after the display was read: a failure of the display comes before one of the index.
    const std::int16_t index = indexText.empty() ? std::int16_t{0} : toInt16(indexText);
    checkIndex(family, index, count);
    if (index > 0) addParts(family, static_cast<std::size_t>(index));
    addWholeLists(*family.family);
}

void ProfileQuery::addElement(const FamilyFacts& family) {
    const std::int16_t index = request_.read(key::intKeyIndex);
    const std::int16_t count = lists_.refill(*family.family, display_);
    checkIndex(family, index, count);
    const std::int16_t entry = toInt16(index - 1LL);
    if (entry < 0) fail(Failure::SubscriptOutOfRange);
    addParts(family, static_cast<std::size_t>(entry));
}

void ProfileQuery::addParts(const FamilyFacts& family, std::size_t entry) {
    const ElementLists& lists = lists_.of(*family.family);
    Results results(*collection_, Watch(terminal_));
    for (const ElementPart part : family.parts) {
        if (part == ElementPart::Asterisk) {
            results.add(key::blnKeyAsterix, bool{lists.asterisks()[entry]});
        } else {
            results.add(*rowOf(part).key, lists.texts(part)[entry]);
        }
    }
}

}  // namespace vantro
