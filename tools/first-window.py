#!/usr/bin/env python3
"""Starts TRAVO of a build folder on a display and in folders of its own, and says how long its first window took.

usage: tools/first-window.py BUILD-FOLDER
"""
import contextlib
import os
import shutil
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.realpath(__file__)), "..", "tests", "program"))

from program import Folder, Run  # noqa: E402
from screen import Screen  # noqa: E402


class Case(contextlib.ExitStack):
    """What the display of a test asks of its case."""

    addCleanup = contextlib.ExitStack.callback


def main():
    Folder.build = sys.argv[1]
    with Case() as case:
        folder = Folder()
        case.addCleanup(shutil.rmtree, folder.path, ignore_errors=True)
        screen = Screen(case)
        begin = time.monotonic()
        run = Run(folder, environment={"QT_QPA_PLATFORM": None, "DISPLAY": screen.name})
        case.addCleanup(run.stop)
        screen.wait_for(1)
        print(f"The first window stood {1000 * (time.monotonic() - begin):.0f} ms after the program's start.")
        return run.end()


if __name__ == "__main__":
    sys.exit(main())
