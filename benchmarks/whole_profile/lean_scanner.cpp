#include "whole_profile/lean_scanner.h"

#include <algorithm>
#include <utility>

namespace vantro::bench {

namespace {

struct SectionTitle {
    View title;  ///< after seven hyphens and a blank
    Kind kind;
    FamilyBits families;
};

using enum Family;
constexpr SectionTitle prefixedSections[] = {
    {u"PRIORITY", Kind::Whole, bit(PPR)},
    {u"GLOBAL SEARCH", Kind::Global, bit(PGL)},
    {u"PRE-STORED ENTRIES", Kind::Colon, bit(PPS)},
    {u"TRAVEL POLICIES - HOTEL", Kind::Policy, bit(PHI) | bit(PPH) | bit(PSH)},
    {u"TRAVEL POLICIES - CAR", Kind::Policy, bit(PCI) | bit(PPC) | bit(PXC) | bit(PSC)},
    {u"TRAVEL POLICIES - AIR", Kind::Policy,
     bit(PPA) | bit(PPK) | bit(PPI) | bit(PXA) | bit(PXK) | bit(PPT) | bit(PXT)},
    {u"DOCUMENTS", Kind::Separate, bit(PAS) | bit(PIV) | bit(PCE) | bit(PID)},
    {u"FOLLOW UP", Kind::Separate, bit(PFO)},
};
constexpr View transferableTitle = u"PNR TRANSFERABLE DATA";
constexpr View notesTitle = u"PROFILE NOTES";

template <Depth depth, class String>
class LeanScanner {
public:
    LeanScanner(View display, Scanned<String>& result)
        : result_(result), begin_(display.data()), end_(begin_ + display.size() / lineUnits * lineUnits) {}

    void run() {
        const char16_t* line = begin_;
        if constexpr (exact) line = readHead();
        while (line != end_ && !isOver_) line = isTitle(line) ? readSection(line) : skip(line);
    }

private:
    static constexpr bool exact = depth == Depth::Everything;

    // The end

    /// Looks at a line. Notices the end of the display: after a prompt inside a line no further section counts.
    LineLook look(const char16_t* line) {
        const LineLook seen = lookAt(line);
        if (seen.mayEndDisplay) noticeEnd(View(line, seen.end));
        return seen;
    }

    const char16_t* textEndOf(const char16_t* line) {
        if constexpr (exact) return line + look(line).end;
        return line + textEnd(line);
    }

    void noticeEnd(View line) {
        if (line.find(endOfDisplay) != View::npos || leftTrimmed(line.data(), line.data() + line.size())[0] == u'>') {
            isOver_ = true;
        } else if (line.find(u'>') != View::npos) {
            sectionsOver_ = true;
        }
    }

    const char16_t* skip(const char16_t* line) {
        if constexpr (exact) {
            textEndOf(line);
            isOver_ = isOver_ || sectionsOver_;
        } else {
            isOver_ = line[0] == u'>' || line[0] == u'E';
        }
        noteRule(line);
        return line + lineUnits;
    }

    // The head

    /// Reads the header values. Returns the line of the first title, or the end.
    const char16_t* readHead() {
        const char16_t* line = begin_;
        if (end_ - begin_ >= 2 * 80) {
            const View second = leftTrimmed(begin_ + 80, begin_ + 160);
            if (second.starts_with(u"PF24") || second.starts_with(u"4505")) line += lineUnits;
        }
        bool isFirst = true;
        bool afterMark = false;
        View markName;
        for (line += lineUnits; line < end_ && !isTitle(line); line += lineUnits) {
            const char16_t* const end = textEndOf(line);
            if (isOver_) break;
            if (isFirst) result_.recordLocator = View(std::max(line, end - 6), end);
            isFirst = false;
            if (afterMark && line[0] == u'-') readOffice(line, end);
            afterMark = line[0] == u'*' && line[2] == u'*';
            if (afterMark && line[1] == u'C') markName = leftTrimmed(line + 3, trimmedEnd(line + 3, line + 38));
            if (line[0] == u' ') line = readHeadValue(line, end);
            noteRule(line);
        }
        if (result_.name.empty()) result_.name = markName;
        return std::min(line, end_);
    }

    static const char16_t* trimmedEnd(const char16_t* begin, const char16_t* end) {
        while (end != begin && end[-1] == u' ') --end;
        return end;
    }

    void readOffice(const char16_t* line, const char16_t* end) {
        if (end - line < 9 || fourUnits(line) != fourHyphens || line[4] != u'-') return;
        result_.officeIdentifier = View(end - 9, end);
    }

