#include "whole_profile/scanner.h"

#include "common/lines.h"
#include "whole_profile/line_tags.h"

#include <bit>
#include <type_traits>

namespace vantro::bench {

namespace {

/// A line, fetched and searched for marks once.
struct Line {
    View raw;
    View text;  ///< without trailing blanks
    View core;  ///< without blanks at both ends
    Marks marks;
    Tags tags;
    std::size_t number = 0;
    bool exists = false;
};

template <class String>
class ProfileScanner {
public:
    ProfileScanner(View display, Scanned<String>& result)
        : display_(withoutHostLine(display)), result_(result), count_(lineCount(display_)) {}

    void run() {
        readFirstLines();
        next_ = fetch(0);
        while (advance()) {
            if (line_.marks.prompt || line_.marks.end) break;
            readLine();
        }
    }

private:
    static constexpr std::size_t lineWidth = 80;

    static View withoutHostLine(View display) {
        const View second = trimmed(screenLine(display, 1));
        return second.starts_with(u"4505") || second.starts_with(u"PF24") ? display.substr(lineWidth) : display;
    }

    Line fetch(std::size_t number) {
        if (number >= count_) return {};
        Line line;
        line.raw = screenLine(display_, number);
        line.text = rightTrimmed(line.raw);
        line.core = leftTrimmed(line.text);
        line.number = number;
        line.exists = true;
        const Sweep seen = sweepLine(display_, number);
        if (seen.mayContainMark) line.marks = marksOf(line.text);
        if (seen.slashes != 0) readSlashes(line, seen.slashes);
        return line;
    }

    void readSlashes(Line& line, unsigned left) {
        const std::size_t indent = line.text.size() - line.core.size();
        std::size_t slash = line.core.size() > 6 && line.core[6] == u'/' ? 6 : findUnit(line.core, u'/');
        for (; left > 0 && slash != View::npos; --left) {
            line.tags.add(line.core, slash);
            readNumberedHead(line, slash + indent);
            if (left > 1) slash = findUnit(line.core, u'/', slash + 1);
        }
    }

    bool advance() {
        line_ = next_;
        next_ = fetch(line_.number + 1);
        return line_.exists;
    }

    void readFirstLines() {
        const View first = trimmed(screenLine(display_, 1));
        const bool hostLine = first.find(u"PF24 REQST UMSG") != View::npos || first.find(u"4505") != View::npos;
        const View locatorLine = first.empty() || hostLine ? trimmed(screenLine(display_, 2)) : first;
        result_.recordLocator =
            trimmed(locatorLine.substr(locatorLine.size() - std::min<std::size_t>(6, locatorLine.size())));
        readName();
        readOffice();
    }

    void readName() {
        for (std::size_t n = 1; n <= 20; ++n) {
            const View line = screenLine(display_, n);
            std::size_t m = findUnit(line, u'M', 2);
            while (m != View::npos && line.substr(m - 2, 4) != u" NM ") m = findUnit(line, u'M', m + 1);
            if (m == View::npos) continue;
            result_.name = trimmed(line.substr(m + 2));
            if (!result_.name.empty()) return;
            break;
        }
        for (std::size_t n = 1; n <= 10; ++n) {
            const View line = screenLine(display_, n);
            if (!line.starts_with(u"*C*") && line.find(u"*C*") == View::npos) continue;
            result_.name = trimmed(from(line, 3, 35));
            return;
        }
    }

    void readOffice() {
        for (std::size_t n = 1; n <= 6; ++n) {
            const View line = trimmed(screenLine(display_, n));
            const View mark = line.substr(0, line.find(u' '));
            if (mark != u"*C*" && mark != u"*T*") continue;
            const View rule = trimmed(screenLine(display_, n + 1));
            if (!rule.starts_with(u"-----")) continue;
            const View office = trimmed(rule.substr(rule.size() - std::min<std::size_t>(9, rule.size())));
            if (office.size() == 9) result_.officeIdentifier = office;
            return;
        }
    }

