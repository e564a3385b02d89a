"""count_tests.py FILE STATUS: prints how many cases passed, failed and were skipped by ctest's JUnit file, and names the
skipped ones on standard error.

One test of ctest is often a whole program: what GoogleTest and Python's unittest say of their cases in its output is
counted. A test that could not be run counts as a failed case. So does a run of ctest that left no file, or ended with
another STATUS than 0 without saying which test was to blame.
"""

import re
import sys
import xml.etree.ElementTree

GOOGLE_TEST = {mark: re.compile(rf"^\[  {mark} ?\] (\d+) test", re.MULTILINE) for mark in ("PASSED ", "FAILED ", "SKIPPED")}
GOOGLE_TEST_SKIPPED = re.compile(r"^\[  SKIPPED \] (\w+\S*\.[^\s,]+)(?: \(.*)?$", re.MULTILINE)
UNITTEST = re.compile(r"^Ran (\d+) tests? in .*\n\n(?:OK|FAILED)(?: \((.*)\))?$", re.MULTILINE)
UNITTEST_SKIPPED = re.compile(r"^(\w+ \(.*\)).*\.\.\. skipped ", re.MULTILINE)


def of_google_test(output):
    found = [pattern.search(output) for pattern in GOOGLE_TEST.values()]
    return [int(number.group(1)) if number else 0 for number in found] if any(found) else None


def of_unittest(output):
    found = UNITTEST.search(output)
    if not found:
        return None
    what = {name: int(number) for name, number in re.findall(r"(\w+)=(\d+)", found.group(2) or "")}
    failed, skipped = what.get("failures", 0) + what.get("errors", 0), what.get("skipped", 0)
    return [max(int(found.group(1)) - failed - skipped, 0), failed, skipped]


def of_ctest(test):
    reason = test.find("skipped")
    asked_for = test.get("status") == "disabled" or (reason is not None and "SKIP_" in reason.get("message", ""))
    return [int(test.get("status") == "run"), 0, int(asked_for)]


def cases(test):
    """Passed, failed and skipped, and the names of the skipped ones."""
    output = test.findtext("system-out") or ""
    passed, failed, skipped = of_google_test(output) or of_unittest(output) or of_ctest(test)
    if failed == 0 and (test.get("status") == "fail" or passed + skipped == 0):
        failed = 1
    return passed, failed, skipped, sorted(set(GOOGLE_TEST_SKIPPED.findall(output) + UNITTEST_SKIPPED.findall(output)))


def main(path, status):
    try:
        counted = [cases(test) for test in xml.etree.ElementTree.parse(path).getroot().iter("testcase")]
    except (OSError, xml.etree.ElementTree.ParseError):
        counted = [(0, 1, 0, [])]
    passed, failed, skipped = (sum(column) for column in list(zip(*counted))[:3] or [[0]] * 3)
    print(passed, failed or int(status != "0"), skipped)
    for *_, names in counted:
        for name in names:
            print("  skipped:", name, file=sys.stderr)


if __name__ == "__main__":
    main(*sys.argv[1:])
