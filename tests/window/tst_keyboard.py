#!/usr/bin/env python3
"""A new user's whole job without a mouse, and where the keys lead."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from companion import WindowTest, display, open_display, pictured_on_failure  # noqa: E402
from display import wait_for  # noqa: E402


def setUpModule():
    open_display()


class KeyboardTest(WindowTest):
    def tab_to(self, role, name, key="Tab"):
        """Goes on until the control has the focus."""
        for _ in range(24):
            display.key(key)
            widget = self.companion.focused()
            if widget and (widget.role, widget.name) == (role, name):
                return
        self.fail(f"no {key} leads to the {role} “{name}”")

    @pictured_on_failure
    def test_the_whole_job_with_the_keyboard(self):
        self.mac.picture("Sunset.png", "orange")
        self.make_and_rename()
        self.pick_apps()
        self.reorder_and_remove_items()
        self.choose_its_look()
        self.choose_a_picture()
        self.put_it_into_the_dock()
        self.reorder_folders()
        self.remove_and_reset()
        self.assertEqual(self.companion.complaints(), "")

    def make_and_rename(self):
        self.companion.row("Dock Folder 1")
        display.key("ctrl+n")
        self.companion.row("Dock Folder 2")
        display.key("End")
        self.companion.wait_for_focus("list item", "Dock Folder 2")
        self.tab_to("text", "Folder name")
        display.key("ctrl+a")
        display.type("Wonk")
        display.key("Escape")
        wait_for("the old name", lambda: self.companion.find("text", "Folder name").text()
                 == "Dock Folder 2")
        display.key("ctrl+a")
        display.type("  Work ")
        display.key("Return")
        self.wait_for_order(["Dock Folder 1", "Work"])
        self.assertEqual(self.companion.find("text", "Folder name").text(), "Work")

    def pick_apps(self):
        self.tab_to("push button", "Add Apps")
        display.key("Return")
        self.companion.wait_for_focus("text", "Search")
        self.companion.find("check box", "Zebra")
        display.type("a")
        display.key("Escape")  # empties the field before it closes the sheet
        wait_for("an empty field", lambda: self.companion.find("text", "Search").text() == "")
        for name in ("lantern", "zebr", "alman"):
            display.key("ctrl+f")
            display.type(name)
            wait_for(f"only {name}", lambda: len(self.companion.names("check box")) < 3)
            display.key("Down", "space")
        self.companion.find("push button", "Add 3")
        display.key("Return")
        self.companion.wait_for_focus("push button", "Add Apps")
        self.wait_for_items("Work", ["Almanac", "Lantern", "Zebra"])
        display.key("space")
        self.companion.wait_for_focus("text", "Search")
        display.key("Escape")
        self.companion.wait_for_focus("push button", "Add Apps")

    def reorder_and_remove_items(self):
        self.tab_to("list item", "Almanac")
        display.key("alt+Right")
        self.wait_for_items("Work", ["Lantern", "Almanac", "Zebra"])
        display.key("alt+End")
        self.wait_for_items("Work", ["Lantern", "Zebra", "Almanac"])
        self.companion.wait_for_focus("list item", "Almanac")
        display.key("Left")
        self.companion.wait_for_focus("list item", "Zebra")
        display.key("Delete")
        self.wait_for_items("Work", ["Lantern", "Almanac"])
        display.key("Home")
        self.companion.wait_for_focus("list item", "Lantern")

    def choose_its_look(self):
        self.tab_to("radio button", "Auto", "shift+Tab")
        display.key("Right", "Right", "space")
        self.wait_for_field("Work", "gridColumns", 3)
        self.tab_to("radio button", "Automatic", "shift+Tab")
        display.key("Home", "Right", "Return")
        self.wait_for_field("Work", "accentColorHex", "#E05757")
        self.tab_to("radio button", "No symbol (show app grid)", "shift+Tab")
        display.key("Right", "space")
        self.wait_for_field("Work", "iconSymbol", "star.fill")

    def choose_a_picture(self):
        self.companion.wait_for_focus("radio button", "Star")
        display.key("End", "space")
        self.companion.wait_for_focus("list item", "Sunset.png")
        display.type("sun")
        display.key("Return")
        wait_for("the picture", lambda: self.mac.folders()["Work"].get("customIconData"))
        self.companion.wait_for_focus("radio button", "Load custom image…")

    def put_it_into_the_dock(self):
        self.tab_to("push button", "Show in Dock", "shift+Tab")
        display.key("space")
        self.companion.wait_for_caption("Work", "Ready in Dock")
        identifier = self.identifier_of("Work")
        running = self.wait_for_copy(identifier)
        wait_for("the panel", lambda: self.mac.panel(running).get("items")
                 == ["Lantern", "Almanac"])
        self.assertEqual(self.mac.panel(running).get("columns"), 3)
        wait_for("the panel to have the keys", lambda: display.active_title() == "Work")
        display.key("Escape")
        wait_for("the window to have them", lambda: display.active_title() == "Nestlet Companion")
        self.companion.wait_for_focus("push button", "Update Dock")
        self.tab_to("radio button", "3 × 3")
        display.key("Left", "space")
        self.wait_for_field("Work", "gridColumns", 2)
        wait_for("two columns in the panel",
                 lambda: self.mac.panel_of_folder(identifier).get("columns") == 2, 60)

    def reorder_folders(self):
        self.tab_to("list item", "Work", "shift+Tab")
        display.key("alt+Up")
        self.wait_for_order(["Work", "Dock Folder 1"])
        self.companion.wait_for_focus("list item", "Work")
        display.type("d")
        self.companion.wait_for_focus("list item", "Dock Folder 1")
        display.key("Up")
        self.companion.wait_for_focus("list item", "Work")

    def remove_and_reset(self):
        identifier = self.identifier_of("Work")
        self.tab_to("push button", "Folder Actions")
        self.ask_to_remove()
        display.key("Escape")
        self.companion.wait_until_gone("push button", "Cancel")
        self.companion.wait_for_focus("push button", "Folder Actions")
        self.ask_to_remove()
        self.tab_to("push button", "Remove Folder")
        display.key("Return")
        self.wait_for_order(["Dock Folder 1"])
        wait_for("its process to go", lambda: not self.mac.copies(identifier))
        self.tab_to("push button", "More", "shift+Tab")
        display.key("space")
        self.companion.find("menu item", "Reset Companion…")
        display.key("Down", "Down", "Return")
        self.companion.wait_for_focus("push button", "Cancel")
        display.key("Return")  # the default button leaves everything as it is
        self.companion.wait_until_gone("push button", "Reset Everything")
        self.companion.wait_for_focus("push button", "More")
        self.assertIn("Dock Folder 1", self.mac.folders())

    def ask_to_remove(self):
        display.key("space")
        self.companion.find("menu item", "Remove Folder")
        display.key("Down", "Down", "Return")
        self.companion.wait_for_focus("push button", "Cancel")

    # Where the keys lead

    @pictured_on_failure
    def test_tab_reaches_every_control(self):
        self.companion.row("Dock Folder 1")
        display.key("End")
        self.companion.wait_for_focus("list item", "Dock Folder 1")
        stops = []
        for _ in range(20):
            display.key("Tab")
            widget = self.companion.focused()
            stops.append((widget.role, widget.name) if widget else None)
            if stops[-1] == ("list item", "Dock Folder 1"):
                break
        self.assertEqual(stops, [
            ("push button", "Folder Actions"),
            ("text", "Folder name"),
            ("push button", "Show in Dock"),
            ("radio button", "No symbol (show app grid)"),
            ("radio button", "Automatic"),
            ("radio button", "Auto"),
            ("push button", "Add Apps"),
            ("slider", "Sidebar Width"),
            ("push button", "New Dock Folder"),
            ("push button", "More"),
            ("list item", "Dock Folder 1"),
        ])


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
