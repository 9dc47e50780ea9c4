//   ....+....1....+....2....+....3....+....4
// n ------- PNR TRANSFERABLE DATA
//   S    1     RM PREFERS MORNING FLIGHTS          kind in column 1, number in 6 to 8, text from 14
//                    AND NO STOPS                  continuation: 17 blanks
//   A    2    AP  LYS 555-0101
#include "readers/transferable_scanner.h"

#include "display/rules.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace vantro {

namespace {

constexpr Field numberField{Column{6}, Width{3}};
constexpr Field textField{Column{14}};
constexpr Width continuationIndent{17};

constexpr char16_t upperCase(char16_t character) {
    return character >= u'a' && character <= u'z' ? static_cast<char16_t>(character - u'a' + u'A') : character;
}

Text upperCased(TextView text) {
    Text upper(text);
    std::ranges::transform(upper, upper.begin(), upperCase);
    return upper;
}

/// The caller's selection: kinds of elements, the qualifier, and the beginnings of element texts.
class Selection {
public:
    explicit Selection(SelectionSource& source) : entries_(source.size()) {
        for (std::size_t index = 0; index < entries_.size(); ++index) {
            Text& entry = entries_[index];
            entry = upperCased(source.entry(index));
            const bool namesShared = entry.starts_with(u"S  ");
            const bool namesOwn = entry.starts_with(u"A  ");
            if (namesShared || namesOwn) entry = Text(trimmed(mid(entry, Column{2})));
            wantsS_ = wantsS_ || namesShared;
            wantsA_ = wantsA_ || namesOwn;
            source.store(index, entry);
        }
        qualifier_ = source.qualifier();
    }

    /// The rule that selects an element or does not.
    const ReadingRule& ruleOf(char16_t kind, TextView text, Display& display) const {
        const bool wantsAnyKind = !wantsS_ && !wantsA_;
        if (!wantsAnyKind && !(kind == u'S' ? wantsS_ : wantsA_)) return rule::otherKind;
        if (!qualifier_.empty() && display.screen().textField(text, 1, u" ") != qualifier_) return rule::otherQualifier;
        const Text upper = upperCased(text);
        const bool isNamed = std::ranges::any_of(entries_, [&](const Text& entry) { return upper.starts_with(entry); });
        return isNamed ? rule::selected : rule::otherText;
    }

private:
    TextList entries_;
    TextView qualifier_;
    bool wantsS_ = false;
    bool wantsA_ = false;
};

struct TransferableElement {
    char16_t kind;
    TextView number;
    Text text;
};

bool beginsElement(TextView line) { return line.starts_with(u'S') || line.starts_with(u'A'); }

/// The line after the section's header, or nothing when the display ends first. Raises 6 when it has neither.
std::optional<Counter> seekSection(Display& display) {
    const std::optional<Display::MarkedLine> found = display.seekHeader(Section::Transferable, Counter(0));
    if (!found) fail(Failure::Overflow);
    if (found->marks.isEndOfDisplay()) return std::nullopt;
    return found->number + 1;
}

bool endsSection(const DisplayLine& line) { return line.isEndOfDisplay() || line.text().starts_with(u"------"); }

/// The element whose first line is `number`. Sets `number` to the line after its last one.
TransferableElement readElement(Display& display, Counter& number) {
    const TextView line = display.line(number).text();
    TransferableElement element{line.front(), cut(line, numberField), Text(cut(line, textField))};
    for (++number;; ++number) {
        const DisplayLine& below = display.expectedLine(number);
        if (endsSection(below) || !below.beginsBlank(continuationIndent)) return element;
        display.watch().decided(rule::continuesSelected, number);
        element.text += below.trimmed();
    }
}

/// The numbers of the selected elements of the section that begins with this line.
std::vector<TextView> readSection(Display& display, Counter number, const Selection& selection) {
    const Watch& watch = display.watch();
    std::vector<TextView> numbers;
    for (;;) {
        const DisplayLine& line = display.expectedLine(number);
        if (endsSection(line)) {
            watch.decided(line.isEndOfDisplay() ? rule::selectionEndsAtMark : rule::selectionEndsAtHyphens, number);
            return numbers;
        }
        if (!beginsElement(line.text())) {
            watch.decided(rule::kindMissing, number);
            ++number;
            continue;
        }
        const Counter first = number;
        const TransferableElement element = readElement(display, number);
        const ReadingRule& tested = selection.ruleOf(element.kind, element.text, display);
        watch.decided(tested, first);
        if (&tested != &rule::selected) continue;
        numbers.push_back(element.number);
        watch.read(u"number", element.number, static_cast<std::int32_t>(numbers.size()));
    }
}

}  // namespace

TextList scanTransferable(Display& display, SelectionSource& selection) {
    const Selection selected(selection);
    TextList list(1);
    const std::optional<Counter> section = seekSection(display);
    if (!section) return list;
    const std::vector<TextView> numbers = readSection(display, *section, selected);
    list.insert(list.end(), numbers.begin(), numbers.end());
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        display.watch().copied(list[index + 1], numbers[index]);
    }
    return list;
}

}  // namespace vantro
