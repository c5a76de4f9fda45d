"""The scenes of shot.sh, played with the hands and eyes of the window's test."""

import argparse
import shutil
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests/window"))

from companion import Companion, FileManager, display  # noqa: E402
from display import wait_for  # noqa: E402
from mac import StandInMac  # noqa: E402
from pictures import keep_small  # noqa: E402

SHOWN = "Studio"
FOLDERS = [
    ("Everyday", ["Almanac", "Über Notes", "Pocket Atlas", "Tide Table", "10 Timer", "2 Do"],
     {"accentColorHex": "#4F83D3"}),
    (SHOWN, ["Drawing", "draw tools", "Studio/Easel", "Half Note", "Éclair", "Marble Run",
             "Lantern", "Quill & Ink"], {"accentColorHex": "#D3663F", "gridColumns": 4}),
    ("Writing", ["Quill & Ink", "Über Notes", "Zebra"], {"accentColorHex": "#5E9C4B"}),
    ("Games", ["Marble Run", "Lantern", "Zebra"], {"accentColorHex": "#8A5FC7", "gridColumns": 3}),
    ("Maintenance", ["Utilities/Disk Weigher", "Utilities/Key Ring", "Utilities/Signal Meter"], {}),
]
DROPPED = ["Pocket Atlas", "Tide Table", "Zebra"]


class Scene:
    """A stand-in Mac in one appearance, with a Dock and the companion on it."""

    def __init__(self, folders, is_dark):
        self.mac = StandInMac(display)
        shutil.rmtree(self.mac.app("🎈 Party"))  # not every machine has a font for it
        if is_dark:
            self.mac.make_dark()
        self.mac.write_library(*(self.mac.record(name, apps, **look)
                                 for name, apps, look in folders))
        self._paint_background(is_dark)
        self.mac.start_dock()
        self.companion = Companion(self.mac)
        self.companion.row(folders[0][0])
        self.window = display.window("Nestlet Companion")
        display.do("windowmove", "--sync", self.window, 189, 28)
        display.park_pointer()

    def _paint_background(self, is_dark):
        picture = self.mac.root.parent / "background.png"
        gradient = "gradient:#1d2b3a-#4a3f45" if is_dark else "gradient:#7fa3c7-#e9d9cf"
        subprocess.run(["convert", "-size", "1440x1000", gradient, picture], check=True)
        # It reports a failure also when it succeeded.
        subprocess.run(["display", "-window", "root", picture], env=display.environment,
                       check=False)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.mac.end_programs()
        sys.stderr.write(self.companion.complaints())
        self.mac.close()

    def select(self, name):
        self.companion.press("list item", name)
        self.companion.find("heading", name)

    def show_in_dock(self, name):
        self.select(name)
        self.companion.press("push button", "Show in Dock")
        self.companion.find("push button", "Update Dock")
        identifier = self.mac.identifier_of(name)
        wait_for("the panel", lambda: any("shown" in self.mac.states(copy)
                                          for copy in self.mac.copies(identifier)))
        wait_for("its tile", lambda: self.mac.has_said(f'"{name}"]'))


def settle():
    time.sleep(1.5)  # nothing tells when the icons have been drawn


def take_screen(file):
    settle()
    display.picture(file)
    keep_small(file)


def take_window(scene, file):
    settle()
    display.picture_of(scene.window, file)
    keep_small(file)


def play_whole_scene(file, is_dark):
    with Scene(FOLDERS, is_dark) as scene:
        scene.show_in_dock(SHOWN)
        take_screen(file)


def play_story(folder, appearance):
    """The four pictures of the README."""
    folders = FOLDERS[:1] + [("Travel", [], {})] + FOLDERS[2:4]
    with Scene(folders, appearance == "dark") as scene:
        scene.select("Travel")
        drop_apps(scene, folder / f"drop-{appearance}.png")
        pick_apps(scene, folder / f"pick-{appearance}.png")
        give_a_look(scene, folder / f"look-{appearance}.png")
        scene.show_in_dock("Travel")
        take_screen(folder / f"dock-{appearance}.png")


def drop_apps(scene, file):
    place = scene.companion.find("label", "No items yet").centre()
    with FileManager([scene.mac.app(name) for name in DROPPED]) as files:
        files.drag_to(place)
        scene.companion.find("label", "Release to Add")
        take_window(scene, file)
        files.let_go(place)
        wait_for("what was dropped", lambda: scene.mac.item_names("Travel") == DROPPED)
    display.park_pointer()


def pick_apps(scene, file):
    scene.companion.press("push button", "Add Apps")
    for name in ("Almanac", "Easel", "Half Note"):
        scene.companion.press("check box", name)
    scene.companion.find("push button", "Add 3")
    take_window(scene, file)
    scene.companion.press("push button", "Add 3")
    scene.companion.wait_until_gone("push button", "Add 3")


def give_a_look(scene, file):
    for name in ("3 × 3", "Airplane", "Custom Color…"):
        scene.companion.press("radio button", name)
    field = scene.companion.find("text", "Hex Color")
    field.focus()
    field.set_text("#2F8FBF")
    display.key("Return")
    wait_for("the colour", lambda: scene.mac.folders()["Travel"].get("accentColorHex") == "#2F8FBF")
    take_window(scene, file)
    display.key("Escape")
    scene.companion.wait_until_gone("slider", "Hue")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("target", help="a picture; with --story a folder")
    parser.add_argument("--dark", action="store_true", help="in the dark appearance")
    parser.add_argument("--story", action="store_true", help="the pictures of the README")
    arguments = parser.parse_args()
    target = Path(arguments.target).resolve()
    try:
        display.open()
        if arguments.story:
            for appearance in ("light", "dark"):
                play_story(target, appearance)
        else:
            play_whole_scene(target, arguments.dark)
    finally:
        display.close()
    if not target.exists():
        sys.exit(f"{target} could not be written")


main()
