#!/usr/bin/env python3
"""The window's main states, light and dark, beside the pictures in references/. With
COMPANION_RENEW_SCREENSHOTS set, what is seen now becomes the reference."""

import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from companion import FileManager, WindowTest, display, open_display  # noqa: E402
from display import wait_for  # noqa: E402
from feed import Feed  # noqa: E402
from mac import BUILD  # noqa: E402
from pictures import draw_difference, keep_small, look_the_same  # noqa: E402

REFERENCES = Path(__file__).parent / "references"
RENEWS = bool(os.environ.get("COMPANION_RENEW_SCREENSHOTS"))
SEEN = BUILD / "tests/screenshots"


def setUpModule():
    open_display()
    shutil.rmtree(SEEN, ignore_errors=True)
    SEEN.mkdir(parents=True)


class ScreenshotTest(WindowTest):
    """Nothing moves, no pointer is about, and everything drawn is in the project or in Inter."""

    def start_dock(self):
        """None: it would only be in the picture."""

    def prepare(self):
        shutil.rmtree(self.mac.app("🎈 Party"))  # drawn by whichever font has it
        self.mac.keep_still()
        self.mac.write_library(
            self.mac.record("Studio", ["Drawing", "Marble Run", "Lantern", "Half Note", "Éclair",
                                       "Quill & Ink", "Almanac", "Pocket Atlas", "Zebra"],
                            accentColorHex="#E05757", gridColumns=3),
            self.mac.record("Travel", ["Pocket Atlas"], accentColorHex="#3DAEC0",
                            iconSymbol="airplane"),
            self.mac.record("Empty"))

    def check(self, name):
        reference, seen = REFERENCES / f"{name}.png", SEEN / f"{name}.png"
        if RENEWS:
            return self.renew(reference)
        self.assertTrue(reference.exists(), f"there is no reference {reference.name}; "
                        "COMPANION_RENEW_SCREENSHOTS=1 ./dev test screenshots makes them")

        def looks_the_same():
            self.take_picture(seen)
            return look_the_same(reference, seen)
        with self.subTest(name):
            try:
                wait_for(f"{seen} to look like {reference.name}", looks_the_same, 15)
            except AssertionError:
                draw_difference(reference, seen, SEEN / f"{name}-difference.png")
                raise

    def take_picture(self, path):
        display.picture_of(self.window, path)

    def renew(self, reference):
        """Nothing tells when all icons have been drawn, so what is seen must last."""
        reference.parent.mkdir(exist_ok=True)
        before = b""
        while True:
            time.sleep(2)
            self.take_picture(reference)
            keep_small(reference)
            if reference.read_bytes() == before:
                return
            before = reference.read_bytes()

    def check_window(self, appearance):
        self.window = display.window("Nestlet Companion")
        self.companion.row("Studio")
        self.check(f"placeholder-{appearance}")
        self.show("Nestlet", "push button", "Open Nestlet")
        self.check(f"app-store-folder-{appearance}")
        self.show("Empty", "label", "No items yet")
        self.check(f"empty-folder-{appearance}")
        self.check_drops(appearance)
        self.show("Studio", "list item", "Zebra")
        self.check(f"folder-{appearance}")
        self.check_dialogs(appearance)
        self.check_popups(appearance)
        self.check_in_dock(appearance)
        self.check_error(appearance)

    def check_drops(self, appearance):
        items = self.companion.find("label", "No items yet").centre()
        row = self.companion.row("Travel").centre()
        with FileManager([self.mac.app("Lantern")]) as source:
            source.drag_to(items)
            self.companion.find("label", "Release to Add")
            self.check(f"drop-on-items-{appearance}")
            self.companion.wait_for_caption("Travel", "Drop to add",
                                            during=lambda: display.tremble(row))
            self.check(f"drop-on-row-{appearance}")
            display.park_pointer()
            self.companion.wait_for_caption("Travel", "Not added yet")
            display.do("mouseup", "1")  # where nobody wants them

    def check_dialogs(self, appearance):
        self.companion.press("push button", "Folder Actions")
        self.companion.press("menu item", "Remove Folder")
        self.companion.wait_for_focus("push button", "Cancel")
        self.check(f"remove-alert-{appearance}")
        self.companion.press("push button", "Cancel")
        self.companion.wait_until_gone("push button", "Cancel")
        self.companion.press("push button", "Add Apps")
        self.companion.press("check box", "Beta")
        display.key("Down")  # to where no caret blinks
        self.check(f"app-picker-{appearance}")
        self.companion.press("push button", "Cancel")
        self.companion.wait_until_gone("push button", "Cancel")

    def check_popups(self, appearance):
        self.companion.press("radio button", "Custom Color…")
        self.companion.find("slider", "Hue")
        self.check(f"color-panel-{appearance}")
        display.key("Escape")
        self.companion.wait_until_gone("slider", "Hue")
        self.companion.press("push button", "More")
        self.companion.find("menu item", "Add All to Dock")
        self.check(f"menu-{appearance}")
        display.key("Escape")
        self.companion.wait_until_gone("menu item", "Add All to Dock")

    def check_in_dock(self, appearance):
        self.show("Travel", "list item", "Pocket Atlas")
        self.companion.press("push button", "Show in Dock")
        self.companion.wait_for_caption("Travel", "Ready in Dock")
        wait_for("its panel", lambda: display.active_title() == "Travel")
        display.key("Escape")
        wait_for("the window", lambda: display.active_title() == "Nestlet Companion")
        self.companion.find("push button", "Update Dock")
        self.check(f"in-dock-{appearance}")

    def check_error(self, appearance):
        tool = self.mac.root / "usr/bin/codesign"
        tool.rename(tool.with_name("codesign.real"))
        tool.write_text("""#!/bin/sh
case "$*" in
    *--sign*) echo "resource fork, Finder information, or similar detritus not allowed" >&2; exit 1;;
esac
exec "$0.real" "$@"
""")
        tool.chmod(0o755)
        self.companion.press("push button", "Update Dock")
        self.companion.wait_for_focus("push button", "OK")
        self.companion.find("push button", "Update Dock")  # its work is over
        self.check(f"error-alert-{appearance}")

    def show(self, folder, role, name):
        self.companion.press("list item", folder)
        self.companion.find(role, name)


