#include "one_family/lean_family.h"

#include <algorithm>

namespace vantro::bench {

namespace {

template <Depth depth>
class FamilyScanner {
public:
    FamilyScanner(const FamilyRules& rules, View display, FamilyItems& result)
        : rules_(rules),
          result_(result),
          begin_(display.data()),
          end_(begin_ + display.size() / lineUnits * lineUnits) {}

    void run() {
        const char16_t* line = firstLine();
        while (line != end_ && line[0] == u' ') line = readLine(line);
    }

private:
    static constexpr bool exact = depth == Depth::Everything;

    /// The line below the title; the end when the display ends before it.
    const char16_t* firstLine() const {
        for (const char16_t* line = begin_; line != end_; line += lineUnits) {
            const Marks marks = marksOf(line);
            if (!marks.any()) continue;
            if (marks.prompt || (marks.mayEnd && contains(line, endOfDisplay))) break;
            if (marks.rule && std::memcmp(line, rules_.title.data(), rules_.title.size() * sizeof(char16_t)) == 0) {
                return line + lineUnits;
            }
        }
        return end_;
    }

    static bool contains(const char16_t* line, View text) { return View(line, lineUnits).find(text) != View::npos; }

    /// Returns the next line to read; the end when no further one can be the family's.
    const char16_t* readLine(const char16_t* line) {
        if constexpr (exact) {
            const LineLook seen = lookAt(line);
            if (seen.mayEndDisplay && endsSection(line)) return end_;
            return readTagged(line, containsTag(line, seen.slashes), seen.end);
        }
        return readTagged(line, fourUnits(line + 5) == tag_, 0);
    }

    /// The exact scanner finds the tag anywhere: free text may contain one.
    bool containsTag(const char16_t* line, LineBits slashes) const {
        bool found = false;
        slashes.forEach([&](unsigned slash) { found = found || (slash >= 3 && fourUnits(line + slash - 3) == tag_); });
        return found;
    }

    const char16_t* readTagged(const char16_t* line, bool isOwn, std::size_t end) {
        const char16_t* const next = line + lineUnits;
        if (line[3] == u' ') return next;  // the continuation of another family's element
        const bool follows = fourUnits(line + 5) == fourBlanks;
        // Six blanks after a one-digit number are one too few for PPC only.
        const bool goesOn = follows && (rules_.family != Family::PPC || line[2] != u' ');
        if (rules_.kind >= Kind::Global && collecting_ && !follows) return end_;
        collecting_ = collecting_ || isOwn;
        if (rules_.kind >= Kind::Policy && !isOwn && !goesOn) collecting_ = false;
        if (!collecting_) return next;
        if (end == 0) end = textEnd(line);
        const bool afterSlash = exact && rules_.kind == Kind::Separate && isOwn;
        const char16_t* const slash = afterSlash ? std::find(line, line + end, u'/') + 1 : nullptr;
        return store(line, next, afterSlash ? leftTrimmed(slash, line + end) : textOf(line, line + end));
    }

    static bool endsSection(const char16_t* line) {
        return contains(line, endOfDisplay) || leftTrimmed(line, line + lineUnits)[0] == u'>';
    }

    const char16_t* store(const char16_t* line, const char16_t* next, View text) {
        if (rules_.kind <= Kind::Policy) {
            for (; next != end_ && nineBlanks(next) && !(exact && lookAt(next).mayEndDisplay && endsSection(next));
                 next += lineUnits) {
                const View more = leftTrimmed(next + 9, next + textEnd(next));
                const bool colon = rules_.kind != Kind::Whole && more.size() > 2 && more[2] == u':';
                text = joinedIn(result_.joined, text, View(u" ", colon ? 1 : 0), more);
            }
        }
        result_.items.push_back({numberOf(line), text});
        return exact && rules_.kind == Kind::Global && result_.items.size() == 11 ? end_ : next;
    }

    const FamilyRules& rules_;
    std::uint64_t tag_ = fourUnits(rules_.tag);
    FamilyItems& result_;
    const char16_t* begin_;
    const char16_t* end_;  ///< of the whole lines; the display's end is in the piece after them, if nowhere else
    bool collecting_ = false;
};

}  // namespace

template <Depth depth>
void scanFamily(const FamilyRules& rules, View display, FamilyItems& result) {
    FamilyScanner<depth>(rules, display, result).run();
}

template void scanFamily<Depth::Elements>(const FamilyRules&, View, FamilyItems&);
template void scanFamily<Depth::Everything>(const FamilyRules&, View, FamilyItems&);

}  // namespace vantro::bench
