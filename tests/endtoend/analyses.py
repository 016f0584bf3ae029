"""Statistics, charts and the summary, by keyboard."""

import os

from driver import application, descendants, wait_for
from exports import saves_to
from maps import shows


def says(program, *lines):
    """Waits for a box that has these lines, and takes it."""
    text = "\n".join(lines)
    wait_for(text, lambda: any(node.name.replace("\r", "\n") == text
                               for node in descendants(application(program)) if node.name))
    program.keys("Return")


def saved(s, program, name):
    """What was saved under a name that the dialog is given without its suffix."""
    saves_to(program, os.path.join(s.folder, os.path.splitext(name)[0]))
    path = os.path.join(s.folder, name)
    wait_for(name, lambda: os.path.exists(path))
    return s.bytes(path)


def draws_and_saves_charts_by_keyboard(s):
    path = s.file([30, 10, 20])
    program = s.start(path)
    program.activate()
    program.menu("alt+y", "h")
    program.window("^Moles$")
    shows(program, "Rows counted: 3 (all)")
    program.keys("Right")
    shows(program, "Jan: 60")
    program.keys("ctrl+s")
    assert saved(s, program, "moles.png").startswith(b"\x89PNG")
    program.keys("alt+n")
    assert saved(s, program, "moles.csv").startswith(b",N\r\nJan,60\r\nFeb,0\r\n")
    program.keys("Escape")

    program.activate()
    program.menu("alt+y", "Down", "Down", "Return")
    program.window("^Moles$")
    program.keys("End")
    shows(program, "31: –")
    program.keys("Left")
    shows(program, "30: 1")
    program.keys("alt+n")
    assert saved(s, program, "ogu.csv") == b"Number 1,OGUs\r\n10,1\r\n20,1\r\n30,1\r\n"
    program.keys("Escape")

    program.activate()
    program.menu("alt+y", "r")
    program.window("^Moles$")
    program.keys("Right")
    shows(program, "1990: Records 3, New points 1")
    program.keys("Escape")

    program.activate()
    program.menu("alt+y", "s")
    program.window("^Summary$")
    program.keys("alt+n")
    lines = saved(s, program, "summary.csv").decode("utf-8").split("\r\n")
    assert lines[1] == "All rows,Number 1,3,0,10,15,20,25,30,20,10", lines
    program.keys("Escape", "ctrl+q")
    assert program.ends() == 0


def standardises_by_keyboard(s):
    path = s.file([30, 10, 20])
    program = s.start(path)
    program.activate()
    program.menu("alt+y", "Return")
    says(program, "Moyenne Number 1=20.", "STD Number 1=10.", "Moyenne Number 2=.",
         "STD Number 2=.")
    program.menu("alt+y", "Down", "Right", "Down", "Return")
    says(program, "Moyenne N1=20", "STD N1=10")
    program.keys("ctrl+s")
    wait_for("the save", lambda: os.path.exists(path[:-3] + "BAK"))
    wait_for("the numbers", lambda:
             [int(row[21:31].split()[0]) for row in s.rows(path)] == [1, -1, 0])
    program.keys("ctrl+q")
    assert program.ends() == 0


SCENARIOS = [draws_and_saves_charts_by_keyboard, standardises_by_keyboard]
