"""The record editor and the commands around it, by keyboard; what it shows by accessible names."""

import os

from driver import accessible, application, descendants, text_of, wait_for, xdotool

FORM = "^Coordinates edition"

# One place in ten notations, near Mons in Belgium (50.45 N, 3.95 E) but for the two islands.
# Reference coordinates by an independent library on each system's own ellipsoid: shifts between
# datums, up to 200 m, and the size of the squares are in the tolerance, degrees.
# index of the system, boxes, ORIGINAL, latitude, longitude, tolerance
NOTATIONS = [
    (0, ["50,45", "3,95"], "deg 50.45 3.95", 50.45, 3.95, 0.003),
    (1, ["+50.2700", "+003.5700"], "dms +50.2700 +003.5700", 50.45, 3.95, 0.003),
    (2, ["31", "567445", "5589097"], "utm 31 567445 5589097", 50.45, 3.95, 0.003),
    (3, ["31", "u", "er6789"], "mgr 31 U ER6789", 50.45, 3.95, 0.01),
    (4, ["56.0556", "1.79198"], "grp 56.0556 1.79198", 50.45, 3.95, 0.003),
    (5, ["sp", "3389"], "bng SP 3389", 52.5, -1.5, 0.01),
    (6, ["io", "1534"], "itm IO 1534", 53.35, -6.26, 0.02),
    (7, ["120349", "126594"], "lmb 120349 126594", 50.45, 3.95, 0.003),
    (8, ["g3"], "ifb G3", 50.45, 3.95, 0.15),
    (13, ["714767", "2607296"], "lfe 714767 2607296", 50.45, 3.95, 0.003),
]


def columns(row):
    """The parts of a row of the file that the tests look at."""
    return {"period": row[0], "sex": row[41], "latitude": float(row[2:11].replace(" ", "")),
            "longitude": float(row[11:21].replace(" ", "")), "n1": row[21:26].strip(),
            "n2": row[26:31].strip(), "date": row[31:41], "datum": row[42:47].strip(),
            "original": row[47:71].strip(), "comment": row[71:]}


def opens_form(program):
    return program.brings(FORM, "ctrl+Return")


def closes_form(program):
    program.keys("Escape")
    program.closes(FORM)
    program.activate()


def form_control(program, name, role=None):
    """A control of the form by its accessible name."""
    def search():
        for window in application(program):
            if window is None or not window.name.startswith("Coordinates edition"):
                continue
            for node in descendants(window):
                if node.name == name and role in (None, node.getRoleName()):
                    return node
        return None

    return wait_for(f"control {name} of the form", search)


def saves_file(program, path, condition):
    program.keys("ctrl+s")
    return wait_for("the save", lambda: os.path.exists(path) and condition())


def enters_record(program, number, notation):
    """A new record, from top to bottom as on a label. One window hears all these keys, in order:
    nothing has to be waited for but the empty form."""
    index, boxes = notation[:2]
    program.keys("ctrl+n", pause=0)
    wait_for("the new row", lambda: text_of(form_control(program, "Period", "text")) == "")
    program.enters("2")
    program.enters("19980714")
    program.keys("Home", *["Down"] * index, "Return", pause=0)
    for text in [*boxes, str(number), "1", "F"]:
        program.enters(text)
    program.type(f"label {number}", pause=0)
    program.keys("ctrl+Return", pause=0)


def enters_ten_notations_by_keyboard(s):
    path = s.file([30])
    program = s.start(path)
    program.activate()
    opens_form(program)
    for number, notation in enumerate(NOTATIONS):
        enters_record(program, number, notation)
    closes_form(program)
    saves_file(program, path, lambda: len(s.rows(path)) == 1 + len(NOTATIONS))
    for number, (row, notation) in enumerate(zip(s.rows(path)[1:], NOTATIONS)):
        _, _, original, latitude, longitude, tolerance = notation
        found = columns(row)
        assert found["original"] == original, row
        assert abs(found["latitude"] - latitude) < tolerance, row
        assert abs(found["longitude"] - longitude) < tolerance, row
        assert (found["period"], found["sex"], found["date"]) == ("2", "F", "1998/07/14"), row
        assert (found["n1"], found["n2"]) == (str(number), "1"), row
        assert found["comment"] == f"label {number}", row
    program.keys("ctrl+q")
    assert program.ends() == 0


