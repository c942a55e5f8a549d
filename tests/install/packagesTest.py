#!/usr/bin/python3
"""The Debian packages in a clean root: installed, used by a user who may not write beside the
library, and removed without a trace. To be run by root, in a mount namespace of its own.

    packagesTest.py ROOTS PACKAGES        ROOTS as tools/cleanRoot.sh makes them
"""

import os
import stat
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOTS, PACKAGES = map(Path, sys.argv[1:3])
SOURCE = Path(__file__).resolve().parents[2]
DEBS = {path.name.split("_")[0]: path.name for path in PACKAGES.glob("*.deb")}
MOUNTED = ROOTS / "mounted"
# Without an index of its own on the disk.
APT = ["apt-get", "-y", "-q", "-o", "Dir::Cache::pkgcache=", "-o", "Dir::Cache::srcpkgcache="]
SYSTEM = "PATH=/usr/sbin:/usr/bin:/sbin:/bin"

# What the package manager, the loader and others write anew whenever anything is installed.
NOTED = {"/etc/ld.so.cache", "/var/cache/ldconfig/aux-cache", "/var/lib/dpkg/status",
         "/var/lib/dpkg/status-old", "/var/log/dpkg.log", "/var/log/apt/history.log",
         "/var/log/apt/term.log", "/var/log/apt/eipp.log.xz", "/var/lib/apt/extended_states",
         "/var/lib/dpkg/diversions-old", "/var/lib/dpkg/triggers/Lock"}
# Work of the moment.
ELSEWHERE = {"/proc", "/dev", "/sys", "/tmp", "/run", "/mnt"}


class Root:
    """One of the clean roots; what is written there is gone when the test has ended."""

    def __init__(self, name):
        layer = tempfile.mkdtemp(dir=MOUNTED)
        self.path = Path(layer, "root")
        for folder in ("root", "upper", "work"):
            Path(layer, folder).mkdir()
        self.mount("-t", "overlay", "overlay", "-o",
                   f"lowerdir={ROOTS / name},upperdir={layer}/upper,workdir={layer}/work",
                   self.path)
        self.mount("-t", "proc", "proc", self.path / "proc")
        self.mount("--rbind", "/dev", self.path / "dev")
        self.mount("-t", "tmpfs", "-o", "mode=1777", "tmpfs", self.path / "tmp")
        for name, folder in (("source", SOURCE), ("packages", PACKAGES)):
            (self.path / "mnt" / name).mkdir(exist_ok=True)
            self.mount("--bind", "-o", "ro", folder, self.path / "mnt" / name)

    @staticmethod
    def mount(*words):
        subprocess.run(["mount", *map(str, words)], check=True)

    def run(self, *words, user=None, folder="/", **environment):
        """Exit code, standard output, standard error."""
        who = ["--userspec=author:author", "--groups="] if user else []
        own = {"HOME": f"/home/{user}" if user else "/root", "LC_ALL": "C.UTF-8", **environment}
        done = subprocess.run(
            ["chroot", *who, self.path, "env", "-i", "-C", folder, SYSTEM,
             *(f"{name}={value}" for name, value in own.items()), *map(str, words)],
            capture_output=True, text=True, check=False, stdin=subprocess.DEVNULL)
        return done.returncode, done.stdout, done.stderr

    def files(self):
        """Everything that is there, with its kind, owner, rights and size or goal."""
        found = {}
        for folder, folders, files in os.walk(self.path):
            inside = "/" + os.path.relpath(folder, self.path)
            inside = "" if inside == "/." else inside
            folders[:] = [name for name in folders if f"{inside}/{name}" not in ELSEWHERE]
            for name in folders + files:
                path = f"{inside}/{name}"
                status = os.lstat(os.path.join(folder, name))
                kind = stat.filemode(status.st_mode)
                what = "" if path in NOTED or kind[0] == "d" else status.st_size
                if kind[0] == "l":
                    what = os.readlink(os.path.join(folder, name))
                found[path] = (kind, status.st_uid, status.st_gid, what)
        return found


