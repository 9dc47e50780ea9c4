#include "profile_oracle.h"

// Readers of single lines: the name, the locator, the office, the company name, the PIN and the PSL line.

namespace oracle {

Text profileName(const Text& display) {
    Text name;
    for (int n = 1; n <= 20; ++n) {
        const Text line = screenLine(display, n);
        const int position = found(line, u" NM ");
        if (position > 0) {
            name = trimmed(mid(line, position + 4));
            break;
        }
    }
    if (!name.empty()) {
        return name;
    }
    for (int n = 1; n <= 10; ++n) {
        const Text line = screenLine(display, n);
        if (found(line, u"*C*") > 0) {
            return trimmed(mid(line, 4, 35));
        }
    }
    return name;
}

Text recordLocator(const Text& display) {
    const Text first = trimmed(screenLine(display, 1));
    if (!first.empty() && found(first, u"PF24 REQST UMSG") == 0 && found(first, u"4505") == 0) {
        return trimmed(right(first, 6));
    }
    const Text second = trimmed(screenLine(display, 2));
    return trimmed(right(second, 6));
}

Text officeIdentifier(const Text& display) {
    Text office;
    for (int n = 1; n <= 6; ++n) {
        const Text line = trimmed(screenLine(display, n));
        const Text mark = textField(line, 1, u" ");
        if (mark == u"*C*" || mark == u"*T*") {
            const Text under = trimmed(screenLine(display, add16(n, 1)));
            if (mid(under, 1, 5) == u"-----") {
                office = trimmed(right(under, 9));
                break;
            }
        }
    }
    if (office.size() != 9) {
        return Text();
    }
    return office;
}

namespace {

// The element, extended by the lines that continue it, each from column p + 1.
Text withContinuations(const Text& display, int companyLine, int p, bool fullLine, Text element) {
    int k = 1;
    while (true) {
        const Text line = screenLine(display, add16(companyLine, k));
        if (!trimmed(mid(line, 1, 14)).empty()) {
            return element;
        }
        if (fullLine) {
            element += trimmed(mid(line, p + 1));
        } else {
            element += u" " + trimmed(mid(line, p + 1));
        }
        k = add16(k, 1);
    }
}

}  // namespace

// Number, one blank and element; "X" means an element without a number.
Text companyNameLine(const Text& display) {
    int n = 1;
    while (true) {
        const Text raw = screenLine(display, n);
        const bool fullLine = rightTrimmed(raw).size() == 64;
        if (found(raw, u"END OF DISPLAY") > 0 || found(raw, u">") > 0 || found(raw, u")>") > 0) {
            return Text();
        }
        const Text line = trimmed(mid(raw, 3));
        if (found(line, u"PCN/ ") == 0) {
            n = add16(n, 1);
            continue;
        }
        const int p = found(line, u"/");
        Text element = trimmed(mid(line, p + 1));
        element = withContinuations(display, n, p, fullLine, element);
        Text number = u"X";
        if (p > 4) {
            number = trimmed(mid(line, 1, 2));
        }
        return trimmed(number + u" " + element);
    }
}

Text pinLine(const Text& display, Text& number) {
    int n = 0;
    while (true) {
        const Text raw = screenLine(display, n);
        if (found(raw, u")>") > 0 || found(raw, u">") > 0 || found(raw, u"END OF DISPLAY") > 0) {
            return Text();
        }
        const Text line = trimmed(mid(raw, 3));
        if (found(line, u"PIN/") == 0) {
            n = add16(n, 1);
            continue;
        }
        const int p = found(line, u"/");
        const Text element = trimmed(mid(line, p + 1));
        if (p >= 5) {
            number = trimmed(mid(line, 1, 2));
        }
        return element;
    }
}

void pslLine(const Text& display, Collection& request) {
    if (display.empty()) {
        return;
    }
    int n = 0;
    while (true) {
        const Text line = rightTrimmed(screenLine(display, n));
        if (found(line, u">") > 0 || found(line, u"END OF DISPLAY") > 0) {
            return;
        }
        const int p = found(line, u"/");
        if (found(line, u"PSL/") > 0 && p > 0) {
            request.add("strKeyElement", trimmed(mid(line, p + 1)));
            request.add("strKeyElementNr", trimmed(mid(line, 1, 9)));
            return;
        }
        n = add16(n, 1);
    }
}

}  // namespace oracle