def finds_edits_in_the_form_saves_and_reopens(s):
    path = s.file([30, 10, 20])
    program = s.start(path)
    program.activate()
    program.brings("^Find$", "ctrl+f")
    program.type("ROW 1")
    program.keys("Return")
    assert accessible(program, "2/3", "label") is not None

    opens_form(program)
    assert text_of(form_control(program, "Number 1", "text")) == "10"
    # Period, date, system, the two boxes of decimal degrees: a new latitude.
    program.keys("Return", "Return", "Return")
    program.type("50.2")
    program.keys("Return")
    wait_for("the computed latitude", lambda: text_of(
        form_control(program, "Latitude", "text")).startswith("+50.2"))
    program.keys("ctrl+Return")
    program.keys("Next")  # the next row
    wait_for("the next row", lambda: text_of(form_control(program, "Number 1", "text")) == "20")
    closes_form(program)

    saves_file(program, path, lambda: "50.20000" in s.rows(path)[1])
    rows = [columns(row) for row in s.rows(path)]
    assert [row["latitude"] for row in rows] == [50.1, 50.2, 50.1], rows
    assert rows[1]["original"] == "deg 50.2 +004.50000", rows
    assert rows[1]["comment"] == "row 1", rows
    program.keys("ctrl+q")
    assert program.ends() == 0
    s.saves_the_same_again(path)


def keeps_what_is_typed_until_it_is_saved_or_dropped(s):
    path = s.file([30, 10])
    before = s.rows(path)
    program = s.start(path)
    program.activate()
    opens_form(program)
    program.type("9")  # no such period
    program.keys("ctrl+Return")
    box = program.window("^Talpena$")
    xdotool("windowactivate", "--sync", box)
    program.keys("Return")
    xdotool("windowactivate", "--sync", program.window(FORM))
    # The keys are back in the field, its text chosen: typing replaces it.
    program.type("2")
    program.keys("Return")
    program.keys("Escape")
    box = program.window("^Talpena$")
    xdotool("windowactivate", "--sync", box)
    program.keys("Escape")  # Cancel stays
    xdotool("windowactivate", "--sync", program.window(FORM))
    assert text_of(form_control(program, "Period", "text")) == "2"
    program.keys("Escape")
    box = program.window("^Talpena$")
    xdotool("windowactivate", "--sync", box)
    program.keys("alt+y")  # Yes
    program.closes(FORM)
    program.activate()
    saves_file(program, path, lambda: s.rows(path) != before)
    assert [row[0] for row in s.rows(path)] == ["2", "2"]
    program.keys("ctrl+q")
    assert program.ends() == 0


def adds_deletes_and_erases_by_keyboard(s):
    path = s.file([30, 10, 20])
    program = s.start(path)
    program.activate()
    # Two rows chosen from the second on, and deleted.
    program.keys("ctrl+Home", "Down", "shift+space", "shift+Down")
    program.brings("^Talpena$", "ctrl+Delete")
    program.keys("alt+y")
    assert accessible(program, "1/1", "label") is not None
    # Two lines added, the last one current, and taken away again: empty lines cannot be saved.
    program.activate()
    program.brings("^Talpena$", "ctrl+l")
    program.type("2")
    program.keys("Return")
    assert accessible(program, "3/3", "label") is not None
    program.activate()
    program.keys("shift+Up")
    program.brings("^Talpena$", "ctrl+Delete")
    program.keys("alt+y")
    assert accessible(program, "1/1", "label") is not None
    # The first number erased in all rows, and the row doubled.
    program.activate()
    program.keys("ctrl+Home", "Right", "Right", "Right")
    program.brings("^Talpena$", "ctrl+shift+Delete")
    program.keys("alt+y")
    program.closes("^Talpena$")
    program.activate()
    program.keys("ctrl+Home", "ctrl+d")
    assert accessible(program, "2/2", "label") is not None
    saves_file(program, path, lambda: len(s.rows(path)) == 2)
    rows = [columns(row) for row in s.rows(path)]
    assert [row["n1"] for row in rows] == ["0", "0"], rows
    assert [row["original"] for row in rows] == ["deg +50.10000 +004.50000"] * 2, rows
    program.keys("ctrl+q")
    assert program.ends() == 0


SCENARIOS = [enters_ten_notations_by_keyboard, finds_edits_in_the_form_saves_and_reopens,
             keeps_what_is_typed_until_it_is_saved_or_dropped,
             adds_deletes_and_erases_by_keyboard]
