"""The batch with Python's json and re: one family of a display per request.

Usage: python_json_re.py REQUESTS. Writes the same lines as `vantro-profile batch`.
"""

import json
import re
import sys

HOTEL, CAR, AIR = ("------- TRAVEL POLICIES - " + kind for kind in ("HOTEL", "CAR", "AIR"))
DOCUMENTS = "------- DOCUMENTS"

FAMILIES = {
    "PPR": ("------- PRIORITY", "plain"),
    "PGL": ("------- GLOBAL SEARCH", "global"),
    "PPS": ("------- PRE-STORED ENTRIES", "joined"),
    **{family: (HOTEL, "policy") for family in ("PHI", "PPH", "PSH")},
    **{family: (CAR, "policy") for family in ("PCI", "PPC", "PXC", "PSC")},
    **{family: (AIR, "policy") for family in ("PPA", "PPK", "PPI", "PXA", "PXK", "PPT", "PXT")},
    **{family: (DOCUMENTS, "document") for family in ("PAS", "PIV", "PCE", "PID")},
    "PFO": ("------- FOLLOW UP", "document"),
}

END = re.compile(r">|END OF DISPLAY")
LINE = re.compile(r" {0,3}(\d{1,2}) (?:([A-Z]{3})/ ?| {5})(.*[^ ])?| {9}(.*[^ ])?|(-------|>|END OF DISPLAY)")


def lines_under(display, header):
    """The lines under the header, none when the display ends before it."""
    at = display.find(header)
    end = END.search(display)
    if at < 0 or (end and end.start() < at):
        return
    for begin in range(at - at % 80 + 80, len(display), 80):
        yield display[begin : begin + 80]


def elements(display, family):
    header, kind = FAMILIES[family]
    numbers, texts = [""], [""]
    collecting = False
    for line in lines_under(display, header):
        found = LINE.match(line)
        if not found or found[5]:
            break
        if found[1] is None:
            if kind == "document" or kind == "global":
                break
            if collecting:
                rest = (found[4] or "").strip(" ")
                texts[-1] += " " + rest if rest[2:3] == ":" and kind != "plain" else rest
            continue
        if found[2] is not None:
            if kind in ("policy", "document"):
                if collecting and kind == "document" and found[2] != family:
                    break
                collecting = found[2] == family
            else:
                collecting = collecting or found[2] == family
                if not collecting:
                    break
        elif collecting and family == "PPC" and len(found[1]) == 1:
            collecting = False  # one blank too few for this family only
        if collecting:
            numbers.append(found[1])
            texts.append((found[3] or "").strip(" "))
            if kind == "global" and len(texts) == 12:
                break
    return texts, numbers


def main():
    out = sys.stdout
    with open(sys.argv[1], encoding="utf-8") as requests:
        for line in requests:
            request = json.loads(line)
            family = request["params"]["strKeyPrefix"]
            display = request["display"]
            if isinstance(display, list):
                display = "".join([line.ljust(80) for line in display[:-1]] + display[-1:])
            texts, numbers = elements(display, family)
            params = {"strKeyPrefix": family, "strKeyElement()": texts, "strKeyElementNr()": numbers}
            answer = {"id": request["id"], "result": None, "params": params}
            out.write(json.dumps(answer, ensure_ascii=False, separators=(",", ":")))
            out.write("\n")


if __name__ == "__main__":
    main()
