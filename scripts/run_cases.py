"""Runs one test program and counts its cases: run_cases.py [OPTIONS] RESULT PROGRAM

RESULT.counts gets the line "PASSED n FAILED n SKIPPED n" that count_cases.py adds up. A program
that dies counts as one failed case more.

With TALPENA_KEPT_DATA in the environment (a hash of what every test may read) a program that
passed is not run again while it, that hash, its own data and the environment are the same; its
counts stand in RESULT.kept.
  --reads PATH   a file or folder beside the shared ones that the program reads
  --always       the program reads what no hash covers: it is never left out
"""

import argparse
import hashlib
import os
import re
import subprocess
import sys

OF_THE_RUN = ("TALPENA_", "GTEST_", "QT_", "LC_", "LANG", "TZ", "TMPDIR", "HOME", "ASAN_", "UBSAN_")


def count(output, status):
    """(passed, failed, skipped) from what GoogleTest prints, case after case. Under some locales it
    groups the digits of milliseconds."""
    def lines(mark):
        return len(re.findall(rf"\[{mark}\] .*\([\d.,]+ ms\)$", output, re.MULTILINE))

    passed, failed, skipped = lines("       OK "), lines("  FAILED  "), lines("  SKIPPED ")
    announced = re.search(r"^\[==========\] Running (\d+) tests? from", output, re.MULTILINE)
    ended = re.search(r"^\[==========\] \d+ tests? from .* ran\.", output, re.MULTILINE)
    missing = int(announced[1]) - passed - failed - skipped if announced else 0
    if status == 0 and ended and missing and passed + failed + skipped == 0:
        return 0, 0, missing  # the world of all cases is not there, such as a locale
    if not ended or missing or (status != 0 and failed == 0):
        failed += 1
    return passed, failed, skipped


def hash_path(digest, path):
    if os.path.isdir(path):
        for name in sorted(os.listdir(path)):
            digest.update(name.encode())
            hash_path(digest, os.path.join(path, name))
    else:
        with open(path, "rb") as file:
            digest.update(hashlib.file_digest(file, "sha256").digest())


def failures(output):
    """What the failed cases said, a few lines each, for those who see only the end of a log."""
    said = re.findall(r"^(?:.*: Failure\n(?:.*\n){1,8}?(?=\S*: Failure|\[|\n|Google Test trace)"
                      r"|\[  FAILED  \] .*\([\d.,]+ ms\)\n"
                      r"|.*(?:runtime error|ERROR: AddressSanitizer).*\n)", output, re.MULTILINE)
    return "".join(said[-30:])


def key_of(options):
    """Everything that the outcome depends on; None when that cannot be told."""
    data = os.environ.get("TALPENA_KEPT_DATA")
    if options.always or not data:
        return None
    digest = hashlib.sha256(data.encode())
    with open(__file__, "rb") as me:
        digest.update(me.read())
    for name in sorted(os.environ):
        if name.startswith(OF_THE_RUN):
            digest.update(f"{name}={os.environ[name]}\0".encode())
    try:
        for path in [options.program, *options.reads]:
            digest.update(path.encode())
            hash_path(digest, path)
    except OSError:
        return None
    return digest.hexdigest()


def read(path):
    try:
        with open(path, encoding="ascii") as file:
            return file.read().splitlines()
    except OSError:
        return []


def write(path, *lines):
    with open(path, "w", encoding="ascii") as file:
        file.write("".join(line + "\n" for line in lines))


def remove(path):
    if os.path.exists(path):
        os.remove(path)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--reads", action="append", default=[])
    parser.add_argument("--always", action="store_true")
    parser.add_argument("result")
    parser.add_argument("program")
    options = parser.parse_args()
    counts, kept = options.result + ".counts", options.result + ".kept"
    os.makedirs(os.path.dirname(options.result), exist_ok=True)
    remove(counts)

    key = key_of(options)
    former = read(kept)
    if key is not None and len(former) == 2 and former[0] == key:
        print(former[1], "(kept)")
        write(counts, former[1])
        return 0

    remove(kept)
    run = subprocess.run([options.program], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                         check=False)
    output = run.stdout.decode(errors="replace")
    passed, failed, skipped = count(output, run.returncode)
    line = f"PASSED {passed} FAILED {failed} SKIPPED {skipped}"
    write(counts, line)
    if failed:
        print(output)
        print(f"the program ended with {run.returncode}; in short:")
        print(failures(output))
    else:
        for case in re.findall(r"^\[  SKIPPED \] .*\([\d.,]+ ms\)$", output, re.MULTILINE):
            print(case)
        if key is not None and passed:
            write(kept, key, line)
    print(line)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
