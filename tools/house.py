#!/usr/bin/env python3
"""Says how the house of src/ and workbench/ stands; see docs/architecture.md for its floors.

Faults, which fail the check: rings of includes between rooms (a room is a source with its header)
and includes that run up a floor. There is no list of exceptions. Also faults: a file over
400 lines, and outside the tests, whose tables are long, a function over 60 lines, that is not in
the list below; and an entry of that list that is no longer true, so that it can only shrink.
"""
import os
import re
import sys

FLOORS = [  # the first match counts
    (r"^src/main$|^src/core/(FormMain\w*|PositionLoop|StartUp|Closing)$", 7),
    (r"^src/core/(Positions|Arithmetic)$", 1),
    (r"^src/(platform|controls)/", 2),
    (r"^src/core/modForm$", 6),
    (r"/(Ctl|Form)[A-Z]\w*$", 6),
    (r"^src/core/", 3),
    (r"^src/devices/", 4),
    (r"^src/(needle|mirror)/", 5),
    (r"^src/(workflows|experiment)/", 6),
]
MOST_LINES_OF_A_FILE = 400
MOST_LINES_OF_A_FUNCTION = 60
TOLERATED = set()  # "path" of a large file, "path:function" of a long function


def floor(room):
    for pattern, number in FLOORS:
        if re.search(pattern, room):
            return number
    return None


def sources():
    for top in ("src", "workbench", "tests", "benchmarks", "fuzz"):
        for folder, _, names in os.walk(top):
            for name in sorted(names):
                if os.path.splitext(name)[1] in (".h", ".cpp"):
                    yield os.path.join(folder, name)


def read_rooms():
    rooms, text = {}, {}
    for path in sources():
        with open(path, encoding="utf-8") as file:
            text[path] = file.read()
        if path.startswith(("src/", "workbench/")):
            rooms.setdefault(os.path.splitext(path)[0], []).append(path)
    return rooms, text


def arrows_between(rooms, text):
    arrows = {room: set() for room in rooms}
    for room, paths in rooms.items():
        for path in paths:
            for target in re.findall(r'^\s*#\s*include\s*"([^"]+)"', text[path], re.M):
                stem = os.path.splitext(target)[0]
                for found in (os.path.normpath(os.path.join("src", stem)),
                              os.path.normpath(os.path.join("workbench", stem)),
                              os.path.normpath(stem),
                              os.path.normpath(os.path.join(os.path.dirname(path), stem))):
                    if found in rooms:
                        if found != room:
                            arrows[room].add(found)
                        break
    return arrows


def rings_of(arrows):
    """Strongly connected rooms, by Tarjan."""
    index, low, stack, rings = {}, {}, [], []

    def visit(room):
        index[room] = low[room] = len(index)
        stack.append(room)
        for target in arrows[room]:
            if target not in index:
                visit(target)
                low[room] = min(low[room], low[target])
            elif target in stack:
                low[room] = min(low[room], index[target])
        if low[room] == index[room]:
            ring = stack[stack.index(room):]
            del stack[stack.index(room):]
            if len(ring) > 1:
                rings.append(sorted(ring))

    sys.setrecursionlimit(10000)
    for room in arrows:
        if room not in index:
            visit(room)
    return rings


def long_functions(path, text):
    """Functions by layout: a body opens at a line of column 0 or of a class's indentation and closes
    at a brace of the same indentation."""
    start, indent, name = None, None, None
    for number, line in enumerate(text.split("\n"), 1):
        if start is None:
            opening = re.match(r"^( {0,4})\S.*\)[^;]*\{$", line)
            if opening and not re.match(r"^ *(namespace|class|struct|enum|if|for|while|switch|else|do)\b", line):
                names = re.findall(r"([\w:~]+)\(", line)
                start, indent, name = number, opening.group(1), names[0] if names else "?"
        elif line.startswith(indent + "}") and not line.startswith(indent + "} "):
            if number - start + 1 > MOST_LINES_OF_A_FUNCTION:
                yield f"{path}:{name}", number - start + 1
            start = None


def main():
    os.chdir(os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
    rooms, text = read_rooms()
    arrows = arrows_between(rooms, text)
    faults = [f"ring of includes: {', '.join(ring)}" for ring in rings_of(arrows)]
    for room in sorted(arrows):
        for target in sorted(arrows[room]):
            if floor(room) and floor(target) and floor(target) > floor(room):
                faults.append(f"runs up: {room} (floor {floor(room)}) includes {target} (floor {floor(target)})")
    over = {path: content.count("\n") for path, content in text.items()
            if content.count("\n") > MOST_LINES_OF_A_FILE}
    for path, content in text.items():
        if not path.startswith("tests/"):
            over.update(dict(long_functions(path, content)))
    for entry, lines in sorted(over.items()):
        if entry not in TOLERATED:
            faults.append(f"too large: {entry} has {lines} lines")
    faults += [f"no longer true, take it off the list: {entry}" for entry in sorted(TOLERATED - set(over))]
    print("\n".join(faults) if faults else
          f"{len(rooms)} rooms, no ring, no include that runs up, nothing too large")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
