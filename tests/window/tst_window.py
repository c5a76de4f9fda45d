#!/usr/bin/env python3
"""The real program on a real screen: found by what assistive programs see, worked with pointer and
keys, judged by what it leaves on the stand-in Mac."""

import functools
import subprocess
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from display import Display, Process, wait_for  # noqa: E402
from mac import BUILD, StandInMac  # noqa: E402

display = Display()


def setUpModule():
    unittest.addModuleCleanup(display.close)
    display.open()


def pictured_on_failure(test):
    @functools.wraps(test)
    def run(self):
        try:
            test(self)
        except BaseException:
            display.picture(BUILD / "tests" / f"{test.__name__}.png")
            raise
    return run


class Companion:
    """The program as a process, and what a user does with its window."""

    def __init__(self, mac):
        from accessibility import Program  # only now is there a bus to speak on
        self._log = mac.root.parent / "companion.log"
        with self._log.open("ab") as log:
            self.process = display.start(str(BUILD / "bin/nestlet-companion"),
                                         environment=mac.environment, stdout=log, stderr=log)
        self._program = Program(self.process.pid)
        self.look = self._program.look
        self.find = self._program.find
        self.names = self._program.names

    def output(self):
        return self._log.read_text(errors="replace")

    def kill(self):
        self.process.kill()
        self.process.wait()

    def row(self, name):
        return self.find("list item", name)

    def click(self, role, name):
        display.click(self.find(role, name).centre())

    def choose(self, menu, entry):
        self.click("push button", menu)
        self.click("menu item", entry)

    def wait_for_caption(self, name, caption):
        def has_caption():
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


