#!/usr/bin/env python3
"""Files of another program, held still over the window while what lies under them changes."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from companion import (  # noqa: E402
    FileManager, WindowTest, display, open_display, pictured_on_failure)
from display import wait_for  # noqa: E402

EDGE = 12  # from where a list scrolls


def setUpModule():
    open_display()


class HeldFilesTest(WindowTest):
    def prepare(self):
        self.names = [f"Folder {number:02}" for number in range(40)]
        self.apps = [f"App {number:02}" for number in range(30)]
        self.write(self.names)
        self.letter = self.mac.document("Letter.txt")

    def write(self, names):
        self.mac.write_library(
            *(self.mac.record(name, self.apps if name == self.names[0] else []) for name in names))

    @pictured_on_failure
    def test_what_has_come_under_them_takes_them(self):
        self.a_row_that_was_scrolled_there()
        self.a_row_that_was_moved_there()
        self.a_grid_that_was_scrolled()
        self.assertEqual(self.companion.complaints(), "")

    def a_row_that_was_scrolled_there(self):
        left, top, width, height = self.companion.find("list", "Dock Folders").place()
        edge = (left + width // 2, top + height - EDGE)
        last = self.names[-1]
        with FileManager([self.letter]) as source:
            display.begin_drag((60, 50), edge)
            wait_for("the list's end", lambda: last in self.companion.folder_names())
            self.companion.wait_for_caption(last, "Drop to add")
            source.let_go(edge)
            self.wait_for_items(last, ["Letter"])

    def a_row_that_was_moved_there(self):
        # The first change has selected the first folder.
        wait_for("the list's start", lambda: self.names[0] in self.companion.folder_names())
        below, other = self.names[6:8]  # far from the edges
        place = self.companion.row(below).centre()
        with FileManager([self.letter]) as source:
            source.drag_to(place)
            self.companion.wait_for_caption(below, "Drop to add",
                                            during=lambda: display.tremble(place))
            self.write([*self.names[:6], other, below, *self.names[8:]])
            self.companion.wait_for_caption(other, "Drop to add")
            self.companion.wait_for_caption(below, "Not added yet")
            source.let_go(place)
            self.wait_for_items(other, ["Letter"])

    def a_grid_that_was_scrolled(self):
        self.companion.click("list item", self.names[0])
        first = self.companion.find("list item", self.apps[0])
        left, top, width, height = self.companion.find("list", "Dock Folders").place()
        edge = (first.centre()[0], top + height - EDGE)
        with FileManager([self.letter]) as source:
            display.begin_drag((60, 50), edge)
            self.companion.find("list item", self.apps[-1])  # only what is in view is there
            source.let_go(edge)
            self.wait_for_items(self.names[0], [*self.apps, "Letter"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
