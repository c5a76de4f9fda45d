#!/usr/bin/env python3
"""Runs qmllint over the QML files of a build folder, and fails on what it finds.

    packaging/qml.py BUILD

Some of what qmllint 6.4 says is not so, and is left out; see NOT_SO and is_own_id.
"""

import pathlib
import re
import subprocess
import sys

FINDING = re.compile(r"^(?:Warning|Error): (?:(?P<file>/.+?):(?P<line>\d+):(?P<column>\d+): )?(?P<what>.+)$")
NOT_SO = [
    # Documented properties, of a type that has no description.
    re.compile(r'Property "(font|layoutDirection)" not found on type "QQmlApplication"'),
    # A documented function.
    re.compile(r'Property "callLater" is a QJSValue property'),
    # The engine converts one into the other.
    re.compile(r"Cannot assign binding of type (QList<QString> to QStringList|QStringList to QList<QString>)"),
    # Categories have other names in other versions.
    re.compile(r"qmllint directive on unknown category"),
]
# Types that it takes for names of nothing.
TYPES = {"StandardKey"}


def is_own_id(finding):
    """A component may use the ids around it. Bound components would need no exception, but a Loader
    cannot make them from inside its file."""
    if finding["what"] != "Unqualified access":
        return False
    source = pathlib.Path(finding["file"]).read_text()
    line = source.splitlines()[int(finding["line"]) - 1]
    name = re.match(r"\w+", line[int(finding["column"]) - 1:]).group()
    return name in TYPES or re.search(rf"^\s*id: {name}$", source, re.M) is not None


def is_fault(finding):
    return not (is_own_id(finding) or any(saying.match(finding["what"]) for saying in NOT_SO))


def main():
    lint = subprocess.run(["cmake", "--build", sys.argv[1], "--target", "all_qmllint"],
                          capture_output=True, text=True, check=False)
    findings = [found for line in lint.stdout.splitlines() if (found := FINDING.match(line))]
    faults = [finding.group() for finding in findings if is_fault(finding)]
    print(*faults, sep="\n", end="\n" if faults else "")
    if lint.returncode != 0 and not findings:
        print(lint.stdout, lint.stderr)
    return 1 if faults or (lint.returncode != 0 and not findings) else 0


if __name__ == "__main__":
    sys.exit(main())
