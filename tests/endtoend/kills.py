"""Saves that end by a kill at a random moment. TALPENA_KILLS says how many; twelve when it does not."""

import os
import random
import time

from driver import HEAD, ROW, wait_for, xdotool

ROWS = 30000
TITLE = "^Talpena - "


def left_overs(folder):
    return [name for name in os.listdir(folder) if name.startswith(".talpena-")]


def file_before():
    """A file that a save changes: it writes its first line in capitals."""
    rows = [ROW.format(period=1 + i % 3, n1=i % 1000, text=f"row {i}") for i in range(ROWS)]
    text = "".join(line + "\r\n" for line in HEAD + rows)
    return text.replace("<TALPENA", "<talpena", 1).encode("cp1252")


class Killed:
    """A file that is saved and killed again and again."""

    def __init__(self, scenario):
        self.s = scenario
        self.folder = os.path.join(scenario.folder, "data")
        os.makedirs(self.folder)
        self.path = os.path.join(self.folder, "moles.deg")
        self.backup = os.path.join(self.folder, "moles.BAK")
        self.before = self.after = file_before()
        self.counts = {"old": 0, "new": 0, "missing": 0, "left-overs": 0}

    def write(self, path, contents):
        with open(path, "wb") as out:
            out.write(contents)

    def starts(self):
        """The program with the file open and the keys in its window."""
        program = self.s.start(self.path)
        window = program.window(TITLE)
        wait_for("the load", lambda: not xdotool(
            "search", "--all", "--onlyvisible", "--pid", str(program.process.pid), "--name",
            "^Talpena$"))
        assert left_overs(self.folder) == [], "left-overs stay behind a start"
        xdotool("windowactivate", "--sync", window)
        return program

    def saves(self, program):
        """Seconds from the key until the new file stands."""
        before = os.stat(self.path).st_ino
        start = time.monotonic()
        xdotool("key", "--clearmodifiers", "ctrl+s")
        wait_for("the save", lambda: os.path.exists(self.path)
                 and os.stat(self.path).st_ino != before)
        seconds = time.monotonic() - start
        self.after = self.s.bytes(self.path)
        assert self.after != self.before
        return seconds

    def kills(self, seconds):
        program = self.starts()
        xdotool("key", "--clearmodifiers", "ctrl+s")
        time.sleep(seconds)
        program.kill()
        self.s.running.remove(program)

    def checks(self):
        """A whole file stands in its place and a whole one under the name of its backup."""
        if not os.path.exists(self.path):
            self.counts["missing"] += 1
        else:
            contents = self.s.bytes(self.path)
            assert contents in (self.before, self.after), f"{len(contents)} bytes in the file"
            self.counts["old" if contents == self.before else "new"] += 1
        if left_overs(self.folder):
            self.counts["left-overs"] += 1
        if os.path.exists(self.backup):
            assert self.s.bytes(self.backup) in (self.before, self.after), "the backup is cut"
        else:
            assert os.path.exists(self.path), "neither file nor backup"
        strangers = set(os.listdir(self.folder)) - {"moles.deg", "moles.BAK"}
        assert strangers == set(left_overs(self.folder)), strangers

    def again(self):
        """Back to the file before the save; what the kill left beside it stays for the next start."""
        self.write(self.path, self.before)


def survives_being_killed_while_it_saves(s):
    kills = int(os.environ.get("TALPENA_KILLS", "12"))
    test = Killed(s)
    test.again()
    program = test.starts()
    longest = 1.2 * test.saves(program)
    program.kill()
    for _ in range(kills):
        test.again()
        test.kills(random.uniform(0, longest))
        test.checks()
    print(f"{kills} kills within {longest:.2f} s:",
          ", ".join(f"{count} {name}" for name, count in test.counts.items()), flush=True)
    assert test.counts["missing"] == 0
    test.again()
    last = test.starts()
    last.keys("ctrl+q")
    assert last.ends() == 0


SCENARIOS = [survives_being_killed_while_it_saves]
