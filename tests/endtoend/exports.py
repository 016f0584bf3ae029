"""Rows go out as text, by keyboard."""

import os
import shutil
import struct
import subprocess

from driver import accessible, application, descendants, wait_for


def line(period, number, row):
    """As the row of Scenario.file goes out with commas, without its second number."""
    return (f"{period},+50.10000,+004.50000,{number:05d},WGS84,deg +50.10000 +004.50000,"
            f"1990/01/01,,row {row}\r\n").encode("cp1252")


def says(program, text):
    return any(node.name == text for node in descendants(application(program)))


def opens_export(program):
    """File, Export, Ascii file, Comma delimited."""
    program.menu("alt+f", "p", "a", "c")
    program.window("^Export options$")


def saves_to(program, name):
    """Types a name into the file dialog and takes it."""
    program.window("^Save As$")
    program.type(name, pause=0.3)
    program.keys("Return")


def exports_by_keyboard(s):
    path = s.file([30, 10, 20])
    target = os.path.join(s.folder, "list.txt")
    program = s.start(path)
    program.activate()
    opens_export(program)
    program.keys("alt+2", "Return")  # without the second number
    saves_to(program, os.path.join(s.folder, "list"))
    wait_for("the file", lambda: os.path.exists(target))
    header = b",Periode,Latitude,Longitude,N1,Datum,Coord_Orig,Date,Sex,Comment\r\n"
    all_rows = header + line(1, 30, 0) + line(2, 10, 1) + line(3, 20, 2)
    wait_for("the rows", lambda: s.bytes(target) == all_rows)

    # The name without its suffix is that of the file: the question comes. Escape keeps it, and so
    # does No, which brings the dialog again.
    for answer in ("Escape", "n"):
        opens_export(program)
        program.keys("alt+x", "Down", "Return")
        saves_to(program, os.path.join(s.folder, "list"))
        program.window("^Talpena$")
        assert accessible(program, "No", "push button") is not None
        program.keys(answer)
    assert s.bytes(target) == all_rows
    saves_to(program, os.path.join(s.folder, "xy"))
    other = os.path.join(s.folder, "xy.txt")
    wait_for("the second file", lambda: os.path.exists(other))
    lines = s.bytes(other).split(b"\r\n")
    assert lines[0].startswith(b"X,Y,Periode,"), lines
    # As PROJ has it with the three shifts of BEL72: 159391.34, 87650.59.
    assert lines[1].startswith(b"159391,87651,1,+50.10000,"), lines
    program.keys("ctrl+q")
    assert program.ends() == 0

    # The choice is that of the next start.
    program = s.start(path)
    program.activate()
    opens_export(program)
    program.keys("Return")
    saves_to(program, os.path.join(s.folder, "again"))
    again = os.path.join(s.folder, "again.txt")
    wait_for("the third file", lambda: os.path.exists(again))
    wait_for("the same", lambda: s.bytes(again) == s.bytes(other))
    program.keys("ctrl+q")
    assert program.ends() == 0


def exports_the_rows_of_a_filter(s):
    path = s.file([30, 10, 20])
    target = os.path.join(s.folder, "some.txt")
    with open(target, "wb") as former:
        former.write(b"former")
    program = s.start(path)
    program.activate()
    program.brings("^Advanced selection$", "alt+e", "v")
    program.enters("N1 > 15")
    wait_for("the filter", lambda: says(program, "2 of 3 rows shown"))
    opens_export(program)
    program.keys("Return")
    saves_to(program, target)
    program.window("^Talpena$")
    program.keys("y")
    wait_for("the notice", lambda: says(program, "2 of 3 rows written"))
    assert len(s.bytes(target).split(b"\r\n")) == 4
    program.keys("ctrl+q")
    assert program.ends() == 0


def opens_database_export(program, number):
    """File, Export, the entry so many behind the first."""
    program.menu("alt+f", "p", *["Down"] * number, "Return")
    program.window("^Export options$")


def rows_of_dbf(data):
    """Records and their bytes, as the head of a dBase file tells them."""
    count, head, length = struct.unpack("<IHH", data[4:12])
    return [data[head + i * length:head + (i + 1) * length] for i in range(count)]


def exports_databases_by_keyboard(s):
    path = s.file([30, 10, 20])
    program = s.start(path)
    program.activate()
    opens_database_export(program, 1)
    program.keys("Return")
    saves_to(program, os.path.join(s.folder, "moles"))
    wait_for("the notice", lambda: says(program, "3 rows written and read back"))
    access = os.path.join(s.folder, "moles.mdb")
    assert s.bytes(access)[4:19] == b"Standard Jet DB"
    if shutil.which("mdb-export"):
        told = subprocess.run(["mdb-export", "-H", access, "moles"], capture_output=True,
                              check=True, text=True).stdout
        assert len(told.splitlines()) == 3 and ",30," in told.splitlines()[0], told

    opens_database_export(program, 3)
    program.keys("Return")
    saves_to(program, os.path.join(s.folder, "my.file.dbf"))
    table = os.path.join(s.folder, "my.dbf")
    wait_for("the table", lambda: os.path.exists(table))
    wait_for("its memos", lambda: os.path.exists(os.path.join(s.folder, "my.dbt")))
    rows = rows_of_dbf(s.bytes(table))
    assert [row[1:2] for row in rows] == [b"1", b"2", b"3"], rows
    assert b"50.10000000000000" in rows[0] and b"row 0" in rows[0], rows

    # The name is asked of the file that will be written. Escape keeps it, and so does No, which
    # brings the dialog again.
    former = s.bytes(table)
    for answer in ("Escape", "n"):
        opens_database_export(program, 3)
        program.keys("Return")
        saves_to(program, os.path.join(s.folder, "my.other.dbf"))
        program.window("^Talpena$")
        program.keys(answer)
    assert s.bytes(table) == former
    program.keys("Escape")
    opens_database_export(program, 3)
    program.keys("alt+2", "Return")  # without the second number
    saves_to(program, os.path.join(s.folder, "my.dbf"))
    program.window("^Talpena$")
    program.keys("y")
    wait_for("the new table", lambda: s.bytes(table) != former)
    assert b"NUMBER_2" not in s.bytes(table)
    program.keys("ctrl+q")
    assert program.ends() == 0


SCENARIOS = [exports_by_keyboard, exports_the_rows_of_a_filter, exports_databases_by_keyboard]