    /// Company name, PIN and PSL may be on any line before the end of the display.
    void readNumberedHead(const Line& line, std::size_t slash) {
        if ((hasCompany_ && hasPin_ && hasPsl_) || slash < 3 || line.marks.prompt || line.marks.end) return;
        const View tag = slice(line.text, slash - 3, 3);
        if (tag[0] != u'P') return;
        if (tag == u"PCN" && !hasCompany_ && line.number >= 1 && slash >= 5) readCompany(line, slash);
        if (tag == u"PIN" && !hasPin_ && slash >= 5) readPin(line);
        if (tag == u"PSL" && !hasPsl_) readPsl(line);
    }

    void readPin(const Line& line) {
        const View cut = trimmed(from(line.text, 2));
        const std::size_t p = cut.find(u'/');
        result_.pin.text = trimmed(cut.substr(p + 1));
        if (p >= 4) result_.pin.number = trimmed(cut.substr(0, 2));
        hasPin_ = true;
    }

    void readPsl(const Line& line) {
        result_.psl.emplace();
        result_.psl->text = trimmed(line.text.substr(line.text.find(u'/') + 1));
        result_.psl->number = trimmed(line.text.substr(0, 9));
        hasPsl_ = true;
    }

    void readCompany(const Line& line, std::size_t slash) {
        if (slash + 1 >= line.text.size() || line.text[slash + 1] != u' ') return;
        const View cut = trimmed(from(line.text, 2));
        const std::size_t p = cut.find(u'/');
        const bool brokenWord = line.text.size() == 64;
        std::u16string name(trimmed(cut.substr(p + 1)));
        for (std::size_t n = line.number + 1; n < count_; ++n) {
            const View below = screenLine(display_, n);
            if (!beginsBlank(below, 14)) break;
            if (!brokenWord) name += u' ';
            name += trimmed(from(below, p + 1));
        }
        result_.companyNumber.reset();
        if (p > 3) result_.companyNumber = trimmed(cut.substr(0, 2));
        joined_.assign(trimmed(name));
        result_.companyName = sealed();
        hasCompany_ = true;
    }

    void readLine() {
        if (inNotes_) {
            ++noteNumber_;
            result_.notes.push_back({noteNumber_, String(from(line_.raw, 0, 2)), String(trimmed(from(line_.raw, 2)))});
        } else if (line_.text.empty() && line_.number >= 1) {
            notesOver_ = true;
        }
        if (kind_ == SectionKind::Transferable && line_.text.starts_with(u"------")) kind_ = SectionKind::Head;
        if (!sawRule_ && !sawTransferable_ && line_.text.starts_with(u"------")) {
            sawRule_ = line_.text.find(u"------- PNR TRANSFERABLE DATA") == View::npos;
        }
        if (line_.marks.rule) {
            openSection();
            return;
        }
        switch (kind_) {
            case SectionKind::Whole: readWholeLine(); break;
            case SectionKind::Global: readGlobalLine(); break;
            case SectionKind::Policy: readPolicyLines(); break;
            case SectionKind::Transferable: readTransferableLine(); break;
            case SectionKind::Documents: readDocumentLine(); break;
            case SectionKind::Head:
            case SectionKind::Notes: break;
        }
    }

    void openSection() {
        kind_ = SectionKind::Head;
        inLoop_ = 0;
        const std::size_t rule = line_.text.find(u"------- ");
        if (rule == View::npos) return;
        const View shown = line_.text.substr(rule + 8);
        for (const SectionTitle& title : titles) {
            if (!shown.starts_with(title.header)) continue;
            if (opened_ & (1U << (&title - titles))) return;
            opened_ |= 1U << (&title - titles);
            kind_ = title.kind;
            families_ = title.families;
            globalLeft_ = 11;
            if (kind_ == SectionKind::Notes) inNotes_ = line_.number >= 1 && !notesOver_;
            if (kind_ == SectionKind::Transferable) sawTransferable_ = true;
            if (kind_ == SectionKind::Documents && line_.number == 0) kind_ = SectionKind::Head;
            return;
        }
    }

