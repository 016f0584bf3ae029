"""Drives the real program under a real X server: keys and pointer by xdotool, what is on screen by
the accessibility tree. Each scenario is a test of its own: program.py BIN_DIR SCENARIO"""

import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
NEEDED = ["Xvfb", "xdotool", "openbox", "dbus-run-session"]

ROW = "{period}K+50.10000   4.50000{n1:5d}    01990/01/01 WGS84deg +50.10000 +004.50000{text}"
HEAD = ["<TALPENA 2.0>", "WGS84", "<END>", "Moles", "A comment",
        " 0000 - 1949   1950 - 1989   1990 - 2011",
        "NIND1=000001 OCC1=000001 CAR1=000001 NIND2=000001 OCC2=000001 CAR2=000001"
        " NIND3=000001 OCC3=000001 CAR3=000001", "A comment"]


def wait_for(what, condition, seconds=20):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.05)
    raise AssertionError(f"waited in vain for {what}")


def xdotool(*arguments):
    done = subprocess.run(["xdotool", *arguments], capture_output=True, text=True, check=False)
    return done.stdout.split()


class Program:
    """One running Talpena with settings and temporary folder of its own."""

    def __init__(self, binary, folder, arguments, cwd="/"):
        self.environment = dict(os.environ, HOME=folder, TEMP=os.path.join(folder, "temp"),
                                XDG_CONFIG_HOME=os.path.join(folder, "config"),
                                XDG_CACHE_HOME=os.path.join(folder, "cache"),
                                XDG_RUNTIME_DIR=os.path.join(folder, "run"),
                                QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        os.makedirs(self.environment["TEMP"], exist_ok=True)
        os.makedirs(self.environment["XDG_RUNTIME_DIR"], mode=0o700, exist_ok=True)
        self.process = subprocess.Popen([binary, *arguments], env=self.environment, cwd=cwd,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def window(self, title):
        return wait_for(f"window {title}", lambda: xdotool(
            "search", "--all", "--onlyvisible", "--pid", str(self.process.pid), "--name", title))[-1]

    def activate(self, title="^Talpena - "):
        """Waits until the file is loaded: the window that says so has closed."""
        number = self.window(title)
        wait_for("the load", lambda: not xdotool(
            "search", "--all", "--onlyvisible", "--pid", str(self.process.pid), "--name",
            "^Talpena$"))
        time.sleep(0.3)
        xdotool("windowactivate", "--sync", number)
        return number

    def keys(self, *names, pause=0.15):
        for name in names:
            xdotool("key", "--clearmodifiers", name)
            time.sleep(pause)

    def menu(self, *names):
        """Keys through menus, each of which has to open before the next key."""
        self.keys(*names, pause=0.6)
        time.sleep(1)

    def type(self, text):
        xdotool("type", "--delay", "15", text)
        time.sleep(0.15)

    def ends(self, seconds=15):
        return self.process.wait(seconds)

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()


class Scenario:
    def __init__(self, binary):
        self.binary = binary
        self.folder = tempfile.mkdtemp(prefix="talpena-endtoend-")
        self.running = []

    def start(self, *arguments, binary=None):
        program = Program(binary or self.binary, self.folder, arguments)
        self.running.append(program)
        return program

    def file(self, numbers, name="moles.deg"):
        path = os.path.join(self.folder, name)
        lines = HEAD + [ROW.format(period=1 + i % 3, n1=n, text=f"row {i}")
                        for i, n in enumerate(numbers)]
        with open(path, "w", encoding="cp1252", newline="") as out:
            out.write("".join(line + "\r\n" for line in lines))
        return path

    def rows(self, path):
        with open(path, encoding="cp1252", newline="") as lines:
            return lines.read().split("\r\n")[len(HEAD):-1]

    def clean(self):
        for program in self.running:
            program.kill()
        shutil.rmtree(self.folder, ignore_errors=True)


def accessible(program, name, role=None):
    """The control of that accessible name in the program's tree."""
    import pyatspi

    def search(node):
        if node is None:
            return None
        if node.name == name and (role is None or node.getRoleName() == role):
            return node
        for child in node:
            if child is not None and child.getRoleName() in ("table", "menu bar"):
                if child.name == name and role in (None, child.getRoleName()):
                    return child
                continue
            found = search(child)
            if found is not None:
                return found
        return None

    def application():
        for node in pyatspi.Registry.getDesktop(0):
            if node is not None and node.get_process_id() == program.process.pid:
                return search(node)
        return None

    return wait_for(f"control {name}", application)


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
    first = open(path, "rb").read()
    again = s.start(path)
    again.activate()
    again.keys("ctrl+s")
    time.sleep(1)
    assert open(path, "rb").read() == first, "a file that was read back saves the same"
    again.keys("ctrl+q")
    assert again.ends() == 0


def sorts_and_keeps_a_refused_cell_in_edit(s):
    path = s.file([30, 10, 20])
    program = s.start(path)
    program.activate()
    # Out of the table, over Open, Save and New to the sort list; its fifth entry is a number.
    program.keys("ctrl+Tab", "Tab", "Tab", "Tab", "Down", "Down", "Down", "Down")
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
    os.environ["TALPENA_PICTURES"] = pictures
    program = s.start(s.file([1, 2, 3]))
    assert program.ends(60) == 0
    names = set(os.listdir(pictures))
    for window in ["main", "about", "periods", "datum"]:
        for language in ["en", "fr", "de", "it", "nl"]:
            for light in ["", "_dark"]:
                assert f"{window}_{language}{light}.png" in names, names


SCENARIOS = [opens_edits_saves_by_keyboard, sorts_and_keeps_a_refused_cell_in_edit,
             adjusts_and_fills_by_keyboard,
             second_instance_tells_and_ends, starts_again_after_a_crash,
             cancel_at_the_close_box_closes_without_settings,
             starts_through_a_link_and_takes_blanks, takes_pictures]


def inside(binary, name):
    manager = subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for("the window manager", lambda: xdotool("get_num_desktops"))
    import pyatspi
    pyatspi.Registry.getDesktop(0)  # the program joins the accessibility bus when it is up
    scenario = Scenario(binary)
    try:
        {f.__name__: f for f in SCENARIOS}[name](scenario)
    finally:
        scenario.clean()
        manager.terminate()


def main():
    bin_dir, name = sys.argv[1:3]
    if "TALPENA_INSIDE_X" in os.environ:
        inside(os.path.abspath(os.path.join(bin_dir, "talpena")), name)
        return 0
    missing = [tool for tool in NEEDED if shutil.which(tool) is None]
    try:
        import pyatspi  # noqa: F401
    except ImportError:
        missing.append("python3-pyatspi")
    if missing:
        print("skipped, missing:", *missing)
        return SKIPPED
    environment = dict(os.environ, TALPENA_INSIDE_X="1")
    environment.pop("WAYLAND_DISPLAY", None)
    return subprocess.run(
        ["xvfb-run", "-a", "-s", "-screen 0 1400x900x24", "dbus-run-session", "--",
         sys.executable, os.path.abspath(__file__), bin_dir, name],
        env=environment, check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
