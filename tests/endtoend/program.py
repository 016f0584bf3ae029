"""Runs one scenario with the real program: program.py BIN_DIR SCENARIO. Exit status 77 when a tool
for that is missing."""

import os
import shutil
import subprocess
import sys
import tempfile

import analyses
import editor
import exports
import faults
import gazetteers
import kills
import lists
import maps
import places
import start_stop
import table
import waits
import waypoints
from driver import Scenario, wait_for, xdotool

SKIPPED = 77
NEEDED = ["Xvfb", "xdotool", "openbox", "dbus-run-session"]
SCENARIOS = (start_stop.SCENARIOS + table.SCENARIOS + editor.SCENARIOS + maps.SCENARIOS
             + lists.SCENARIOS + waits.SCENARIOS + waypoints.SCENARIOS + kills.SCENARIOS
             + faults.SCENARIOS + exports.SCENARIOS + gazetteers.SCENARIOS + places.SCENARIOS
             + analyses.SCENARIOS)


class WindowManager:
    """Without one no window has the keys, and no shortcut works. It ends at once when the screen
    does not answer yet, and is begun anew then."""

    def __init__(self):
        self.process = None
        wait_for("the window manager", self.manages)

    def manages(self):
        if self.process is None or self.process.poll() is not None:
            self.process = subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL,
                                            stderr=subprocess.DEVNULL)
        return xdotool("get_num_desktops") not in ([], ["0"]) and self.process.poll() is None

    def ends(self):
        self.process.terminate()
        self.process.wait()


def inside(binary, name):
    manager = WindowManager()
    import pyatspi
    pyatspi.Registry.getDesktop(0)  # the program joins the accessibility bus when it is up
    scenario = Scenario(binary)
    try:
        {f.__name__: f for f in SCENARIOS}[name](scenario)
    finally:
        scenario.clean()
        manager.ends()


def main():
    bin_dir, name = sys.argv[1:3]
    if "TALPENA_INSIDE_X" in os.environ:
        inside(os.path.abspath(os.path.join(bin_dir, "talpena")), name)
        return 0
    failing = name in [f.__name__ for f in faults.SCENARIOS]
    missing = [tool for tool in NEEDED + (["strace"] if failing else [])
               if shutil.which(tool) is None]
    try:
        import pyatspi  # noqa: F401
    except ImportError:
        missing.append("python3-pyatspi")
    if missing:
        print("skipped, missing:", *missing)
        return SKIPPED
    with tempfile.TemporaryDirectory(prefix="talpena-screen-") as screen:
        environment = dict(os.environ, TALPENA_INSIDE_X="1", TALPENA_FRAMEBUFFER=screen)
        environment.pop("WAYLAND_DISPLAY", None)
        return subprocess.run(
            ["xvfb-run", "-a", "-s", f"-screen 0 1400x900x24 -fbdir {screen}",
             "dbus-run-session", "--", sys.executable, os.path.abspath(__file__), bin_dir, name],
            env=environment, check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
