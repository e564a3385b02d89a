"""Holds the source tree to its rules, and shows on made-up trees that each rule can fail."""

import os
import tempfile
import unittest

import rules

ROOT = os.environ.get("QV_SOURCE_ROOT", os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))

# One line of code in one file of a tree -> what the rules say of it; None: nothing.
CASES = [
    ("engine/walk.cpp", '#include "base/utf8.h"\n#include "platform/path.h"\n#include <string>  // not <windows.h>', None),
    ("engine/walk.cpp", "#include <ui/form.h>", "engine may not include ui/form.h"),
    ("engine/walk.cpp", '#include "../ui/form.h"', "no file, seen from the root"),
    ("engine/walk.cpp", '// #include "ui/form.h"', None),
    ("report/texts.cpp", '#include "engine/listener/listener.h"', None),
    ("report/texts.cpp", '#include "engine/walk.h"', "report may not include engine/walk.h"),
    ("services/setup.cpp", '#include "ui/dialogs.h"', None),
    ("services/setup.cpp", '#include "ui/form.h"', "services may not include ui/form.h"),
    ("main/main_qt.cpp", "#include <QApplication>", None),
    ("helpers/odd.cpp", "", "helpers has no row"),
    ("ui/form.cpp", "#include <QWidget>", "<QWidget> belongs in"),
    ("platform/memory/disk.cpp", "#include <sys/stat.h>", "<sys/stat.h> belongs in"),
    ("platform/posix/disk.cpp", "#include <sys/stat.h>", None),
    ("app/start.cpp", "#if defined(__linux__)", "__linux__ belongs in"),
    ("app/start.cpp", "int x; /* __linux__ */", None),
]
HEADERS = ["platform/path.h", "ui/form.h", "ui/dialogs.h", "engine/walk.h", "base/utf8.h", "engine/listener/listener.h"]


def write(root, path, text):
    os.makedirs(os.path.join(root, os.path.dirname(path)), exist_ok=True)
    with open(os.path.join(root, path), "w", encoding="utf-8") as file:
        file.write(text + "\n")


class Rules(unittest.TestCase):
    maxDiff = None

    def test_the_source_tree_holds_to_them(self):
        self.assertGreater(len(list(rules.source_files(ROOT))), 50)
        self.assertEqual(list(rules.faults(ROOT)), [])

    def test_each_finds_its_fault_in_a_made_up_tree(self):
        for path, line, expected in CASES:
            with self.subTest(path=path, line=line), tempfile.TemporaryDirectory() as root:
                for header in HEADERS:
                    write(root, header, "")
                write(root, path, line)
                faults = list(rules.faults(root))
                self.assertEqual(len(faults), 0 if expected is None else 1, faults)
                self.assertIn(expected or "", "".join(faults))


if __name__ == "__main__":
    unittest.main()
