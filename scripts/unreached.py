"""Compares the lines that no test reached, in a JSON report of gcovr, with the list of those known.

Called by scripts/coverage. Fails when a line is in one of the two only.
"""

import json
import sys
from collections import Counter


def unreached_lines(report):
    lines = Counter()
    for file in report["files"]:
        with open(file["file"], encoding="utf-8") as source:
            text = source.read().splitlines()
        for line in file["lines"]:
            if line["count"] == 0 and not line["gcovr/noncode"]:
                lines[file["file"] + ": " + text[line["line_number"] - 1].strip()] += 1
    return lines


def known_lines(path):
    with open(path, encoding="utf-8") as known:
        lines = known.read().splitlines()
    return Counter(line for line in lines if line and not line.startswith("#"))


with open(sys.argv[1], encoding="utf-8") as report_file:
    unreached = unreached_lines(json.load(report_file))
known = known_lines(sys.argv[2])
for line in sorted((unreached - known).elements()):
    print("reached by no test:", line)
for line in sorted((known - unreached).elements()):
    print("reached by now, or gone, and still listed:", line)
sys.exit(unreached != known)
