"""Starting, ending, crashing."""

import fcntl
import os
import signal
import time

from driver import accessible, application, descendants, wait_for, xdotool


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


def second_instance_in_another_session_tells_and_ends(s):
    path = s.file([1, 2])
    first = s.start(path)
    first.activate()
    for other in [os.path.join(s.folder, "run2"), os.path.join(s.folder, "none"), ""]:
        if other.endswith("run2"):
            os.makedirs(other, mode=0o700)
        second = s.start(path, XDG_RUNTIME_DIR=other)
        xdotool("windowactivate", "--sync", second.window("^Talpena$"))
        second.keys("Return")
        assert second.ends() == 0
    assert first.process.poll() is None


def working_folders_of_no_use(s):
    """Values of TEMP under a name; in some, what stands in the database's place is held."""
    def inside(name):
        folder = os.path.join(s.folder, name)
        os.makedirs(folder)
        return folder, os.path.join(folder, "talpena_tmp.mdb")

    yield "missing", os.path.join(s.folder, "none")
    yield "a file", s.file([1], "a file")
    yield "a device", "/dev/null"
    yield "of the system", "/proc"
    pipe = os.path.join(s.folder, "pipe")
    os.mkfifo(pipe)
    yield "a pipe", pipe
    circle = os.path.join(s.folder, "circle")
    os.symlink(circle, circle)
    yield "a link to itself", circle
    folder, database = inside("with a pipe")
    os.mkfifo(database)
    yield "with a pipe", folder
    folder, database = inside("with a link")
    os.symlink(os.path.join(s.folder, "elsewhere"), database)
    yield "with a link", folder
    folder, database = inside("with a folder")
    os.makedirs(database)
    yield "with a folder", folder
    folder, database = inside("in use")
    with open(database, "wb") as held:
        held.write(b"rows")
        held.flush()
        fcntl.lockf(held, fcntl.LOCK_EX)
        yield "in use", folder


def starts_where_the_working_folder_is_of_no_use(s):
    path = s.file([1, 2])
    for name, folder in working_folders_of_no_use(s):
        program = s.start(path, TEMP=folder)
        program.activate()
        shown = [node.name for node in descendants(application(program)) if node.name]
        assert any(text.startswith("The working folder cannot be used") for text in shown), name
        program.keys("ctrl+q")
        assert program.ends() == 0, name
        assert not os.path.exists(os.path.join(s.folder, "elsewhere"))


def presses(program, name):
    accessible(program, name).queryAction().doAction(0)


def tells_when_no_folder_can_be_used_and_ends(s):
    path = s.file([1, 2])
    first = s.start(path, TEMP=os.path.join(s.folder, "none"), XDG_CACHE_HOME="/proc/none")
    presses(first, "OK")
    assert first.ends() == 0
    second = s.start(path)
    second.activate()
    second.keys("ctrl+q")
    assert second.ends() == 0


def waits_for_nothing_that_is_no_file(s):
    path = s.file([1, 2])
    config = os.path.join(s.folder, "config", "Talpena")
    os.makedirs(config)
    # What a killed process left of a lock does not hold up the end.
    with open(os.path.join(config, "talpena.ini.lock"), "wb"):
        pass
    program = s.start(path)
    program.activate()
    before = time.monotonic()
    program.keys("ctrl+q")
    assert program.ends() == 0
    assert time.monotonic() - before < 10
    assert os.path.exists(os.path.join(config, "talpena.ini"))
    # A pipe in place of the settings: the defaults at the start, an error at the end.
    os.remove(os.path.join(config, "talpena.ini"))
    os.mkfifo(os.path.join(config, "talpena.ini"))
    program = s.start(path)
    program.activate()
    program.keys("ctrl+q")
    presses(program, "OK")
    assert program.ends() == 0
    # A pipe in place of the catalogue of datums.
    pipe = os.path.join(s.folder, "DATUM.MDB")
    os.mkfifo(pipe)
    with open(os.path.join(config, "tlp.ini"), "w", encoding="ascii") as settings:
        settings.write(f"[Datum]\nDB={pipe}\n")
    program = s.start(path)
    presses(program, "OK")
    wait_for("the window", lambda: program.window("^Talpena - "))


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


SCENARIOS = [second_instance_tells_and_ends, second_instance_in_another_session_tells_and_ends,
             starts_where_the_working_folder_is_of_no_use,
             tells_when_no_folder_can_be_used_and_ends, waits_for_nothing_that_is_no_file,
             starts_again_after_a_crash,
             cancel_at_the_close_box_closes_without_settings,
             starts_through_a_link_and_takes_blanks, takes_pictures]