class PackagesTest(unittest.TestCase):
    maxDiff = None
    ROOT = None

    def setUp(self):
        self.root = Root(self.ROOT)
        self.before = self.root.files()
        self.installed = []

    def well(self, *words, **more):
        code, out, err = self.root.run(*words, **more)
        self.assertEqual(code, 0, f"{words}\n{out}\n{err}")
        return out

    def install(self, *packages):
        """With apt, which may bring nothing else along: that is all there already."""
        out = self.well(*APT, "install", "--no-install-recommends",
                        *(f"/mnt/packages/{DEBS[package]}" for package in packages),
                        DEBIAN_FRONTEND="noninteractive")
        self.assertIn(f"\n0 upgraded, {len(packages)} newly installed, 0 to remove", out)
        self.installed += packages

    def remove(self):
        self.well(*APT, "purge", *self.installed, DEBIAN_FRONTEND="noninteractive")
        after = self.root.files()
        changed = {path for path in self.before.keys() | after.keys()
                   if self.before.get(path) != after.get(path)}
        self.assertEqual(sorted(path for path in changed if not path.startswith("/home/")), [])
        return sorted(path for path in changed)

    def library(self):
        listed = self.well("dpkg-query", "-L", "libtavisk0").splitlines()
        return next(path for path in listed if path.endswith("/tavisk/libtavisk.so.0"))


class Bare(PackagesTest):
    """Nothing is there but what the packages depend on."""

    ROOT = "bare"

    def test_a_build_server_needs_the_command_alone(self):
        self.install("tavisk")
        self.well("cp", "/mnt/source/examples/door.xml", "/home/author", user="author")
        for words, out in {
                ("check", "door.xml"): "no findings\n",
                ("render", "door.xml", "--folder", "page", "--evaluate"): "",
                ("save", "door.xml", "-o", "saved.xml"): ""}.items():
            self.assertEqual(self.root.run("tavisk", *words, user="author", folder="/home/author"),
                             (0, out, ""))
        page = (self.root.path / "home/author/page/temp.html").read_text(encoding="cp1252")
        self.assertIn("A door, 450 mm wide and 720 mm high.", page)
        saved = (self.root.path / "home/author/saved.xml").read_text(encoding="utf-8")
        self.assertIn('<formula name="width" description="Width of the door" standard="1"/>', saved)
        code, _, err = self.root.run("tavisk", "edit", "/home/author/door.xml", user="author")
        self.assertEqual(code, 4)
        self.assertIn("libtavisk.so.0 is neither in /usr/bin", err)
        self.assertEqual(self.remove(),
                         ["/home/author/door.xml", "/home/author/page",
                          "/home/author/page/cabinet.png", "/home/author/page/style.css",
                          "/home/author/page/temp.html", "/home/author/page/temp_images",
                          "/home/author/page/temp_images/generated_cabinet_picture.png",
                          "/home/author/saved.xml"])

    def test_what_the_packages_depend_on_is_all_that_they_need(self):
        self.install("libtavisk0", "tavisk")
        for file in (self.library(), "/usr/bin/tavisk"):
            self.assertNotIn("not found", self.well("ldd", file))
        code, _, err = self.root.run("tavisk", "edit", "/mnt/source/examples/door.xml",
                                     user="author")
        self.assertEqual((code, err.splitlines()[0]),
                         (4, "Run-time error '361': Can't load or unload this object"))
        self.assertEqual(self.remove(), ["/home/author/.cache"])  # the toolkit's


class Full(PackagesTest):
    """With a display, and with what builds hosts."""

    ROOT = "full"

    def test_a_user_edits_and_previews_and_a_host_programmer_builds(self):
        self.install(*DEBS)
        folder = os.path.dirname(self.library())
        self.assertNotEqual(
            self.root.run("touch", f"{folder}/file", user="author")[0], 0, "the user may write")
        code, out, err = self.root.run(
            "/mnt/source/tools/withDisplay.sh", "python3", "/mnt/source/tests/install/userTest.py",
            user="author", folder="/home/author", TAVISK_LIBRARY=self.library(),
            TAVISK_HOSTS="/home/author/hosts", PYTHONDONTWRITEBYTECODE="1")
        self.assertEqual(code, 0, out + err)
        print(err, file=sys.stderr)

        # What somebody who may write everywhere looked at goes with the library.
        self.well("sh", "-c", f"cd {folder} && touch temp.html && mkdir temp_images && "
                              "touch temp_images/width.png")
        left = self.remove()
        made_here = ("/home/author/hosts", "/home/author/door.", "/home/author/.cache")
        data = "/home/author/.local/share"
        page = ["", "/cabinet.png", "/style.css", "/temp.html", "/temp_images",
                "/temp_images/generated_cabinet_picture.png"]
        self.assertEqual(
            [path for path in left if not path.startswith(made_here)],
            ["/home/author/.local", data, *(f"{data}/tavisk{name}" for name in page)])


if __name__ == "__main__":
    assert set(DEBS) == {"libtavisk0", "libtavisk-dev", "tavisk"}, DEBS
    MOUNTED.mkdir(exist_ok=True)
    Root.mount("-t", "tmpfs", "tmpfs", MOUNTED)
    unittest.main(argv=sys.argv[:1], verbosity=2)