    /// The line and its continuation lines, which are skipped afterwards.
    View join(View first, bool colonJoining) {
        if (!isContinuation()) return first;
        joined_.assign(first);
        while (isContinuation()) {
            const View rest = next_.core;
            if (colonJoining && rest.size() > 2 && rest[2] == u':') joined_ += u' ';
            joined_ += rest;
            advance();
        }
        return sealed();
    }

    /// The joined line: owned texts are cut out of it at once, views need a copy that stays.
    View sealed() {
        if constexpr (std::is_same_v<String, View>)
            return result_.joined.emplace_front(joined_);
        else
            return joined_;
    }

    bool isContinuation() const {
        return next_.exists && !next_.marks.prompt && !next_.marks.end && beginsBlank(next_.raw, 9);
    }

    void readWholeLine() {
        const View line = line_.core;
        const bool isPriority = families_ == bit(Family::PPR);
        if (inLoop_ == 0) inLoop_ = line_.tags.anywhere & families_;
        if (inLoop_ == 0) return;
        store(isPriority ? Family::PPR : Family::PPS, join(line, !isPriority), 7);
    }

    void readGlobalLine() {
        const View line = line_.core;
        const bool isFirst = globalLeft_ == 11;
        if (isFirst ? (line_.tags.fromThird & families_) == 0 : !fiveBlanks(line, 2)) {
            kind_ = SectionKind::Head;
            return;
        }
        store(Family::PGL, line, isFirst ? 7 : 6);
        if (--globalLeft_ == 0) kind_ = SectionKind::Head;
    }

    /// One element line with its continuation lines, for all families of the section. A family that is collecting takes
    /// the line unless it has another family's prefix; one that is still searching starts with its own prefix.
    void readPolicyLines() {
        const View first = line_.core;
        const Tags firstTags = line_.tags;
        FamilyBits active = inLoop_ | ((firstTags.fromThird | (firstTags.anywhere & bit(Family::PHI))) & families_);
        const bool wraps = isContinuation();
        if (active == 0) return;
        const View whole = join(first, true);
        const FamilyBits own = wraps ? tagsOf(whole).fromThird : firstTags.fromThird;
        FamilyBits blank = 0;
        if (isBlank(from(whole, 2, 5))) blank = isBlank(from(whole, 2, 6)) ? families_ : families_ & ~bit(Family::PPC);
        active &= own | blank;
        inLoop_ = active;
        for (; active != 0; active &= active - 1) {
            store(static_cast<Family>(std::countr_zero(active)), whole, 7);
        }
    }

    void readDocumentLine() {
        const View line = line_.core;
        const bool indented = fiveBlanks(line, 1) || fiveBlanks(line, 2);
        const FamilyBits tags = line_.tags.anywhere & families_;
        if (inLoop_ != 0 && !indented) {
            families_ &= ~inLoop_;
            inLoop_ = 0;
        }
        inLoop_ |= tags & families_;
        for (FamilyBits left = inLoop_; left != 0; left &= left - 1) {
            const FamilyBits family = left & (~left + 1);
            const std::size_t at = (tags & family) ? line.find(u'/') : line.find(u"     ");
            store(static_cast<Family>(std::countr_zero(family)), line, at + 1);
        }
    }

    /// Each line is tested together with the line after it, which is then tested by itself.
    void readTransferableLine() {
        const bool wraps = next_.exists && next_.raw.size() >= 17 && beginsBlank(next_.raw, 17);
        if (!wraps) {
            storeTransferable(line_.text, codesOf(line_.text));
            return;
        }
        joined_.assign(line_.text).append(next_.core);
        storeJoined(codesOf(joined_) & ~bit(Family::Remark));
        const View third = screenLine(display_, line_.number + 2);
        if (third.size() >= 17 && beginsBlank(third, 17)) joined_.append(trimmed(third));
        storeJoined(codesOf(joined_) & bit(Family::Remark));
    }

