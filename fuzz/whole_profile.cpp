// The whole profile against the single queries: each value is compared with what its query returns. Either the profile
// or the queries are observed.
#include "fuzz/common/compare.h"
#include "fuzz/common/input.h"
#include "fuzz/common/piece_check.h"
#include "vantro/profile.h"
#include "vantro/registry.h"

#include <algorithm>
#include <array>

namespace vantro::fuzz {

namespace {

/// The result of a single query: its collection without the request, and its error.
struct Answer {
    std::shared_ptr<BuiltInCollection> collection = std::make_shared<BuiltInCollection>();
    int error = 0;
    Text description;

    Text text(TextView key) const {
        const ItemPtr item = collection->Item(key);
        return item ? std::get<Text>(item->Value()) : Text();
    }
    TextList list(TextView key) const {
        const ItemPtr item = collection->Item(key);
        return item ? std::get<TextList>(item->Value()) : TextList();
    }
    bool has(TextView key) const { return collection->Item(key) != nullptr; }
};

constexpr TextView element = u"strKeyElement";
constexpr TextView number = u"strKeyElementNr";
constexpr TextView elementList = u"strKeyElement()";
constexpr TextView numberList = u"strKeyElementNr()";

/// The families whose query returns one element by index and no lists.
struct SingleFamily {
    Family family;
    TextView stem;
};
constexpr std::array<SingleFamily, 7> singleFamilies{{
    {Family::Remark, u"Remark"},
    {Family::Contact, u"Contact"},
    {Family::OtherService, u"OtherService"},
    {Family::FrequentFlyer, u"FrequentFlyer"},
    {Family::ServiceRequest, u"ServiceRequest"},
    {Family::Seat, u"Seat"},
    {Family::RemarkConf, u"RemarkConf"},
}};

constexpr int outOfRange = 9;

class Comparison {
public:
    Comparison(const Text& display, bool isProfileObserved)
        : display_(display),
          pieces_(display, Layout().width),
          profile_(isProfileObserved ? parseProfile(display, pieces_) : parseProfile(display)),
          terminal_(builtIn_, isProfileObserved ? nullptr : &pieces_) {}

    std::string run() {
        compareHeader();
        for (const FamilyName& family : familyNames()) {
            const auto single = std::ranges::find(singleFamilies, family.family, &SingleFamily::family);
            if (single == singleFamilies.end()) {
                compareLists(family);
            } else {
                compareSingle(family, single->stem);
            }
        }
        compareNotes();
        if (problems_ != profile_.problems.size()) part(u"problems", "the problems are not those of the queries");
        if (!pieces_.message().empty()) part(u"pieces", pieces_.message());
        return message_;
    }

private:
    Answer ask(ProfileObject& object, TextView prefix, bool indexed = false) {
        Answer answer;
        answer.collection->Add(u"strKeyPrefix", Text(prefix));
        if (indexed) answer.collection->Add(u"intKeyIndex", std::int16_t{0});
        try {
            object.profileGet()->ProfileElements(display_, answer.collection);
        } catch (const Error& error) {
            answer.error = error.number();
            answer.description = error.description();
        }
        return answer;
    }

    void part(TextView query, const std::string& what) {
        if (message_.empty()) message_ = shown(query) + ": " + what + "\n" + drawn(display_, Layout().width);
    }

    void check(TextView query, const Text& expected, TextView value) {
        if (TextView(expected) != value) part(query, shown(value) + " for " + shown(TextView(expected)));
    }

    /// True when the query raised nothing. Then the profile must have no problem for it, otherwise the same one.
    bool answered(TextView query, const Answer& answer, int meant = 0) {
        const auto problem = std::ranges::find(profile_.problems, query, &Problem::query);
        const bool isProblem = problem != profile_.problems.end();
        if (isProblem) ++problems_;
        const bool raised = answer.error != 0 && answer.error != meant;
        if (raised != isProblem) {
            part(query, "error " + std::to_string(answer.error) + " of the query; the profile has none or another one");
        } else if (isProblem && (problem->number != answer.error || problem->description != answer.description)) {
            part(query, "error " + std::to_string(problem->number) + " for " + std::to_string(answer.error));
        }
        return !raised;
    }

    void compareHeader() {
        compareText(u"NM", profile_.name);
        compareText(u"RECLOC", profile_.recordLocator);
        compareText(u"OFFID", profile_.officeIdentifier);

        const Answer company = ask(*object_, u"PCN");
        answered(u"PCN", company);
        check(u"PCN", company.text(element), profile_.companyName.text);
        if (company.has(number) != profile_.companyName.number.has_value()) part(u"PCN", "only one has a number");
        check(u"PCN", company.text(number), profile_.companyName.number.value_or(TextView{}));

        const Answer pin = ask(*object_, u"PIN");
        answered(u"PIN", pin);
        check(u"PIN", pin.text(element), profile_.pin.text);
        check(u"PIN", pin.text(number), profile_.pin.number);

        const Answer psl = ask(*object_, u"PSL");
        answered(u"PSL", psl);
        if (psl.has(element) != profile_.psl.has_value()) part(u"PSL", "only one has the line");
        check(u"PSL", psl.text(element), profile_.psl.value_or(Element{}).text);
        check(u"PSL", psl.text(number), profile_.psl.value_or(Element{}).number);
    }

