"""Gazetteers of the user's own are set up, by keyboard."""

import os
import shutil
from dataclasses import dataclass

from driver import accessible, application, descendants, focused, wait_for, xdotool
from editor import closes_form, opens_form

DATA = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..", "shared", "data",
                    "db")
QUERY = "^Gazetteer$"
SETUP = "^Database setup$"


@dataclass
class Source:
    """A file of another maker's. `chosen` is what stands in the lists, from the table to the FIPS
    field, and `places` where: how many entries stand before it; None for what is chosen already."""
    file: str
    connect: str
    chosen: list
    places: list
    name: str  # found exactly, in so many rows
    found: int


# Real files have no coordinates: any numbers of theirs do.
REAL = [
    Source("mdb/testV1997.mdb", "", ["Table1", "A", "B", "C", "D", ""], [0, 0, 1, 2, 3, 0],
           "abcdefg", 1),
    Source("dbf/provincias_es.dbf", "dBase IV;",
           ["provincias_es", "Texto", "Texto", "Codigo", "Cod_CCAA", ""], [None, 1, 1, 0, 3, 0],
           "Burgos", 1),
    Source("paradox/County.DB", "Paradox 4.X;",
           ["County", "County", "County", "CountyID", "CountyID", "FIPS"], [None, 1, 1, 0, 0, 4],
           "Abbeville", 1),
]
SHIPPED = Source("tlpgazet.mdb", "", ["TLPGazet_Decoding", "Sort_Name", "Full_Name", "Latitude",
                                      "Longitude", ""], [0, 0, 1, 2, 3, 0], "Saint-Ghislain", 1)


def sources(s):
    """The real files, each in a folder of its own; without them the gazetteer that ships."""
    folder = DATA if os.path.isdir(DATA) else os.path.dirname(s.binary)
    for source in REAL if folder == DATA else [SHIPPED]:
        place = os.path.join(s.folder, source.connect[:5] or "access")
        os.makedirs(place, exist_ok=True)
        yield source, shutil.copy(os.path.join(folder, source.file), place)


def shows(program, text):
    wait_for(text, lambda: any(node.name == text for node in descendants(application(program))))


def opens_query(program):
    """From the form; its text has the keys."""
    return program.brings(QUERY, "F3")


def waits_for_rows(program):
    """The set-up has read the first rows of its table: they can be tested."""
    import pyatspi
    button = accessible(program, "Test", "push button", "Database setup")
    wait_for("the first rows", lambda: button.getState().contains(pyatspi.STATE_SENSITIVE), 60)


def takes_keys(program, title):
    """The keys go to that window from now on."""
    number = program.window(title)
    xdotool("windowactivate", "--sync", number)
    wait_for("the keys", lambda: xdotool("getwindowfocus") == [number]
             or xdotool("windowfocus", "--sync", number))


def tabs(program, window, key="Tab"):
    """The next control has the keys: a busy machine may take longer than keys wait."""
    before = focused(program, window)
    program.keys(key)
    wait_for("the next control", lambda: focused(program, window) != before)


def opens_setup(program):
    """The button Setup of the query."""
    for _ in range(3):
        tabs(program, "Gazetteer")
    program.keys("space")
    program.window(SETUP)
    waits_for_rows(program)
    takes_keys(program, SETUP)


def answers(program, title, path):
    """A file dialog that comes up."""
    number = program.window(title)
    xdotool("windowactivate", "--sync", number)
    program.enters(path)
    program.closes(title)


def fills_lists(program, source):
    """From the button Change on, with Tab, Home and Down. Reading the rows of a table takes keys
    away on a busy machine: each list shows its choice before the next one gets its keys."""
    for place, name in zip(source.places, source.chosen):
        tabs(program, "Database setup")
        if place is None:
            continue
        program.keys("Home", *["Down"] * place, pause=0.05)
        if name:
            wait_for(name, lambda wanted=name: focused(program, "Database setup").name == wanted)


def expected(source, path):
    lines = ["<TALPENA 2.0>", os.path.dirname(path) if source.connect else path, source.connect,
             "WGS84", *source.chosen, "", "", "", "", "-1", "0", "0", "-1"]
    return "".join(line + "\r\n" for line in lines)


def accepts_and_searches(program, query, source):
    """Ok, a name in the query, and back to the form."""
    takes_keys(program, SETUP)
    program.keys("Return")
    program.closes(SETUP)
    xdotool("windowactivate", "--sync", query)
    program.keys(*["shift+Tab"] * 3, "ctrl+a")
    program.enters(source.name)
    shows(program, str(source.found))
    program.keys("Escape")
    program.closes(QUERY)


def sets_up_gazetteers_by_keyboard(s):
    program = s.start(s.file([30]))
    program.activate()
    opens_form(program)
    kept = []
    for source, path in sources(s):
        query = opens_query(program)
        opens_setup(program)
        program.keys("shift+Tab", "space")
        answers(program, "^Open", path)
        fills_lists(program, source)
        waits_for_rows(program)
        setup = os.path.join(s.folder, f"{len(kept)}.cfg")
        program.keys("alt+s")
        answers(program, "^Save", setup)
        wait_for("the set-up", lambda name=setup: os.path.exists(name))
        with open(setup, encoding="cp1252", newline="") as file:
            found = file.read()
        assert found == expected(source, path), found
        accepts_and_searches(program, query, source)
        kept.append((source, setup))

    # Each of them opened again.
    for source, setup in kept:
        query = opens_query(program)
        opens_setup(program)
        for _ in range(7):
            tabs(program, "Database setup", "shift+Tab")
        program.keys("space")
        answers(program, "^Open", setup)
        accepts_and_searches(program, query, source)
    closes_form(program)
    program.keys("ctrl+q")
    assert program.ends() == 0


SCENARIOS = [sets_up_gazetteers_by_keyboard]
