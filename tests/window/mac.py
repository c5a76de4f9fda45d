"""A stand-in Mac of a test's own, and what a test asks of it."""

import json
import os
import plistlib
import subprocess
import tempfile
from pathlib import Path
from urllib.parse import unquote, urlparse

from display import processes

BUILD = Path(os.environ.get("COMPANION_BINARY_DIR", "build/release")).resolve()


class StandInMac:
    def __init__(self, display):
        self._display = display
        self._place = tempfile.TemporaryDirectory(prefix="mac-")
        self.root = Path(self._place.name).resolve() / "mac"
        subprocess.run([BUILD / "bin/sandbox-make", self.root], check=True, capture_output=True)
        self.environment = {
            "NESTLET_COMPANION_ROOT": str(self.root),
            "NESTLET_COMPANION_FEED": "http://127.0.0.1:9/",  # nobody is there
        }

    def close(self):
        self._place.cleanup()

    def app(self, name):
        return self.root / "Applications" / f"{name}.app"

    def document(self, name):
        path = self.root / "Users/me/Documents" / name
        path.write_text("Text\n")
        return path

    @property
    def library(self):
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
                and process.is_alive()]

    def folders(self):
        """The library's folders by name."""
        try:
            library = json.loads(self.library.read_bytes())
        except OSError:
            return {}
        return {folder["name"]: folder for folder in library["folders"]}

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
