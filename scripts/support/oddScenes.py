#!/usr/bin/env python3
"""Writes variants of a scene with odd pieces of text put into its lines: oddScenes.py SCENE FOLDER COUNT

What one Qt reads differently from another is rare text: bytes that are no UTF-8, characters outside the basic plane or
new to Unicode, letters that change their length with their case, unusual spaces and numbers, texts at their capacity.
"""
import pathlib
import random
import sys

PIECES = [
    b"\xff", b"\xc3", b"\xe2\x82", b"\xed\xa0\x80", b"\xc0\xaf", b"\xf4\x90\x80\x80", b"\xef\xbb\xbf", b"\xfe\xff",
    "\u00e4\u00df\u1e9e\u0130\u0131\u017f\u01c5\ufb01".encode(), "\U0001f3ac".encode(), "\ua7cb\U00010d50".encode(),
    "\u00a0\u0085\u2028\u3000\u180e".encode(), b"\0", b"\r", b"\v", b"\t\t", b"  ", b"\\", b'"', b"'",
    b"1e3", b"-0", b"0x1F", b"1,5", b"1_000", b"+7.", b".5e-3", b"nan", b"inf", b"99999999999999999999", b"007",
    "\u0663\u0664".encode(), b"$F4", b"$HIPNAME", b"$ACTIVETAKE", b"`chs(\"/a\")`", b"{", b"}", b"a/../b//c/./", b".",
    "\u00e9".encode() * 1200, "\U0001f3ac".encode() * 1200, b"x" * 999, b"x" * 1001,
]


def odd(lines, source):
    lines = list(lines)
    for _ in range(source.randrange(1, 40)):
        at = source.randrange(len(lines))
        line = lines[at]
        cut = source.randrange(len(line) + 1)
        lines[at] = line[:cut] + source.choice(PIECES) + line[cut + source.randrange(3) :]
    return b"\n".join(lines)


scene, folder, count = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), int(sys.argv[3])
for number in range(count):
    text = odd(scene.read_bytes().split(b"\n"), random.Random(number))
    (folder / f"odd{number:04}.hip").write_bytes(text)