    /// Returns the last line of the value.
    const char16_t* readHeadValue(const char16_t* line, const char16_t* end) {
        const View tag(line + 4, 5);
        if (tag.starts_with(u" NM ")) {
            result_.name = leftTrimmed(line + 8, end);
        } else if (tag == u" PIN/") {
            result_.pin = {numberOf(line), leftTrimmed(line + 9, end)};
        } else if (tag == u" PCN/") {
            return readCompany(line, end);
        } else if (View(line + 9, 4) == u"PSL/") {
            result_.psl.emplace(numberOf(line), leftTrimmed(line + 13, end));
        }
        return line;
    }

    /// A name of 64 characters is broken inside a word.
    const char16_t* readCompany(const char16_t* line, const char16_t* end) {
        const View separator(u" ", end == line + 64 ? 0 : 1);
        result_.companyNumber = String(numberOf(line));
        View name = leftTrimmed(line + 9, end);
        for (const char16_t* next = line + lineUnits; next != end_ && nineBlanks(next) && eightBlanks(next + 6);
             next += lineUnits) {
            name = joinedIn(result_.joined, name, separator, leftTrimmed(next + 14, textEndOf(next)));
            line = next;
        }
        result_.companyName = name;
        return line;
    }

    // Sections

    static bool isTitle(const char16_t* line) {
        constexpr auto rest = std::bit_cast<std::uint64_t>(std::array{u'-', u'-', u'-', u' '});
        return fourUnits(line) == fourHyphens && fourUnits(line + 4) == rest;
    }

    /// A rule of six hyphens above the transferable section: it contains no confidential remarks then.
    void noteRule(const char16_t* line) {
        if (fourUnits(line) == fourHyphens && line[4] == u'-' && line[5] == u'-') ruled_ = true;
    }

    static bool shows(const char16_t* line, View title) {
        const View shown(line + 8, title.size());
        if constexpr (exact) return shown == title;
        return shown.substr(0, 4) == title.substr(0, 4) && shown.back() == title.back();
    }

    /// Returns the line after the section.
    const char16_t* readSection(const char16_t* line) {
        if constexpr (exact) {
            textEndOf(line);
            if (isOver_ || sectionsOver_) return end_;
        }
        if (shows(line, transferableTitle)) return readTransferable(line + lineUnits);
        ruled_ = true;
        if (shows(line, notesTitle)) return readNotes(line + lineUnits);
        for (const SectionTitle& section : prefixedSections) {
            if (!shows(line, section.title)) continue;
            const unsigned opened = 1U << (&section - prefixedSections);
            if (exact && (opened_ & opened) != 0) break;
            opened_ |= opened;
            return readPrefixed(line + lineUnits, section);
        }
        return line + lineUnits;
    }

    /// Numbered lines, their continuation lines, and unnumbered ones that belong to no element.
    const char16_t* readPrefixed(const char16_t* line, const SectionTitle& section) {
        if constexpr (exact) return readPrefixedExactly(line, section);
        std::uint8_t family = noFamily;
        while (line != end_ && line[0] == u' ') {
            const char16_t* const first = line;
            line += lineUnits;
            if (fourUnits(first + 5) != fourBlanks) {
                family = tagTable.familyAt(first + 5);
            } else if (family == indexOf(PPC) && first[2] == u' ') {
                family = noFamily;  // six blanks after a one-digit number are one too few for PPC only
            }
            if (family == noFamily || first[3] == u' ') continue;
            View text = textOf(first, first + textEnd(first));
            FamilyBits tags = 0;
            if (section.kind <= Kind::Policy) line = join(text, line, section.kind, tags);
            push(family, numberOf(first), text);
        }
        return line;
    }

    /// The same with the families whose tag is anywhere in a line: free text may contain one.
    const char16_t* readPrefixedExactly(const char16_t* line, const SectionTitle& section) {
        FamilyBits active = 0;
        FamilyBits left = section.families;  // those that may still begin
        int lines = 0;                       // of the global search
        while (line != end_ && line[0] == u' ') {
            const LineLook seen = look(line);
            if (isOver_) return line;
            const char16_t* const first = line;
            line += lineUnits;
            if (first[3] == u' ') continue;
            FamilyBits tags = tagsIn(first, seen.slashes);
            const FamilyBits candidates = active | (tags & left);
            if (candidates == 0 && section.kind != Kind::Separate) continue;
            View text = textOf(first, first + seen.end);
            if (section.kind <= Kind::Policy) line = join(text, line, section.kind, tags);
            const bool follows = fourUnits(first + 5) == fourBlanks;
            active = collecting(active, candidates, tags, section.kind, left, follows, first[2] == u' ');
            for (FamilyBits each = active; each != 0; each &= each - 1) {
                const auto family = static_cast<std::uint8_t>(std::countr_zero(each));
                const bool afterSlash = section.kind == Kind::Separate && (tags & bit(family)) != 0;
                const View own = afterSlash ? textAfterSlash(first, seen) : text;
                push(family, numberOf(first), own);
            }
            if (section.kind == Kind::Global && active != 0 && ++lines == 11) active = 0;
        }
        return line;
    }

