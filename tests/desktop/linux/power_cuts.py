"""What is left of the copies when the power goes while the program works.

The target lies on ext4 in a file on XFS. There a file is copied in one step, without its data (a "reflink"): such a
picture holds what the disk held at one instant, and nothing of what the system still kept in memory. Each is opened as
a computer would open the disk when the power is back.
"""

import fcntl
import hashlib
import os
import subprocess

import desktop
from story import LAST_YEAR, Story

FICLONE = 0x40049409
NAMES = [f"folder {number % 6}/file {number}" for number in range(900)]

# Another program, which brings to the disk what it saves, and with it all names that the file system knows of.
ANOTHER = 'while :; do date >"$0"; sync "$0"; sleep 0.02; done'


def content(name, version):
    """800 to 51,200 bytes; how many says nothing about the version."""
    seed = hashlib.sha256(f"{name} {version}".encode()).digest()
    return seed * (25 << int(name.split()[-1]) % 7)


def run(*command):
    return subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)


class PowerCuts(Story):
    def make_place(self):
        return desktop.Place()

    def setUp(self):
        super().setUp()
        self.host, self.disk, self.later = (os.path.join(self.place.root, name) for name in ("host", "disk", "later"))
        self.image = os.path.join(self.host, "image")
        if os.geteuid() != 0:
            self.skipTest("only root can mount the disk of this test")
        self.make_disk("xfs", self.host + ".img", 1 << 30, self.host, "-m", "reflink=1")
        # In blocks of 1 KiB, which a small disk gets otherwise, ext4 writes differently.
        self.make_disk("ext4", self.image, 300 << 20, self.disk, "-b", "4096")
        os.mkdir(self.disk + "/target")
        os.mkdir(self.later)
        self.place.target = self.later + "/target"
        self.save_setup([f"folder {number}" for number in range(6)], target=self.disk + "/target")

    def make_disk(self, kind, image, size, folder, *options):
        os.mkdir(folder)
        with open(image, "wb") as file:
            file.truncate(size)
        for command in (["mkfs." + kind, "-q", *options, image], ["mount", "-o", "loop", image, folder]):
            try:
                done = run(*command)
            except FileNotFoundError:
                self.skipTest(f"{command[0]} is not installed")
            if done.returncode != 0:
                self.skipTest(f"no disk for this test: {' '.join(command)}: {done.stderr}")
        self.addCleanup(self.unmount, folder)

    def unmount(self, folder):
        desktop.wait_until(lambda: run("umount", folder).returncode == 0, f"the end of all work on {folder}")

    def take_picture(self, name):
        path = os.path.join(self.host, name)
        with open(self.image, "rb") as disk, open(path, "wb") as picture:
            fcntl.ioctl(picture.fileno(), FICLONE, disk.fileno())
        return path

    def pictures_of_a_run(self):
        """Some from its midst, and the last from after its end."""
        environment = {"PATH": os.environ["PATH"], "XDG_CONFIG_HOME": self.place.home, "LC_ALL": "C.UTF-8"}
        other = subprocess.Popen(["sh", "-c", ANOTHER, self.disk + "/other"])
        self.addCleanup(desktop.end_process, other)
        program = desktop.Program([desktop.PROGRAM, "nightly"], environment, None)
        self.addCleanup(program.end)
        pictures = []
        while not desktop.within(0.03, program.ended):
            pictures.append(self.take_picture(f"picture {len(pictures)}"))
        desktop.end_process(other)
        self.assertEqual(program.wait_for_result()["status"], "ok")
        return pictures[::len(pictures) // 8 + 1], self.take_picture("last picture")

    def copies_in(self, picture):
        mounted = run("mount", "-o", "loop", picture, self.later)
        self.assertEqual(mounted.returncode, 0, mounted.stderr)
        try:
            return {name: data for name, (data, _) in self.place.copies().items()}
        finally:
            self.unmount(self.later)

    def check(self, copies, before, after):
        broken = [name for name in NAMES if copies.get(name) not in (before.get(name), after[name])]
        self.assertEqual(broken, [], f"{len(broken)} copies are neither as before the run nor whole")

    def test_each_copy_is_the_whole_old_one_or_the_whole_new_one_at_any_moment(self):
        before, mixed = {}, 0
        for version in range(3):
            after = {name: content(name, version) for name in NAMES}
            self.place.write(after, LAST_YEAR + version * 10**14)
            pictures, last = self.pictures_of_a_run()
            for copies in map(self.copies_in, pictures):
                self.check(copies, before, after)
                mixed += 0 < sum(copies.get(name) == after[name] for name in NAMES) < len(NAMES)
            self.check(self.copies_in(last), after, after)
            before = {name: data for name, data in after.items() if name not in NAMES[version::7]}
            for name in NAMES[version::7]:
                os.remove(f"{self.disk}/target/{name}")
            os.sync()
        self.assertGreater(mixed, 0, "no picture shows a run at work")
