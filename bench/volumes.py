"""Where the targets lie: in plain folders, each on a fresh ext4 file system, or on a slow one."""

import contextlib
import os
import shutil
import subprocess
import time


class Folder:
    """A target in a plain folder."""

    def __init__(self, place):
        self.inside = place  # where files can be put without detours

    def clear(self):
        """Makes an empty target."""
        shutil.rmtree(self.inside, ignore_errors=True)
        os.makedirs(self.inside)

    @contextlib.contextmanager
    def reached(self):
        """The target as a tool reaches it, for one run."""
        yield self.inside

    def remove(self):
        shutil.rmtree(self.inside)


class FreshExt4(Folder):
    """A target on an ext4 file system of its own, in an image file, made anew by clear(): no tool suffers from what
    another left behind. Needs root."""

    SIZE = 10 << 30  # of the image; only what was ever written takes space on the disk

    def __init__(self, place):
        super().__init__(os.path.join(place, "copy"))
        self.place, self.image = place, place + ".img"
        self.detach()
        os.makedirs(place, exist_ok=True)
        with open(self.image, "wb") as file:
            file.truncate(self.SIZE)

    def clear(self):
        self.detach()
        # With discarding, the space of the image would be looked for again in every round.
        mkfs = ["mkfs.ext4", "-q", "-F", "-b", "4096", "-i", "8192", "-E", "nodiscard", self.image]
        subprocess.run(mkfs, check=True, stdin=subprocess.DEVNULL)
        # The kernel is not to write empty inode tables in the background of a measurement.
        subprocess.run(["mount", "-o", "loop,noinit_itable", self.image, self.place], check=True)
        os.mkdir(self.inside)

    def detach(self):
        if os.path.ismount(self.place):
            subprocess.run(["umount", self.place], check=True)

    def remove(self):
        self.detach()
        os.rmdir(self.place)
        os.remove(self.image)

    @staticmethod
    def reason_against(folder):
        """Why there are no such targets in `folder`; empty when there are."""
        if os.geteuid() != 0:
            return "loop mounts need root"
        try:
            trial = FreshExt4(os.path.join(folder, "trial"))
            trial.clear()
            trial.remove()
        except (OSError, subprocess.CalledProcessError) as error:
            return str(error)
        return ""


class FarAway(Folder):
    """A target behind slow_fs. It is mounted for each run, so that nothing about it is known yet."""

    def __init__(self, place, program):
        super().__init__(os.path.join(place, "behind"))
        self.place, self.mount, self.program = place, os.path.join(place, "mount"), program
        os.makedirs(self.mount, exist_ok=True)

    @contextlib.contextmanager
    def reached(self):
        with subprocess.Popen([self.program, self.inside, self.mount, "-f"], stderr=subprocess.DEVNULL) as server:
            while not os.path.ismount(self.mount):
                if server.poll() is not None:
                    raise SystemExit(f"{self.program} could not be mounted")
                time.sleep(0.01)
            try:
                yield self.mount
            finally:
                subprocess.run(["fusermount3", "-u", self.mount], check=True)

    def remove(self):
        shutil.rmtree(self.place)


def drop_caches():
    """What files and folders hold is read from the disk again after this. Needs root."""
    subprocess.run(["sync"], check=True)
    with open("/proc/sys/vm/drop_caches", "w", encoding="ascii") as file:
        file.write("3\n")
