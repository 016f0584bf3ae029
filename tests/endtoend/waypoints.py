"""Waypoints of receivers, by keyboard."""

import os

from driver import HEAD, application, descendants, wait_for

REAL = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..", "shared", "data",
                    "gps", "expertgps_deg.txt")
LINES = ["Grid\tLat/Lon hddd.ddddd\xb0", "Datum\tWGS 84", "",
         "Header\tName\tDescription\tType\tPosition\t", "",
         "Waypoint\tMOUND1\tmole hills\tUser Waypoint\tN50.45420 E3.95230\t",
         "Waypoint\tMOUND2\tmeadow\tUser Waypoint\tN50.46110 E3.96070\t",
         "Waypoint\tMOUND3\tdike\tUser Waypoint\tN50.48930 E4.01540\t",
         "Track\tACTIVE LOG\t", "Trackpoint\tN50.45420 E3.95230\t"]


def mapsource_file(s):
    """A list that somebody kept, or one like it; and how many waypoints it has."""
    if os.path.exists(REAL):
        with open(REAL, encoding="cp1252", newline="") as real:
            text = real.read()
    else:
        text = "".join(line + "\r\n" for line in LINES)
    path = os.path.join(s.folder, "waypoints.txt")
    with open(path, "w", encoding="cp1252", newline="") as out:
        out.write(text)
    return path, sum(line.startswith("Waypoint\t") for line in text.splitlines())


def starts_with(program, text):
    """Waits until something on screen begins so."""
    return wait_for(text, lambda: any((node.name or "").startswith(text)
                                      for node in descendants(application(program))))


def imports_waypoints_by_keyboard(s):
    source, count = mapsource_file(s)
    path = s.file([30, 10, 20])
    program = s.start(path)
    program.activate()
    # File, Import, Garmin Mapsource 4, Waypoints.
    program.menu("alt+f", "i", "g", "w")
    program.window("^Open")
    program.enters(source)
    program.window("^Garmin Import$")
    starts_with(program, f"Rows that enter: {count};")
    program.brings("^Options of the waypoint import$", "alt+p")
    program.type("2")
    program.keys("Tab", "Down", "Tab")
    program.enters("20020417")
    program.closes("^Options of the waypoint import$")
    # The keys are in the list, on its first waypoint.
    program.keys("space")
    starts_with(program, f"Rows that enter: {count - 1};")
    program.keys("Return")
    program.closes("^Garmin Import$")
    starts_with(program, f"Import: {count - 1} rows added")
    program.keys("ctrl+s")
    wait_for("the save", lambda: os.path.exists(path[:-3] + "BAK"))
    wait_for("the rows", lambda: os.path.exists(path) and len(s.rows(path)) == 3 + count - 1)
    for row in s.rows(path)[3:]:
        assert row[0] == "2" and "2002/04/17" in row and "WGS84deg " in row, row
        assert row[2:11].strip() not in ("", "+0.00000"), row
    # The new rows are chosen: one key takes them out again.
    program.keys("ctrl+Delete")
    program.window("^Talpena$")
    program.keys("Return", "ctrl+s")
    wait_for("the rows of before", lambda: os.path.exists(path) and len(s.rows(path)) == 3)
    with open(path, encoding="cp1252", newline="") as after:
        assert after.read().split("\r\n")[:3] == HEAD[:3]
    program.keys("ctrl+q")
    assert program.ends() == 0


SCENARIOS = [imports_waypoints_by_keyboard]
