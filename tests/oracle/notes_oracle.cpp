#include "notes_oracle.h"

//   ------- PROFILE NOTES ------------------------
//   A FIRST NOTE                                       qualifier in columns 1-2, text from column 3

namespace oracle {

namespace {

bool isKept(const Text& line, const Text& search, const Text& qualifier) {
    const bool searchOn = !search.empty();
    const bool qualifierOn = !qualifier.empty();
    if (searchOn && qualifierOn) {
        return mid(line, 1, 1) == qualifier && found(line, search) > 0;
    }
    if (qualifierOn) {
        return mid(line, 1, 1) == qualifier;
    }
    if (searchOn) {
        return found(line, search) > 0;
    }
    return true;
}

}  // namespace

NotesOracle::NotesOracle() {
    lists["strNoteText"] = {Text()};
    lists["strNoteNumber"] = {Text()};
    lists["strNoteQualifier"] = {Text()};
}

void NotesOracle::store(const Text& line, int noteNumber, int count) {
    const std::size_t index = static_cast<std::size_t>(count);
    for (auto& list : lists) {
        list.second.resize(index + 1);
    }
    lists["strNoteText"][index] = trimmed(mid(line, 3));
    lists["strNoteNumber"][index] = decimal(noteNumber);
    lists["strNoteQualifier"][index] = mid(line, 1, 2);
}

int NotesOracle::scan(const Text& display, const Text& search, const Text& qualifier) {
    for (auto& list : lists) {
        list.second.resize(1);
    }
    int count = 0;
    int n = 0;
    int noteNumber = 0;
    Text line;
    if (display.empty()) {
        return 0;
    }
    while (true) {
        if (found(line, u"END OF DISPLAY") > 0) {
            return count;
        }
        n = add16(n, 1);
        line = rightTrimmed(screenLine(display, n));
        if (line.empty() || found(line, u">") > 0) {
            return count;
        }
        if (found(line, u"------- PROFILE NOTES") == 0) {
            continue;
        }
        while (true) {
            n = add16(n, 1);
            noteNumber = add16(noteNumber, 1);
            line = screenLine(display, n);
            if (found(line, u"END OF DISPLAY") > 0 || found(line, u">") > 0) {
                break;
            }
            if (isKept(line, search, qualifier)) {
                count = add16(count, 1);
                store(line, noteNumber, count);
            }
        }
    }
}

int NotesOracle::ProfileNotesElementsCount(const Text& display, const Text& search, const Text& qualifier) {
    return raising(5505, [&] { return scan(display, search, qualifier); });
}

Outcome NotesOracle::profileElements(const Text& display, Collection& request) {
    const Text prefix = itemText(request.item("strKeyPrefix"));
    const Text search = itemText(request.item("strSearchString"));
    const Text qualifier = itemText(request.item("strSearchQualifier"));
    Text working = display;
    const Text start = mid(trimmed(screenLine(working, 1)), 1, 4);
    if (start == u"4505" || start == u"PF24") {
        working = mid(working, 81);
    }
    if (prefix.empty()) {
        throw Failure{5065};
    }
    if (trimmed(prefix) != u"ProfileNotes") {
        return Outcome{true};
    }
    raising(5500, [&] {
        ProfileNotesElementsCount(working, search, qualifier);
        request.add("strKeyElement()", lists["strNoteText"]);
        request.add("strKeyElementNr()", lists["strNoteNumber"]);
        request.add("strKeyQualifier()", lists["strNoteQualifier"]);
    });
    return Outcome{false};
}

}  // namespace oracle
