#!/usr/bin/env python3
"""Runs clang-tidy over the sources that a build folder compiles; all, or those whose path matches.

    packaging/tidy.py BUILD [PATTERN]

A source that was clean is not looked at again until it, what it includes or the checks have changed.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

TIDY = "clang-tidy-16"
CLANG = "clang++"
# What only GCC understands; its precompiled headers say nothing that the sources do not include.
GCC_ONLY = re.compile(
    r" -Winvalid-pch| -include \S+/cmake_pch\.hxx| --param ggc-min-heapsize=\d+")


def own_sources(pattern):
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "--", "*.cpp"],
        check=True, capture_output=True, text=True).stdout.split()
    return {os.path.abspath(file) for file in listed if re.search(pattern, file)}


def compile_commands(build, sources):
    commands = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        if entry["file"] in sources:
            commands.setdefault(entry["file"], {
                **entry, "command": GCC_ONLY.sub("", entry["command"])})
    return commands


def preprocessed(entry):
    """All that clang-tidy sees, and the comments, which can silence it."""
    arguments = shlex.split(entry["command"])
    end = arguments.index("-o")
    return subprocess.run([CLANG, *arguments[1:end], "-w", "-E", "-CC", entry["file"]],
                          cwd=entry["directory"], capture_output=True, check=False).stdout


def checks_of(file):
    """What the folders around a file ask for."""
    settings = [folder / ".clang-tidy" for folder in pathlib.Path(file).parents]
    return b"".join(file.read_bytes() for file in settings if file.exists())


def is_clean(entry, database):
    seen = preprocessed(entry)
    stamp = database / hashlib.sha256(checks_of(entry["file"]) + seen).hexdigest()
    if seen and stamp.exists():
        return True
    tidied = subprocess.run([TIDY, "-p", str(database), "--quiet",
                             "--extra-arg=-Wno-unknown-warning-option", entry["file"]],
                            capture_output=True, text=True, check=False)
    if tidied.returncode == 0 and not tidied.stdout.strip():
        stamp.touch()
        return True
    errors = [line for line in tidied.stderr.splitlines() if "generated" not in line]
    print(tidied.stdout.strip(), *errors, sep="\n", flush=True)
    return False


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    os.chdir(pathlib.Path(__file__).parents[1])
    commands = compile_commands(build, own_sources(sys.argv[2] if len(sys.argv) > 2 else ""))
    if not commands:
        sys.exit(f"{build} compiles no such source")
    database = build / "tidy"
    database.mkdir(exist_ok=True)
    (database / "compile_commands.json").write_text(json.dumps(list(commands.values())))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        clean = list(pool.map(lambda entry: is_clean(entry, database), commands.values()))
    print(f"{clean.count(True)} of {len(clean)} sources are clean")
    return 0 if all(clean) else 1


if __name__ == "__main__":
    sys.exit(main())
