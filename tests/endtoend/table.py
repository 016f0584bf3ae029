"""The table of the main window, by keyboard."""

import os

from driver import HEAD, accessible, wait_for


def opens_edits_saves_by_keyboard(s):
    path = s.file([30, 10, 20])
    program = s.start(path)
    program.activate()
    program.keys("ctrl+Home", "Right", "Right", "Right")
    program.type("42")
    program.keys("Return", "ctrl+s")
    wait_for("the save", lambda: os.path.exists(path[:-3] + "BAK"))
    wait_for("the new value", lambda: os.path.exists(path) and "   42    0" in s.rows(path)[0])
    assert [row[21:26] for row in s.rows(path)] == ["   42", "   10", "   20"]
    program.keys("ctrl+q")
    assert program.ends() == 0
    s.saves_the_same_again(path)


def sorts_and_keeps_a_refused_cell_in_edit(s):
    path = s.file([30, 10, 20])
    program = s.start(path)
    program.activate()
    # Out of the table, over the seven tools to the sort list; its fifth entry is a number.
    program.keys("ctrl+Tab", *["Tab"] * 7, *["Down"] * 4)
    assert accessible(program, "Number 1", "combo box") is not None
    # On over the two orders, first and last row, title and comment, back into the table.
    program.keys("Tab", "Tab", "Tab", "Tab", "Tab", "Tab")
    assert accessible(program, "Table of records", "table") is not None
    program.keys("ctrl+Home", "Right", "Right", "Right")
    program.type("many")
    program.keys("Return")
    program.window("^Talpena$")
    program.keys("Return", "Escape")
    program.type("11")
    program.keys("Return", "ctrl+s")
    wait_for("the save", lambda: os.path.exists(path[:-3] + "BAK"))
    wait_for("the rows", lambda: os.path.exists(path) and len(s.rows(path)) == 3)
    numbers = [row[21:26].strip() for row in s.rows(path)]
    assert numbers == ["11", "20", "30"], numbers
    program.keys("ctrl+q")
    assert program.ends() == 0


def adjusts_and_fills_by_keyboard(s):
    path = s.file([30, 10, 20])
    with open(path, encoding="cp1252", newline="") as before:
        lines = before.read().split("\r\n")
    row = lines[len(HEAD)]
    lines[len(HEAD)] = row[:42] + "BEL72" + "ifb G33643".ljust(24) + row[71:]
    with open(path, "w", encoding="cp1252", newline="") as out:
        out.write("\r\n".join(lines))
    program = s.start(path)
    program.activate()
    # Edit, Adjust coordinates, IFBL, 1 x 1 km; then Edit, Insert in free field, IFBL.
    program.menu("alt+e", "j", "i", "Down", "Down", "Return")
    # The entry above Adjust; letters that two entries share go from one to the next.
    program.menu("alt+e", "j", "Left", "Up", "Right", "i", "i", "Return")
    program.keys("ctrl+s")
    wait_for("the save", lambda: os.path.exists(path[:-3] + "BAK"))
    wait_for("the rows", lambda: os.path.exists(path) and len(s.rows(path)) == 3)
    rows = s.rows(path)
    assert "ifb G33643" in rows[0] and rows[0].endswith("row 0,G33643"), rows[0]
    assert rows[0][2:11] != "+50.10000" and "deg +50.10000" in rows[1], rows
    assert len(rows[1].split(",")[-1]) == 6, rows[1]
    program.keys("ctrl+q")
    assert program.ends() == 0


SCENARIOS = [opens_edits_saves_by_keyboard,
             sorts_and_keeps_a_refused_cell_in_edit,
             adjusts_and_fills_by_keyboard]
