#!/usr/bin/env python3
"""Prints the last lines that each failed test of a JUnit report has written.
    failed-tests.py REPORT
"""
import sys
import xml.etree.ElementTree

LAST_LINES = 40
# What CTest counts as failed: also a test whose program is not there.
FAILED = ("fail", "notrun")


def main():
    for case in xml.etree.ElementTree.parse(sys.argv[1]).iter("testcase"):
        if case.get("status") in FAILED:
            lines = (case.findtext("system-out") or "").splitlines()
            print(f"== {case.get('name')} failed after {float(case.get('time')):.1f} s")
            print("\n".join(lines[-LAST_LINES:]))


if __name__ == "__main__":
    main()
