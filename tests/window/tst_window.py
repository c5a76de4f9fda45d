#!/usr/bin/env python3
"""The real program on a real screen: found by what assistive programs see, worked with pointer and
keys, judged by what it leaves on the stand-in Mac."""

import subprocess
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from companion import WindowTest, display, open_display, pictured_on_failure  # noqa: E402
from display import Process, wait_for  # noqa: E402


def setUpModule():
    open_display()


class WindowStories(WindowTest):
    @pictured_on_failure
    def test_the_main_job(self):
        self.make_two_folders()
        self.fill_the_first()
        running = self.put_it_into_the_dock()
        running = self.rename_it(running)
        running = self.update_it(running)
        self.remove_it(running)
        self.assertEqual(self.companion.complaints(), "")

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
        window = display.window("Nestlet Companion")
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
