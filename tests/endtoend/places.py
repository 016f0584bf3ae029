"""The gazetteer that ships, by keyboard: a label's place comes into the record and into the file."""

from driver import accessible, application, descendants, text_of, wait_for, xdotool
from editor import FORM, closes_form, columns, form_control, opens_form, saves_file

QUERY = "^Gazetteer$"
READY = ("From the second letter on, places appear here; "
         "Arrow down goes to them, Enter takes one.")


def shows(program, name):
    """Waits until the window shows a text: a gazetteer that was never read before takes its time on
    a busy machine, and its wait window the keys."""
    def found():
        for window in application(program):
            if window is not None and window.name == "Gazetteer":
                return any(node.name == name and node.getRoleName() == "label"
                           for node in descendants(window))
        return False

    wait_for(f"the text {name}", found, 90)


def fills_a_record_from_the_gazetteer_by_keyboard(s):
    path = s.file([30])
    program = s.start(path)
    program.activate()
    opens_form(program)
    program.keys("ctrl+n", pause=0)
    wait_for("the new row", lambda: text_of(form_control(program, "Period", "text")) == "")
    program.enters("2")
    program.enters("19980714")
    program.brings(QUERY, "F3")
    shows(program, READY)
    program.type("saint-ghis")
    shows(program, "Saint-Ghislain")
    program.keys("Down", "Return")
    program.closes(QUERY)
    xdotool("windowactivate", "--sync", program.window(FORM))
    wait_for("the point", lambda: text_of(
        form_control(program, "Latitude", "text")).startswith("+50.4"))

    # The list is still there; the exact key of another place, by the button.
    program.brings(QUERY, "F3")
    program.type("bastogne")
    program.keys("Return")
    shows(program, "Bastogne")
    assert accessible(program, "1", "label", window="Gazetteer") is not None
    program.keys("Escape")
    program.closes(QUERY)
    xdotool("windowactivate", "--sync", program.window(FORM))
    program.keys("ctrl+Return")
    closes_form(program)

    saves_file(program, path, lambda: len(s.rows(path)) == 2)
    row = columns(s.rows(path)[1])
    assert row["original"].startswith("deg 50.44"), row
    assert row["datum"] == "WGS84", row
    assert abs(row["latitude"] - 50.448) < 0.01 and abs(row["longitude"] - 3.819) < 0.01, row
    assert row["comment"].startswith("Saint-Ghislain"), row
    program.keys("ctrl+q")
    assert program.ends() == 0
    s.saves_the_same_again(path)


SCENARIOS = [fills_a_record_from_the_gazetteer_by_keyboard]