    void storeJoined(FamilyBits codes) {
        if (codes != 0) storeTransferable(sealed(), codes);
    }

    static FamilyBits codesOf(View line) {
        FamilyBits codes = 0;
        if (from(line, 11, 6) == u"  AP  ") codes |= bit(Family::Contact);
        for (std::size_t i = 12; i + 3 < line.size(); ++i) {
            if (line[i] != u' ') continue;
            if (line[i + 3] == u' ')
                codes |= familyOfCode(line[i + 1], line[i + 2]);
            else if (line[i + 1] == u'F' && line.substr(i, 5) == u" FFN ")
                codes |= bit(Family::FrequentFlyer);
        }
        return codes;
    }

    static FamilyBits familyOfCode(char16_t a, char16_t b) {
        switch (tag(u' ', a, b)) {
            case tag(u' ', u'R', u'M'): return bit(Family::Remark);
            case tag(u' ', u'O', u'S'): return bit(Family::OtherService);
            case tag(u' ', u'S', u'R'): return bit(Family::ServiceRequest);
            case tag(u' ', u'S', u'T'): return bit(Family::Seat);
            case tag(u' ', u'R', u'C'): return bit(Family::RemarkConf);
            default: return 0;
        }
    }

    void storeTransferable(View line, FamilyBits codes) {
        if (sawRule_) codes &= ~bit(Family::RemarkConf);
        for (; codes != 0; codes &= codes - 1) storeOne(static_cast<Family>(std::countr_zero(codes)), line);
    }

    void storeOne(Family family, View line) {
        View text = trimmed(from(line, 13));
        if (family == Family::FrequentFlyer) {
            if (const std::size_t gap = text.find(u"    "); gap != View::npos) text = text.substr(0, gap);
            result_.flyers.push_back({String(from(text, 4, 2)), String(trimmed(from(text, 7)))});
        } else if (family == Family::ServiceRequest) {
            splitRequest(text);
        } else if (family == Family::RemarkConf) {
            result_.remarkDetails.push_back(String(trimmed(from(text, 4))));
        }
        push(family, trimmed(from(line, 5, 3)), text);
    }

    void splitRequest(View text) {
        View code = from(text, 4, 4);
        if (code.starts_with(u'*')) code = from(text, 5, 4);
        typename Scanned<String>::RequestParts parts;
        parts.code = code;
        if (const std::size_t dash = text.find(u'-'); dash != View::npos)
            parts.freeText = trimmed(text.substr(dash + 1));
        if (code == u"FQTV") {
            parts.carrier = from(text, 8, 2);
            parts.account = trimmed(from(text, 11));
        }
        result_.requests.push_back(std::move(parts));
    }

    void store(Family family, View line, std::size_t textAt) {
        push(family, trimmed(from(line, 0, 2)), trimmed(from(line, textAt)));
    }

    void push(Family family, View number, View text) {
        result_.families[indexOf(family)].push_back({String(number), String(text)});
    }

    View display_;
    Scanned<String>& result_;
    std::size_t count_;
    Line line_;
    Line next_;
    SectionKind kind_ = SectionKind::Head;
    FamilyBits families_ = 0;
    FamilyBits inLoop_ = 0;  ///< families that are collecting
    unsigned opened_ = 0;    ///< titles seen
    int globalLeft_ = 0;
    int noteNumber_ = 0;
    bool inNotes_ = false;
    bool notesOver_ = false;
    bool hasCompany_ = false;
    bool hasPin_ = false;
    bool hasPsl_ = false;
    bool sawRule_ = false;  ///< a section before the transferable one: there are no confidential remarks then
    bool sawTransferable_ = false;
    std::u16string joined_;
};

}  // namespace

void scanProfile(View display, ScannedViews& result) { ProfileScanner<View>(display, result).run(); }

void scanProfile(View display, ScannedTexts& result) { ProfileScanner<std::u16string>(display, result).run(); }

}  // namespace vantro::bench
