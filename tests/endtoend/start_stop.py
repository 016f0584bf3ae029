"""Starting, ending, crashing."""

import os
import signal

from driver import wait_for, xdotool


def second_instance_tells_and_ends(s):
    path = s.file([1, 2])
    first = s.start(path)
    first.activate()
    database = os.path.join(s.folder, "temp", "talpena_tmp.mdb")
    before = os.stat(database)
    second = s.start(path)
    box = second.window("^Talpena$")
    xdotool("windowactivate", "--sync", box)
    second.keys("Return")
    assert second.ends() == 0
    after = os.stat(database)
    assert (before.st_ino, before.st_size, before.st_mtime_ns) == (
        after.st_ino, after.st_size, after.st_mtime_ns)
    assert first.process.poll() is None


def starts_again_after_a_crash(s):
    path = s.file([1, 2])
    first = s.start(path)
    first.activate()
    first.process.send_signal(signal.SIGKILL)
    first.ends()
    assert os.path.exists(os.path.join(s.folder, "temp", "talpena_tmp.mdb"))
    second = s.start(path)
    second.activate()
    second.keys("ctrl+q")
    assert second.ends() == 0


def cancel_at_the_close_box_closes_without_settings(s):
    path = s.file([1, 2])
    before = open(path, "rb").read()
    program = s.start(path)
    window = program.activate()
    program.keys("ctrl+Home")
    program.type("3")
    program.keys("Return")
    xdotool("windowactivate", "--sync", window)
    program.keys("alt+F4")
    box = program.window("^Talpena$")
    xdotool("windowactivate", "--sync", box)
    program.keys("Escape")
    assert program.ends() == 0
    assert open(path, "rb").read() == before
    stored = os.path.join(s.folder, "config")
    texts = "".join(open(os.path.join(base, f), encoding="utf-8").read()
                    for base, _, files in os.walk(stored) for f in files)
    assert "ColWidth" not in texts


def starts_through_a_link_and_takes_blanks(s):
    link = os.path.join(s.folder, "start here")
    os.symlink(s.binary, link)
    path = s.file([1, 2, 3], "my moles.deg")
    program = s.start(*path.split(" "), binary=link)
    window = program.activate()
    title = " ".join(xdotool("getwindowname", window))
    assert title == "Talpena - " + path, title
    program.keys("ctrl+q")
    assert program.ends() == 0


def takes_pictures(s):
    pictures = os.path.join(s.folder, "pictures")
    program = s.start(pictures, s.file([1, 2, 3]), binary=os.environ["TALPENA_TAKE_PICTURES"])
    assert program.ends(60) == 0
    names = set(os.listdir(pictures))
    for window in ["main", "about", "periods", "datum"]:
        for language in ["en", "fr", "de", "it", "nl"]:
            for light in ["", "_dark"]:
                assert f"{window}_{language}{light}.png" in names, names


SCENARIOS = [second_instance_tells_and_ends, starts_again_after_a_crash,
             cancel_at_the_close_box_closes_without_settings,
             starts_through_a_link_and_takes_blanks, takes_pictures]
