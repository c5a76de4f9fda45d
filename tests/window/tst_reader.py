#!/usr/bin/env python3
"""A new user's whole job through the tree that a screen reader sees: its actions, texts and values,
without pointer and keys."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from companion import WindowTest, display, open_display, pictured_on_failure  # noqa: E402
from display import wait_for  # noqa: E402


def setUpModule():
    open_display()


class ReaderTest(WindowTest):
    @pictured_on_failure
    def test_the_whole_job_through_the_tree(self):
        self.mac.picture("Sunset.png", "orange")
        self.make_and_rename()
        self.pick_apps()
        self.reorder()
        self.choose_its_look()
        self.choose_a_colour_of_its_own()
        self.choose_a_picture()
        self.put_it_into_the_dock()
        self.take_things_out()
        self.assertEqual(self.companion.complaints(), "")

    @pictured_on_failure
    def test_work_on_the_dock_is_announced_each_time(self):
        from accessibility import Ear
        ear = Ear()
        self.addCleanup(ear.close)
        self.companion.press("list item", "Dock Folder 1")
        end = "Dock Folder 1 is in the Dock."
        for button, beginning in (("Show in Dock", "Adding Dock Folder 1 to the Dock."),
                                  ("Update Dock", "Updating Dock Folder 1 in the Dock."),
                                  ("Update Dock", "Updating Dock Folder 1 in the Dock.")):
            before = len(ear.heard())
            self.companion.press("push button", button)
            wait_for(f"“{beginning}” and “{end}” in {ear.heard()[before:]}",
                     lambda before=before, beginning=beginning:
                     ear.heard()[before:] == [beginning, end], 60)
        self.companion.wait_until_gone("alert", end)

    def make_and_rename(self):
        self.companion.row("Dock Folder 1")
        self.companion.press("push button", "New Dock Folder")
        self.companion.press("list item", "Dock Folder 2")
        wait_for("its row to be selected",
                 lambda: self.companion.row("Dock Folder 2").has("selected"))
        name = self.companion.find("text", "Folder name")
        name.focus()
        name.set_text("Work")
        self.companion.row("Dock Folder 1").press()
        self.wait_for_order(["Dock Folder 1", "Work"])
        self.companion.press("list item", "Work")
        self.companion.find("heading", "Work")

    def pick_apps(self):
        self.companion.find("label", "No items yet")
        self.companion.press("push button", "Add Apps")
        self.companion.wait_for_focus("text", "Search")
        self.companion.press("check box", "Zebra")
        self.companion.find("push button", "Add 1")
        self.companion.find("text", "Search").set_text("lante")
        wait_for("what is found to be said", lambda: self.companion.find("text", "Search")
                 .description.startswith("1 "))
        self.companion.press("check box", "Lantern")
        wait_for("a checked cell",
                 lambda: self.companion.find("check box", "Lantern").has("checked"))
        self.companion.press("push button", "Clear Search")
        self.companion.press("push button", "Add 2")
        self.wait_for_items("Work", ["Lantern", "Zebra"])
        self.companion.wait_until_gone("dialog", "Choose Apps")
        self.companion.find("list item", "Zebra")
        self.companion.wait_until_gone("label", "No items yet")

    def reorder(self):
        self.companion.find("list item", "Lantern").act("Increase")
        self.wait_for_items("Work", ["Zebra", "Lantern"])
        self.companion.row("Work").act("Decrease")
        self.wait_for_order(["Work", "Dock Folder 1"])
        self.companion.row("Work").act("Increase")
        self.wait_for_order(["Dock Folder 1", "Work"])

    def choose_its_look(self):
        for name, field, value in (("Teal", "accentColorHex", "#3DAEC0"),
                                   ("Globe", "iconSymbol", "globe"),
                                   ("4 × 4", "gridColumns", 4)):
            self.companion.press("radio button", name)
            self.wait_for_field("Work", field, value)
            wait_for(f"{name} to be checked",
                     lambda name=name: self.companion.find("radio button", name).has("checked"))

    def choose_a_colour_of_its_own(self):
        self.companion.press("radio button", "Custom Color…")
        hue = self.companion.find("slider", "Hue")
        hue.set_value(hue.value() + 60)
        wait_for("another colour",
                 lambda: self.mac.folders()["Work"]["accentColorHex"] != "#3DAEC0")
        wait_for("the custom colour to be checked",
                 lambda: self.companion.find("radio button", "Custom Color…").has("checked"))

    def choose_a_picture(self):
        self.companion.press("radio button", "Load custom image…")
        self.companion.press("list item", "Pictures")
        self.companion.press("list item", "Sunset.png")
        wait_for("the picture", lambda: self.mac.folders()["Work"].get("customIconData"))

    def put_it_into_the_dock(self):
        self.companion.find("label", "Not in Dock")
        self.companion.press("push button", "Show in Dock")
        self.companion.wait_for_caption("Work", "Ready in Dock")
        self.companion.find("label", "In Dock")
        running = self.wait_for_copy(self.identifier_of("Work"))
        wait_for("the panel", lambda: self.mac.panel(running).get("columns") == 4)

    def take_things_out(self):
        self.companion.press("push button", "Remove Zebra")
        self.wait_for_items("Work", ["Lantern"])
        self.companion.wait_until_gone("list item", "Zebra")
        self.companion.press("push button", "Folder Actions")
        self.companion.press("menu item", "Remove Folder")
        self.companion.find("label", "The Dock icon will also be removed.")
        self.companion.press("push button", "Remove Folder")
        self.wait_for_order(["Dock Folder 1"])
        self.companion.press("push button", "More")
        self.companion.press("menu item", "Reset Companion…")
        self.companion.press("push button", "Reset Everything")
        self.companion.wait_until_gone("push button", "Reset Everything")
        self.wait_for_rows(["Dock Folder 1"])


class FocusTest(WindowTest):
    def prepare(self):
        self.mac.write_library(self.mac.record("Full", ["Almanac", "Beta", "Lantern", "Zebra"]))

    @pictured_on_failure
    def test_the_focus_in_the_items(self):
        from accessibility import FocusEvents  # only now is there a bus to speak on
        self.companion.press("list item", "Full")
        self.companion.find("list item", "Zebra")
        told = FocusEvents()
        self.addCleanup(told.close)
        self.companion.find("list item", "Beta").focus()
        told.wait_for("list item", "Beta")
        display.key("Right")
        told.wait_for("list item", "Lantern")
        display.key("Left", "Left")
        told.wait_for("list item", "Almanac")
        self.companion.find("list item", "Lantern").focus()
        told.wait_for("list item", "Lantern")
        display.key("Delete")
        self.wait_for_items("Full", ["Almanac", "Beta", "Zebra"])
        told.wait_for("list item", "Zebra")


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
