"""Saves in which system calls fail, and one that is killed where files cannot have two names."""

import os
import shutil

from driver import application, descendants, wait_for, xdotool
from exports import opens_database_export, saves_to, says as shows
from kills import Killed, left_overs

BOX = "^Talpena$"


def says(program, part):
    """Waits for a box and what it says; the keys are then its own."""
    number = program.window(BOX)
    wait_for(part, lambda: any(part in (node.name or "") for node in descendants(
        application(program))))
    xdotool("windowactivate", "--sync", number)


class Faulty(Killed):
    """A file whose save meets the faults that are asked for. Only a save links and renames; the
    first sync belongs to the start."""

    def injects(self, *faults):
        program = self.s.start("-D", "-f", "-o", "/dev/null", "-e", "trace=link,rename,fsync",
                               *[word for fault in faults for word in ("-e", "inject=" + fault)],
                               self.s.binary, self.path, binary=shutil.which("strace"))
        program.activate()
        return program

    def quits(self, program):
        program.keys("ctrl+q")
        assert program.ends() == 0
        assert left_overs(self.folder) == []


def prepares(s):
    test = Faulty(s)
    test.again()
    program = test.starts()
    test.saves(program)
    test.quits(program)
    os.remove(test.backup)
    test.again()
    return test


def saves_where_files_cannot_have_two_names(s):
    test = prepares(s)
    program = test.injects("link:error=EPERM")
    test.saves(program)
    wait_for("the backup", lambda: os.path.exists(test.backup))
    assert s.bytes(test.backup) == test.before
    test.quits(program)
    # Killed between the two renames: the new text is whole, and the next start offers it.
    os.remove(test.backup)
    test.again()
    program = test.injects("link:error=EPERM", "rename:signal=KILL:when=3")
    xdotool("key", "--clearmodifiers", "ctrl+s")
    program.ends()
    assert not os.path.exists(test.path)
    assert s.bytes(test.backup) == test.before
    assert [s.bytes(os.path.join(test.folder, name)) for name in left_overs(test.folder)] == [
        test.after]
    program = s.start(test.path)
    says(program, left_overs(test.folder)[0])
    program.keys("alt+y")
    program.activate()
    xdotool("key", "--clearmodifiers", "ctrl+s")
    wait_for("the save", lambda: os.path.exists(test.path))
    assert s.bytes(test.path) == test.after
    test.quits(program)


def keeps_the_former_file_where_the_new_one_cannot_take_its_place(s):
    test = prepares(s)
    for faults in (["rename:error=EIO:when=2+"], ["link:error=EIO", "rename:error=EACCES"],
                   ["fsync:error=ENOSPC:when=2+"]):
        program = test.injects(*faults)
        xdotool("key", "--clearmodifiers", "ctrl+s")
        says(program, "Erreur pendant la sauvegarde")
        program.keys("alt+n")
        says(program, "The former file stands unchanged.")
        program.keys("Return")
        program.closes(BOX)
        assert s.bytes(test.path) == test.before
        wait_for("the end of the save", lambda: left_overs(test.folder) == [])
        program.kill()  # the settings cannot be saved either


def exports_table(s, program, name):
    """A dBase table without the second number, over the one that stands."""
    opens_database_export(program, 3)
    program.keys("alt+2", "Return")
    saves_to(program, name)
    program.window(BOX)
    xdotool("key", "--clearmodifiers", "y")


def ends_an_export_that_was_killed_between_its_files(s):
    path = s.file([30, 10, 20])
    table, memos = (os.path.join(s.folder, name) for name in ("my.dbf", "my.dbt"))
    program = s.start(path)
    program.activate()
    opens_database_export(program, 3)
    program.keys("Return")
    saves_to(program, table)
    wait_for("the notice", lambda: shows(program, "3 rows written and read back"))
    program.keys("ctrl+q")
    assert program.ends() == 0
    former = s.bytes(table)
    # The second former file is still there; the first new one has its place.
    for call, told in ((2, "the former files are back"), (5, "they stand there now")):
        program = s.start("-D", "-f", "-o", "/dev/null", "-e", "trace=renameat2", "-e",
                          f"inject=renameat2:signal=KILL:when={call}", s.binary, path,
                          binary=shutil.which("strace"))
        program.activate()
        exports_table(s, program, table)
        program.ends()
        assert len(left_overs(s.folder)) == 1
        program = s.start(path)
        says(program, told)
        program.keys("Return")
        program.closes(BOX)
        assert left_overs(s.folder) == []
        assert os.path.exists(memos)
        assert (s.bytes(table) == former) == (call == 2)
        program.activate()
        program.keys("ctrl+q")
        assert program.ends() == 0


SCENARIOS = [ends_an_export_that_was_killed_between_its_files,
             saves_where_files_cannot_have_two_names,
             keeps_the_former_file_where_the_new_one_cannot_take_its_place]
