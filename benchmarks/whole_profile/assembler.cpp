#include "whole_profile/assembler.h"

#include "common/units.h"

#include <algorithm>

namespace vantro::bench {

namespace {

/// Compares ASCII text with a text of either kind.
template <class Char>
bool is(std::basic_string_view<Char> text, std::string_view ascii) {
    return std::equal(text.begin(), text.end(), ascii.begin(), ascii.end());
}

template <class Char>
std::basic_string_view<Char> trim(std::basic_string_view<Char> text) {
    const std::size_t last = text.find_last_not_of(Char{' '});
    if (last == text.npos) return {};
    const std::size_t first = text.find_first_not_of(Char{' '});
    return text.substr(first, last + 1 - first);
}

template <class View>
View cut(View text, std::size_t index, std::size_t count = View::npos) {
    return index < text.size() ? text.substr(index, count) : View();
}

constexpr std::string_view tags[] = {"PPR", "PGL", "PPS", "PHI", "PCI", "PPC", "PPH", "PPA", "PPK", "PPI",
                                     "PXC", "PXA", "PXK", "PSH", "PSC", "PPT", "PXT", "RM",  "AP",  "OS",
                                     "FFN", "SR",  "ST",  "RC",  "PAS", "PIV", "PCE", "PID", "PFO"};

template <class Char>
constexpr std::uint32_t packed(std::basic_string_view<Char> tag) {
    std::uint32_t value = 0;
    for (const Char c : tag) value = value * 128 + static_cast<std::uint32_t>(c);
    return value;
}

template <class Char>
std::size_t familyOf(std::basic_string_view<Char> tag) {
    static constexpr auto keys = [] {
        std::array<std::uint32_t, familyCount> all{};
        for (std::size_t i = 0; i < familyCount; ++i) all[i] = packed(tags[i]);
        return all;
    }();
    return static_cast<std::size_t>(std::find(keys.begin(), keys.end(), packed(tag)) - keys.begin());
}

}  // namespace

template <class Char>
void Assembler<Char>::take(const MatchedLine<Char>& matched) {
    if (matched.has(titleGroup)) {
        openSection(matched.groups[titleGroup]);
    } else if (section_ == Section::Notes) {
        takeNote(matched.line);
    } else if (matched.has(numberGroup)) {
        takeNumbered(matched);
    } else if (matched.has(transferableNumber)) {
        takeTransferable(matched);
    } else if (matched.has(continuationGroup)) {
        takeContinuation(matched.groups[continuationGroup], matched.line);
    } else if (matched.has(markLocator)) {
        result_.recordLocator = matched.groups[markLocator];
        if (matched.line[1] == Char{'C'}) result_.name = trim(cut(matched.line, 3, 35));
    } else if (matched.has(officeGroup)) {
        result_.officeIdentifier = matched.groups[officeGroup];
        sawRule_ = matched.line[5] == Char{'-'};
    }
}

template <class Char>
void Assembler<Char>::finish() {
    if (unsplit_) splitTransferable();
}

template <class Char>
void Assembler<Char>::openSection(View title) {
    finish();
    text_ = nullptr;
    family_ = familyCount;
    isCompany_ = false;
    const bool isTransferable = is(title, "PNR TRANSFERABLE DATA");
    sawRule_ = sawRule_ || !isTransferable;
    if (isTransferable)
        section_ = Section::Transferable;
    else if (is(title, "PROFILE NOTES"))
        section_ = Section::Notes;
    else if (is(title, "PRIORITY"))
        section_ = Section::Plain;
    else if (is(title, "DOCUMENTS") || is(title, "FOLLOW UP") || is(title, "GLOBAL SEARCH"))
        section_ = Section::Documents;
    else
        section_ = Section::Joined;
}

template <class Char>
void Assembler<Char>::takeNumbered(const MatchedLine<Char>& matched) {
    const View number = matched.groups[numberGroup];
    const View text = matched.groups[textGroup];
    text_ = nullptr;
    if (section_ == Section::Head) {
        const View tag = matched.groups[tagGroup];
        isCompany_ = false;
        if (is(tag, "PCN")) {
            result_.companyNumber = number;
            result_.companyName = text;
            text_ = &result_.companyName;
            isCompany_ = true;
            brokenWord_ = text.data() + text.size() == matched.line.data() + 64;
        } else if (is(tag, "PIN")) {
            result_.pin = {number, text};
        } else if (is(tag, "PSL")) {
            result_.psl = {number, text};
        } else if (!matched.has(tagGroup) && is(text.substr(0, 3), "NM ")) {
            result_.name = trim(text.substr(3));
        }
        return;
    }
    if (matched.has(tagGroup)) {
        family_ = familyOf(matched.groups[tagGroup]);
    } else if (family_ == indexOf(Family::PPC) && number.size() == 1) {
        family_ = familyCount;  // six blanks after a one-digit number are one too few for PPC only
    }
    if (family_ == familyCount) return;
    result_.families[family_].push_back({number, text});
    text_ = &result_.families[family_].back().text;
}

template <class Char>
void Assembler<Char>::takeTransferable(const MatchedLine<Char>& matched) {
    finish();
    text_ = nullptr;
    family_ = familyOf(matched.groups[transferableCode]);
    if (family_ == indexOf(Family::RemarkConf) && sawRule_) return;
    result_.families[family_].push_back({matched.groups[transferableNumber], matched.groups[transferableText]});
    text_ = &result_.families[family_].back().text;
    joinsLeft_ = family_ == indexOf(Family::Remark) ? 2 : 1;
    unsplit_ = true;
}

template <class Char>
void Assembler<Char>::takeContinuation(View text, View line) {
    if (text_ == nullptr) return;
    static constexpr Char blank[] = {Char{' '}};
    const View separator(blank, 1);
    const auto indent = static_cast<std::size_t>(text.data() - line.data());
    switch (section_) {
        case Section::Head:
            if (isCompany_ && indent >= 14) append(*text_, brokenWord_ ? View() : separator, text);
            break;
        case Section::Plain: append(*text_, View(), text); break;
        case Section::Joined: append(*text_, text.size() > 2 && text[2] == Char{':'} ? separator : View(), text); break;
        case Section::Transferable:
            if (indent >= 17 && joinsLeft_-- > 0) append(*text_, View(), text);
            break;
        default: break;
    }
}

template <class Char>
void Assembler<Char>::takeNote(View line) {
    result_.notes.push_back({++noteNumber_, line.substr(0, 2), trim(cut(line, 2))});
}

template <class Char>
void Assembler<Char>::append(View& text, View separator, View more) {
    text = joinedIn(result_.joined, text, separator, more);
}

template <class Char>
void Assembler<Char>::splitTransferable() {
    unsplit_ = false;
    View& text = result_.families[family_].back().text;
    if (family_ == indexOf(Family::FrequentFlyer)) {
        static constexpr Char gap[] = {Char{' '}, Char{' '}, Char{' '}, Char{' '}};
        if (const std::size_t at = text.find(View(gap, 4)); at != View::npos) text = text.substr(0, at);
        result_.flyers.push_back({cut(text, 4, 2), trim(cut(text, 7))});
    } else if (family_ == indexOf(Family::RemarkConf)) {
        result_.remarkDetails.push_back(trim(cut(text, 4)));
    } else if (family_ == indexOf(Family::ServiceRequest)) {
        View code = cut(text, 4, 4);
        if (!code.empty() && code.front() == Char{'*'}) code = cut(text, 5, 4);
        typename Scanned<View>::RequestParts parts{code, {}, {}, {}};
        if (const std::size_t dash = text.find(Char{'-'}); dash != View::npos)
            parts.freeText = trim(text.substr(dash + 1));
        if (is(code, "FQTV")) {
            parts.carrier = cut(text, 8, 2);
            parts.account = trim(cut(text, 11));
        }
        result_.requests.push_back(parts);
    }
}

template class Assembler<char>;
template class Assembler<char16_t>;

}  // namespace vantro::bench
