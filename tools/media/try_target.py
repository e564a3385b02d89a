"""try_target.py PROGRAM FOLDER: backs up files that are hard to keep into FOLDER, three times; see README.md."""
import os, subprocess, sys, tempfile

NAMES = ["plain", "colon:x", 'quote"', "back\\slash", "star*", "CON", "aux.txt", "only.", "blank ", "both", "both.", "n" * 200,
         "A.txt", "a.txt", "\u00c9", "\u00e9", "e\u0301", "stra\u00dfe", "STRASSE", "Sub/x", "sub/x", "data/x", "data./x", "solo./x"]
TIMES = [-315619200, 86400, 315532802, 1750000001, 2208988800, 4354819200, 7258118400]


def back_up(program, config, source, target):
    os.makedirs(f"{config}/Quorvane", exist_ok=True)
    lines = [source, target, *" 0 , 0 , 0 , 1 , 0 , 0 ".split(","), "", " 1 ", "in", ""]
    with open(f"{config}/Quorvane/qvr.usr", "w", newline="\r\n", encoding="utf-8") as setup:
        setup.write("\n".join(lines) + "\n")
    environment = {"PATH": os.environ["PATH"], "HOME": config, "LC_ALL": "C.UTF-8", "XDG_CONFIG_HOME": config}
    run = subprocess.run([program, "nightly"], env=environment, capture_output=True, text=True)
    print(run.stdout.strip().split("\n")[-1])
    return run.stdout


def contents(folder):
    return {open(f"{at}/{name}", errors="replace").read(): f"{at}/{name}" for at, _, names in os.walk(folder) for name in names}


with tempfile.TemporaryDirectory() as place:
    for number, name in enumerate(NAMES + [f"time {time}" for time in TIMES]):
        path = f"{place}/source/in/{name}"
        os.makedirs(os.path.dirname(path), exist_ok=True)
        open(path, "w").write(f"{name}: the content of one")
        os.utime(path, (1750000000, TIMES[number - len(NAMES)] if number >= len(NAMES) else 1750000001))
    reports = [back_up(sys.argv[1], f"{place}/config", f"{place}/source", os.path.abspath(sys.argv[2])) for _ in range(3)]
    copies, sources = contents(sys.argv[2]), contents(f"{place}/source")
    lost = [path for text, path in sources.items() if text not in copies]
    lies = [path for path in lost if f"Not copied: {path}.".replace("\\", "\\\\") not in reports[2].replace("\\", "\\\\")]
    late = [(path, os.stat(copies[text]).st_mtime) for text, path in sources.items()
            if text in copies and abs(os.stat(copies[text]).st_mtime - os.stat(path).st_mtime) > 2]
    print("not backed up:", *lost, "\nwith another time:", *late, "\nLIES:", *lies, sep="\n  ")
    sys.exit(1 if lies or " copied=0 " not in reports[2] else 0)
