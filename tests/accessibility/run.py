#!/usr/bin/python3
"""Works the program of a build folder as an assistive program does: by the accessibility tree alone.
    run.py BUILD-FOLDER [CASE...]
The interpreter is the system's, to which Debian's package python3-gi belongs.
"""
import sys
import time
import unittest
import warnings

from stage import Stage

MODULES = ("tree_test", "window_test", "panels_test", "work_test", "presses_test", "small_windows_test", "start_test",
           "coverage_test")
PATIENCE = 60  # seconds


class Result(unittest.TextTestResult):
    """Where next to nothing works each case waits in vain: after some time the next fault is the last."""

    def startTestRun(self):
        super().startTestRun()
        self.began = time.monotonic()

    def addError(self, test, error):
        self._end_of_patience()
        super().addError(test, error)

    def addFailure(self, test, error):
        self._end_of_patience()
        super().addFailure(test, error)

    def addSubTest(self, test, subtest, error):
        if error:
            self._end_of_patience()
        super().addSubTest(test, subtest, error)

    def _end_of_patience(self):
        if time.monotonic() - self.began > PATIENCE:
            self.stop()


def main():
    # libatspi calls its own names for actions deprecated; their successors are newer than Debian 12.
    warnings.simplefilter("ignore", DeprecationWarning)
    with Stage(sys.argv[1]) as stage:
        from case import Case  # asks for the buses, so the stage comes first
        Case.stage = stage
        suite = unittest.defaultTestLoader.loadTestsFromNames(sys.argv[2:] or MODULES)
        runner = unittest.TextTestRunner(stream=sys.stdout, verbosity=2, warnings="ignore", resultclass=Result)
        result = runner.run(suite)
    return 0 if result.wasSuccessful() and result.testsRun > 0 and not result.skipped else 1


if __name__ == "__main__":
    sys.exit(main())
