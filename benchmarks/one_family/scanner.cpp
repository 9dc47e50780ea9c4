#include "one_family/scanner.h"

#include "common/lines.h"

namespace vantro::bench {

namespace {

class FamilyScanner {
public:
    FamilyScanner(const FamilyRules& rules, View display, FamilyItems& result)
        : rules_(rules), display_(display), result_(result), count_(lineCount(display)) {}

    void run() {
        switch (rules_.kind) {
            case FamilyKind::Plain:
            case FamilyKind::ColonJoining: return scanWholeSection();
            case FamilyKind::GlobalSearch: return scanGlobalSearch();
            case FamilyKind::Policy: return scanPolicy();
            case FamilyKind::Document: return scanDocuments();
        }
    }

private:
    View raw(std::size_t number) const { return screenLine(display_, number); }

    /// Fetches and trims a line; one sweep decides whether the line needs a closer look.
    void read(std::size_t number) {
        number_ = number;
        line_ = trimmed(raw(number));
        sweep_ = sweepLine(display_, number);
    }

    bool atEnd() const { return number_ >= count_; }

    /// Stops at the next line from `number` on that contains the header; false at the end of the display.
    bool seekHeader(std::size_t number) {
        for (; number < count_; ++number) {
            if (!sweepLine(display_, number).mayContainMark) continue;
            const View line = raw(number);
            const Marks marks = marksOf(line);
            if (marks.prompt || marks.end) return false;
            if (marks.rule && line.find(rules_.header) != View::npos) {
                number_ = number;
                return true;
            }
        }
        return false;
    }

    bool endsSection() const {
        return sweep_.mayContainMark && (line_.starts_with(u'>') || line_.find(sectionRule) != View::npos ||
                                         line_.find(endOfDisplay) != View::npos);
    }

    bool lineContainsPrefix(std::size_t index) const { return sweep_.slashes != 0 && containsPrefix(line_, index); }

    bool containsPrefix(View line, std::size_t index) const {
        for (std::size_t slash = findUnit(line, u'/', index + 3); slash != View::npos;
             slash = findUnit(line, u'/', slash + 1)) {
            if (slice(line, slash - 3, 4) == rules_.prefix) return true;
        }
        return false;
    }

    /// The line joined with its continuation lines; `number_` moves past them.
    View join() {
        if (number_ + 1 >= count_ || !beginsBlank(raw(number_ + 1), 9)) return line_;
        std::u16string joined(line_);
        while (number_ + 1 < count_ && beginsBlank(raw(number_ + 1), 9)) {
            const View rest = trimmed(raw(++number_));
            if (rules_.kind != FamilyKind::Plain && rest.size() > 2 && rest[2] == u':') joined += u' ';
            joined += rest;
        }
        return result_.joined.emplace_front(std::move(joined));
    }

    void store(View element, std::size_t textAt) {
        result_.items.push_back({trimmed(from(element, 0, 2)), trimmed(from(element, textAt))});
    }

    void scanWholeSection() {
        for (bool found = seekHeader(0); found; found = seekHeader(number_ + 1)) {
            do {
                read(number_ + 1);
            } while (!atEnd() && !endsSection() && !lineContainsPrefix(0));
            if (atEnd() || endsSection()) continue;
            for (; !atEnd() && !endsSection(); read(number_ + 1)) store(join(), 7);
            return;
        }
    }

    void scanPolicy() {
        if (!seekHeader(0)) return;
        bool collecting = false;
        for (read(number_ + 1); !atEnd() && !endsSection(); read(number_ + 1)) {
            if (!collecting && !lineContainsPrefix(rules_.searchFrom)) continue;
            const View whole = join();
            collecting = isBlank(from(whole, 2, rules_.tagWidth)) || containsPrefix(whole, 2);
            if (collecting) store(whole, 7);
        }
    }

    void scanGlobalSearch() {
        for (bool found = seekHeader(0); found; found = seekHeader(number_ + 1)) {
            read(number_ + 1);
            if (!lineContainsPrefix(2)) continue;
            store(line_, 7);
            for (int i = 0; i < 10; ++i) {
                read(number_ + 1);
                if (!fiveBlanks(line_, 2)) return;
                store(line_, 6);
            }
            return;
        }
    }

    void scanDocuments() {
        if (!seekHeader(1)) return;
        for (read(number_ + 1); !atEnd(); read(number_ + 1)) {
            if (lineContainsPrefix(0)) {
                do {
                    const std::size_t at = lineContainsPrefix(0) ? findUnit(line_, u'/') : line_.find(u"     ");
                    store(line_, at + 1);
                    read(number_ + 1);
                } while (fiveBlanks(line_, 1) || fiveBlanks(line_, 2));
                return;
            }
            if (line_.starts_with(u"-----")) return;
            if (!sweep_.mayContainMark) continue;
            const Marks marks = marksOf(line_);
            if (marks.prompt || marks.end) return;
        }
    }

    const FamilyRules& rules_;
    View display_;
    FamilyItems& result_;
    std::size_t count_;
    std::size_t number_ = 0;
    View line_;
    Sweep sweep_;
};

}  // namespace

void scanFamily(const FamilyRules& rules, View display, FamilyItems& result) {
    FamilyScanner(rules, display, result).run();
}

}  // namespace vantro::bench
