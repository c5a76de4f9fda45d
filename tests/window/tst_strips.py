#!/usr/bin/env python3
"""The strips over the window, with a feed on a server of the test's own, and the error alert."""

import shutil
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from companion import WindowTest, display, open_display, pictured_on_failure  # noqa: E402
from display import wait_for  # noqa: E402
from feed import DOWNLOAD, Feed  # noqa: E402


def setUpModule():
    open_display()


class UpdateStripTest(WindowTest):
    def prepare(self):
        self.feed = Feed(build=1000, version="7.5")
        self.addCleanup(self.feed.close)
        self.mac.environment["NESTLET_COMPANION_FEED"] = self.feed.address

    def restart(self):
        self.companion.kill()
        self.companion = self.start_companion()

    @pictured_on_failure
    def test_an_update_is_offered_until_it_is_dismissed(self):
        strip = self.companion.find("panel", "Nestlet Companion 7.5 available")
        self.assertEqual(strip.description,
                         "Download the latest version to get new features and bug fixes.")
        self.companion.click("push button", "Download")
        wait_for("the download to open", lambda: f"open {DOWNLOAD}" in self.mac.opened())
        self.companion.click("push button", "Dismiss")
        self.companion.wait_until_gone("panel", "Nestlet Companion 7.5 available")
        self.feed.build, self.feed.version = 1001, "7.6"
        self.restart()
        self.companion.find("panel", "Nestlet Companion 7.6 available")
        self.companion.press("push button", "Dismiss")
        self.companion.wait_until_gone("panel", "Nestlet Companion 7.6 available")
        self.assertEqual(self.companion.complaints(), "")

    @pictured_on_failure
    def test_a_dismissed_build_stays_away(self):
        self.companion.press("push button", "Dismiss")
        self.companion.wait_until_gone("panel", "Nestlet Companion 7.5 available")
        self.restart()
        wait_for("the feed to be asked again", lambda: self.feed.answers == 2)
        # Were the strip to come, it would be there when the folder that is made now is.
        self.companion.press("push button", "New Dock Folder")
        self.companion.row("Dock Folder 2")
        self.assertIsNone(self.companion.look("push button", "Dismiss"))


class MissingNestletTest(WindowTest):
    @pictured_on_failure
    def test_a_strip_tells_that_nestlet_is_missing(self):
        self.companion.row("Nestlet")
        aside = self.mac.root.parent / "Nestlet.app"
        shutil.move(self.mac.app("Nestlet"), aside)
        self.companion.kill()
        self.companion = self.start_companion()
        strip = self.companion.find("panel", "Nestlet not found")
        self.assertEqual(strip.description, "Install Nestlet first. Companion needs it to generate "
                                            "and launch Dock folders.")
        self.assertIsNone(self.companion.look("list item", "Nestlet"))
        self.fail_to_show_in_the_dock()
        shutil.move(aside, self.mac.app("Nestlet"))
        self.companion.click("push button", "New Dock Folder")  # something that is drawn
        self.companion.row("Nestlet")
        self.companion.wait_until_gone("panel", "Nestlet not found")

    def fail_to_show_in_the_dock(self):
        self.companion.click("list item", "Dock Folder 1")
        self.companion.click("push button", "Show in Dock")
        self.companion.find("label", "Companion Error")
        self.companion.wait_for_focus("push button", "OK")
        display.key("Escape")
        self.companion.wait_until_gone("push button", "OK")
        self.companion.click("push button", "Show in Dock")
        self.companion.wait_for_focus("push button", "OK")
        display.key("Return")
        self.companion.wait_until_gone("label", "Companion Error")
        self.companion.find("label", "Not in Dock")


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
