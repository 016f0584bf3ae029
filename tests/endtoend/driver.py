"""The real program under a real X server: keys and pointer by xdotool, what is on screen by the
accessibility tree."""

import os
import re
import shutil
import subprocess
import tempfile
import time

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

    def __init__(self, binary, folder, arguments, cwd="/", environment=None):
        self.environment = dict(os.environ, HOME=folder, TEMP=os.path.join(folder, "temp"),
                                XDG_CONFIG_HOME=os.path.join(folder, "config"),
                                XDG_CACHE_HOME=os.path.join(folder, "cache"),
                                XDG_RUNTIME_DIR=os.path.join(folder, "run"),
                                QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        os.makedirs(self.environment["TEMP"], exist_ok=True)
        os.makedirs(self.environment["XDG_RUNTIME_DIR"], mode=0o700, exist_ok=True)
        self.environment.update(environment or {})
        self.process = subprocess.Popen([binary, *arguments], env=self.environment, cwd=cwd,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def window(self, title):
        return wait_for(f"window {title}", lambda: xdotool(
            "search", "--all", "--onlyvisible", "--pid", str(self.process.pid), "--name", title))[-1]

    def activate(self, title="^Talpena - "):
        """Waits until the file is loaded: the window that says so has closed, and the status bar
        tells the row."""
        number = self.window(title)
        wait_for("the load", lambda: not xdotool(
            "search", "--all", "--onlyvisible", "--pid", str(self.process.pid), "--name",
            "^Talpena$"))
        wait_for("the rows", lambda: any(
            re.fullmatch(r"\d+/\d+", node.name or "") for node in descendants(application(self))))
        time.sleep(0.3)
        xdotool("windowactivate", "--sync", number)
        # A window manager that takes it for the active one does not give it the keys anew.
        wait_for("the keys", lambda: xdotool("getwindowfocus") == [number]
                 or xdotool("windowfocus", "--sync", number))
        return number

    def brings(self, title, *names):
        """Presses keys until a window comes up, and activates it: a program that is still busy
        with the command before does not hear them."""
        def press():
            self.keys(*names)
            end = time.monotonic() + 3
            while time.monotonic() < end:
                found = xdotool("search", "--all", "--onlyvisible", "--pid", str(self.process.pid),
                                "--name", title)
                if found:
                    return found[-1]
                time.sleep(0.05)
            return None

        number = wait_for(f"window {title}", press)
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

    def type(self, text, pause=0.15):
        xdotool("type", "--delay", "15", text)
        time.sleep(pause)

    def enters(self, text):
        """A text and Return, for the window that has the keys already."""
        self.type(text, pause=0)
        self.keys("Return", pause=0)

    def closes(self, title):
        """Waits until no window of that title is left."""
        wait_for(f"the end of window {title}", lambda: not xdotool(
            "search", "--all", "--onlyvisible", "--pid", str(self.process.pid), "--name", title))

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

    def start(self, *arguments, binary=None, **environment):
        """Further names are variables of the program's environment."""
        program = Program(binary or self.binary, self.folder, arguments, environment=environment)
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

    def saves_the_same_again(self, path):
        """A file that was read back is written as it stands."""
        first = self.bytes(path)
        again = self.start(path)
        again.activate()
        before = os.stat(path).st_ino
        again.keys("ctrl+s")
        wait_for("the save", lambda: os.path.exists(path) and os.stat(path).st_ino != before)
        assert self.bytes(path) == first
        again.keys("ctrl+q")
        assert again.ends() == 0

    @staticmethod
    def bytes(path):
        with open(path, "rb") as file:
            return file.read()

    def clean(self):
        for program in self.running:
            program.kill()
        shutil.rmtree(self.folder, ignore_errors=True)


def application(program):
    """The root of the program's accessibility tree."""
    import pyatspi

    def search():
        for node in pyatspi.Registry.getDesktop(0):
            if node is not None and node.get_process_id() == program.process.pid:
                return node
        return None

    return wait_for("the accessibility tree", search)


def descendants(node):
    """Every control below a node; rows of a table and entries of menus are left out."""
    for child in node:
        if child is None:
            continue
        yield child
        if child.getRoleName() not in ("table", "menu bar"):
            yield from descendants(child)


def controls(program, window=None):
    """Those of the program; with `window`, those of the window of that title."""
    root = application(program)
    if window is not None:
        root = next((top for top in root if top is not None and top.name == window), None)
    return descendants(root) if root is not None else ()


def accessible(program, name, role=None, window=None):
    """The control of that accessible name."""
    def search():
        for node in controls(program, window):
            if node.name == name and role in (None, node.getRoleName()):
                return node
        return None

    return wait_for(f"control {name}", search)


def text_of(node):
    """The text that a control shows."""
    try:
        content = node.queryText()
    except NotImplementedError:
        return node.name
    return content.getText(0, content.characterCount)


def focused(program, window=None):
    """The control that has the keys; a window behind another one says it of one of its own too."""
    import pyatspi

    def search():
        for node in controls(program, window):
            if node.getState().contains(pyatspi.STATE_FOCUSED):
                return node
        return None

    return wait_for("a control with the keys", search)
