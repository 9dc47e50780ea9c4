"""Reads gcovr's JSON: prints what the tests leave out and the figures. The status is 1 when anything is left out."""
import json
import sys


def main(path):
    with open(path, encoding="utf-8") as file:
        files = json.load(file)["files"]
    if not files:
        sys.exit("no source has counters")
    lines = lines_run = branches = branches_taken = 0
    for source in sorted(files, key=lambda entry: entry["file"]):
        for line in source["lines"]:
            if line.get("gcovr/noncode"):
                continue
            place = f"{source['file']}:{line['line_number']}"
            lines += 1
            if line["count"] > 0:
                lines_run += 1
            else:
                print(f"  {place}: not run")
            taken = sum(branch["count"] > 0 for branch in line["branches"])
            branches += len(line["branches"])
            branches_taken += taken
            if line["count"] > 0 and taken < len(line["branches"]):
                print(f"  {place}: {len(line['branches']) - taken} of {len(line['branches'])} branches not taken")
    print(f"lines {lines_run} of {lines}, {100 * lines_run / lines:.2f} %")
    print(f"branches {branches_taken} of {branches}, {100 * branches_taken / branches:.2f} %")
    sys.exit(lines_run < lines or branches_taken < branches)


main(sys.argv[1])
