"""The files of the demo: `make FOLDER` writes them, `change FOLDER` changes three of them and names these."""

import datetime
import io
import os
import random
import sys
import zipfile

WORDS = ("wind harbour ledger apple northern quiet copper window garden signal paper morning bridge amber river "
         "stone letter winter engine compass lantern meadow").split()

# Folder, number of files and the kinds they take in turn. Five levels at the deepest; "Browser cache" is what the
# demo's setup skips.
FOLDERS = [
    ("", 4, ["txt", "", "csv", "pdf"]),
    ("Documents", 12, ["txt", "pdf", "csv"]),
    ("Documents/Letters 2023", 24, ["txt", "pdf"]),
    ("Documents/Letters 2024", 31, ["txt", "pdf"]),
    ("Documents/Rechnungen Müller & Söhne", 18, ["pdf", "csv"]),
    ("Documents/Private", 3, ["txt"]),
    ("Photos/2023 Summer", 40, ["jpg"]),
    ("Photos/2024/Trips/Norway/Day 1", 22, ["jpg"]),
    ("Photos/2024/Trips/Norway/Day 2", 17, ["jpg", "txt"]),
    ("Photos/2024/Grandma's 80th 🎂", 15, ["jpg"]),
    ("Projects/rocket", 3, ["", "txt", "cpp"]),
    ("Projects/rocket/src", 26, ["cpp", "h"]),
    ("Projects/rocket/data/runs/2024", 30, ["csv"]),
    ("Projects/website", 14, ["html", "css", "jpg"]),
    ("Archive", 9, ["zip"]),
    ("Browser cache", 35, [""]),
]
BIG_FILES = {"Archive/Backup of the old laptop.zip": 5, "Photos/2024/Film of the fjord.mov": 4, "Archive/Ton 日本語.wav": 3}
EMPTY_FILES = ["Documents/empty.txt", "Projects/rocket/src/.keep", "Photos/2024/ two  blanks .jpg"]
UNREADABLE = "Documents/Private/diary.txt"


def sentences(chance, count):
    return "".join(" ".join(chance.choices(WORDS, k=9)).capitalize() + ".\n" for _ in range(count))


def table(chance, count):
    return "day,place,amount\n" + "".join(
        f"{day},{chance.choice(WORDS)},{chance.randint(1, 9999) / 100:.2f}\n" for day in range(count))


def archive(chance):
    packed = io.BytesIO()
    with zipfile.ZipFile(packed, "w", zipfile.ZIP_DEFLATED) as files:
        files.writestr("notes.txt", sentences(chance, 200))
        files.writestr("noise.bin", chance.randbytes(30_000))
    return packed.getvalue()


def content(kind, chance):
    if kind == "jpg":
        return b"\xff\xd8\xff\xe0\x00\x10JFIF\x00" + chance.randbytes(chance.randint(20_000, 160_000)) + b"\xff\xd9"
    if kind == "pdf":
        return b"%PDF-1.4\n" + sentences(chance, chance.randint(50, 400)).encode() + b"%%EOF\n"
    if kind == "zip":
        return archive(chance)
    if kind == "csv":
        return table(chance, chance.randint(20, 900)).encode()
    if kind in ("cpp", "h"):
        return f"// {sentences(chance, 1)}int {chance.choice(WORDS)}();\n".encode()
    return sentences(chance, chance.randint(3, 120)).encode()


def name(kind, number, chance):
    if kind == "jpg":
        return f"IMG_{number:04}.jpg"
    words = f"{chance.choice(WORDS)} {chance.choice(WORDS)} {number}"
    return f"{words}.{kind}" if kind else words.upper()


def write(root, path, data, chance):
    full = os.path.join(root, path)
    os.makedirs(os.path.dirname(full), exist_ok=True)
    with open(full, "wb") as file:
        file.write(data)
    when = datetime.datetime(2024, 11, 1).timestamp() - chance.randint(0, 600 * 86_400)
    os.utime(full, (when, when))


def make(root):
    chance = random.Random(7)
    for folder, count, kinds in FOLDERS:
        for number in range(1, count + 1):
            kind = kinds[number % len(kinds)]
            write(root, os.path.join(folder, name(kind, number, chance)), content(kind, chance), chance)
    for path, megabytes in BIG_FILES.items():
        write(root, path, chance.randbytes(megabytes * 1_000_000), chance)
    for path in EMPTY_FILES:
        write(root, path, b"", chance)
    write(root, UNREADABLE, b"Nobody may read this.\n", chance)
    os.chmod(os.path.join(root, UNREADABLE), 0)
    os.symlink("the file that moved away.txt", os.path.join(root, "Documents", "old link.txt"))
    paths = [os.path.join(folder, file) for folder, _, files in os.walk(root) for file in files]
    megabytes = sum(os.lstat(path).st_size for path in paths) / 1e6
    print(f"Made {len(paths)} files ({megabytes:.0f} MB) in {os.path.relpath(root)}:")
    print(f"  one of them must not be read ({UNREADABLE}), one link leads nowhere (Documents/old link.txt),")
    print("  and the files in \"Browser cache\" are to be skipped.")


def first_of(root, folder, ending):
    return os.path.join(folder, sorted(file for file in os.listdir(os.path.join(root, folder)) if file.endswith(ending))[0])


def change(root):
    now = datetime.datetime.now().strftime("%Y-%m-%d %H:%M:%S")
    changes = [
        (first_of(root, "Documents/Letters 2024", ".txt"), f"P.S. Written at {now}.\n", "a postscript"),
        (first_of(root, "Projects/rocket/src", ".cpp"), f"// Looked through at {now}.\n", "a comment"),
        (first_of(root, "Projects/rocket/data/runs/2024", ".csv"), f"{now},harbour,1.00\n", "a row"),
    ]
    for path, added, what in changes:
        with open(os.path.join(root, path), "a", encoding="utf-8") as file:
            file.write(added)
        print(f"  {path}: {what} more")


if __name__ == "__main__":
    {"make": make, "change": change}[sys.argv[1]](sys.argv[2])
