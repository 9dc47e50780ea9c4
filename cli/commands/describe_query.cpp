// A query of a display in lines of at most 80 characters, and as JSON.
#include "cli/classes/trans_class.h"
#include "cli/commands/describe.h"
#include "cli/commands/description_page.h"
#include "cli/io/utf.h"
#include "cli/json/output.h"
#include "vantro/lists.h"

#include <algorithm>
#include <vector>

namespace vantro {

namespace {

TextView classOf(const QueryFacts& query) { return query.other == OtherQuery::Notes ? u"CProfileNotes" : u"CProfile"; }

const FamilyFacts* familyOf(const QueryFacts& query) { return query.family ? &factsOf(*query.family) : nullptr; }

TextView listOf(const FamilyFacts& family, ElementPart part) {
    const auto list = std::ranges::find_if(elementLists(), [&](const ElementListName& each) {
        return each.family == *family.family && each.part == part;
    });
    return list->name;
}

struct NumberedFailure {
    TextView call;
    int number;
    TextView meaning;
};

std::vector<NumberedFailure> failuresOf(const FamilyFacts& family) {
    constexpr TextView unread = u"the elements cannot be read";
    std::vector<NumberedFailure> failures{{u"ProfileElements", family.countError, unread},
                                          {u"a count", family.countError, unread}};
    if (family.indexError != 0) {
        failures.push_back({u"ProfileElements", family.indexError, u"intKeyIndex is beyond the number of elements"});
    }
    return failures;
}

TextView answerOf(ElementOutput output) {
    switch (output) {
        case ElementOutput::Lists: return u"lists";
        case ElementOutput::ElementAndLists: return u"elementAndLists";
        case ElementOutput::Element: break;
    }
    return u"element";
}

TextView answerInWords(ElementOutput output) {
    switch (output) {
        case ElementOutput::Lists: return u"The lists of all texts and numbers.";
        case ElementOutput::ElementAndLists:
            return u"The element at intKeyIndex (from 1), if that is present and above 0; then the lists of all texts "
                   u"and numbers.";
        case ElementOutput::Element: break;
    }
    return u"The element at intKeyIndex (from 1), which is needed.";
}

// Text

void addFamily(DescriptionPage& page, const FamilyFacts& family) {
    page.heading("In a display:");
    DescriptionRows where;
    where.add("section", toUtf8(family.section));
    where.add("tag", "\"" + toUtf8(family.tag) + "\"");
    where.add("lines", toUtf8(family.lines));
    where.add("joining", toUtf8(family.joining));
    where.print(page);
    page.heading("A line of its section:");
    page.paragraph("", toUtf8(family.sample));
    page.heading("Parts of an element, with the list of each:");
    DescriptionRows parts;
    for (const ElementPart part : family.parts) {
        parts.add(std::string(factsOf(part).json),
                  toUtf8(listOf(family, part)) + ". " + asSentence(factsOf(part).meaning));
    }
    parts.print(page);
    page.paragraph("  ", "The first element is entry " + std::to_string(family.firstIndex) + " of the lists. " +
                             toUtf8(family.countProperty) + " returns the number of elements and fills the lists.");
    page.heading("Errors:");
    DescriptionRows errors;
    for (const NumberedFailure& failure : failuresOf(family)) {
        errors.add(std::to_string(failure.number), toUtf8(failure.call) + ": " + toUtf8(failure.meaning));
    }
    errors.print(page);
}

// JSON

void member(JsonOut& out, std::string_view name, TextView text) {
    out.key(name);
    out.text(text);
}

void member(JsonOut& out, std::string_view name, int number) {
    out.key(name);
    out.number(number);
}

template <class Items, class Write>
void arrayMember(JsonOut& out, std::string_view name, const Items& items, Write write) {
    out.key(name);
    out.beginArray();
    for (const auto& item : items) write(item);
    out.endArray();
}

void addPart(JsonOut& out, const FamilyFacts& family, ElementPart part) {
    const PartFacts& facts = factsOf(part);
    out.beginObject();
    member(out, "name", toUtf16(std::string(facts.json)));
    member(out, "meaning", facts.meaning);
    member(out, "list", listOf(family, part));
    out.endObject();
}

void addFamily(JsonOut& out, const FamilyFacts& family) {
    member(out, "section", family.section);
    member(out, "tag", family.tag);
    member(out, "lines", family.lines);
    member(out, "joining", family.joining);
    member(out, "sample", family.sample);
    member(out, "answer", answerOf(family.output));
    member(out, "answerMeaning", answerInWords(family.output));
    arrayMember(out, "parts", family.parts, [&](ElementPart part) { addPart(out, family, part); });
    member(out, "firstIndex", static_cast<int>(family.firstIndex));
    member(out, "count", family.countProperty);
    arrayMember(out, "errors", failuresOf(family), [&](const NumberedFailure& failure) {
        out.beginObject();
        member(out, "call", failure.call);
        member(out, "number", failure.number);
        member(out, "meaning", failure.meaning);
        out.endObject();
    });
}

}  // namespace

std::string queryAsText(const QueryFacts& query) {
    const FamilyFacts* const family = familyOf(query);
    DescriptionPage page;
    page.paragraph("", toUtf8(query.word));
    page.paragraph("  ", asSentence(query.meaning));
    page.paragraph("  ", "A query of " + toUtf8(classOf(query)) + ".");
    if (const ClassRow* const row = classOfTransaction(query.word)) {
        page.paragraph("  ",
                       "The class of the host transaction " + toUtf8(query.word) + " is " + toUtf8(row->name) + ".");
    }
    page.heading("Answer:");
    if (family != nullptr) page.paragraph("  ", toUtf8(answerInWords(family->output)));
    page.paragraph("  ", joined(query.keys, ", "));
    if (family != nullptr) addFamily(page, *family);
    return page.text();
}

std::string queryAsJson(const QueryFacts& query) {
    std::string json;
    JsonOut out(json);
    out.beginObject();
    member(out, "prefix", query.word);
    member(out, "meaning", query.meaning);
    member(out, "class", classOf(query));
    member(out, "match", query.match == WordMatch::Whole ? u"whole" : u"firstThree");
    arrayMember(out, "keys", query.keys, [&](TextView key) { out.text(key); });
    if (!query.json.empty()) member(out, "json", toUtf16(std::string(query.json)));
    if (const FamilyFacts* const family = familyOf(query)) addFamily(out, *family);
    out.endObject();
    return json + "\n";
}

}  // namespace vantro
