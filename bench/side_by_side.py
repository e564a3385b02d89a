"""Runs several tools on the same tree of files in turn, each on a target of its own, and times them as whole processes."""

import dataclasses
import os
import random
import shutil
import statistics
import subprocess
import sys
import time

from volumes import Folder, drop_caches


# --- Trees of files, from a fixed seed

def write_file(path, size, stamp, data):
    with open(path, "wb") as file:
        left = size
        while left > 0:
            file.write(data[: min(left, len(data))])
            left -= len(data)
    os.utime(path, (stamp, stamp))


def small_size(dice):
    return dice.randrange(8 * 1024 + 1)


def mixed_size(dice):
    kind = dice.random()
    if kind < 0.70:
        return dice.randrange(16 * 1024)
    if kind < 0.95:
        return dice.randrange(256 * 1024)
    return dice.randrange(1 << 20, 3 << 20)


def build_tree(root, files, folders, size_of=small_size):
    if os.path.exists(root):
        return
    dice = random.Random(20_071_111)
    data = dice.randbytes(1 << 20)
    for f in range(folders):
        folder = os.path.join(root, f"group {f // 100:02d}", f"folder {f:05d}") if folders > 1 else root
        os.makedirs(folder, exist_ok=True)
        for n in range(files // folders):
            write_file(os.path.join(folder, f"file {n:05d}.dat"), size_of(dice), 1_600_000_000 + dice.randrange(10**7), data)


TREES = {
    "small": lambda root: build_tree(root, 100_000, 2_000),
    "many-folders": lambda root: build_tree(root, 40_000, 2_000),
    "fewer": lambda root: build_tree(root, 20_000, 400),
    "far": lambda root: build_tree(root, 5_000, 500),
    "far few": lambda root: build_tree(root, 1_000, 50),
    "mixed": lambda root: build_tree(root, 20_000, 400, mixed_size),
    "big": lambda root: build_tree(root, 4, 1, lambda dice: 1 << 30),
    "million": lambda root: build_tree(root, 1_000_000, 20_000, lambda dice: dice.randrange(32)),
}


def change_files(root, every, round_number):
    """Lengthens every so-many-th file, others in each round."""
    number = 0
    for folder, _, names in sorted(os.walk(root)):
        for name in sorted(names):
            number += 1
            if number % every == round_number % every:
                with open(os.path.join(folder, name), "ab") as file:
                    file.write(b"x")


# --- Rounds

@dataclasses.dataclass
class Work:
    title: str
    tree: str
    before: str  # what the target is before each run: "keep" the copy of the run before it, or "empty"
    operation: str  # the engine's
    peers: dict  # name of a peer -> the highest ratio of the first tool's time to the peer's that is wanted, or None
    change_every: int = 0  # of how many files of the source one is changed before each round; 0: none
    cold: bool = False  # the system's caches are dropped before each run
    safe: bool = False  # the engine's copies, all of them, are safe on the disk at its end
    far: bool = False  # the target is a slow one
    plain: bool = False  # the target is a plain folder: under an image file the file's own cache would answer


def run_process(command, environment=None):
    """Seconds of wall time and MiB of memory that a command takes; whatever it prints is thrown away."""
    begin = time.monotonic()
    child = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                             env=environment)
    _, status, usage = os.wait4(child.pid, 0)
    seconds = time.monotonic() - begin
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode != 0:
        sys.exit(f"failed with {child.returncode}: {' '.join(command)}")
    return seconds, usage.ru_maxrss / 1024


def prepare(work, source, volumes):
    for volume in volumes.values():
        volume.clear()
        if work.before == "keep":
            subprocess.run(["cp", "-a", "-T", source, volume.inside], check=True)


def run_once(work, run, tool, source, volume):
    if work.before == "empty":
        volume.clear()
    subprocess.run(["sync"], check=True)  # so that no tool pays for the one before it
    if work.cold:
        drop_caches()
    with volume.reached() as target:
        return run(tool, source, target)


def run_rounds(work, run, source, volumes, rounds):
    times = {tool: [] for tool in volumes}
    memory = 0
    for round_number in range(rounds + 1):
        if work.change_every:
            change_files(source, work.change_every, round_number)
        for tool in list(volumes) if round_number % 2 else reversed(volumes):
            seconds, peak = run_once(work, run, tool, source, volumes[tool])
            if round_number > 0:  # the first round warms the caches up
                times[tool].append(seconds)
            if tool == "engine":
                memory = max(memory, peak)
    return times, memory


def measure(work, run, folder, rounds, volume_in=Folder):
    """Times the engine and its peers by `run(tool, source, target)`, which gives seconds and MiB. Returns the seconds of
    each tool, round by round, and the most memory that the engine took. `volume_in(place)` makes a tool's volume."""
    source = os.path.join(folder, work.tree)
    print(f"{work.title} ...", flush=True)
    TREES[work.tree](source)
    volumes = {tool: volume_in(os.path.join(folder, "target-" + tool.split()[0])) for tool in ("engine", *work.peers)}
    try:
        prepare(work, source, volumes)
        return run_rounds(work, run, source, volumes, rounds)
    finally:
        for volume in volumes.values():
            volume.remove()
        if work.change_every:
            shutil.rmtree(source)


def row(work, times, memory):
    """A line of the table: medians, and the medians of the rounds' ratios."""
    cells = [f"{tool} {statistics.median(seconds):.2f} s" for tool, seconds in times.items()]
    for peer, bar in work.peers.items():
        ratio = statistics.median(a / b for a, b in zip(times["engine"], times[peer]))
        mark = "" if bar is None else " ok" if ratio <= bar else f" ABOVE {bar:.2f}"
        cells.append(f"engine / {peer}: {ratio:.2f}{mark}")
    return f"| {work.title} | " + " | ".join(cells) + f" | {memory:.0f} MiB |"
