#!/usr/bin/env python3
"""Fills a catalogue with a language that nobody speaks, to see what a translation would break.

    i18n/pseudo.py CATALOGUE.ts

Each text keeps its words, in letters with accents above and below, gets half as long again, and
stands in brackets: what is cut off, and what is no text of the catalogue, can be seen at a glance.
"""

import re
import sys
import xml.etree.ElementTree as xml

PLAIN = "ABCDEGHIJKLNORSTUWYZabcdeghijklnorstuwyz"
ACCENTED = "ÅßÇÐÉĜĤÎĴĶĻÑÖŔŜŢÛŴÝŽåƀçðéĝĥîĵķļñöŕŝţûŵýž"
LETTERS = str.maketrans(PLAIN, ACCENTED)
PLACE = re.compile(r"(%L?\d+|%L?n|%lld|%@|\n)")
ALONE = 12  # a padding's longest word: no language has only one


def padding(length):
    words = ["~" * min(ALONE, length - start) for start in range(0, length, ALONE + 1)]
    return " ".join(words)


def pseudo(text):
    parts = PLACE.split(text)
    parts[::2] = [part.translate(LETTERS) for part in parts[::2]]
    missing = max(1, (len(text) + 1) // 2 - len("[] "))
    return f"[{''.join(parts)} {padding(missing)}]"


def fill(message):
    translation = message.find("translation")
    translation.attrib.pop("type", None)
    filled = pseudo(message.findtext("source"))
    forms = translation.findall("numerusform")
    for place in forms or [translation]:
        place.text = filled


def main():
    path = sys.argv[1]
    catalogue = xml.parse(path)
    for message in catalogue.iter("message"):
        fill(message)
    catalogue.write(path, encoding="utf-8", xml_declaration=True)


if __name__ == "__main__":
    main()
