#include "profile_oracle.h"

// The scan of the whole transferable section:
//
//            1         2
//   12345678901234567890123456
//   S      1     RM WINDOW SEAT PREFERRED            kind letter, number in 6-8, text from 14
//                    WRAPPED TEXT                    17 blanks, text from 18, belongs to the line above

namespace oracle {

namespace {

struct Selected {
    std::vector<Text> entries;
    bool kindS = false;
    bool kindA = false;
};

struct Element {
    Text kind;
    Text number;
    Text text;
};

Selected readSelection(std::vector<Text>* selection) {
    Selected selected;
    if (selection == nullptr) {
        return selected;
    }
    for (Text& wanted : *selection) {
        wanted = upperCase(wanted);
        const Text start = mid(wanted, 1, 3);
        if (start == u"S  ") {
            selected.kindS = true;
            wanted = trimmed(mid(wanted, 2));
        } else if (start == u"A  ") {
            selected.kindA = true;
            wanted = trimmed(mid(wanted, 2));
        }
    }
    selected.entries = *selection;
    return selected;
}

bool isTaken(const Element& element, const Selected& selected, const Text& qualifier) {
    bool candidate = !selected.kindS && !selected.kindA;
    if (element.kind == u"S" && selected.kindS) {
        candidate = true;
    }
    if (element.kind == u"A" && selected.kindA) {
        candidate = true;
    }
    if (!candidate) {
        return false;
    }
    if (!qualifier.empty() && textField(element.text, 1, u" ") != qualifier) {
        return false;
    }
    const Text upper = upperCase(element.text);
    for (const Text& wanted : selected.entries) {
        if (mid(upper, 1, static_cast<int>(wanted.size())) == wanted) {
            return true;
        }
    }
    return false;
}

// The line number of the section's header; negative when the display ends before it.
int headerLine(const Text& display) {
    int n = 0;
    while (true) {
        const Text line = screenLine(display, n);
        if (found(line, u">") > 0 || found(line, u"END OF DISPLAY") > 0) {
            return -1;
        }
        if (found(line, u"------- PNR TRANSFERABLE DATA") > 0) {
            return n;
        }
        n = add16(n, 1);
    }
}

}  // namespace

void scanTransferable(const Text& display, std::vector<Text>* selection, const Text& qualifier,
                      std::vector<Text>& output) {
    const Selected selected = readSelection(selection);
    int n = headerLine(display);
    if (n < 0) {
        return;
    }
    bool open = false;
    Element element;
    while (true) {
        n = add16(n, 1);
        const Text line = screenLine(display, n);
        const bool ends = found(line, u">") > 0 || found(line, u"END OF DISPLAY") > 0 || mid(line, 1, 6) == u"------";
        if (!ends && open && mid(line, 1, 17) == Text(17, u' ')) {
            element.text = element.text + trimmed(mid(line, 18));
            continue;
        }
        // The element above is complete.
        if (open && isTaken(element, selected, qualifier)) {
            output.push_back(element.number);
        }
        open = false;
        if (ends) {
            return;
        }
        const Text kind = mid(line, 1, 1);
        if (kind == u"S" || kind == u"A") {
            open = true;
            element.kind = kind;
            element.number = trimmed(mid(line, 6, 3));
            element.text = trimmed(mid(line, 14));
        }
    }
}

}  // namespace oracle
