#!/usr/bin/env python3
"""What the menus do with the Dock: all folders into it at once, and where a folder's app lies."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from companion import WindowTest, display, open_display, pictured_on_failure  # noqa: E402
from display import wait_for  # noqa: E402


def setUpModule():
    open_display()


class DockTest(WindowTest):
    def prepare(self):
        self.mac.write_library(self.mac.record("Studio", ["Drawing"]),
                               self.mac.record("Travel", ["Pocket Atlas"]),
                               self.mac.record("Empty"))

    @pictured_on_failure
    def test_all_folders_are_added_at_once(self):
        before = self.show_in_dock("Travel")
        self.companion.choose("More", "Add All to Dock")
        for name, items in (("Studio", ["Drawing"]), ("Travel", ["Pocket Atlas"]), ("Empty", [])):
            self.companion.wait_for_caption(name, "Ready in Dock")
            running = self.wait_for_copy(self.identifier_of(name), [before])
            wait_for(f"the panel of {name}", lambda: self.mac.panel(running).get("items") == items)
            self.assertIsNone(self.mac.verify(f"{name}.app"))
        self.assertEqual(self.mac.bundles(), ["Empty.app", "Studio.app", "Travel.app"])
        self.companion.click("list item", "Empty")
        self.companion.find("push button", "Update Dock")
        self.assertEqual(self.companion.complaints(), "")

    @pictured_on_failure
    def test_a_folders_app_is_revealed(self):
        self.companion.click("list item", "Studio")
        self.companion.choose("Folder Actions", "Reveal in Finder")  # there is nothing yet
        display.key("Escape")
        self.companion.wait_until_gone("menu item", "Reveal in Finder")
        self.assertEqual(self.revealed(), [])
        self.show_in_dock("Studio")
        self.companion.choose("Folder Actions", "Reveal in Finder")
        bundle = self.mac.proxy_folder / "Studio.app"
        wait_for("its app", lambda: self.revealed() == [f"reveal {bundle.as_uri()}/"])
        self.companion.wait_until_gone("menu item", "Reveal in Finder")
        self.assertEqual(self.companion.complaints(), "")

    def revealed(self):
        return [line for line in self.mac.opened() if line.startswith("reveal ")]


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
