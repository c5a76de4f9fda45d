#!/usr/bin/env python3
"""Extracts the program's texts, and fails on a text that a user sees and a translator does not.

    packaging/texts.py [FILE...]

That is: a text in QML that is shown or spoken without qsTr(), a sentence in C++ without tr(), what
lupdate cannot extract, and a plural that the English catalogue does not have. With arguments, looks
at those files only.
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

ROOT = pathlib.Path(__file__).parents[1]
LUPDATE = "/usr/lib/qt6/bin/lupdate"
ROOMS = ["platform", "model", "builder", "system", "store", "ui", "app"]
ENGLISH = ROOT / "i18n/companion_en.ts"

COMMENT_OR_LITERAL = re.compile(r'//[^\n]*|/\*.*?\*/|("(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\')', re.S)
KEY_CALL = re.compile(r"\b(?:qsTr|qsTranslate|tr|translate|QT_TR_NOOP|QT_TRANSLATE_NOOP)\(")
# Formats and answers of the language itself, that nobody reads.
NO_TEXT = re.compile(r'toLocaleString\((?:[^()]|\([^()]*\))*\)|[=!]==?\s*"[^"]*"')
SHOWN = re.compile(
    r"(?:\b(?:text|title|message|description|caption|explanation|status|label|\w+Text|\w+Title"
    r"|placeholder\w*)|Accessible\.(?:name|description))"
    r"\s*(?::|=(?!=))(?P<value>(?:[^\n]*(?:\n\s*[?:+.][^\n]*)*))")
LITERAL = re.compile(r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'')
COLOR = re.compile(r'["\']#[0-9A-Fa-f]+["\']')
SENTENCE = re.compile(r'"[A-Z][a-z]+[^"]* [^"]*"')
FILE_NAME = re.compile(r'\.[a-z]+"$|/"$')
# Our folder's name on disk, and what only a log and a debugger are told.
NOT_SHOWN = {'"Nestlet Companion"', '"Nestlet Companion: rebuild of \'"',
             '"Nestlet Companion error"'}


def blanked(match_or_text):
    text = match_or_text if isinstance(match_or_text, str) else match_or_text.group()
    return re.sub(r"[^\n]", " ", text)


def without_comments(source):
    return COMMENT_OR_LITERAL.sub(lambda found: found.group() if found.group(1) else blanked(found),
                                  source)


def without_keys(source):
    """Blanks the arguments of every call that makes a text a key."""
    while call := KEY_CALL.search(source):
        depth, end = 1, call.end()
        while depth and end < len(source):
            if literal := LITERAL.match(source, end):
                end = literal.end()
                continue
            depth += {"(": 1, ")": -1}.get(source[end], 0)
            end += 1
        source = source[:call.start()] + blanked(source[call.start():end]) + source[end:]
    return source


def texts_in_qml(source):
    for binding in SHOWN.finditer(NO_TEXT.sub(blanked, source)):
        for literal in LITERAL.finditer(binding["value"]):
            if re.search(r"[A-Za-z]", literal.group()) and not COLOR.fullmatch(literal.group()):
                yield binding.start("value") + literal.start(), literal.group()


def texts_in_cpp(source):
    for literal in SENTENCE.finditer(source):
        line = source[source.rfind("\n", 0, literal.start()) + 1:literal.start()]
        if not (FILE_NAME.search(literal.group()) or literal.group() in NOT_SHOWN
                or re.search(r"#include|QML_UNCREATABLE|qFatal|qCWarning|qWarning", line)):
            yield literal.start(), literal.group()


def unkeyed_texts(path):
    source = without_keys(without_comments(path.read_text()))
    find = texts_in_qml if path.suffix == ".qml" else texts_in_cpp
    return [f"{path}:{source.count(chr(10), 0, place) + 1}: {text} is shown, but is no key"
            for place, text in find(source)]


def plurals(catalogue):
    """Of a catalogue: each plural's context and text, and whether it is translated."""
    return {(context.findtext("name"), message.findtext("source")):
            all(form.text for form in message.iter("numerusform"))
            for context in xml.parse(catalogue).iter("context")
            for message in context.iter("message") if message.get("numerus") == "yes"}


def extraction_faults():
    with tempfile.TemporaryDirectory() as folder:
        catalogue = pathlib.Path(folder) / "texts.ts"
        run = subprocess.run(
            [LUPDATE, "-silent", "-I.", "-source-language", "en", "-target-language", "en",
             *ROOMS, "-ts", str(catalogue)],
            cwd=ROOT, check=True, capture_output=True, text=True)
        faults = (run.stdout + run.stderr).splitlines()
        texts = list(xml.parse(catalogue).iter("message"))
        wanted = plurals(catalogue)
    english = plurals(ENGLISH)
    faults += [f"{ENGLISH.relative_to(ROOT)}: no plural for “{text}” of {context}"
               for context, text in wanted if not english.get((context, text))]
    faults += [f"{ENGLISH.relative_to(ROOT)}: nothing uses “{text}” of {context}"
               for context, text in english if (context, text) not in wanted]
    return faults + ([] if texts else ["lupdate found no text at all"])


def all_faults():
    files = sorted(file for room in ROOMS for kind in ("*.cpp", "*.h", "*.mm", "*.qml")
                   for file in (ROOT / room).rglob(kind))
    return extraction_faults() + [fault for file in files for fault in unkeyed_texts(file)]


def main():
    if len(sys.argv) > 1:
        faults = [fault for name in sys.argv[1:] for fault in unkeyed_texts(pathlib.Path(name))]
    else:
        faults = all_faults()
    print(*faults, sep="\n", end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
