#!/usr/bin/env python3
"""Says how the house of src/, launcher/, diagnostics/, workbench/, drivers/ and tests/ stands; see
docs/architecture.md for its floors.

A leaf folder is one floor and one library. Faults, which fail the check: rings of includes between rooms
(a room is a source with its header) and between leaf folders, includes that run up a floor, a folder that
has no floor, a test that includes what its leaf may not, a file that uses what is precompiled without naming
its header, a file over 400 lines, and outside the tests, whose tables are long, a function over 40 lines.
There is no list of exceptions.
"""
import os
import re
import sys

FLOORS = {  # leaf folder: floor
    "src/core/ground": 1,
    "src/platform": 2,
    "src/platform/qt": 2,
    "src/controls": 2,
    "src/core/state": 3,
    "src/devices/links": 4,
    "src/needle": 5,
    "src/mirror/motion": 5,
    "src/core/view": 6,
    "src/devices/view": 6,
    "src/mirror/view": 6,
    "src/workflows": 6,
    "src/experiment/view": 6,
    "src/experiment/bird": 6,
    "src/core/owner": 7,
    "src": 7,
    # Starts the program in the user's own folder.
    "launcher": 7,
    # Tells what works: judges and speaks on values alone, then looks at the machine, then shows.
    "diagnostics/judge": 6,
    "diagnostics/words": 6,
    "diagnostics/readers": 7,
    "diagnostics": 7,
    # The workbench stands outside the program; all that it shares with it is the ground.
    "workbench/options": 1,
    "workbench/protocol": 1,
    "workbench/socket": 1,
    "workbench/world": 2,
    "workbench/instruments": 3,
    "workbench/wires": 4,
    "workbench/commands": 5,
    "workbench/client": 5,
    "workbench/doors": 6,
    "workbench/window": 6,
    "workbench": 7,
    "workbench/live": 7,
    # The tour builds the whole program into itself.
    "workbench/tour": 8,
    # Drivers are libraries of their own: they know nothing of the program nor of the workbench.
    "drivers": 1,
    "drivers/check": 2,
    "drivers/minimal": 2,
    "drivers/gcode": 2,
    "drivers/gcode/simulator": 2,
    "drivers/gcode/tool": 3,
}
# Leaf folders and rooms of the program that the workbench's own processes share.
SHARED_WITH_WORKBENCH = ("src/core/ground/", "src/platform/qt/BrokenPipe")
# What the precompiled headers would hide: names, and the header that a file, or one of ours that it includes,
# must name for them.
PRECOMPILED = {
    "array": r"\bstd::array\b",
    "cmath": r"\bstd::(lround|floor|ceil|sqrt|isfinite|isnan|tan|hypot|round)\b",
    "functional": r"\bstd::function\b",
    "map": r"\bstd::map\b",
    "memory": r"\bstd::(unique_ptr|shared_ptr|weak_ptr|make_unique|make_shared)\b",
    "optional": r"\bstd::(optional|nullopt)\b",
    "string": r"\bstd::(string|to_string)\b",
    "vector": r"\bstd::vector\b",
}
MOST_LINES_OF_A_FILE = 400
MOST_LINES_OF_A_FUNCTION = 40


def leaf(path):
    return os.path.dirname(path)


def sources():
    for top in ("src", "launcher", "diagnostics", "workbench", "drivers", "tests", "benchmarks", "fuzz"):
        for folder, _, names in os.walk(top):
            for name in sorted(names):
                if os.path.splitext(name)[1] in (".h", ".c", ".cpp"):
                    yield os.path.join(folder, name)


def included(path, text, rooms):
    """The rooms that a file includes, in quotes or in angles."""
    for target in re.findall(r'^\s*#\s*include\s*["<]([^">]+)[">]', text, re.M):
        stem = os.path.splitext(target)[0]
        for root in ("src", "", os.path.dirname(path)):
            found = os.path.normpath(os.path.join(root, stem))
            if found in rooms:
                yield found
                break


def rings_of(arrows):
    """Strongly connected parts of more than one, by Tarjan."""
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


def bare(text):
    """The text without comments and without what stands in quotes, line for line."""
    def blank(match):
        return "\n" * match.group(0).count("\n")

    pattern = r'R"(\w*)\((?:.|\n)*?\)\1"|//[^\n]*|/\*(?:.|\n)*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'(?!\w)'
    return re.sub(pattern, blank, text)


NO_FUNCTION = re.compile(r"^\s*(namespace|class|struct|union|enum|extern|using|typedef|#|public|private|protected)")

MACRO_ALONE = re.compile(r"^\s*[A-Z][A-Z0-9_]+\(.*\)$")


