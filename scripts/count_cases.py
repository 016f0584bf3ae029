"""Adds up what the programs of one run of ctest counted: count_cases.py RESULTS JUNIT

RESULTS is the folder where run_cases.py left its counts, JUNIT what ctest says of its entries; an
entry without counts of its own is one case. A failed entry is at least one failed case.
Ends on the line that test.sh counts: PASSED n FAILED n.
"""

import os
import sys
import xml.etree.ElementTree as xml


def counts_of(path):
    try:
        with open(path, encoding="ascii") as file:
            words = file.read().split()
        return [int(words[1]), int(words[3]), int(words[5])]
    except (OSError, IndexError, ValueError):
        return None


def main():
    results, junit = sys.argv[1:3]
    total = [0, 0, 0]
    for entry in xml.parse(junit).getroot().iter("testcase"):
        status = entry.get("status")
        counts = counts_of(os.path.join(results, entry.get("name") + ".counts"))
        if counts is None:
            skipped = status in ("notrun", "disabled") and entry.find("skipped") is not None
            counts = [int(status == "run"), int(status != "run" and not skipped), int(skipped)]
        elif status != "run" and counts[1] == 0:
            counts[1] = 1
        total = [sum(pair) for pair in zip(total, counts)]
    if total[2]:
        print(f"{total[2]} skipped")
    if sum(total) == 0:
        print("no test ran")
        total[1] = 1
    print(f"PASSED {total[0]} FAILED {total[1]}")
    return int(total[1] != 0)


if __name__ == "__main__":
    sys.exit(main())
