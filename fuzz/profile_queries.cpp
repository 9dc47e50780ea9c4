// A query and a count property on one or more displays, with objects that are kept from display to display.
#include "fuzz/common/compare.h"
#include "fuzz/common/input.h"
#include "tests/oracle/notes_oracle.h"
#include "tests/oracle/profile_oracle.h"
#include "tests/support/own_lines_terminal.h"
#include "vantro/registry.h"

#include <array>
#include <map>

namespace vantro::fuzz {

namespace {

/// A prefix and the stem of its count property, which may be missing.
struct Query {
    std::string_view prefix;
    std::string_view stem = {};
};

constexpr std::array<Query, 48> queries{{
    {"PPR", "PPR"},
    {"PGL", "PGL"},
    {"PPS", "PPS"},
    {"PHI", "PHI"},
    {"PCI", "PCI"},
    {"PPC", "PPC"},
    {"PPH", "PPH"},
    {"PPA", "PPA"},
    {"PPK", "PPK"},
    {"PPI", "PPI"},
    {"PXC", "PXC"},
    {"PXA", "PXA"},
    {"PXK", "PXK"},
    {"PSH", "PSH"},
    {"PSC", "PSC"},
    {"PPT", "PPT"},
    {"PXT", "PXT"},
    {"RM", "Remark"},
    {"AP", "Contact"},
    {"OS", "OtherService"},
    {"FFN", "FrequentFlyer"},
    {"SR", "ServiceRequest"},
    {"ST", "Seat"},
    {"RC", "RemarkConf"},
    {"PAS", "PAS"},
    {"PIV", "PIV"},
    {"PCE", "PCE"},
    {"PID", "PID"},
    {"PFO", "PFO"},
    {"NM"},
    {"RECLOC"},
    {"OFFID"},
    {"PCN"},
    {"PIN"},
    {"PSL"},
    {"ALL"},
    {"ProfileNotes", "ProfileNotes"},
    // Longer and shorter than a prefix, another case, blanks, empty
    {"PCN/ X", "PPHold"},
    {"RCX"},
    {"PPRX", "PPR"},
    {"PP"},
    {"NM "},
    {"rm"},
    {"ALLX"},
    {"P"},
    {" ProfileNotes ", "ProfileNotes"},
    {"ProfileNotesX", "ProfileNotes"},
    {""},
}};

constexpr std::array<TextView, 4> requestKeys{u"intKeyIndex", u"strSearchString", u"strSearchQualifier",
                                              u"strKeyElement"};

Text wide(std::string_view plain) { return Text(plain.begin(), plain.end()); }

std::string countName(std::string_view stem) {
    if (stem == "PPHold") return "PPHElementsCountold";
    return std::string(stem) + "ElementsCount";
}

/// The lists of a family, by the name that both implementations use.
std::vector<std::string> listNames(std::string_view stem) {
    if (stem == "ProfileNotes") return {"strNoteText", "strNoteNumber", "strNoteQualifier"};
    std::vector<std::string> names;
    for (const char* const content : {"Text", "Number", "Code", "Carrier", "Account", "FreeText", "Detail"}) {
        names.push_back("str" + std::string(stem == "PPHold" ? "PPH" : stem) + content);
    }
    return names;
}

/// The request, without the display.
struct Asked {
    Query query;
    bool ofNotes;  // sent to the notes class
    std::vector<Item> given;
    std::optional<TextList> selection;
    Text qualifier;
    Text search;
};

Asked askedBy(Input& input) {
    Asked asked;
    asked.query = queries[input.choose(queries.size())];
    asked.ofNotes = asked.query.stem == "ProfileNotes" || (asked.query.prefix.empty() && input.choose(2) == 1);
    for (const std::string_view field : input.fields()) {
        if (field.starts_with('+')) {
            if (!asked.selection) asked.selection.emplace();
            asked.selection->push_back(unitsOf(field.substr(1)));
        } else if (field.starts_with('=')) {
            asked.qualifier = unitsOf(field.substr(1));
        } else if (field.starts_with('?')) {
            asked.search = unitsOf(field.substr(1));
        } else if (auto item = itemOf(field, requestKeys)) {
            asked.given.push_back(std::move(*item));
        }
    }
    return asked;
}

/// The answers of one implementation to both calls.
template <class Collection>
struct Answer {
    int count = 0;
    int countError = 0;
    bool returnedCollection = false;
    int error = 0;
    Collection collection{};
    std::optional<TextList> selection{};
};

using Expected = Answer<oracle::Collection>;
using Found = Answer<std::shared_ptr<BuiltInCollection>>;

template <class Result, class Failing>
void numbered(Result& error, Failing&& steps) {
    try {
        steps();
    } catch (const Error& raised) {
        error = raised.number();
    } catch (const oracle::Failure& failure) {
        error = failure.number;
    }
}

/// The oracle's object.
class Opinion {
public:
    explicit Opinion(const Asked& asked) : asked_(asked) {}

    Expected ask(const Text& display) {
        Expected answer;
        if (!asked_.query.stem.empty()) numbered(answer.countError, [&] { answer.count = count(display); });
        for (const auto& [key, value] : request()) answer.collection.add(key, value);
        answer.selection = asked_.selection;
        numbered(answer.error, [&] { answer.returnedCollection = query(display, answer).returnedCollection; });
        return answer;
    }