class WindowTest(unittest.TestCase):
    def setUp(self):
        self.mac = StandInMac(display)
        self.addCleanup(self.mac.close)
        self.addCleanup(self.end_programs)
        display.start(str(BUILD / "bin/sandbox-dock"), str(self.mac.root),
                      environment=self.mac.environment)
        self.companion = self.start_companion()

    def end_programs(self):
        display.end(self.mac.environment)

    def start_companion(self):
        companion = Companion(self.mac)
        companion.find("push button", "New Dock Folder")
        return companion

    def drop(self, paths, target, folder, expected):
        """A drag out of another program, let go over a point of the window; then the folder holds
        the expected items. The source must live until it has been asked for its data."""
        source = display.start(str(BUILD / "tests/window_dragsource"), *map(str, paths),
                               stdout=subprocess.PIPE, text=True)
        try:
            self.assertEqual(source.stdout.readline(), "ready\n")
            display.drag((60, 50), target)
            self.assertEqual(source.stdout.readline(), "copied\n")
            wait_for(f"{expected} in {folder}", lambda: self.mac.item_names(folder) == expected)
        finally:
            source.kill()
            source.wait()
            source.stdout.close()

    def identifier_of(self, name):
        folder_id = self.mac.folders()[name]["id"]
        return "qx.Nestlet.folder." + folder_id.replace("-", "").lower()

    def wait_for_copy(self, identifier, other_than=()):
        def copies():
            return [pid for pid in self.mac.copies(identifier) if pid not in other_than]
        return wait_for(f"a process of {identifier}", copies, 60)[0]

    def show_in_dock(self, name):
        self.companion.click("list item", name)
        self.companion.click("push button", "Show in Dock")
        self.companion.wait_for_caption(name, "Ready in Dock")
        return self.wait_for_copy(self.identifier_of(name))

    # The stories

    @pictured_on_failure
    def test_the_main_job(self):
        self.make_two_folders()
        self.fill_the_first()
        running = self.put_it_into_the_dock()
        running = self.rename_it(running)
        running = self.update_it(running)
        self.remove_it(running)
        # Where the Dock has not come back yet, there is none to restart, and the tool says so.
        nobody = "No matching processes belonging to you were found\n"
        self.assertEqual(self.companion.output().replace(nobody, ""), "")

    def make_two_folders(self):
        wait_for("the first folder", lambda: "Dock Folder 1" in self.companion.names("list item"))
        self.companion.click("push button", "New Dock Folder")
        self.companion.row("Dock Folder 2")
        display.key("ctrl+n")
        self.companion.row("Dock Folder 3")
        self.assertEqual(self.companion.names("list item")[:4],
                         ["Nestlet", "Dock Folder 1", "Dock Folder 2", "Dock Folder 3"])
        self.companion.rename("Dock Folder 2", "  Work ")
        wait_for("the saved name", lambda: "Work" in self.mac.folders())

    def fill_the_first(self):
        self.companion.click("list item", "Dock Folder 1")
        self.drop([self.mac.app("Lantern")], self.companion.row("Work").centre(),
                  "Work", ["Lantern"])
        self.assertEqual(self.mac.item_names("Dock Folder 1"), [])
        self.companion.click("list item", "Work")
        letter = self.mac.document("My letter é.txt")
        self.drop([letter, self.mac.app("Zebra")], self.companion.find("list", "Items").centre(),
                  "Work", ["Lantern", "My letter é", "Zebra"])
        self.assertTrue(letter.exists())
        self.companion.click("push button", "Remove Zebra")
        wait_for("what is left", lambda: self.mac.item_names("Work") == ["Lantern", "My letter é"])
        self.assertEqual([item["kind"] for item in self.mac.folders()["Work"]["items"]],
                         ["application", "file"])

    def put_it_into_the_dock(self):
        self.assertEqual(self.companion.row("Work").description, "Not added yet")
        running = self.show_in_dock("Work")
        self.companion.find("push button", "Update Dock")
        self.assertEqual(self.mac.bundles(), ["Work.app"])
        self.check_bundle("Work.app", "Work")
        self.assertEqual(Process(running).variable("NESTLET_COMPANION_ROOT"), str(self.mac.root))
        return running

    def check_bundle(self, bundle, name):
        self.assertIsNone(self.mac.verify(bundle))
        info, template = self.mac.info(bundle), self.mac.template_info()
        self.assertEqual(info["CFBundleIdentifier"], self.identifier_of(name))
        self.assertEqual(info["CFBundleDisplayName"], name)
        self.assertEqual(info["CFBundleName"], name)
        self.assertEqual(info["DockFolderID"], self.mac.folders()[name]["id"])
        self.assertIs(info["LSUIElement"], False)
        self.assertIn(template["CFBundleVersion"], info["NestletSourceStamp"])
        ours = {"CFBundleIdentifier", "CFBundleDisplayName", "CFBundleName", "DockFolderID",
                "LSUIElement", "NestletSourceStamp"}
        self.assertEqual({key: value for key, value in info.items() if key not in ours},
                         {key: value for key, value in template.items() if key not in ours})

    def rename_it(self, before):
        self.mac.pin("Work.app")
        self.companion.rename("Work", "Play")
        wait_for("the new display name",
                 lambda: self.mac.info("Work.app").get("CFBundleDisplayName") == "Play", 60)
        running = self.wait_for_copy(self.identifier_of("Play"), [before])
        self.assertEqual(self.mac.bundles(), ["Work.app"])
        self.check_bundle("Work.app", "Play")
        return running

    def update_it(self, before):
        self.companion.click("push button", "Update Dock")
        wait_for("the new file name", lambda: self.mac.bundles() == ["Play.app"], 60)
        running = self.wait_for_copy(self.identifier_of("Play"), [before])
        self.check_bundle("Play.app", "Play")
        wait_for("the old tile to go", lambda: "Work.app" not in self.mac.pinned())
        return running

    def remove_it(self, running):
        identifier = self.identifier_of("Play")
        self.mac.pin("Play.app")
        self.companion.choose("Folder Actions", "Remove Folder")
        self.companion.click("push button", "Cancel")
        wait_for("the question to go", lambda: not self.companion.look("push button", "Cancel"))
        self.assertEqual(self.mac.copies(identifier), [running])
        self.companion.choose("Folder Actions", "Remove Folder")
        self.companion.click("push button", "Remove Folder")
        wait_for("the row to go", lambda: not self.companion.look("list item", "Play"))
        wait_for("the process to go", lambda: not self.mac.copies(identifier))
        self.assertEqual(self.mac.bundles(), [])
        self.assertNotIn("Play.app", self.mac.pinned())
        self.assertNotIn("Play", self.mac.folders())

    @pictured_on_failure
    def test_a_killed_companion_finds_everything_again(self):
        self.companion.rename("Dock Folder 1", "Kept")
        running = self.show_in_dock("Kept")
        self.companion.kill()
        self.assertTrue(Process(running).is_alive())
        self.companion = self.start_companion()
        self.companion.wait_for_caption("Kept", "Ready in Dock")
        rebuilt = self.wait_for_copy(self.identifier_of("Kept"), [running])
        self.assertEqual(self.mac.copies(self.identifier_of("Kept")), [rebuilt])
        self.check_bundle(self.mac.bundles()[0], "Kept")

    @pictured_on_failure
    def test_the_window_appears_before_rebuilds(self):
        self.companion.rename("Dock Folder 1", "Kept")
        before = self.show_in_dock("Kept")
        self.companion.kill()
        notes = self.replace_codesign()
        self.companion = self.start_companion()
        self.wait_for_copy(self.identifier_of("Kept"), [before])
        self.assertNotEqual(notes.read_text().splitlines()[0], "no window")

    def replace_codesign(self):
        """Puts one in the place that notes, each time, whether the window can be seen."""
        tool = self.mac.root / "usr/bin/codesign"
        tool.rename(tool.with_name("codesign.real"))
        notes = self.mac.root.parent / "notes"
        tool.write_text(f"""#!/bin/sh
xdotool search --onlyvisible --name '^Nestlet Companion$' >>'{notes}' || echo no window >>'{notes}'
exec "$0.real" "$@"
""")
        tool.chmod(0o755)
        return notes

    @pictured_on_failure
    def test_the_window_keeps_its_least_size(self):
        self.companion.find("list", "Dock Folders")
        search = ["xdotool", "search", "--onlyvisible", "--name", "^Nestlet Companion$"]
        window = subprocess.check_output(search, env=display.environment, text=True).split()[0]
        display.do("windowsize", "--sync", window, 1200, 850)
        display.do("windowsize", window, 600, 400)

        def size():
            lines = subprocess.check_output(["xdotool", "getwindowgeometry", "--shell", window],
                                            env=display.environment, text=True).split()
            values = dict(line.split("=") for line in lines)
            return int(values["WIDTH"]), int(values["HEIGHT"])
        wait_for("the least size", lambda: size() == (1060, 800))


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
