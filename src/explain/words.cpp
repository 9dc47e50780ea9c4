#include "explain/words.h"

#include "framework/text_ops.h"

#include <string>

namespace vantro {

namespace {

Text placeInWords(const Place& place) {
    const Text line = concat({u"line ", numberInWords(place.line)});
    const Text first = numberInWords(place.column);
    if (place.length == 1) return concat({line, u", column ", first});
    return concat({line, u", columns ", first, u" to ", numberInWords(place.column + place.length - 1)});
}

/// Four digits of base 16.
Text hexadecimal(char16_t character) {
    constexpr TextView digits = u"0123456789ABCDEF";
    Text text;
    for (int shift = 12; shift >= 0; shift -= 4) text += digits[(character >> shift) & 0xF];
    return text;
}

constexpr bool isControl(char16_t character) { return character < u' ' || (character >= 0x7F && character < 0xA0); }

struct ValueWords {
    Text operator()(bool value) const { return value ? u"True" : u"False"; }
    Text operator()(std::int16_t value) const { return numberInWords(value); }
    Text operator()(const Text& value) const { return quoted(value); }
    Text operator()(const TextList& value) const {
        return concat({u"a list of ", numberInWords(static_cast<std::int32_t>(value.size())),
                       value.size() == 1 ? u" entry" : u" entries"});
    }
};

}  // namespace

Text numberInWords(std::int32_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

Text linesInWords(std::int32_t first, std::int32_t last) {
    if (last <= first) return concat({u"line ", numberInWords(first)});
    return concat({u"lines ", numberInWords(first), u" to ", numberInWords(last)});
}

Text placesInWords(std::span<const KeptPiece> pieces) {
    Text text;
    for (const KeptPiece& piece : pieces) {
        if (!piece.place) continue;
        if (!text.empty()) text += u"; ";
        text += placeInWords(*piece.place);
    }
    return text;
}

Text printable(TextView text) {
    Text shown;
    for (const char16_t character : text) {
        if (isControl(character)) {
            shown += concat({u"\\u", hexadecimal(character)});
        } else {
            shown += character;
        }
    }
    return shown;
}

Text quoted(TextView text) { return concat({u"\"", printable(text), u"\""}); }

Text errorInWords(const Error& error) {
    TextView description = error.description();
    if (description.ends_with(u'.')) description.remove_suffix(1);
    return concat({numberInWords(error.number()), onlyIf(!description.empty(), u": "), printable(description)});
}

Text valueInWords(const KeptStep& step) {
    return step.value ? std::visit(ValueWords(), *step.value) : quoted(step.text);
}

}  // namespace vantro
