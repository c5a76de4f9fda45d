#!/usr/bin/env python3
"""A new user's whole job with the mouse; the keyboard serves for the words alone."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from companion import (  # noqa: E402
    FileManager, WindowTest, display, open_display, pictured_on_failure)
from display import wait_for  # noqa: E402


def setUpModule():
    open_display()


class PointerTest(WindowTest):
    @pictured_on_failure
    def test_the_whole_job_with_the_mouse(self):
        self.mac.picture("Sunset.png", "orange")
        self.make_folders()
        self.drop_files_everywhere()
        self.pick_from_the_sheet()
        self.reorder_items()
        self.remove_an_item()
        self.colour_it()
        self.give_it_a_symbol()
        self.give_it_a_picture()
        self.see_it_in_the_dock()
        self.reorder_folders()
        self.remove_it()
        self.reset()
        self.assertEqual(self.companion.complaints(), "")

    def make_folders(self):
        self.companion.row("Dock Folder 1")
        self.companion.click("push button", "New Dock Folder")
        self.companion.click("list item", "Dock Folder 2")
        wait_for("the folder's name",
                 lambda: self.companion.find("text", "Folder name").text() == "Dock Folder 2")
        display.double_click(self.companion.find("text", "Folder name").centre())
        display.key("ctrl+a")  # what the double click selected is a word
        display.type("Work")
        self.companion.click("list item", "Dock Folder 1")
        self.wait_for_order(["Dock Folder 1", "Work"])

    def drop_files_everywhere(self):
        """On a row whose folder is not shown, on the header, on the empty grid and on a cell."""
        place = self.companion.row("Work").centre()
        with FileManager([self.mac.app("Lantern")]) as source:
            source.drag_to(place)
            self.companion.wait_for_caption("Work", "Drop to add",
                                            during=lambda: display.tremble(place))
            source.let_go(place)
            self.wait_for_items("Work", ["Lantern"])
        self.companion.wait_for_caption("Work", "Not added yet")
        self.companion.click("list item", "Work")
        self.companion.find("list item", "Lantern")
        left, top, _, height = self.companion.find("text", "Folder name").place()
        self.drop([self.mac.app("Zebra")], (left - 60, top + height // 2),
                  "Work", ["Lantern", "Zebra"])
        letter = self.mac.document("My letter é.txt")
        self.drop([letter], self.companion.find("list item", "Zebra").centre(),
                  "Work", ["Lantern", "Zebra", "My letter é"])
        self.companion.click("list item", "Dock Folder 1")
        self.drop([self.mac.app("Drawing")], self.companion.find("label", "No items yet").centre(),
                  "Dock Folder 1", ["Drawing"])
        self.companion.find("list item", "Drawing")
        self.companion.click("list item", "Work")

    def pick_from_the_sheet(self):
        self.companion.click("push button", "Add Apps")
        lantern = self.companion.find("check box", "Lantern")
        self.assertEqual(lantern.description, "Already added")
        display.click(lantern.centre())
        self.companion.click("check box", "Ledger")
        self.companion.find("push button", "Add 1")
        self.companion.click("check box", "Marble Run")
        self.companion.click("check box", "Ledger")
        self.companion.find("push button", "Add 1")
        self.companion.click("text", "Search")
        display.type("alm")
        self.companion.wait_until_gone("check box", "Marble Run")
        self.companion.click("check box", "Almanac")
        self.companion.click("push button", "Clear Search")
        self.companion.find("check box", "Marble Run")
        self.companion.click("push button", "Add 2")
        self.wait_for_items("Work", ["Lantern", "Zebra", "My letter é", "Almanac", "Marble Run"])
        self.companion.wait_until_gone("push button", "Add 2")
        self.cancel_the_sheet()

    def cancel_the_sheet(self):
        self.companion.click("push button", "Add Apps")
        self.companion.click("check box", "Sundial")
        self.companion.find("push button", "Add 1")
        self.companion.click("push button", "Cancel")
        self.companion.wait_until_gone("push button", "Cancel")
        self.assertEqual(len(self.mac.item_names("Work")), 5)

    def reorder_items(self):
        first, third = (self.companion.find("list item", name).centre()
                        for name in ("Lantern", "My letter é"))
        display.begin_drag(first, third)
        moved = ["Zebra", "My letter é", "Lantern", "Almanac", "Marble Run"]
        self.wait_for_items("Work", moved, during=lambda: display.tremble(third))
        display.let_go(third)
        self.assertEqual(self.mac.item_names("Work"), moved)

    def remove_an_item(self):
        place = self.companion.find("list item", "My letter é").centre()
        display.hover(place)
        self.companion.click("push button", "Remove My letter é")
        self.wait_for_items("Work", ["Zebra", "Lantern", "Almanac", "Marble Run"])
        self.companion.wait_until_gone("push button", "Remove My letter é")

    def colour_it(self):
        self.companion.click("radio button", "Pink")
        self.wait_for_field("Work", "accentColorHex", "#D45FA0")
        self.companion.click("radio button", "Custom Color…")
        left, top, width, height = self.companion.find("slider", "Hue").place()
        display.click((left + width // 3, top + height // 2))
        wait_for("a colour of its own", lambda: self.mac.folders()["Work"]["accentColorHex"]
                 not in ("#D45FA0", None))
        self.companion.click("list item", "Work")
        self.companion.wait_until_gone("slider", "Hue")
        self.companion.click("radio button", "Automatic")
        self.wait_for_field("Work", "accentColorHex", None)
        self.companion.click("radio button", "Green")
        self.wait_for_field("Work", "accentColorHex", "#4DAE72")

    def give_it_a_symbol(self):
        self.companion.click("radio button", "Star")
        self.wait_for_field("Work", "iconSymbol", "star.fill")
        wait_for("the star to be the chosen one",
                 lambda: self.companion.find("radio button", "Star").has("checked"))

    def give_it_a_picture(self):
        self.companion.click("radio button", "Load custom image…")
        self.companion.click("list item", "Pictures")
        display.double_click(self.companion.find("list item", "Sunset.png").centre())
        wait_for("the picture", lambda: self.mac.folders()["Work"].get("customIconData"))
        wait_for("the picture to be the chosen one", lambda: self.companion.find(
            "radio button", "Load custom image…").has("checked"))

    def see_it_in_the_dock(self):
        running = self.show_in_dock("Work")
        wait_for("the panel", lambda: self.mac.panel(running).get("items")
                 == ["Zebra", "Lantern", "Almanac", "Marble Run"])
        self.assertNotIn("columns", self.mac.panel(running))
        self.companion.click("radio button", "3 × 3")
        self.wait_for_field("Work", "gridColumns", 3)
        wait_for("three columns in the panel", lambda: self.mac.panel_of_folder(
            self.identifier_of("Work")).get("columns") == 3, 60)

    def reorder_folders(self):
        self.companion.click("push button", "New Dock Folder")
        self.companion.row("Dock Folder 3")
        self.wait_for_order(["Dock Folder 1", "Work", "Dock Folder 3"])
        rows = [self.companion.row(name).centre() for name in ("Dock Folder 3", "Dock Folder 1")]
        display.drag(*rows)
        self.wait_for_order(["Dock Folder 3", "Dock Folder 1", "Work"])

    def remove_it(self):
        identifier = self.identifier_of("Work")
        self.companion.click("list item", "Work")
        self.companion.find("heading", "Work")
        self.companion.choose("Folder Actions", "Remove Folder")
        self.companion.click("push button", "Cancel")
        self.companion.wait_until_gone("push button", "Cancel")
        self.companion.row("Work")
        self.companion.choose("Folder Actions", "Remove Folder")
        self.companion.click("push button", "Remove Folder")
        self.wait_for_order(["Dock Folder 3", "Dock Folder 1"])
        wait_for("its process to go", lambda: not self.mac.copies(identifier))
        self.assertEqual(self.mac.bundles(), [])
        self.companion.find("heading", "Dock Folder 3")

    def reset(self):
        self.companion.choose("More", "Reset Companion…")
        self.companion.click("push button", "Reset Everything")
        self.wait_for_rows(["Dock Folder 1"])
        self.companion.find("label", "No items yet")


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
