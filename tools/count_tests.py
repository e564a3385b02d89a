"""count_tests.py FILE STATUS: prints how many tests passed, failed and were skipped by ctest's JUnit file.

A test that could not be run counts as failed. So does a run of ctest that left no file, or ended with another STATUS
than 0 without saying which test was to blame.
"""

import sys
import xml.etree.ElementTree


def outcome(test):
    if test.get("status") in ("run", "fail"):
        return test.get("status")
    reason = test.find("skipped")
    asked_for = test.get("status") == "disabled" or (reason is not None and "SKIP_" in reason.get("message", ""))
    return "skip" if asked_for else "fail"


def main(path, status):
    try:
        outcomes = [outcome(test) for test in xml.etree.ElementTree.parse(path).getroot().iter("testcase")]
    except (OSError, xml.etree.ElementTree.ParseError):
        outcomes = ["fail"]
    if status != "0" and "fail" not in outcomes:
        outcomes.append("fail")
    print(outcomes.count("run"), outcomes.count("fail"), outcomes.count("skip"))


if __name__ == "__main__":
    main(*sys.argv[1:])
