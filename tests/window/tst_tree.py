#!/usr/bin/env python3
"""What an assistive program finds in the window, state by state: everything that can be worked has
a name and a role, and nothing is there that is not on the screen."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from companion import WindowTest, display, open_display, pictured_on_failure  # noqa: E402
from display import wait_for  # noqa: E402

ROLES = {"push button", "radio button", "check box", "list", "list item", "text", "slider", "label",
         "heading", "panel", "dialog", "menu item", "popup menu", "separator", "scroll bar",
         "tool tip", "notification", "alert", "progress bar", "frame", "application"}
APPS = ["Almanac", "Beta", "Drawing", "Lantern", "Ledger", "Marble Run", "Sundial", "Zebra"]
LONG_LIST = 60


def setUpModule():
    open_display()


class TreeTest(WindowTest):
    def prepare(self):
        records = [self.mac.record("Full", APPS)]
        records += [self.mac.record(f"Folder {number:02}") for number in range(1, LONG_LIST)]
        self.mac.write_library(*records)

    def crawl(self, state):
        """Reads everything twice: a tree that still changes has no state."""
        def settled():
            first, second = ([(widget.role, widget.name) for widget in self.companion.widgets()]
                             for _ in range(2))
            return first == second and first
        wait_for(f"a settled tree: {state}", settled)
        widgets = self.companion.widgets()
        for widget in widgets:
            with self.subTest(state=state, widget=str(widget), place=widget.path()):
                self.assertIn(widget.role, ROLES)
                if widget.has("focusable") or widget.actions() or widget.role == "dialog":
                    self.assertNotEqual(widget.name.strip(), "")
        return widgets

    def assert_no_repeats(self, widgets, role):
        names = [widget.name for widget in widgets if widget.role == role]
        self.assertEqual(sorted(names), sorted(set(names)))

    @pictured_on_failure
    def test_every_control_has_a_name_and_a_role(self):
        self.companion.row("Full")
        self.crawl("nothing selected")
        self.companion.press("list item", "Nestlet")
        self.companion.find("push button", "Open Nestlet")
        widgets = self.crawl("the folder that Nestlet manages")
        self.assertNotIn("text", [widget.role for widget in widgets])
        self.assertNotIn("Show in Dock", [widget.name for widget in widgets])
        self.companion.press("list item", "Full")
        self.companion.find("list item", "Zebra")
        self.crawl("a folder")
        self.crawl_popups()

    def crawl_popups(self):
        self.companion.press("push button", "More")
        self.companion.find("menu item", "Add All to Dock")
        self.crawl("the window's menu")
        display.key("Escape")
        self.companion.wait_until_gone("menu item", "Add All to Dock")
        self.companion.press("push button", "Folder Actions")
        self.companion.press("menu item", "Remove Folder")
        self.companion.find("push button", "Cancel")
        self.crawl("the question before a folder is removed")
        self.companion.press("push button", "Cancel")
        self.companion.wait_until_gone("push button", "Cancel")
        self.companion.press("radio button", "Custom Color…")
        self.companion.find("slider", "Hue")
        self.crawl("the colour panel")
        display.key("Escape")
        self.companion.wait_until_gone("slider", "Hue")
        self.companion.press("radio button", "Load custom image…")
        self.companion.find("list", "Files")
        self.crawl("the open panel")
        self.companion.press("push button", "Cancel")
        self.companion.wait_until_gone("list", "Files")
        self.companion.press("push button", "Add Apps")
        self.companion.find("check box", "Beta")
        self.crawl("the sheet")
        self.companion.find("text", "Search").set_text("qqq")
        self.companion.find("label", "No Results for “qqq”")
        self.assertEqual([widget.name for widget in self.crawl("a search in vain")
                          if widget.role == "check box"], [])

    @pictured_on_failure
    def test_nothing_stays_that_was_removed_or_scrolled_away(self):
        self.companion.press("list item", "Full")
        for name in APPS[:3]:
            self.companion.press("push button", f"Remove {name}")
            self.companion.wait_until_gone("list item", name)
            self.companion.wait_until_gone("push button", f"Remove {name}")
        widgets = self.crawl("after removals")
        self.assert_no_repeats(widgets, "list item")
        self.assertEqual([widget.name for widget in widgets
                          if widget.role == "list item" and widget.name in APPS], APPS[3:])
        self.scroll_the_folders()
        self.remove_a_folder()

    def rows(self):
        return self.companion.find("list", "Dock Folders").shown_children()

    def assert_rows_are_on_the_screen(self, state):
        _, top, _, height = self.companion.find("list", "Dock Folders").place()
        rows = self.rows()
        names = [row.name for row in rows]
        self.assertEqual(sorted(names), sorted(set(names)), state)
        for row in rows:
            _, row_top, _, row_height = row.place()
            self.assertLess(row_top, top + height, f"{row}: {state}")
            self.assertGreater(row_top + row_height, top, f"{row}: {state}")

    def scroll_the_folders(self):
        self.companion.find("list", "Dock Folders").focus()
        for key, name in (("End", f"Folder {LONG_LIST - 1:02}"), ("Home", "Nestlet"),
                          ("Next", "Folder 13"), ("End", f"Folder {LONG_LIST - 1:02}")):
            display.key(key)
            wait_for(f"a row to be selected after {key}", lambda: any(
                row.has("selected") for row in self.rows()))
            if key != "Next":
                self.companion.find("list item", name)
            self.crawl(f"after {key}")
            self.assert_rows_are_on_the_screen(f"after {key}")

    def remove_a_folder(self):
        last = f"Folder {LONG_LIST - 1:02}"
        self.companion.find("heading", last)
        self.companion.press("push button", "Folder Actions")
        self.companion.press("menu item", "Remove Folder")
        self.companion.press("push button", "Remove Folder")
        wait_for("the folder to go", lambda: last not in self.mac.folders(), 60)
        self.companion.wait_until_gone("list item", last)
        self.companion.find("heading", "Full")
        self.crawl("after a folder was removed")
        self.assert_rows_are_on_the_screen("after a folder was removed")


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