    static View textAfterSlash(const char16_t* line, const LineLook& seen) {
        const int slash =
            seen.slashes.low != 0 ? std::countr_zero(seen.slashes.low) : 64 + std::countr_zero(seen.slashes.high);
        return leftTrimmed(line + slash + 1, line + seen.end);
    }

    static FamilyBits tagsIn(const char16_t* line, LineBits slashes) {
        FamilyBits tags = 0;
        slashes.forEach([&](unsigned slash) {
            if (slash >= 3) tags |= bit(tagTable.familyAt(line + slash - 3));
        });
        return tags & ~bit(noFamily);
    }

    /// The families that collect a line: of those that collected the one above or begin here.
    static FamilyBits collecting(FamilyBits before, FamilyBits candidates, FamilyBits tags, Kind kind, FamilyBits& left,
                                 bool follows, bool oneDigit) {
        FamilyBits own = tags;  // six blanks after a one-digit number are one too few for PPC only
        if (follows) own |= oneDigit ? ~bit(PPC) : ~FamilyBits{0};
        switch (kind) {
            case Kind::Whole:
            case Kind::Colon: return candidates;
            case Kind::Policy: return candidates & own;
            case Kind::Global:
                if (before == 0) return tags & std::exchange(left, 0);
                return follows ? before : 0;
            case Kind::Separate:
                if (!follows) left &= ~std::exchange(before, 0);
                return before | (tags & left);
        }
        return 0;
    }

    const char16_t* join(View& text, const char16_t* line, Kind kind, FamilyBits& tags) {
        for (; line != end_ && nineBlanks(line); line += lineUnits) {
            const char16_t* end = line;
            if constexpr (exact) {
                const LineLook seen = look(line);
                tags |= tagsIn(line, seen.slashes);
                end += seen.end;
            } else {
                end += textEnd(line);
            }
            const View more = leftTrimmed(line + 9, end);
            const bool colon = kind != Kind::Whole && more.size() > 2 && more[2] == u':';
            text = joinedIn(result_.joined, text, View(u" ", colon ? 1 : 0), more);
        }
        return line;
    }

    const char16_t* readTransferable(const char16_t* line) {
        if constexpr (exact) return readTransferableExactly(line);
        while (line != end_) {
            if (line[0] != u'S' && line[0] != u'A' && line[0] != u' ') return line;
            const char16_t* const first = line;
            line += lineUnits;
            const std::uint8_t family = tagTable.familyAt(first + 12);
            if (family == noFamily || (family == indexOf(RemarkConf) && ruled_)) continue;
            View text(first + 13, first + textEnd(first));
            for (int joins = family == indexOf(Remark) ? 2 : 1; joins > 0 && line != end_ && seventeenBlanks(line);
                 --joins, line += lineUnits) {
                text = joinedIn<char16_t>(result_.joined, text, {}, leftTrimmed(line + 17, line + textEnd(line)));
            }
            storeTransferable(family, first, text);
        }
        return line;
    }

    /// The same with the codes anywhere in a line: free text may contain one. A continuation line is a line too.
    const char16_t* readTransferableExactly(const char16_t* line) {
        for (; line != end_; line += lineUnits) {
            const LineLook seen = look(line);
            if (isOver_ || (fourUnits(line) == fourHyphens && line[4] == u'-' && line[5] == u'-')) return line;
            const char16_t* const next = line + lineUnits;
            if (seen.end <= 13) continue;
            View text(line + 13, seen.end - 13);
            FamilyBits codes = codesIn(line, seen);
            if (next != end_ && seventeenBlanks(next)) {
                text = joinedIn<char16_t>(result_.joined, text, {}, leftTrimmed(next + 17, next + textEnd(next)));
                codes |= codesInText(text);
                storeAll(codes & ~bit(Remark), line, text);
                const char16_t* const third = next + lineUnits;
                if (third < end_ && seventeenBlanks(third)) {
                    const View more = leftTrimmed(third + 17, third + textEnd(third));
                    text = joinedIn<char16_t>(result_.joined, text, {}, more);
                    codes |= codesInText(text);
                }
                codes &= bit(Remark);
            }
            storeAll(codes, line, text);
        }
        return line;
    }

    void storeAll(FamilyBits codes, const char16_t* line, View text) {
        if (ruled_) codes &= ~bit(RemarkConf);
        for (; codes != 0; codes &= codes - 1) {
            storeTransferable(static_cast<std::uint8_t>(std::countr_zero(codes)), line, text);
        }
    }

