"""Tests of Tavisk.dll from outside, under Wine. Every test has a copy of the component in a folder of
its own."""

import os
import select
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
LIBRARY = Path(os.environ["TAVISK_LIBRARY"])
PROGRAMS = Path(os.environ["TAVISK_HOSTS"])  # folder of the test programs
WINE = [os.environ["TAVISK_WINE"], os.environ["TAVISK_WINE_FOLDER"]]  # what stands before a program
SHIPPED = [LIBRARY.name, "cabinet.png", "style.css", "Tavisk.X.manifest"]
DEADLINE_SECONDS = 120
ALL_USERS = "HKEY_LOCAL_MACHINE\\Software\\Classes"
THIS_USER = "HKEY_CURRENT_USER\\Software\\Classes"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def script(file, document):
    """The words that run one of the examples' scripts."""
    if file.suffix == ".vbs":
        return ["cscript", "//nologo", windows_path(HERE / "runVbs.js"), windows_path(document),
                windows_path(file)]
    return ["cscript", "//nologo", windows_path(file), windows_path(document)]


def run(*words, check=True):
    """A Windows program from start to end; the exit code and what it writes, line by line."""
    # Into a file: what the program starts on the side would keep a pipe open.
    with tempfile.TemporaryFile() as out:
        done = subprocess.run([*WINE, *map(str, words)], stdin=subprocess.DEVNULL, stdout=out,
                              stderr=subprocess.DEVNULL, timeout=DEADLINE_SECONDS, check=check)
        out.seek(0)
        return done.returncode, out.read().decode(errors="replace").splitlines()


def registry(root, folder):
    """Everything below a key that need not exist, as {key: {name: value}}. Letter case does not count in names of keys,
    and what two word sizes share is there once."""
    file = folder / "registry.reg"
    file.unlink(missing_ok=True)
    run("reg", "export", root, windows_path(file), "/y", check=False)
    if not file.exists():
        return {}
    keys = {}
    values = {}
    for line in file.read_text(encoding="utf-16").replace("\\\n  ", "").splitlines():
        if line.startswith("["):
            key = line[1:-1].lower()
            values = {} if "\\wow6432node\\typelib" in key else keys.setdefault(key, {})
        elif "=" in line:
            name, _, value = line.partition("=")
            values[name] = value
    # Every user has a folder of classes, but here it is made when it is first used.
    keys.pop(THIS_USER.lower(), None)
    return keys


class ComTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        # As long as one program runs, others start quickly.
        cls.driver = Driver()
        cls.addClassCleanup(cls.driver.close)
        cls.driver.ask("windows")

    def setUp(self):
        temporary = tempfile.TemporaryDirectory(prefix="tavisk com ")
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)
        self.component = self.folder / "component"
        self.library = self.copy_to(self.component)

    @staticmethod
    def copy_to(folder):
        folder.mkdir()
        for name in SHIPPED:
            shutil.copy(LIBRARY.parent / name, folder / name)
        return folder / LIBRARY.name

    @staticmethod
    def register(library):
        run("regsvr32", "/s", windows_path(library))

    @staticmethod
    def unregister(library):
        run("regsvr32", "/s", "/u", windows_path(library))

    def registered(self):
        self.register(self.library)
        self.addCleanup(self.unregister, self.library)


class Process:
    """A Windows program that goes on while the test does."""

    def __init__(self, *words, **options):
        self.process = subprocess.Popen([*WINE, *map(str, words)], stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, bufsize=0, **options)
        self._read = b""

    def line(self):
        while b"\n" not in self._read:
            if not select.select([self.process.stdout], [], [], DEADLINE_SECONDS)[0]:
                raise AssertionError("the program says nothing")
            block = os.read(self.process.stdout.fileno(), 1 << 16)
            if not block:
                raise AssertionError(f"the program has ended: {self.process.wait()}")
            self._read += block
        line, _, self._read = self._read.partition(b"\n")
        return line.decode(errors="replace").rstrip("\r")

    def end(self):
        """The exit code and the lines that were not read yet."""
        code = self.process.wait(DEADLINE_SECONDS)
        # What the program started on the side may keep the pipe open.
        os.set_blocking(self.process.stdout.fileno(), False)
        rest = self._read + (self.process.stdout.read() or b"")
        self.process.stdout.close()
        return code, rest.decode(errors="replace").splitlines()


class Driver(Process):
    """Uses windows; see windowDriver.cpp."""

    def __init__(self):
        super().__init__(PROGRAMS / "windowDriver.exe", stdin=subprocess.PIPE)

    def ask(self, *words):
        line = "\t".join(map(str, words)).replace("\n", "\\n")
        self.process.stdin.write(line.encode() + b"\n")
        answer = self.line()
        if not answer.startswith("ok"):
            raise AssertionError(f"{line}: {answer}")
        return answer[2:].strip()

    def close(self):
        self.process.stdin.close()
        self.process.stdout.close()
        self.process.wait(DEADLINE_SECONDS)
