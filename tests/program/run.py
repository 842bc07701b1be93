#!/usr/bin/python3
"""Runs the program of a build folder against what the system can do to it.
    run.py BUILD-FOLDER DRIVER-LIBRARY [CASE...]
"""
import sys
import unittest

import program

MODULES = ("streams_test", "exit_test", "locks_test", "closing_test", "session_test")


def main():
    program.Folder.build, program.Folder.driver = sys.argv[1:3]
    suite = unittest.defaultTestLoader.loadTestsFromNames(sys.argv[3:] or MODULES)
    result = unittest.TextTestRunner(stream=sys.stdout, verbosity=2).run(suite)
    return 0 if result.wasSuccessful() and result.testsRun > 0 and not result.skipped else 1


if __name__ == "__main__":
    sys.exit(main())