class LightTest(ScreenshotTest):
    def test_the_window_looks_as_it_should(self):
        self.check_window("light")


class DarkTest(ScreenshotTest):
    def prepare(self):
        super().prepare()
        self.mac.make_dark()

    def test_the_window_looks_as_it_should_in_the_dark(self):
        self.check_window("dark")


class StripsTest(ScreenshotTest):
    def prepare(self):
        super().prepare()
        feed = Feed(build=1000, version="7.5")
        self.addCleanup(feed.close)
        self.mac.environment["NESTLET_COMPANION_FEED"] = feed.address
        shutil.rmtree(self.mac.app("Nestlet"))

    def test_the_strips_look_as_they_should(self):
        self.window = display.window("Nestlet Companion")
        self.companion.find("push button", "Dismiss")
        self.check("strips-light")
        self.mac.make_dark()  # while it runs
        self.check("strips-dark")


class ComparisonTest(unittest.TestCase):
    """The comparison itself: what it sees, and what it overlooks."""

    REFERENCE = REFERENCES / "folder-light.png"
    BUTTON = "144x38+870+225"  # in the folder's picture, "Show in Dock"

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="pictures-")
        self.addCleanup(folder.cleanup)
        self.changed = Path(folder.name) / "changed.png"

    def change(self, *how):
        subprocess.run(["convert", str(self.REFERENCE), *how, str(self.changed)], check=True)
        return look_the_same(self.REFERENCE, self.changed)

    def test_it_sees_a_button_that_moved_by_two_pixels(self):
        self.assertFalse(self.change("(", "+clone", "-crop", self.BUTTON, "+repage", ")",
                                     "-geometry", "+868+225", "-composite"))

    def test_it_sees_a_button_of_another_colour(self):
        self.assertFalse(self.change("-region", self.BUTTON, "-fill", "#E8F0FF",
                                     "-opaque", "white"))

    def test_it_sees_a_digit_that_is_gone(self):
        self.assertFalse(self.change("-fill", "white", "-draw", "rectangle 250,503 262,517"))

    def test_it_sees_another_size(self):
        self.assertFalse(self.change("-chop", "0x1"))

    def test_it_overlooks_a_breath_of_blur(self):
        self.assertTrue(self.change("-blur", "0x0.3"))

    def test_it_overlooks_a_shade_of_colour(self):
        self.assertTrue(self.change("-evaluate", "add", "1%"))


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
