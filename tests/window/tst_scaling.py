#!/usr/bin/env python3
"""The window on screens of other resolutions: everything at its place, lines of whole pixels, and
nothing drawn for another screen. It is drawn as on a Mac, by the graphics processor's renderer: the
other one knows no line thinner than a unit of the window."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from functools import cache
from itertools import combinations
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from companion import Companion, display, open_display  # noqa: E402
from display import wait_for  # noqa: E402
from mac import StandInMac  # noqa: E402
from pictures import (  # noqa: E402
    colors_of, content_of, cropped, difference_from_enlarged, size_of)

SIZE = (1060, 800)
SIDEBAR = 220
HEADER = 52
HANDLE = "slider “Sidebar Width”"  # lies over the edge that it moves
SHARPNESS = 0.015  # of the range of a colour, which an enlarged picture never differs by
pictures = tempfile.TemporaryDirectory(prefix="scaling-")


def setUpModule():
    unittest.addModuleCleanup(pictures.cleanup)
    open_display(size=(2200, 1700))


class Look:
    """The window as it is seen at a scale: a picture of it, and where its controls are, in units of
    the window."""

    def __init__(self, factor, *arguments):
        self.factor = float(factor)
        self.is_mirrored = "-reverse" in arguments
        self.picture = Path(pictures.name) / f"{factor}{''.join(arguments)}.bmp"
        mac = StandInMac(display)
        try:
            self._set_up(mac, factor)
            self._look_at(Companion(mac, *arguments))
        finally:
            mac.end_programs()
            mac.close()

    @staticmethod
    def _set_up(mac, factor):
        mac.keep_still()
        shutil.rmtree(mac.app("Nestlet"))  # there is a strip over the window, then
        mac.environment |= {"QT_SCALE_FACTOR": factor, "QT_QUICK_BACKEND": ""}
        mac.write_library(
            mac.record("Studio", ["Drawing", "Marble Run", "Lantern", "Half Note", "Zebra"],
                       iconSymbol="globe"),
            mac.record("Travel", ["Pocket Atlas"], accentColorHex="#3DAEC0"))
        display.park_pointer()

    def _look_at(self, companion):
        companion.press("list item", "Studio")
        companion.find("list item", "Zebra")
        self._window = display.window("Nestlet Companion")
        wait_for("a window that stays as it is", self._stays)
        self._colors = colors_of(self.picture)
        root = companion.find("frame", "Nestlet Companion")
        self._left, self._top, *_ = root.place()
        self.places = {}
        self.siblings = []
        self._collect(root)

    def _stays(self):
        before = content_of(self.picture) if self.picture.exists() else None
        display.do("sleep", "0.3")
        display.picture_of(self._window, self.picture)
        return content_of(self.picture) == before

    def _collect(self, widget):
        children = widget.shown_children()
        self.siblings.append([(str(child), self._place(child)) for child in children])
        for child in children:
            self.places[child.role, child.name] = self._place(child)
            self._collect(child)

    def _place(self, widget):
        left, top, width, height = widget.place()
        return left - self._left, top - self._top, width, height

    def _edges(self, left, top, width, height):
        return [round(edge * self.factor) for edge in (left, top, left + width, top + height)]

    def pixels(self, *part):
        """Those of a row, whose height is 0, or of a column."""
        left, top, right, bottom = self._edges(*part)
        row = round(SIZE[0] * self.factor)
        places = [y * row + x for y in range(top, max(top + 1, bottom))
                  for x in range(left, max(left + 1, right))]
        return [self._colors[3 * place:3 * place + 3].hex() for place in places]

    def cropped(self, part):
        left, top, right, bottom = self._edges(*part)
        return cropped(self.picture, f"{right - left}x{bottom - top}+{left}+{top}")

    def __str__(self):
        return self.picture.stem


look_at = cache(Look)


def looks():
    return [look_at("1.5"), look_at("2"), look_at("1.5", "-reverse")]


def line(pixels):
    """What lies between one ground and the other."""
    return [pixel for pixel in pixels if pixel not in (pixels[0], pixels[-1])]


def are_apart(first, second):
    """Whether one ends where the other begins, or before, in a row or in a column."""
    def follow(a, b):
        return any(a[side] + a[side + 2] <= b[side] for side in (0, 1))
    return follow(first, second) or follow(second, first)


class ScalingTest(unittest.TestCase):
    def test_the_window_is_as_large_on_every_screen(self):
        for look in looks():
            self.assertEqual(size_of(look.picture), "x".join(
                str(round(side * look.factor)) for side in SIZE))

    def test_everything_is_where_it_is_at_a_scale_of_one(self):
        expected = look_at("1").places
        self.assertGreater(len(expected), 50)
        for look in (look_at("1.5"), look_at("2")):
            self.assertEqual(look.places.keys(), expected.keys())
            for control, place in look.places.items():
                self.assert_near(place, expected[control], control)

    def test_from_right_to_left_everything_is_mirrored(self):
        mirrored = look_at("1.5", "-reverse").places
        self.assertEqual(mirrored.keys(), look_at("1.5").places.keys())
        for control, (left, top, width, height) in look_at("1.5").places.items():
            expected = (SIZE[0] - left - width, top, width, height)
            self.assert_near(mirrored[control], expected, control)

    def assert_near(self, place, expected, control, tolerance=1):
        self.assertTrue(all(abs(edge - other) <= tolerance for edge, other in zip(place, expected)),
                        f"{control} is at {place} instead of {expected}")

    def test_nothing_is_over_anything_else_or_out_of_the_window(self):
        for look in looks():
            for widgets in look.siblings:
                widgets = [each for each in widgets if each[0] != HANDLE]
                for (name, place), (other, its_place) in combinations(widgets, 2):
                    self.assertTrue(are_apart(place, its_place),
                                    f"{name} at {place} is over {other} at {its_place}")
            for control, (left, top, width, height) in look.places.items():
                self.assertTrue(0 <= left and 0 <= top and left + width <= SIZE[0]
                                and top + height <= SIZE[1], f"{control} is out of the window")

    def test_dividing_lines_are_one_pixel_wide(self):
        for look in [look_at("1"), *looks()]:
            _, _, _, strip = look.places["panel", "Nestlet not found"]
            edge, middle = SIDEBAR, (SIDEBAR + SIZE[0]) // 2
            if look.is_mirrored:
                edge, middle = SIZE[0] - edge, SIZE[0] - middle
            for name, pixels in {
                    "under the strip": look.pixels(middle, strip - 4, 0, 8),
                    "under the header": look.pixels(middle, strip + HEADER - 4, 0, 8),
                    "beside the sidebar": look.pixels(edge - 4, 600, 8, 0)}.items():
                self.assertEqual(len(line(pixels)), 1, f"{name} in {look}: {pixels}")

    def test_outlines_are_whole_pixels_wide(self):
        for look in [look_at("1"), *looks()]:
            left, top, _, height = look.places["radio button", "Globe"]  # the chosen one
            outline = line(look.pixels(left - 3, top + height // 2, 8, 0))
            self.assertEqual(len(outline), round(1.5 * look.factor), f"{look}: {outline}")
            self.assertEqual(len(set(outline)), 1, f"{look}: {outline}")

    def test_everything_is_drawn_for_the_screen(self):
        """Whatever is drawn for another one is a smaller picture made larger."""
        look = look_at("2")
        left, top, *_ = look.places["list item", "Drawing"]
        icon = left + 20, top + 6, 56, 56
        left, top, *_ = look.places["list item", "Travel"]
        thumbnail = left + 18 + 6, top + 8 + 6, 12, 12  # the first item's icon in it
        for name, part in [("symbol", look.places["radio button", "Gear"]), ("icon", icon),
                           ("thumbnail", thumbnail), ("text", look.places["heading", "Studio"])]:
            difference = difference_from_enlarged(look_at("1").cropped(part), look.cropped(part))
            self.assertGreater(difference, SHARPNESS, name)

    def test_an_enlarged_picture_is_found_out(self):
        small = look_at("1").cropped(look_at("1").places["radio button", "Gear"])
        for method in ("point", "triangle", "catrom"):
            large = small.with_name(f"enlarged-{method}.bmp")
            subprocess.run(["convert", small, "-filter", method, "-resize", "200%", large],
                           check=True)
            self.assertLess(difference_from_enlarged(small, large), SHARPNESS, method)


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
