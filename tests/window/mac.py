"""A stand-in Mac of a test's own, and what a test asks of it."""

import json
import os
import plistlib
import subprocess
import tempfile
import uuid
from pathlib import Path
from urllib.parse import unquote, urlparse

from display import processes

BUILD = Path(os.environ.get("COMPANION_BINARY_DIR", "build/release")).resolve()


def fixed_id(name):
    return str(uuid.uuid5(uuid.NAMESPACE_URL, name)).upper()


class StandInMac:
    def __init__(self, display):
        self._display = display
        self._place = tempfile.TemporaryDirectory(prefix="mac-")
        self.root = Path(self._place.name).resolve() / "mac"
        subprocess.run([BUILD / "bin/sandbox-make", self.root], check=True, capture_output=True)
        self.environment = {
            "NESTLET_COMPANION_ROOT": str(self.root),
            "NESTLET_COMPANION_FEED": "http://127.0.0.1:9/",  # nobody is there
            "NESTLET_STANDIN_LOG": str(self.root.parent / "states.log"),
        }

    def close(self):
        self._place.cleanup()

    def end_programs(self):
        self._display.end({"NESTLET_COMPANION_ROOT": str(self.root)})

    def start_dock(self):
        self._display.start(str(BUILD / "bin/sandbox-dock"), str(self.root),
                            environment=self.environment)

    def app(self, name):
        return self.root / "Applications" / f"{name}.app"

    def document(self, name):
        path = self.root / "Users/me/Documents" / name
        path.write_text("Text\n")
        return path

    def picture(self, name, color):
        path = self.root / "Users/me/Pictures" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["convert", "-size", "64x64", f"xc:{color}", path], check=True)
        return path

    def set_preferences(self, domain, **values):
        preferences = self.root / f"Users/me/Library/Preferences/{domain}.plist"
        preferences.parent.mkdir(parents=True, exist_ok=True)
        preferences.write_bytes(plistlib.dumps(values))

    def make_dark(self):
        """The companion at once; the other programs of the stand-in when they start."""
        self.environment["NESTLET_STANDIN_APPEARANCE"] = "dark"
        self.set_preferences(".GlobalPreferences", AppleInterfaceStyle="Dark")

    def keep_still(self):
        self.set_preferences("com.apple.universalaccess", reduceMotion=True)

    def _said(self):
        try:
            return (self.root.parent / "states.log").read_text().splitlines()
        except OSError:
            return []

    def has_said(self, words):
        """Whether any program of this Mac has said that of itself."""
        return any(words in line for line in self._said())

    def states(self, process):
        """What a program of this Mac, or a Dock app's panel, has said of itself, oldest first."""
        return [line.partition(" ")[2] for line in self._said() if line.startswith(f"{process} ")]

    def panel(self, process):
        """The folder that the panel of a Dock app shows."""
        shown = [line.partition(" ")[2] for line in self.states(process)
                 if line.startswith("folder {")]
        return json.loads(shown[-1]) if shown else {}

    def panel_of_folder(self, identifier):
        """The same of whichever process runs now: another look is another Dock app."""
        copies = self.copies(identifier)
        return self.panel(copies[-1]) if copies else {}

    def opened(self):
        """What was opened or revealed outside of the programs, oldest first."""
        try:
            return (self.root / "private/var/log/open.log").read_text().splitlines()
        except OSError:
            return []

    @property
    def folder_library(self):
        return self.root / "Users/me/Library/Application Support/Nestlet/Nestlet.json"

    @property
    def proxy_folder(self):
        return self.root / "Users/me/Applications/Nestlet"

    def bundles(self):
        return sorted(path.name for path in self.proxy_folder.glob("*.app"))

    def info(self, bundle_name):
        try:
            return plistlib.loads(
                (self.proxy_folder / bundle_name / "Contents/Info.plist").read_bytes())
        except OSError:
            return {}

    def template_info(self):
        return plistlib.loads((self.app("Nestlet") / "Contents/Info.plist").read_bytes())

    def verify(self, bundle_name):
        """What `codesign` says, or None when the seal is whole."""
        result = subprocess.run(
            [self.root / "usr/bin/codesign", "--verify", "--deep", "--strict",
             self.proxy_folder / bundle_name],
            capture_output=True, text=True,
            env=self._display.environment | self.environment)
        return result.stderr if result.returncode != 0 else None

    def copies(self, bundle_identifier):
        """The ids of the running processes of an application of this Mac."""
        return [process.number for process in processes()
                if process.variable("__CFBundleIdentifier") == bundle_identifier
                and process.variable("NESTLET_COMPANION_ROOT") == str(self.root)
                and process.leads_session() and process.is_alive()]

    def record(self, name, apps=(), **fields):
        """A folder as the library holds it; always the same for the same name."""
        items = [{"id": fixed_id(f"{name}/{app}"), "name": Path(app).name, "kind": "application",
                  "url": self.app(app).as_uri() + "/"} for app in apps]
        return {"id": fixed_id(name), "name": name, "items": items} | fields

    def write_library(self, *records):
        """Replaces it, as other programs do."""
        self.folder_library.parent.mkdir(parents=True, exist_ok=True)
        successor = self.folder_library.with_suffix(".new")
        successor.write_text(json.dumps(
            {"folders": list(records), "selectedFolderID": records[0]["id"]}))
        successor.replace(self.folder_library)

    def folders(self):
        """The library's folders by name."""
        try:
            library = json.loads(self.folder_library.read_bytes())
        except OSError:
            return {}
        return {folder["name"]: folder for folder in library["folders"]}

    def identifier_of(self, folder_name):
        """Of the folder's Dock app."""
        folder_id = self.folders()[folder_name]["id"]
        return "qx.Nestlet.folder." + folder_id.replace("-", "").lower()

    def item_names(self, folder_name):
        folder = self.folders().get(folder_name, {"items": []})
        return [item["name"] for item in folder["items"]]

    def _dock_preferences(self):
        return self.root / "Users/me/Library/Preferences/com.apple.dock.plist"

    def pinned(self):
        """The file names of the Dock's pinned tiles."""
        tiles = plistlib.loads(self._dock_preferences().read_bytes())["persistent-apps"]
        urls = [tile["tile-data"]["file-data"]["_CFURLString"] for tile in tiles]
        return [Path(unquote(urlparse(url).path)).name for url in urls]

    def pin(self, bundle_name):
        """What "Keep in Dock" writes, as far as the companion looks at it."""
        preferences = plistlib.loads(self._dock_preferences().read_bytes())
        url = (self.proxy_folder / bundle_name).as_uri() + "/"
        preferences["persistent-apps"].append({
            "tile-type": "file-tile",
            "tile-data": {"file-data": {"_CFURLString": url, "_CFURLStringType": 15},
                          "file-label": Path(bundle_name).stem}})
        self._dock_preferences().write_bytes(plistlib.dumps(preferences))
