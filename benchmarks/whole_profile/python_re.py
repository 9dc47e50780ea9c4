"""All elements of a display with Python's re: one expression, matched against each line.

Usage: python_re.py DISPLAYS ELEMENTS. Checks every display against what parseProfile finds in it, then prints the best
and the median time of a display over five passes, in seconds.
"""

import re
import statistics
import sys
import time

END = re.compile(r">|END OF DISPLAY")
LINE = re.compile(
    r"------- ([A-Z][A-Z -]*[A-Z])"
    r"| {0,3}(\d{1,2}) (?: {4})?(?:([A-Z]{3})/)? *(.*[^ ])?"
    r"|[SA] +(\d{1,3}) +((RM|AP|OS|FFN|SR|ST|RC)(?: .*[^ ])?)"
    r"| {9,}([^ ].*[^ ]|[^ ])"
    r"|\*([CT])\* (.*)([^ ]{6}) *$"
    r"|(-{5,}) .*([^ ]{9}) *$"
)

FAMILIES = (
    "PPR PGL PPS PHI PCI PPC PPH PPA PPK PPI PXC PXA PXK PSH PSC PPT PXT RM AP OS FFN SR ST RC PAS PIV PCE PID PFO"
).split()
SECTIONS = {
    "PRIORITY": "plain",
    "DOCUMENTS": "separate",
    "FOLLOW UP": "separate",
    "GLOBAL SEARCH": "separate",
    "PNR TRANSFERABLE DATA": "transferable",
    "PROFILE NOTES": "notes",
}


class Reader:
    """Puts the lines of one display together."""

    def __init__(self):
        self.name = self.locator = self.office = self.company_number = self.company = ""
        self.pin = ("", "")
        self.psl = ("-", "-")
        self.families = {family: [] for family in FAMILIES}
        self.notes = []
        self.section = "head"
        self.family = None
        self.target = None  # the list [number, text] that continuation lines go to
        self.joins_left = 0
        self.saw_rule = False
        self.broken_word = False

    def read(self, display):
        match = LINE.match
        end = END.search(display)
        for at in range(0, end.start() // 80 * 80 if end else len(display), 80):
            line = display[at : at + 80]
            found = match(line)
            if self.section == "notes" and not (found and found[1]):
                self.notes.append((str(len(self.notes) + 1), line[:2], line[2:].strip(" ")))
                continue
            if not found:
                continue
            last = found.lastindex
            if last == 1:
                self.open_section(found[1])
            elif last <= 4:
                self.numbered(found[2], found[3], found[4] or "", line)
            elif last <= 7:
                self.transferable(found[5], found[6], found[7])
            elif last == 8:
                self.continuation(found[8], found.start(8))
            elif last == 11:
                self.locator = found[11]
                if found[9] == "C":
                    self.name = line[3:38].strip(" ")
            else:
                self.office = found[13]
                self.saw_rule = len(found[12]) > 5
        return self

    def open_section(self, title):
        self.section = SECTIONS.get(title, "joined")
        self.saw_rule = self.saw_rule or self.section != "transferable"
        self.family = self.target = None

    def numbered(self, number, tag, text, line):
        if self.section == "head":
            self.head(number, tag, text, line)
            return
        if tag:
            self.family = tag
        elif self.family == "PPC" and len(number) == 1:
            self.family = None
        if self.family is None:
            self.target = None
            return
        self.target = [number, text]
        self.families[self.family].append(self.target)

    def head(self, number, tag, text, line):
        self.target = None
        if tag == "PCN":
            self.company_number = number
            self.target = self.company = [number, text]
            self.broken_word = len(line.rstrip(" ")) == 64
        elif tag == "PIN":
            self.pin = (number, text)
        elif tag == "PSL":
            self.psl = (number, text)
        elif text.startswith("NM "):
            self.name = text[3:].strip(" ")

    def transferable(self, number, text, code):
        self.target = None
        if code == "RC" and self.saw_rule:
            return
        self.target = [number, text]
        self.families[code].append(self.target)
        self.joins_left = 2 if code == "RM" else 1

    def continuation(self, text, indent):
        if self.target is None:
            return
        if self.section == "head":
            if indent >= 14:
                self.target[1] += ("" if self.broken_word else " ") + text
        elif self.section == "plain":
            self.target[1] += text
        elif self.section == "joined":
            self.target[1] += " " + text if text[2:3] == ":" else text
        elif self.section == "transferable" and indent >= 17 and self.joins_left > 0:
            self.joins_left -= 1
            self.target[1] += text

    def elements(self, family):
        """Number, text, code, airline, account and free text of each element."""
        for number, text in self.families[family]:
            code = airline = account = free = ""
            if family == "FFN":
                text = text.split("    ", 1)[0]
                airline, account = text[4:6], text[7:].strip(" ")
            elif family == "SR":
                code = text[5:9] if text[4:5] == "*" else text[4:8]
                free = text.partition("-")[2].strip(" ")
                if code == "FQTV":
                    airline, account = text[8:10], text[11:].strip(" ")
            elif family == "RC":
                free = text[4:].strip(" ")
            yield number, text, code, airline, account, free

    def result(self):
        """Everything as plain values, with the elements split."""
        return [list(self.elements(family)) for family in FAMILIES]

    def written(self):
        """As in the file of expected elements."""
        company = self.company[1] if self.company else ""
        head = (self.name, self.locator, self.office, self.company_number, company, *self.pin, *self.psl)
        records = ["\x1f".join(head)]
        for elements in self.result():
            records.extend("\x1f".join(element) for element in elements)
            records.append("")
        records.extend("\x1f".join(note) for note in self.notes)
        return "\x1e".join(records) + "\x1e"


def main():
    with open(sys.argv[1], encoding="ascii") as file:
        displays = file.read().split("\n")[:-1]
    with open(sys.argv[2], encoding="ascii", newline="\n") as file:
        expected = file.read().split("\n")[:-1]
    for number, (display, elements) in enumerate(zip(displays, expected, strict=True)):
        if Reader().read(display).written() != elements:
            sys.exit(f"Python re disagrees on display {number}")
    passes = []
    for _ in range(5):
        start = time.process_time()
        for display in displays:
            Reader().read(display).result()
        passes.append((time.process_time() - start) / len(displays))
    print(f"{min(passes):.9f} {statistics.median(passes):.9f}")


if __name__ == "__main__":
    main()
