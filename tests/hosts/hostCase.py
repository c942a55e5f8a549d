"""A test with a host process: it has a component of its own, and talks line by line as calls.h says."""

import os
import re
import select
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

from driver import (DEADLINE_SECONDS, Application, describe_all, temporary_folder,
                    visible_x_windows, wait)

HOSTS = Path(os.environ["TAVISK_HOSTS"])  # folder of the host programs
LIBRARY = Path(os.environ["TAVISK_LIBRARY"])
SANITIZED = b"__asan_init" in LIBRARY.read_bytes()
HERE = Path(__file__).resolve().parent

EDITOR = "Library Help XML Editor"
PREVIEW = "Help Preview"
SAVE_QUESTION = "Would you like to save your changes?"
CALL_ERROR = "DLL call returned due to error."

PLAIN = ('<cabinetinfo>\n  <cabinet><Front value="old"/><Back/></cabinet>\n'
         '  <location value="cabinet=>Front"/>\n</cabinetinfo>\n')
LOADED = '<cabinetinfo><cabinet><Front value="old"/><Back/></cabinet></cabinetinfo>'


def saved(front='value="old"', location=""):
    """PLAIN as saving leaves it."""
    return (f'<cabinetinfo><cabinet><Front {front}/><Back/></cabinet>{location}'
            '<formula name="code" standard="1"/><formula name="type" standard="1"/></cabinetinfo>')


def sanitizer():
    """The library to be loaded first, and the one whose exceptions it looks at."""
    needed = subprocess.run(["ldd", LIBRARY], check=True, capture_output=True, text=True).stdout
    return " ".join(re.search(rf"{name}\S* => (\S+)", needed)[1] for name in ("libasan", "libstdc"))


def link_or_copy(source, target):
    try:
        os.link(source, target)
    except OSError:
        shutil.copy(source, target)


class Host:
    def __init__(self, words, environment, folder):
        self.folder = folder
        self.errors = folder / "stderr"
        with open(self.errors, "wb") as errors:
            self.process = subprocess.Popen(list(map(str, words)), stdin=subprocess.PIPE,
                                            stdout=subprocess.PIPE, stderr=errors, bufsize=0,
                                            env=environment)
        self.application = Application(self.process)
        self._sent = 0
        self._read = b""
        self._answers = {}

    def send(self, command, file="-", argument="-"):
        """The tag of the call, which may go on for long."""
        self._sent += 1
        tag = str(self._sent)
        self.process.stdin.write(f"{tag} {command} {file} {argument}\n".encode())
        return tag

    def answer(self, tag, seconds=DEADLINE_SECONDS):
        while tag not in self._answers:
            if not select.select([self.process.stdout], [], [], seconds)[0]:
                raise AssertionError(f"no answer to call {tag}")
            block = os.read(self.process.stdout.fileno(), 1 << 16)
            if not block:
                raise AssertionError(f"the host has ended: {self.process.wait()}\n"
                                     f"{self.errors.read_text(errors='replace')}")
            *lines, self._read = (self._read + block).split(b"\n")
            for line in lines:
                of, _, text = line.decode().partition(" ")
                self._answers[of] = text.strip()
        return self._answers.pop(tag)

    def ask(self, command, file="-", argument="-"):
        return self.answer(self.send(command, file, argument))

    def end(self):
        """The exit code and what it wrote to standard error."""
        self.process.stdin.close()
        try:
            code = self.process.wait(DEADLINE_SECONDS)
        except subprocess.TimeoutExpired:
            raise AssertionError(f"the host does not end\n{describe_all()}") from None
        self.process.stdout.close()
        return code, self.errors.read_text(errors="replace")


class HostTest(unittest.TestCase):
    maxDiff = None
    # The leak sanitizer itself fails now and then on the threads of a browser engine.
    LEAKS = False

    def setUp(self):
        self.folder = temporary_folder(self)
        self.component = self.folder / "component"
        self.component.mkdir()
        for name in (LIBRARY.name, "cabinet.png", "style.css"):
            link_or_copy(LIBRARY.parent / name, self.component / name)
        self.library = self.component / LIBRARY.name
        self.home = self.folder / "home"
        self.home.mkdir()
        self.out = self.folder / "out.xml"

    def environment(self, **changes):
        """`None` takes a variable away."""
        own = {"HOME": str(self.home), "XDG_DATA_HOME": str(self.home / "data"),
               "XDG_CACHE_HOME": str(self.home / "cache"), "LC_ALL": "C",
               "LD_LIBRARY_PATH": str(self.component)}
        if SANITIZED and not self.LEAKS:
            own["ASAN_OPTIONS"] = "detect_leaks=0"
        if SANITIZED:
            own["LSAN_OPTIONS"] = f"suppressions={HERE / 'toolkit.supp'}:print_suppressions=0"
        own = {**os.environ, **own, **changes}
        return {name: value for name, value in own.items() if value is not None}

    def start(self, name, *words, before=(), **environment):
        """A host that has to end well, having written no error, when the test does."""
        host = Host([*before, *self.command_of(name), *words], self.environment(**environment),
                    self.folder)
        self.addCleanup(self.finish, host)
        if name == "wxHost" and not words:
            host.application.window("Host window")
        return host

    def command_of(self, name):
        if not name.endswith(".py"):
            return [HOSTS / name]
        python = [sys.executable, HERE / name, self.library]
        if not SANITIZED:
            return python
        # The sanitizer wants to be there first; what the interpreter loses is its own business.
        return ["env", f"LD_PRELOAD={sanitizer()}", "ASAN_OPTIONS=detect_leaks=0", *python]

    def finish(self, host):
        if host.process.poll() is None and self.failed():
            host.process.kill()
        code, errors = host.end()
        if self.failed():
            print(errors, file=sys.stderr)
        else:
            self.assertEqual((code, errors), (0, ""))

    def failed(self):
        return any(error for _, error in self._outcome.result.failures +
                   self._outcome.result.errors if _ is self)

    def document(self, text=PLAIN, encoding="utf-8"):
        file = self.folder / "in.xml"
        file.write_bytes(text.encode(encoding))
        return file

    # ---- calls

    def edit(self, host, text=PLAIN):
        """Starts an edit; gives its tag and the window."""
        tag = host.send("edit", self.document(text), self.out)
        return tag, host.application.window(EDITOR)

    def assert_edited(self, host, tag, text, answer="0"):
        self.assertEqual(host.answer(tag), answer)
        self.assertEqual(self.out.read_text(encoding="utf-8"), text)
        wait(lambda: not visible_x_windows(EDITOR), "the editor stays on the screen")

    def assert_edit_works(self, host):
        tag, window = self.edit(host)
        window.press_button("OK")
        self.assert_edited(host, tag, saved())
