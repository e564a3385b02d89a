"""Holds the source tree to its rules, and shows that each rule can fail."""

import os
import re
import tempfile
import unittest
import unittest.mock

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


class Rules(unittest.TestCase):
    def test_the_source_tree_holds_to_them(self):
        self.assertGreater(len(list(source_files(ROOT))), 50)
        self.assertEqual(list(faults(ROOT)), [])

    def test_each_finds_its_fault_where_less_is_allowed(self):
        only_base = {folder: [] for folder in MAY_INCLUDE if folder != "report"}
        with unittest.mock.patch.dict(globals(), MAY_INCLUDE=only_base, SYSTEM_FOLDERS=[], PACKAGED_HEADERS={}):
            found = "\n".join(faults(ROOT))
        for fault in ("platform/fingerprint.cpp: <xxhash.h> belongs in ", "ui/qt/qt_text.h: <QString> belongs in ",
                      "report/frmReport.h: report has no row", "engine/copy/pulse.h: engine/copy may not include platform/clock.h"):
            self.assertIn(fault, found)
        self.assertNotRegex(found, "may not include base/|<(string|vector)>")

    def test_a_path_that_does_not_begin_at_the_root_is_a_fault(self):
        with tempfile.TemporaryDirectory() as root:
            os.mkdir(os.path.join(root, "base"))
            with open(os.path.join(root, "base", "text.h"), "w", encoding="utf-8") as file:
                file.write('// #include "ui/form.h"\n#include "../ui/form.h"\nthread_local int x; /* __linux__ */')
            found = list(faults(root))
        self.assertRegex("\n".join(found), "^[^\n]*no file, seen from the root[^\n]*\n[^\n]*thread_local belongs in[^\n]*$")
