#!/usr/bin/env python3
"""Looks at every include: no room may include one above it, and no files include each other in a circle.

    scripts/check_rooms.py

A room is a folder of the tree. Exit 1, with a line for each fault, if there is any.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)

DECODER_ROOMS = [f"module/decoders/{room}" for room in
                 ("lists", "panels", "boards", "charts", "monitor", "orders", "passing")]
MODULE = ["module/wire", "module/containers", "module/layouts", "module/framework"]
HOST = ["host/platform", "host/windows", "host/services"]
PUBLIC = ["host/tickhost.h", "module/framework/tickmux.h"]
# What each room may include beside itself: folders with all below them, and single files.
MAY_INCLUDE = {
    "host": [],
    "host/platform": [],
    "host/windows": ["host/platform"],
    "host/services": ["host/platform", "host/windows", "host/tickhost.h"],
    "module/wire": [],
    "module/containers": ["module/wire"],
    "module/layouts": ["module/wire"],
    "module/framework": ["module/wire", "module/containers", *HOST],
    **{room: [*MODULE, *HOST] for room in DECODER_ROOMS},
    "module/decoders": ["module/framework", *DECODER_ROOMS],
    "terminal": ["module/wire", "module/layouts", *PUBLIC],
    "feed": ["terminal", "module/wire"],
    "programs": ["terminal", "feed"],
    "tests": ["module", "host", "terminal", "feed"],
    "bench": ["tests/support", "module", "host", "terminal", "feed"],
    "fuzz": ["tests/support", "module", "host", "terminal", "feed"],
}


def is_in(path, folder):
    return path == folder or path.startswith(folder + "/")


def room_of(path):
    return max((room for room in MAY_INCLUDE if is_in(path, room)), key=len, default=None)


def faults_of_order(includes):
    for path, included in includes.items():
        room = room_of(path)
        if room is None:
            yield f"{path}: is in no room; add its folder to scripts/check_rooms.py"
            continue
        for target in included:
            same = room_of(target) == room
            if not same and not any(is_in(target, allowed) for allowed in MAY_INCLUDE[room]):
                yield f"{path}: {room} may not include {target}"


def circles(includes):
    done = set()

    def visit(path, way):
        if path in way:
            yield "circle: " + " -> ".join([*way[way.index(path):], path])
        elif path not in done:
            for target in includes.get(path, []):
                yield from visit(target, [*way, path])
            done.add(path)

    for path in includes:
        yield from visit(path, [])


def main():
    includes = {}
    for path in sorted(ROOT.glob("*/**/*")):
        name = path.relative_to(ROOT).as_posix()
        if path.suffix in (".h", ".cpp", ".c") and not is_in(name, "build"):
            includes[name] = INCLUDE.findall(path.read_text(encoding="utf-8"))
    faults = [*faults_of_order(includes), *circles(includes)]
    print("\n".join(faults) if faults else f"  {len(includes)} files, no include against the order of rooms")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
