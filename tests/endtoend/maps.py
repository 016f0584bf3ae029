"""The map views, by keyboard and mouse."""

import os
import struct
import zlib

from driver import application, descendants, wait_for, xdotool


def write_picture(path, width, height):
    """A PNG file, land in its right half."""
    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data
                + struct.pack(">I", zlib.crc32(kind + data)))

    sea, land = b"\xdc\xe9\xf2", b"\xf2\xef\xe4"
    row = b"\0" + sea * (width // 2) + land * (width - width // 2)
    with open(path, "wb") as out:
        out.write(b"\x89PNG\r\n\x1a\n"
                  + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
                  + chunk(b"IDAT", zlib.compress(row * height)) + chunk(b"IEND", b""))


def write_map(folder):
    """Plate carree from 10 W to 20 E and 40 to 60 N, a tenth of a degree for each pixel; it is the
    map that was open last."""
    write_picture(os.path.join(folder, "europe.png"), 300, 200)
    path = os.path.join(folder, "europe.dsw")
    with open(path, "w", encoding="cp1252", newline="") as out:
        out.write("Europe\r\neurope.ps\r\neurope.png\r\n5\r\n"
                  '0 "Plate carree" 60 40 20 -10 0 0 0 5 0 0 0 0 0 0\r\n')
    settings = os.path.join(folder, "config", "Talpena")
    os.makedirs(settings, exist_ok=True)
    with open(os.path.join(settings, "TALPENA.ini"), "w", encoding="utf-8") as out:
        out.write(f"[Carto]\nLastMap={path}\n")


def shows(program, *texts):
    """Waits until each of these texts is on screen."""
    for text in texts:
        wait_for(text, lambda text=text: any(
            node.name == text for node in descendants(application(program))))


def adds_a_row_on_the_map_by_keyboard(s):
    write_map(s.folder)
    path = s.file([30, 10, 20])
    program = s.start(path)
    program.activate()
    program.brings("^Map - europe.dsw", "ctrl+m")
    program.keys("Right")  # the cross, in the middle
    shows(program, "lat=50.100", "lon=04.900")
    program.keys("ctrl+Right", "shift+Right", "Right", "Up")
    shows(program, "lat=50.200", "lon=11.000")
    program.keys("Return")
    wait_for("the position in the title", lambda: xdotool(
        "search", "--all", "--onlyvisible", "--pid", str(program.process.pid), "--name", "5588"))
    program.keys("Escape")
    shows(program, "4/4")
    program.keys("ctrl+s")
    wait_for("the save", lambda: os.path.exists(path[:-3] + "BAK"))
    wait_for("the new row", lambda: os.path.exists(path) and len(s.rows(path)) == 4)
    row = s.rows(path)[3]
    assert row[0] == "1" and row[42:47] == "EUR-M" and "deg +50.2 +11." in row, row
    assert abs(float(row[2:11]) - 50.2) < 1e-4 and abs(float(row[11:21]) - 11) < 1e-4, row
    program.keys("ctrl+q")
    assert program.ends() == 0


def adds_rows_on_a_raster_map(s):
    """By keyboard and mouse; a double click adds one row. Two rows stay, the third is taken back."""
    path = s.file([30, 10, 20])
    program = s.start(path)
    program.activate()
    program.brings("^Belgium$", "alt+v", "e", "b")
    program.keys("Right")  # the cross, in the middle
    wait_for("the read-out", lambda: any((node.name or "").startswith("Lat=+50.")
                                         for node in descendants(application(program))))
    shows(program, "Lambert belge")
    program.keys("Tab")
    program.type("1995-06-30")
    program.keys("shift+Tab", "Return")
    window = program.window("^Belgium$")
    place = dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window)
                 if "=" in line)
    x, y = int(place["X"]) + int(place["WIDTH"]) // 3, int(place["Y"]) + int(place["HEIGHT"]) // 2
    xdotool("mousemove", str(x), str(y))
    shows(program, "4/4")
    xdotool("click", "--repeat", "2", "--delay", "60", "1")
    shows(program, "5/5")
    program.keys("Escape")
    xdotool("windowactivate", "--sync", program.window("^Talpena$"))
    program.keys("alt+y")
    program.closes("^Belgium$")
    program.activate()
    program.keys("ctrl+s")
    wait_for("the save", lambda: os.path.exists(path[:-3] + "BAK"))
    wait_for("the new rows", lambda: os.path.exists(path) and len(s.rows(path)) == 5)
    for row in s.rows(path)[3:]:
        assert row[0] == "3" and row[42:47] == "EUR-M" and "1995-06-30" in row, row
    program.brings("^Belgium$", "alt+v", "e", "b")
    program.keys("Return", "Return")
    shows(program, "6/6")
    program.keys("Escape")
    xdotool("windowactivate", "--sync", program.window("^Talpena$"))
    program.keys("alt+n")
    program.closes("^Belgium$")
    shows(program, "5/5")
    program.kill()


SCENARIOS = [adds_a_row_on_the_map_by_keyboard, adds_rows_on_a_raster_map]