    /// Two letters between blanks, or three, from the blank in column 13 on; a contact's only there.
    static FamilyBits codesIn(const char16_t* line, const LineLook& seen) {
        const LineBits one = seen.blanks.ahead(1);
        const LineBits three = seen.blanks.ahead(3);
        const LineBits four = seen.blanks.ahead(4);
        const std::uint64_t low = ~std::uint64_t{0} << 12;
        const LineBits candidates{seen.blanks.low & ~one.low & (three.low | four.low) & low,
                                  seen.blanks.high & ~one.high & (three.high | four.high)};
        FamilyBits codes = 0;
        candidates.forEach([&](unsigned at) {
            if (at + 3 < seen.end) codes |= codeAt(line + at, at, seen.end);
        });
        return codes;
    }

    static FamilyBits codeAt(const char16_t* blank, std::size_t index, std::size_t end) {
        const std::uint8_t family = tagTable.familyAt(blank);
        if (family == noFamily) return 0;
        if (family == indexOf(FrequentFlyer)) return index + 4 < end && blank[4] == u' ' ? bit(FrequentFlyer) : 0;
        if (family != indexOf(Contact)) return bit(family);
        return index == 12 && blank[-1] == u' ' && blank[4] == u' ' ? bit(Contact) : 0;
    }

    /// The same in a joined text, which begins after the blank in column 13.
    static FamilyBits codesInText(View text) {
        FamilyBits codes = 0;
        for (std::size_t i = 0; i + 3 < text.size(); ++i) {
            if (text[i] == u' ' && text[i + 3] == u' ') codes |= codeAt(text.data() + i, i + 13, text.size() + 13);
            if (text[i] == u' ' && text[i + 1] == u'F') codes |= codeAt(text.data() + i, i + 13, text.size() + 13);
        }
        return codes;
    }

    void storeTransferable(std::uint8_t family, const char16_t* line, View text) {
        const View detail = trimmedFrom(text, 4);
        text = trimmedFrom(text, 0);
        if (family == indexOf(FrequentFlyer)) {
            text = text.substr(0, text.find(u"    "));
            if constexpr (exact) result_.flyers.push_back({String(part(text, 4, 2)), String(trimmedFrom(text, 7))});
        } else if (exact && family == indexOf(ServiceRequest)) {
            splitRequest(text);
        } else if (exact && family == indexOf(RemarkConf)) {
            result_.remarkDetails.emplace_back(detail);
        }
        push(family, leftTrimmed(line + 5, line + 8), text);
    }

    static View part(View text, std::size_t index, std::size_t count) {
        return index < text.size() ? text.substr(index, count) : View();
    }

    static View trimmedFrom(View text, std::size_t index) {
        return index < text.size() ? leftTrimmed(text.data() + index, text.data() + text.size()) : View();
    }

    void splitRequest(View text) {
        View code = part(text, 4, 4);
        if (code.starts_with(u'*')) code = part(text, 5, 4);
        typename Scanned<String>::RequestParts parts;
        parts.code = code;
        if (const std::size_t dash = text.find(u'-'); dash != View::npos) parts.freeText = trimmedFrom(text, dash + 1);
        if (code == u"FQTV") {
            parts.carrier = part(text, 8, 2);
            parts.account = trimmedFrom(text, 11);
        }
        result_.requests.push_back(std::move(parts));
    }

    /// The notes are the last section.
    const char16_t* readNotes(const char16_t* line) {
        for (; line != end_; line += lineUnits) {
            const char16_t* const end = textEndOf(line);
            if (exact ? isOver_ || sectionsOver_ : line[0] == u'>' || line[0] == u'E') break;
            const int number = static_cast<int>(result_.notes.size()) + 1;
            result_.notes.push_back({number, String(View(line, 2)), String(leftTrimmed(line + 2, end))});
        }
        return end_;
    }

    void push(std::uint8_t family, View number, View text) {
        auto& items = result_.families[family];
        if (items.capacity() == 0) items.reserve(8);
        items.emplace_back(number, text);
    }

    Scanned<String>& result_;
    const char16_t* begin_;
    const char16_t* end_;        ///< of the whole lines; the display's end is in the piece after them, if nowhere else
    bool isOver_ = false;        ///< the line that ends the display was read
    bool sectionsOver_ = false;  ///< a prompt inside a line: the section goes on, but no other one begins
    bool ruled_ = false;         ///< a rule or title above the transferable section
    unsigned opened_ = 0;        ///< titles seen
};

}  // namespace

template <Depth depth, class String>
void scanLean(View display, Scanned<String>& result) {
    LeanScanner<depth, String>(display, result).run();
}

template void scanLean<Depth::Elements>(View, ScannedViews&);
template void scanLean<Depth::Elements>(View, ScannedTexts&);
template void scanLean<Depth::Everything>(View, ScannedViews&);
template void scanLean<Depth::Everything>(View, ScannedTexts&);

}  // namespace vantro::bench
