"""What is seen of commands that last, on a machine whose other processor is at work."""

import os
import subprocess
import time

from driver import HEAD, ROW, accessible, focused, wait_for, xdotool
from screen import Screen

ROWS = int(os.environ.get("TALPENA_WAIT_ROWS", "1000000"))
# Until the wait window has its text, seconds. A tenth is what the program aims at; looking costs
# time too, and other programs may be at work.
LIMIT = float(os.environ.get("TALPENA_WAIT_LIMIT", "2.0"))


class Load:
    """A program that keeps the second processor at work."""

    def __enter__(self):
        cpus = sorted(os.sched_getaffinity(0))
        self.process = subprocess.Popen(
            ["taskset", "-c", str(cpus[-1]), "sh", "-c", "while :; do :; done"])
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()


def large_file(s, name="large.deg", rows=ROWS):
    """Rows in no order of their columns."""
    path = os.path.join(s.folder, name)
    block = [ROW.format(period=1 + i % 3, n1=i % 1000, text=f"place {(i * 7919) % 10007}") + "\r\n"
             for i in range(10007)]
    with open(path, "w", encoding="cp1252", newline="") as out:
        out.write("".join(line + "\r\n" for line in HEAD))
        for at in range(0, rows, len(block)):
            out.writelines(block[:rows - at])
    return path


def windows(program, title):
    return xdotool("search", "--all", "--onlyvisible", "--pid", str(program.process.pid),
                   "--name", title)


def place(window):
    lines = xdotool("getwindowgeometry", "--shell", window)
    values = dict(line.split("=") for line in lines if "=" in line)
    return [int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT")]


class Seen:
    """What was seen of one command."""

    def __init__(self):
        self.after = None   # seconds until the wait window had its text
        self.moves = False  # the bar was not always the same
        self.lasted = 0.0


def watches(program, screen, seconds=120, over="^Talpena - "):
    """Looks at the screen from now on until the wait window has come and gone."""
    seen = Seen()
    began = time.monotonic()
    main = windows(program, over)
    bars = set()
    up = 0
    while time.monotonic() - began < seconds:
        found = windows(program, "^Talpena$")
        now = time.monotonic() - began
        if found:
            try:
                if seen.after is None and screen.has_text(*place(found[-1])):
                    seen.after = now
            except KeyError:  # it went while it was looked for
                continue
            if main or windows(program, over):
                main = main or windows(program, over)
                x, y, width, height = place(main[-1])
                bars.add(b"".join(screen.picture(x + width // 2, y + height - 30, width // 2, 30)))
            up = now
        elif seen.after is not None or now > up + 5:
            break
    seen.lasted = up
    seen.moves = len(bars) > 1
    return seen


def expect_seen(name, seen):
    print(f"{name}: seen after {seen.after and round(seen.after, 2)} s, "
          f"lasted {seen.lasted:.1f} s, bar moves: {seen.moves}", flush=True)
    assert seen.after is not None and seen.after < LIMIT, name
    assert seen.moves or seen.lasted < 1, name


def does(program, screen, name, act):
    """Runs a command by the keys of `act` and looks at what is seen of it."""
    act()
    expect_seen(name, watches(program, screen))
    program.activate()


def shows_what_lasts_on_a_busy_machine(s):
    path = large_file(s)
    screen = Screen()
    with Load():
        program = s.start(path)
        program.window("^Talpena - ")
        expect_seen("open from the command line", watches(program, screen))
        program.activate()
        does(program, screen, "save", lambda: program.keys("ctrl+s", pause=0))
        program.keys("alt+e", "f", pause=0.6)
        does(program, screen, "Grades Paris", lambda: program.keys("g", pause=0))
        program.keys("ctrl+Tab", *["Tab"] * 7)
        wait_for("the sort list", lambda: focused(program).getRoleName() == "combo box")
        does(program, screen, "sort", lambda: program.keys("d", pause=0))
        program.brings("^Advanced selection$", "alt+e", "v")
        program.type("COMMENT LIKE '*a*c*e*9*'")
        does(program, screen, "selection", lambda: program.keys("Return", pause=0))
        program.kill()


def gives_up_a_condition_by_escape(s):
    """It would run for days; the rows stay as they were."""
    path = large_file(s, rows=20000)
    program = s.start(path)
    program.activate()
    program.brings("^Advanced selection$", "alt+e", "v")
    program.type("String(60000-N1,'a') LIKE '*' & String(30000,'a') & N1 & 'b*'")
    began = time.monotonic()
    program.keys("Return", pause=0)
    cancel = wait_for("Cancel", lambda: next(iter(windows(program, "^Talpena$")), None)
                      if time.monotonic() > began + 2.5 else None)
    xdotool("windowactivate", "--sync", cancel)
    program.keys("Escape")
    wait_for("its end", lambda: not windows(program, "^Talpena$"))
    wait_for("the dialog", lambda: windows(program, "^Advanced selection$"))
    program.keys("Escape")
    program.activate()
    assert accessible(program, "1/20000", "label") is not None
    program.keys("ctrl+q")
    assert program.ends() == 0


SCENARIOS = [shows_what_lasts_on_a_busy_machine, gives_up_a_condition_by_escape]
