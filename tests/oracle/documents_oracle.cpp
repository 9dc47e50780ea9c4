#include "profile_oracle.h"

// Documents and follow-up: the first element of a family has the prefix, those after it are indented.
//
//   ------- DOCUMENTS ----------------------------
//   1 PAS/GB-123456789
//   2     FR-987654321                                 five blanks after a one- or two-digit number

namespace oracle {

namespace {

const Text fiveBlanks(5, u' ');

void elementRun(const Text& display, const Text& prefix, Text line, int& n, int& count, std::vector<Text>& texts,
                std::vector<Text>& numbers) {
    bool more = true;
    while (more) {
        count = add16(count, 1);
        const std::size_t index = static_cast<std::size_t>(count);
        texts.resize(index + 1);
        numbers.resize(index + 1);
        if (found(line, prefix) > 0) {
            const int p = found(line, u"/");
            texts[index] = trimmed(mid(line, p + 1));
        } else {
            const int q = found(line, fiveBlanks);
            texts[index] = trimmed(mid(line, q + 1));
        }
        numbers[index] = trimmed(mid(line, 1, 2));
        n = add16(n, 1);
        line = trimmed(screenLine(display, n));
        more = mid(line, 2, 5) == fiveBlanks || mid(line, 3, 5) == fiveBlanks;
    }
}

}  // namespace

int ProfileOracle::documents(const Text& display, const Text& header, const std::string& family, int number) {
    return raising(number, [&] {
        const Text prefix = wide(family + "/");
        std::vector<Text>& texts = lists["str" + family + "Text"];
        std::vector<Text>& numbers = lists["str" + family + "Number"];
        cutBack(family);
        if (display.empty()) {
            return 0;
        }
        int count = 0;
        int n = 0;
        bool done = false;
        while (!done) {
            // Line 0 is never read.
            n = add16(n, 1);
            const Text outer = rightTrimmed(screenLine(display, n));
            if (found(outer, u">") > 0 || found(outer, u"END OF DISPLAY") > 0) {
                done = true;
            }
            if (found(outer, header) == 0) {
                continue;
            }
            do {
                n = add16(n, 1);
                const Text line = trimmed(screenLine(display, n));
                if (found(line, prefix) > 0) {
                    elementRun(display, prefix, line, n, count, texts, numbers);
                    done = true;
                } else if (mid(line, 1, 5) == u"-----") {
                    done = true;
                } else if (found(line, u">") > 0 || found(line, u"END OF DISPLAY") > 0) {
                    done = true;
                }
            } while (!done);
        }
        return count;
    });
}

int ProfileOracle::PASElementsCount(const Text& display) {
    return documents(display, u"------- DOCUMENTS", "PAS", 5287);
}

int ProfileOracle::PIVElementsCount(const Text& display) {
    return documents(display, u"------- DOCUMENTS", "PIV", 5288);
}

int ProfileOracle::PCEElementsCount(const Text& display) {
    return documents(display, u"------- DOCUMENTS", "PCE", 5289);
}

int ProfileOracle::PIDElementsCount(const Text& display) {
    return documents(display, u"------- DOCUMENTS", "PID", 5290);
}

int ProfileOracle::PFOElementsCount(const Text& display) {
    return documents(display, u"------- FOLLOW UP", "PFO", 5291);
}

}  // namespace oracle
