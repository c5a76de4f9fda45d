"""The scene of shot.sh, played with the hands and eyes of the window's test."""

import argparse
import json
import plistlib
import subprocess
import sys
import time
import uuid
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests/window"))

from display import Display, wait_for  # noqa: E402
from mac import BUILD, StandInMac  # noqa: E402

SHOWN = "Studio"
FOLDERS = [
    ("Everyday", "#4F83D3", None,
     ["Almanac", "Über Notes", "Pocket Atlas", "Tide Table", "10 Timer", "2 Do"]),
    (SHOWN, "#D3663F", 4,
     ["Drawing", "draw tools", "Studio/Easel", "Half Note", "Éclair", "Marble Run", "Lantern",
      "Quill & Ink"]),
    ("Writing", "#5E9C4B", None, ["Quill & Ink", "Über Notes", "école"]),
    ("Games", "#8A5FC7", 3, ["Marble Run", "🎈 Party", "Zebra"]),
    ("Maintenance", None, None,
     ["Utilities/Disk Weigher", "Utilities/Key Ring", "Utilities/Signal Meter"]),
]


def new_id():
    return str(uuid.uuid4()).upper()


def folder_record(mac, name, color, columns, apps):
    items = [{"id": new_id(), "name": Path(app).name, "url": mac.app(app).as_uri() + "/",
              "kind": "application"} for app in apps]
    record = {"id": new_id(), "name": name, "items": items}
    if color:
        record["accentColorHex"] = color
    if columns:
        record["gridColumns"] = columns
    return record


def fill_library(mac):
    folders = [folder_record(mac, *folder) for folder in FOLDERS]
    mac.library.parent.mkdir(parents=True, exist_ok=True)
    mac.library.write_text(
        json.dumps({"folders": folders, "selectedFolderID": folders[0]["id"]}))


def make_dark(mac):
    preferences = mac.root / "Users/me/Library/Preferences/.GlobalPreferences.plist"
    preferences.parent.mkdir(parents=True, exist_ok=True)
    preferences.write_bytes(plistlib.dumps({"AppleInterfaceStyle": "Dark"}))


def paint_background(display, folder, is_dark):
    picture = folder / "background.png"
    gradient = "gradient:#1d2b3a-#4a3f45" if is_dark else "gradient:#7fa3c7-#e9d9cf"
    subprocess.run(["convert", "-size", "1440x1000", gradient, picture], check=True)
    # It reports a failure also when it succeeded.
    subprocess.run(["display", "-window", "root", picture], env=display.environment, check=False)


def play(display, mac, file, is_dark):
    from accessibility import Program  # only now is there a bus to speak on

    folder = mac.root.parent
    log = folder / "log"
    log.touch()
    environment = mac.environment | {"NESTLET_STANDIN_LOG": str(log)}
    fill_library(mac)
    if is_dark:
        make_dark(mac)
    paint_background(display, folder, is_dark)
    display.start(str(BUILD / "bin/sandbox-dock"), str(mac.root), environment=environment)
    companion = display.start(str(BUILD / "bin/nestlet-companion"), environment=environment,
                              stdout=None, stderr=None)
    program = Program(companion.pid)
    program.find("list item", SHOWN)
    display.do("search", "--onlyvisible", "--name", "^Nestlet Companion$",
               "windowmove", "--sync", 189, 28)
    display.click(program.find("list item", SHOWN).centre())
    display.click(program.find("push button", "Show in Dock").centre())
    program.find("push button", "Update Dock")
    wait_for("the panel", lambda: " shown\n" in log.read_text())
    wait_for("its tile", lambda: f'"{SHOWN}"]' in log.read_text())
    display.do("mousemove", 1439, 0)
    time.sleep(1.5)  # nothing tells when the icons have been drawn
    display.picture(file)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("file")
    parser.add_argument("--dark", action="store_true")
    arguments = parser.parse_args()
    file = Path(arguments.file).resolve()
    display = Display()
    try:
        display.open()
        mac = StandInMac(display)
        try:
            play(display, mac, file, arguments.dark)
        finally:
            display.end(mac.environment)
            mac.close()
    finally:
        display.close()
    if not file.exists():
        sys.exit(f"{file} could not be written")


main()
