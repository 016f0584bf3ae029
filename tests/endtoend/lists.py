"""Lists that come in as text files, by keyboard."""

import os

from driver import application, descendants, wait_for, xdotool

WINDOW = "^Text import$"
RECORDS = ["* A list of moles", "1,50.41234,3.92120,7,0,1948/05/17,\"Garden wall, at night\"",
           "2,95.00000,9.08542,1,1,1976/04/02,Orchard", "3,45.81501,9.08542,2,1,1983/10/21,Meadow"]


def shows(program, text):
    """Waits for a label of that beginning."""
    wait_for(text, lambda: any((node.name or "").startswith(text)
                               for node in descendants(application(program))))


def imports_a_list_by_keyboard(s):
    path = s.file([30])
    listed = os.path.join(s.folder, "list.txt")
    with open(listed, "w", encoding="utf-8", newline="") as out:
        out.write("".join(record + "\r\n" for record in RECORDS))
    program = s.start(path)
    program.activate()
    # File, Import, Fichier Ascii; Browse has the keys.
    program.menu("alt+f", "i", "a")
    window = program.window(WINDOW)
    xdotool("windowactivate", "--sync", window)
    program.brings("^Open", "Return")
    program.enters(listed)
    program.closes("^Open")
    xdotool("windowactivate", "--sync", window)
    shows(program, "Rows that enter: 3; left out: 0; without a point: 1;")
    # To the row without a point, whose line Ctrl+C takes; Enter is Ok there too.
    program.keys("F8", "ctrl+c", "Return")
    program.closes(WINDOW)
    shows(program, "3 rows added")
    program.keys("ctrl+s")
    wait_for("the save", lambda: os.path.exists(path[:-3] + "BAK"))
    wait_for("the rows", lambda: os.path.exists(path) and len(s.rows(path)) == 4)
    rows = s.rows(path)
    assert any(row.startswith("1") and "+50.41" in row[:11]
               and row.endswith("Garden wall, at night") for row in rows), rows
    assert any("deg +95.00000 +009.08542" in row for row in rows), rows
    program.keys("ctrl+q")
    assert program.ends() == 0


SCENARIOS = [imports_a_list_by_keyboard]
