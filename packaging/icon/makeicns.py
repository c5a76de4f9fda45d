#!/usr/bin/env python3
"""makeicns.py TARGET.icns SMALL.icns DIRECTORY: puts an icon family together.

The two smallest sizes come from SMALL.icns, in the old form that every system reads; the others,
and those for dense displays, are the DIRECTORY's pictures <pixels>.png as they are.
"""
import struct
import sys
from pathlib import Path

PICTURES = {
    b"ic11": 32, b"ic12": 64,  # 16 and 32 points on a dense display
    b"ic07": 128, b"ic13": 256, b"ic08": 256, b"ic14": 512, b"ic09": 512, b"ic10": 1024,
}


def chunk(kind, content):
    """A type of four characters, the length with these eight bytes, the content."""
    return kind + struct.pack(">I", len(content) + 8) + content


def main():
    target, small, directory = map(Path, sys.argv[1:])
    elements = [small.read_bytes()[8:]]
    for kind, pixels in PICTURES.items():
        elements.append(chunk(kind, (directory / f"{pixels}.png").read_bytes()))
    target.write_bytes(chunk(b"icns", b"".join(elements)))


main()