    void compareText(TextView query, TextView value) {
        const Answer answer = ask(*object_, query);
        answered(query, answer);
        check(query, answer.text(element), value);
    }

    void compareLists(const FamilyName& family) {
        const Answer answer = ask(*object_, family.prefix);
        const auto elements = profile_.elements(family.family);
        if (!answered(family.prefix, answer)) {
            if (!elements.empty()) part(family.prefix, "elements in spite of a problem");
            return;
        }
        const TextList texts = answer.list(elementList);
        const TextList numbers = answer.list(numberList);
        if (texts.size() != elements.size() + 1 || numbers.size() != texts.size()) {
            return part(family.prefix, std::to_string(elements.size()) + " elements for " + shown(texts));
        }
        for (std::size_t position = 0; position < elements.size(); ++position) {
            check(family.prefix, texts[position + 1], elements[position].text);
            check(family.prefix, numbers[position + 1], elements[position].number);
        }
    }

    /// An index of 0 is outside every list; that is detected after the display has been read, so the lists are filled.
    void compareSingle(const FamilyName& family, TextView stem) {
        const Answer answer = ask(*object_, family.prefix, true);
        const auto elements = profile_.elements(family.family);
        if (!answered(family.prefix, answer, outOfRange)) {
            if (!elements.empty()) part(family.prefix, "elements in spite of a problem");
            return;
        }
        compareList(family.prefix, stem, u"Text", elements, &Element::text);
        compareList(family.prefix, stem, u"Number", elements, &Element::number);
        compareList(family.prefix, stem, u"Code", elements, &Element::code);
        compareList(family.prefix, stem, u"Carrier", elements, &Element::airline);
        compareList(family.prefix, stem, u"Account", elements, &Element::frequentFlyerNumber);
        compareList(family.prefix, stem, u"FreeText", elements, &Element::freeText);
        compareList(family.prefix, stem, u"Detail", elements, &Element::freeText);
    }

    void compareList(TextView query, TextView stem, TextView content, std::span<const Element> elements,
                     TextView Element::*member) {
        const TextList* const list = object_->list(Text(u"str").append(stem).append(content));
        if (list == nullptr) return;
        if (list->size() != elements.size()) {
            return part(query, std::to_string(elements.size()) + " elements for " + shown(*list));
        }
        for (std::size_t position = 0; position < elements.size(); ++position) {
            check(query, (*list)[position], elements[position].*member);
        }
    }

    void compareNotes() {
        const Answer answer = ask(*notes_, u"ProfileNotes");
        if (!answered(u"ProfileNotes", answer)) {
            if (!profile_.notes.empty()) part(u"ProfileNotes", "notes in spite of a problem");
            return;
        }
        const TextList texts = answer.list(elementList);
        const TextList numbers = answer.list(numberList);
        const TextList qualifiers = answer.list(u"strKeyQualifier()");
        if (texts.size() != profile_.notes.size() + 1) {
            return part(u"ProfileNotes", std::to_string(profile_.notes.size()) + " notes for " + shown(texts));
        }
        for (std::size_t position = 0; position < profile_.notes.size(); ++position) {
            const Note& note = profile_.notes[position];
            const std::string spelled = std::to_string(note.number);
            check(u"ProfileNotes", texts[position + 1], note.text);
            check(u"ProfileNotes", numbers[position + 1], Text(spelled.begin(), spelled.end()));
            check(u"ProfileNotes", qualifiers[position + 1], note.qualifier);
        }
    }

    const Text& display_;
    PieceCheck pieces_;
    Profile profile_;
    BuiltInTerminal builtIn_;
    ObservedTerminal terminal_;
    std::unique_ptr<ProfileObject> object_ = createObject(*findClass(u"CProfile"), terminal_);
    std::unique_ptr<ProfileObject> notes_ = createObject(*findClass(u"CProfileNotes"), terminal_);
    std::size_t problems_ = 0;
    std::string message_;
};

}  // namespace

std::string wholeProfile(Bytes bytes) {
    Input input(bytes);
    Layout layout = chosenLayout(input);
    layout.width = Layout().width;  // a display without a terminal has the host's lines
    for (const std::string_view lines : input.screens()) {
        const Text display = screenOf(lines, layout);
        const bool isProfileObserved = display.size() / Layout().width % 2 == 1;
        if (std::string message = Comparison(display, isProfileObserved).run(); !message.empty()) return message;
    }
    return {};
}

}  // namespace vantro::fuzz