    const std::map<std::string, TextList>& lists() const { return asked_.ofNotes ? notes_.lists : profile_.lists; }

private:
    std::vector<std::pair<std::string, oracle::Value>> request() const {
        std::vector<std::pair<std::string, oracle::Value>> items{{"strKeyPrefix", wide(asked_.query.prefix)}};
        for (const auto& [key, value] : asked_.given) {
            items.emplace_back(std::string(key.begin(), key.end()), oracleValue(value));
        }
        return items;
    }

    int count(const Text& display) {
        if (asked_.ofNotes) return notes_.ProfileNotesElementsCount(display, asked_.search, asked_.qualifier);
        return profile_.count(countName(asked_.query.stem), display);
    }

    oracle::Outcome query(const Text& display, Expected& answer) {
        if (asked_.ofNotes) return notes_.profileElements(display, answer.collection);
        TextList* const selection = answer.selection ? &*answer.selection : nullptr;
        return profile_.profileElements(display, answer.collection, selection, asked_.qualifier);
    }

    const Asked& asked_;
    oracle::ProfileOracle profile_;
    oracle::NotesOracle notes_;
};

/// The library's object.
class Library {
public:
    Library(const Asked& asked, Terminal& terminal)
        : asked_(asked),
          row_(*findClass(asked.ofNotes ? TextView(u"CProfileNotes") : TextView(u"CProfile"))),
          object_(createObject(row_, terminal)) {}

    Found ask(TextView display) {
        Found answer;
        if (!asked_.query.stem.empty()) numbered(answer.countError, [&] { answer.count = count(display); });
        answer.collection = std::make_shared<BuiltInCollection>();
        answer.collection->Add(u"strKeyPrefix", wide(asked_.query.prefix));
        for (const auto& [key, value] : asked_.given) answer.collection->Add(key, value);
        answer.selection = asked_.selection;
        TextList* const selection = answer.selection ? &*answer.selection : nullptr;
        numbered(answer.error, [&] {
            answer.returnedCollection = object_->profileGet()->ProfileElements(display, answer.collection, selection,
                                                                               asked_.qualifier) != nullptr;
        });
        return answer;
    }

    const TextList* list(const std::string& name) const { return object_->list(wide(name)); }

private:
    int count(TextView display) {
        const CountProperty& property = *findCount(row_, wide(countName(asked_.query.stem)));
        return property.call(*object_, CountRequest{display, asked_.search, asked_.qualifier});
    }

    const Asked& asked_;
    const ClassRow& row_;
    std::unique_ptr<ProfileObject> object_;
};

template <class AnyAnswer>
std::string told(const AnyAnswer& answer, const oracle::Collection& collection) {
    return "count " + std::to_string(answer.count) + ", error " + std::to_string(answer.countError) + "; " +
           shown(&collection) + (answer.returnedCollection ? " returned" : "") + ", error " +
           std::to_string(answer.error) + ", selection " + shown(answer.selection.value_or(TextList{}));
}

bool agree(const Found& found, const Expected& expected) {
    return found.count == expected.count && found.countError == expected.countError &&
           found.returnedCollection == expected.returnedCollection && found.error == expected.error &&
           found.selection == expected.selection && same(found.collection.get(), &expected.collection);
}

/// Compares the lists after the queries; empty when both have the same.
std::string listsApart(const Asked& asked, const Library& library, const Opinion& expecting) {
    if (asked.query.stem.empty()) return {};
    for (const std::string& name : listNames(asked.query.stem)) {
        const TextList* const list = library.list(name);
        const auto expected = expecting.lists().find(name);
        if (list == nullptr && expected == expecting.lists().end()) continue;
        if (list == nullptr || expected == expecting.lists().end()) return "only one has " + name + "\n";
        if (*list != expected->second) {
            return name + " is " + shown(*list) + "\nexpected " + shown(expected->second) + "\n";
        }
    }
    return {};
}

std::string compare(const Asked& asked, const std::vector<Text>& displays, Terminal& terminal, std::size_t width) {
    const oracle::LineWidth lineWidth(static_cast<int>(width));
    Opinion expecting(asked);
    Library library(asked, terminal);
    for (const Text& display : displays) {
        const Expected expected = expecting.ask(display);
        const Found found = library.ask(display);
        std::string message;
        if (!agree(found, expected)) {
            message = told(found, oracleCollection(*found.collection)) + "\nexpected " +
                      told(expected, expected.collection) + "\n";
        } else {
            message = listsApart(asked, library, expecting);
        }
        if (!message.empty()) return std::string(asked.query.prefix) + ": " + message + drawn(display, width);
    }
    return {};
}

}  // namespace

std::string profileQueries(Bytes bytes) {
    Input input(bytes);
    const Layout layout = chosenLayout(input);
    const Asked asked = askedBy(input);
    std::vector<Text> displays;
    for (const std::string_view lines : input.screens()) displays.push_back(screenOf(lines, layout));

    test::WideTerminal own(layout.width);
    if (std::string message = compare(asked, displays, own, layout.width); !message.empty()) {
        return "own lines: " + message;
    }
    if (layout.width != Layout().width) return {};
    BuiltInTerminal builtIn;
    std::string message = compare(asked, displays, builtIn, layout.width);
    return message.empty() ? message : "built in: " + message;
}

}  // namespace vantro::fuzz