def long_functions(path, text):
    """Name and length of every function, its signature included: a piece of text at the level of a namespace
    or of a class that holds an opening bracket ahead of its opening brace."""
    level, start, head, depth = [], None, "", 0
    for number, line in enumerate(bare(text).split("\n"), 1):
        if start is None:
            if not line.strip() or line.lstrip().startswith("#") or MACRO_ALONE.match(line):
                continue
            start, head, depth = number, "", 0
        for character in line + "\n":
            if depth == 0 and character not in "{};":
                head += character
            if character == "{":
                if depth == 0 and NO_FUNCTION.match(head) and "(" not in re.sub(r"alignas\(.*?\)", "", head):
                    level.append(head)
                    start, head = None, ""
                    break
                depth += 1
            elif character == "}":
                if depth == 0:
                    if level:
                        level.pop()
                    start, head = None, ""
                    break
                depth -= 1
        if start is None:
            continue
        ended = line.rstrip()
        if depth == 0 and (ended.endswith((";", "}")) or re.match(r"^\s*(public|private|protected|Q_\w+|signals).*:?$", ended)):
            if ended.endswith("}") and "(" in head:
                names = re.findall(r"([\w:~]+)\s*\(", head)
                yield f"{path}:{names[0] if names else '?'}", number - start + 1
            start = None


def named_headers(path, text, found):
    """The headers in angles that a file names, itself or through ours."""
    if path not in found:
        found[path] = set(re.findall(r"^\s*#\s*include\s*<([^>]+)>", text[path], re.M))
        for target in re.findall(r'^\s*#\s*include\s*"([^"]+)"', text[path], re.M):
            for root in ("src", "tests", "", os.path.dirname(path)):
                below = os.path.normpath(os.path.join(root, target))
                if below in text:
                    found[path] |= named_headers(below, text, found)
                    break
    return found[path]


def header_faults(text):
    found = {}
    for path, content in sorted(text.items()):
        plain = bare(content)
        for header, names in PRECOMPILED.items():
            if re.search(names, plain) and header not in named_headers(path, text, found):
                yield f"does not name its header: {path} uses what <{header}> declares"


def floor_faults(arrows):
    for room in sorted(arrows):
        own = leaf(room)
        for target in sorted(arrows[room]):
            below = leaf(target)
            outside = own.startswith("workbench") and below.startswith("src")
            if own.startswith("drivers") and not below.startswith("drivers"):
                yield f"is no driver's: {room} includes {target}"
            elif outside and not target.startswith(SHARED_WITH_WORKBENCH) and own != "workbench/tour":
                yield f"knows the program: {room} includes {target}"
            elif own in FLOORS and below in FLOORS and FLOORS[below] > FLOORS[own]:
                yield f"runs up: {room} (floor {FLOORS[own]}) includes {target} (floor {FLOORS[below]})"


def test_faults(text, rooms):
    """A test stands beside a leaf and sees what that leaf may see, and what makes the machine."""
    for path, content in text.items():
        own = next((tree + path[len("tests/"):] for tree in ("src/", "")
                    if path.startswith("tests/") and leaf(tree + path[len("tests/"):]) in FLOORS), None)
        if own is None:
            continue
        for target in included(path, content, rooms):
            below = leaf(target)
            if FLOORS.get(below, 0) > FLOORS[leaf(own)] and not below.startswith("workbench"):
                yield f"test runs up: {path} (floor {FLOORS[leaf(own)]}) includes {target} (floor {FLOORS[below]})"


def main():
    os.chdir(os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
    text, rooms = {}, {}
    for path in sources():
        with open(path, encoding="utf-8") as file:
            text[path] = file.read()
        if path.startswith(("src/", "launcher/", "diagnostics/", "workbench/", "drivers/")):
            rooms.setdefault(os.path.splitext(path)[0], []).append(path)
    arrows = {room: set() for room in rooms}
    for room, paths in rooms.items():
        for path in paths:
            arrows[room].update(target for target in included(path, text[path], rooms) if target != room)
    leaves = {leaf(room): set() for room in rooms}
    for room in rooms:
        leaves[leaf(room)].update(leaf(target) for target in arrows[room] if leaf(target) != leaf(room))

    faults = [f"ring of includes: {', '.join(ring)}" for ring in rings_of(arrows)]
    faults += [f"ring of leaf folders: {', '.join(ring)}" for ring in rings_of(leaves)]
    faults += [f"has no floor: {folder}" for folder in sorted(leaves) if folder not in FLOORS]
    faults += floor_faults(arrows)
    faults += test_faults(text, rooms)
    faults += header_faults(text)
    for path, content in sorted(text.items()):
        over = {path: content.count("\n")} if content.count("\n") > MOST_LINES_OF_A_FILE else {}
        if not path.startswith("tests/"):
            over.update({name: lines for name, lines in long_functions(path, content)
                         if lines > MOST_LINES_OF_A_FUNCTION})
        faults += [f"too large: {entry} has {lines} lines" for entry, lines in sorted(over.items())]
    print("\n".join(faults) if faults else
          f"{len(rooms)} rooms in {len(leaves)} leaf folders, no ring, no include that runs up, nothing too large")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
