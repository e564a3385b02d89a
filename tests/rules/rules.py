"""The rules of the source tree: which folder may include from which, and where the system's own names may stand."""

import os
import re

# Folder -> what it may include from besides itself and "base", which is open to all. An entry is a folder or a file.
MAY_INCLUDE = {
    "base": [],
    "app/data": [],
    "text": [],
    "platform": [],
    "ui": [],
    "engine/listener": ["app/data"],
    "engine": ["engine/listener", "platform", "text", "app/data"],
    "report": ["engine/listener", "ui", "platform", "text", "app/data"],
    "services": ["ui/dialogs.h", "platform", "text", "app/data"],
    "app": ["report", "services", "engine", "engine/listener", "ui", "platform", "text", "app/data"],
    "ui/qt": ["ui"],
    "ui/win32": ["ui"],
    "ui/headless": ["ui"],
    "platform/posix": ["platform"],
    "platform/windows": ["platform"],
    "platform/memory": ["platform"],
}
MAY_INCLUDE["main"] = list(MAY_INCLUDE)

# The only folders that may know which system or toolkit they are built for.
SYSTEM_FOLDERS = ["platform/windows", "platform/posix", "ui/win32", "ui/qt", "main"]
SYSTEM_MACRO = re.compile(r"\b(_WIN32|_WIN64|WIN32|__MINGW32__|__linux__|__unix__|__APPLE__|Q_OS_\w+)\b")

NOT_THE_PROGRAM = ["tests", "bench", "build", "demo", "docs", "packaging", "tools", "cmake"]

STANDARD_HEADERS = set("""
algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex concepts condition_variable
coroutine deque exception execution filesystem forward_list fstream functional future initializer_list iomanip ios
iosfwd iostream istream iterator latch limits list locale map memory memory_resource mutex new numbers numeric optional
ostream queue random ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack
stdexcept stop_token streambuf string string_view strstream system_error thread tuple type_traits typeindex typeinfo
unordered_map unordered_set utility valarray variant vector version cassert cctype cerrno cfenv cfloat cinttypes climits
clocale cmath csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype
""".split())

COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.DOTALL)
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def source_files(root):
    """The program's own sources, as paths from the root written with "/"."""
    for folder, subfolders, files in os.walk(root):
        if folder == root:
            subfolders[:] = [name for name in subfolders if name not in NOT_THE_PROGRAM and name[0] != "."]
        for file in sorted(files):
            if file.endswith((".h", ".hpp", ".c", ".cpp", ".inc")):
                yield os.path.relpath(os.path.join(folder, file), root).replace(os.sep, "/")


def lines_without_comments(root, path):
    """(number, line) of what the compiler reads; texts stay only in #include lines."""
    with open(os.path.join(root, path), encoding="utf-8") as file:
        text = file.read()
    bare = COMMENT_OR_TEXT.sub(lambda found: "\n" * found.group().count("\n"), text).split("\n")
    for number, (line, code) in enumerate(zip(text.split("\n"), bare), 1):
        yield number, line if re.match(r"\s*#\s*include\b", code) else code


def includes(root, path):
    for number, line in lines_without_comments(root, path):
        found = INCLUDE.match(line)
        if found:
            yield number, found.group(1) == '"', found.group(2)


def may_include(folder, header):
    target = os.path.dirname(header)
    return target in (folder, "base") or target in MAY_INCLUDE[folder] or header in MAY_INCLUDE[folder]


def dependency_faults(root):
    """Includes against the table, and files in folders that the table does not know."""
    for path in source_files(root):
        folder = os.path.dirname(path)
        if folder not in MAY_INCLUDE:
            yield f"{path}: the folder {folder or '.'} has no row in the table of dependencies"
            continue
        for number, quoted, header in includes(root, path):
            if not os.path.exists(os.path.join(root, header)):
                if quoted:
                    yield f'{path}:{number}: "{header}" is no file, seen from the root of the sources'
            elif not may_include(folder, header):
                yield f"{path}:{number}: {folder} may not include {header}"


def system_faults(root):
    """Headers other than the standard library's, and names of systems, outside the folders made for them."""
    for path in source_files(root):
        if os.path.dirname(path) in SYSTEM_FOLDERS:
            continue
        for number, quoted, header in includes(root, path):
            if not quoted and header not in STANDARD_HEADERS and not os.path.exists(os.path.join(root, header)):
                yield f"{path}:{number}: <{header}> belongs in {', '.join(SYSTEM_FOLDERS)}"
        for number, line in lines_without_comments(root, path):
            for macro in SYSTEM_MACRO.findall(line):
                yield f"{path}:{number}: {macro} belongs in {', '.join(SYSTEM_FOLDERS)}"
