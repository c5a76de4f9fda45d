"""What every test of the window has: the program, its stand-in Mac, files dragged into it."""

import functools
import subprocess
import threading
import unittest

from display import Display, wait_for
from mac import BUILD, StandInMac

display = Display()


def open_display(**options):
    """For a module's `setUpModule`."""
    unittest.addModuleCleanup(display.close)
    display.open(**options)


def pictured_on_failure(test):
    @functools.wraps(test)
    def run(self):
        try:
            test(self)
        except BaseException:
            display.do("mouseup", "1")  # no picture can be taken during a drag
            display.picture(BUILD / "tests" / f"{test.__name__}.png")
            raise
    return run


class Companion:
    """The program as a process, and what a user does with its window."""

    def __init__(self, mac, *arguments):
        from accessibility import Program  # only now is there a bus to speak on
        self._log = mac.root.parent / "companion.log"
        with self._log.open("ab") as log:
            self.process = display.start(str(BUILD / "bin/nestlet-companion"), *arguments,
                                         environment=mac.environment, stdout=log, stderr=log)
        self._program = Program(self.process.pid)
        self.widgets = self._program.widgets
        self.look = self._program.look
        self.find = self._program.find
        self.names = self._program.names
        self.focused = self._program.focused
        self.wait_for_focus = self._program.wait_for_focus
        self.wait_until_gone = self._program.wait_until_gone

    def output(self):
        return self._log.read_text(errors="replace")

    def complaints(self):
        # Where the Dock has not come back yet, there is none to restart, and the tool says so.
        nobody = "No matching processes belonging to you were found\n"
        return self.output().replace(nobody, "")

    def kill(self):
        self.process.kill()
        self.process.wait()

    def row(self, name):
        return self.find("list item", name)

    def folder_names(self):
        """As the sidebar shows them, without the one that Nestlet manages itself."""
        sidebar = self.find("list", "Dock Folders")
        rows = sorted(sidebar.shown_children(), key=lambda row: row.place()[1])
        return [row.name for row in rows if row.description != "Belongs to the App Store app"]

    def click(self, role, name):
        display.click(self.find(role, name).centre())

    def press(self, role, name):
        """As an assistive program does, without pointer and keys."""
        self.find(role, name).press()

    def choose(self, menu, entry):
        self.click("push button", menu)
        self.click("menu item", entry)

    def wait_for_caption(self, name, caption, during=lambda: None):
        def has_caption():
            during()
            row = self.look("list item", name)
            return row and row.description == caption
        wait_for(f"“{name}” to be “{caption}”", has_caption, 60)

    def rename(self, old, new):
        self.click("list item", old)
        wait_for(f"the name {old}", lambda: self.find("text", "Folder name").text() == old)
        self.click("text", "Folder name")
        display.key("ctrl+a")
        display.type(new)
        display.key("Return")
        self.row(new.strip())


class FileManager:
    """Another program, out of whose window one drags files."""

    def __init__(self, paths):
        self._process = display.start(str(BUILD / "tests/window_dragsource"), *map(str, paths),
                                      stdout=subprocess.PIPE, text=True)
        self._words = []
        self._listener = threading.Thread(target=self._listen, daemon=True)

    def _listen(self):
        for line in self._process.stdout:
            self._words.append(line.strip())

    def _wait_for(self, words):
        wait_for(f"“{words}” after {self._words} from the drag's source",
                 lambda: self._words[-1:] == [words])

    def __enter__(self):
        self._listener.start()
        self._wait_for("ready")
        return self

    def drag_to(self, place):
        """Holds the files over a point that accepts them."""
        display.begin_drag((60, 50), place)
        wait_for("the files to be accepted", lambda: self._is_accepted_at(place))

    # A drag is told of nothing but movements, so the hand trembles.
    def _is_accepted_at(self, place):
        if self._words[-1:] == ["accepted"]:
            return True
        display.tremble(place)
        return False

    def let_go(self, place):
        display.let_go(place)
        self._wait_for("copied")

    def __exit__(self, *_):
        self._process.kill()
        self._process.wait()
        self._listener.join()
        self._process.stdout.close()


class WindowTest(unittest.TestCase):
    def setUp(self):
        self.mac = StandInMac(display)
        self.addCleanup(self.mac.close)
        self.addCleanup(self.mac.end_programs)
        self.prepare()
        self.start_dock()
        display.park_pointer()
        self.companion = self.start_companion()

    def prepare(self):
        """What a test does to its Mac before anything runs on it."""

    def start_dock(self):
        self.mac.start_dock()

    def start_companion(self):
        companion = Companion(self.mac)
        companion.find("push button", "New Dock Folder")
        return companion

    def drop(self, paths, target, folder, expected):
        """A drag out of another program, let go over a point of the window; then the folder holds
        the expected items. The source must live until it has been asked for its data."""
        with FileManager(paths) as source:
            source.drag_to(target)
            source.let_go(target)
            self.wait_for_items(folder, expected)

    def wait_for_items(self, folder, expected, during=lambda: None):
        def are_there():
            during()
            return self.mac.item_names(folder) == expected
        wait_for(f"{expected} in {folder}", are_there)

    def wait_for_field(self, folder, field, expected):
        def has_it():
            return self.mac.folders().get(folder, {}).get(field) == expected
        wait_for(f"{expected} as {field} of {folder}", has_it)

    def wait_for_order(self, expected):
        wait_for(f"the folders {expected}", lambda: list(self.mac.folders()) == expected,
                 60)
        self.wait_for_rows(expected)

    def wait_for_rows(self, expected):
        wait_for(f"the rows {expected}", lambda: self.companion.folder_names() == expected, 60)

    def identifier_of(self, name):
        return self.mac.identifier_of(name)

    def wait_for_copy(self, identifier, other_than=()):
        def copies():
            return [pid for pid in self.mac.copies(identifier) if pid not in other_than]
        return wait_for(f"a process of {identifier}", copies, 60)[0]

    def show_in_dock(self, name):
        self.companion.click("list item", name)
        self.companion.click("push button", "Show in Dock")
        self.companion.wait_for_caption(name, "Ready in Dock")
        return self.wait_for_copy(self.identifier_of(name))
