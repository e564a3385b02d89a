"""Holds the source tree to its rules, and shows on made-up trees that each rule can fail."""

import os
import re
import tempfile
import unittest

ROOT = os.environ.get("QV_SOURCE_ROOT", os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))

# Folder -> what it may include from besides itself, its subfolders that have no row of their own, and "base", which is
# open to all. An entry is a folder or a file.
ENGINE = ["engine/listener", "engine", "engine/selection", "engine/target", "engine/copy", "engine/walk", "engine/run"]
BELOW_APP = [*ENGINE, "ui", "platform", "text", "app/data", "app/context.h", "app/reading_slice.h"]
MAY_INCLUDE = {
    "base": [], "app/data": [], "text": [], "platform": [], "ui": [],
    "engine/listener": ["app/data"],
    **{folder: [*ENGINE[:place], "platform", "text", "app/data"] for place, folder in enumerate(ENGINE) if place},
    "report": ["engine/listener", "ui", "platform", "text", "app/data"],
    "services": ["ui/dialogs.h", "platform", "text", "app/data"],
    "app": ["report", "services", "ui", "platform", "text", "app/data"],
    "app/viewer": ["report", *BELOW_APP],
    "app/select_subfolders": ["services", *BELOW_APP],
    "app/confirmation": ["services", *BELOW_APP],
    "app/operation": ["report", "services", *BELOW_APP],
    "app/main_window": ["app/operation", "app/confirmation", "app/select_subfolders", "app/viewer", "report", "services", *BELOW_APP],
    "ui/qt": ["ui"], "ui/win32": ["ui"], "ui/headless": ["ui"],
    "platform/posix": ["platform"], "platform/posix/text": [], "platform/windows/text": [],
    "platform/windows": ["platform"], "platform/memory": ["platform"],
}
MAY_INCLUDE["main"] = list(MAY_INCLUDE)

# The only folders that may know which system or toolkit they are built for.
SYSTEM_FOLDERS = ["platform/windows", "platform/windows/text", "platform/posix", "platform/posix/text", "ui/win32", "ui/qt", "main"]
# What belongs to a thread is destroyed after its memory is gone, as mingw-w64 has it: code for all systems keeps nothing so.
SYSTEM_MACRO = re.compile(r"\b(thread_local|_WIN32|_WIN64|WIN32|__MINGW32__|__linux__|__unix__|__APPLE__|Q_OS_\w+)\b")

# What the package of another project brings -> the one file that may include it.
PACKAGED_HEADERS = {"xxhash.h": "platform/fingerprint.cpp"}

NOT_THE_PROGRAM = ["tests", "bench", "build", "demo", "docs", "packaging", "tools", "cmake"]

# The standard library's headers have no ".h" in their names, no folder and no capital; those of systems and toolkits do.
STANDARD_HEADER = re.compile(r"[a-z_]+")

COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.DOTALL)
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


def source_files(root):
    """The program's own sources, as paths from the root written with "/"."""
    for folder, subfolders, files in os.walk(root):
        if folder == root:
            subfolders[:] = [name for name in subfolders if name not in NOT_THE_PROGRAM and name[0] != "."]
        for file in sorted(files):
            if file.endswith((".h", ".hpp", ".c", ".cpp", ".inc")):
                yield os.path.relpath(os.path.join(folder, file), root).replace(os.sep, "/")


def code_without_comments(root, path):
    with open(os.path.join(root, path), encoding="utf-8") as file:
        return COMMENT_OR_TEXT.sub(lambda found: found.group() if found.group()[0] == '"' else " ", file.read())


def row_of(folder):
    """The folder itself or the nearest one around it that has a row."""
    while folder and folder not in MAY_INCLUDE:
        folder = os.path.dirname(folder)
    return folder


def faults(root):
    """Includes against the table, folders that it does not know, and systems named outside their own folders."""
    for path in source_files(root):
        folder = row_of(os.path.dirname(path))
        if not folder:
            yield f"{path}: {os.path.dirname(path) or '.'} has no row in the table of dependencies"
            continue
        code = code_without_comments(root, path)
        open_to_it = [folder, "base", *MAY_INCLUDE[folder]]
        foreign = [] if folder in SYSTEM_FOLDERS else SYSTEM_MACRO.findall(code)
        for mark, header in INCLUDE.findall(code):
            if os.path.exists(os.path.join(root, header)):
                if header not in open_to_it and row_of(os.path.dirname(header)) not in open_to_it:
                    yield f"{path}: {folder} may not include {header}"
            elif mark == '"':
                yield f'{path}: "{header}" is no file, seen from the root of the sources'
            elif folder not in SYSTEM_FOLDERS and not STANDARD_HEADER.fullmatch(header) and PACKAGED_HEADERS.get(header) != path:
                foreign.append(f"<{header}>")
        for name in foreign:
            yield f"{path}: {name} belongs in {', '.join(SYSTEM_FOLDERS)}"


# One line of code in one file of a tree -> what the rules say of it; None: nothing. What is allowed, the real tree shows.
CASES = [
    ("engine/walk.cpp", '#include "base/utf8.h"\n#include "platform/path.h"\n#include <string>  // not <windows.h>', None),
    ("engine/walk.cpp", "#include <ui/form.h>", "engine may not include ui/form.h"),
    ("engine/walk.cpp", '#include "../ui/form.h"', "no file, seen from the root"),
    ("engine/walk.cpp", '// #include "ui/form.h"\nint x; /* __linux__ */', None),
    ("helpers/odd.cpp", "", "helpers has no row"),
    ("app/main_window/menu.cpp", '#include "app/viewer/view.h"', None),
    ("app/viewer/view.cpp", '#include "app/main_window/menu.h"', "app/viewer may not include app/main_window/menu.h"),
    ("ui/form.cpp", "#include <QWidget>", "<QWidget> belongs in"),
    ("engine/walk.cpp", "#include <xxhash.h>", "<xxhash.h> belongs in"),
    ("platform/reader.cpp", "thread_local Block block;", "thread_local belongs in"),
]
HEADERS = ["app/viewer/view.h", "app/main_window/menu.h", "platform/path.h", "ui/form.h", "engine/walk.h", "base/utf8.h"]


def write(root, path, text):
    os.makedirs(os.path.join(root, os.path.dirname(path)), exist_ok=True)
    with open(os.path.join(root, path), "w", encoding="utf-8") as file:
        file.write(text + "\n")


class Rules(unittest.TestCase):
    def test_the_source_tree_holds_to_them(self):
        self.assertGreater(len(list(source_files(ROOT))), 50)
        self.assertEqual(list(faults(ROOT)), [])

    def test_each_finds_its_fault_in_a_made_up_tree(self):
        for path, line, expected in CASES:
            with self.subTest(path=path, line=line), tempfile.TemporaryDirectory() as root:
                for header in HEADERS:
                    write(root, header, "")
                write(root, path, line)
                found = list(faults(root))
                self.assertEqual(len(found), 0 if expected is None else 1, found)
                self.assertIn(expected or "", "".join(found))
