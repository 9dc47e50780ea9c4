// The slow contender, a line-by-line scan: a class with a line counter that fetches each line as a new string, trims it
// into another, and lengthens the lists by one at a time.
#include "one_family/scanner.h"

namespace vantro::bench {

namespace {

using std::u16string;

u16string trim(const u16string& text, bool left) {
    const std::size_t last = text.find_last_not_of(u' ');
    if (last == u16string::npos) return {};
    const std::size_t first = left ? text.find_first_not_of(u' ') : 0;
    return text.substr(first, last + 1 - first);
}

u16string mid(const u16string& text, std::size_t position, std::size_t count = u16string::npos) {
    return position > text.size() ? u16string() : text.substr(position - 1, count);
}

bool contains(const u16string& text, std::u16string_view part, std::size_t position = 1) {
    return text.find(part, position - 1) != u16string::npos;
}

class LineByLineScan {
public:
    LineByLineScan(const FamilyRules& rules, const u16string& display) : rules_(rules), display_(display) {}

    std::vector<OwnedItem> run() {
        switch (rules_.kind) {
            case FamilyKind::Plain:
            case FamilyKind::ColonJoining: wholeSection(); break;
            case FamilyKind::GlobalSearch: globalSearch(); break;
            case FamilyKind::Policy: policy(); break;
            case FamilyKind::Document: documents(); break;
        }
        return std::move(items_);
    }

private:
    u16string screenLine(std::size_t number) const {
        return number * 80 < display_.size() ? display_.substr(number * 80, 80) : u16string();
    }

    u16string trimmedLine() const { return trim(screenLine(line_), true); }

    static bool endsDisplay(const u16string& text) { return contains(text, u">") || contains(text, u"END OF DISPLAY"); }

    static bool endsSection(const u16string& text) {
        return text.substr(0, 1) == u">" || contains(text, u"-------") || contains(text, u"END OF DISPLAY");
    }

    bool seekHeader() {
        for (;; ++line_) {
            const u16string text = trim(screenLine(line_), false);
            if (endsDisplay(text)) return false;
            if (contains(text, rules_.header)) return true;
        }
    }

    bool seekElement() {
        for (;;) {
            ++line_;
            const u16string text = trimmedLine();
            if (endsSection(text)) return false;
            if (contains(text, rules_.prefix, rules_.searchFrom + 1)) return true;
        }
    }

    u16string joined(u16string text) {
        for (;;) {
            const u16string next = screenLine(line_ + 1);
            if (!trim(mid(next, 1, 9), true).empty()) return text;
            if (text.substr(0, 1) == u">" || contains(text, u"END OF DISPLAY")) return text;
            const u16string rest = trim(next, true);
            if (rules_.kind != FamilyKind::Plain && mid(rest, 3, 1) == u":") text += u" ";
            text += rest;
            ++line_;
        }
    }

    void store(const u16string& text, std::size_t position) {
        items_.push_back({trim(mid(text, 1, 2), true), trim(mid(text, position), true)});
    }

    void wholeSection() {
        for (; seekHeader(); ++line_) {
            if (!seekElement()) continue;
            for (u16string text = trimmedLine(); !endsSection(text); ++line_, text = trimmedLine()) {
                store(joined(text), 8);
            }
            return;
        }
    }

    void policy() {
        if (!seekHeader()) return;
        while (seekElement()) {
            for (;; ++line_) {
                u16string text = trimmedLine();
                if (endsSection(text)) return;
                text = joined(text);
                const bool tagged = !trim(mid(text, 3, rules_.tagWidth), true).empty();
                if (tagged && !contains(text, rules_.prefix, 3)) break;
                store(text, 8);
            }
        }
    }

    void globalSearch() {
        for (; seekHeader(); ++line_) {
            ++line_;
            const u16string first = trimmedLine();
            if (!contains(first, rules_.prefix, 3)) continue;
            store(first, 8);
            const std::size_t last = line_ + 10;
            for (++line_; line_ <= last; ++line_) {
                const u16string text = trimmedLine();
                if (mid(text, 3, 5) != u"     ") return;
                store(text, 7);
            }
            return;
        }
    }

    void documents() {
        for (bool done = false; !done;) {
            ++line_;
            const u16string header = trim(screenLine(line_), false);
            done = endsDisplay(header);
            if (!contains(header, rules_.header)) continue;
            do {
                ++line_;
                const u16string text = trimmedLine();
                if (contains(text, rules_.prefix)) {
                    run(text);
                    done = true;
                } else {
                    done = done || text.substr(0, 5) == u"-----" || endsDisplay(text);
                }
            } while (!done);
        }
    }

    void run(u16string text) {
        do {
            store(text, text.find(contains(text, rules_.prefix) ? u"/" : u"     ") + 2);
            ++line_;
            text = trimmedLine();
        } while (mid(text, 2, 5) == u"     " || mid(text, 3, 5) == u"     ");
    }

    const FamilyRules& rules_;
    const u16string& display_;
    std::size_t line_ = 0;
    std::vector<OwnedItem> items_;
};

}  // namespace

std::vector<OwnedItem> scanLineByLine(const FamilyRules& rules, const std::u16string& display) {
    return LineByLineScan(rules, display).run();
}

}  // namespace vantro::bench
