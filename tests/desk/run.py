#!/usr/bin/python3
"""Works the desk of a build folder, as tools/live.sh opens it, by pointer and keys.
    run.py BUILD-FOLDER MODULE...
The interpreter is the system's, to which Debian's package python3-gi belongs.
"""
import os
import sys
import unittest
import warnings

# The stage, the tree and the table of controls are the accessibility test's.
sys.path.insert(1, os.path.join(os.path.dirname(os.path.realpath(__file__)), "../accessibility"))

from desk import DeskStage  # noqa: E402


def main():
    warnings.simplefilter("ignore", DeprecationWarning)
    with DeskStage(sys.argv[1]) as stage:
        from desk_case import DeskCase  # asks for the buses, so the stage comes first
        DeskCase.stage = stage
        suite = unittest.defaultTestLoader.loadTestsFromNames(sys.argv[2:])
        result = unittest.TextTestRunner(stream=sys.stdout, verbosity=2, warnings="ignore").run(suite)
    return 0 if result.wasSuccessful() and result.testsRun > 0 and not result.skipped else 1


if __name__ == "__main__":
    sys.exit(main())
