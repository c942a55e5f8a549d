#!/usr/bin/python3
"""What the set-up installs for whom, and what it says meanwhile, with a package manager of our own
that installs nothing."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SETUP = ROOT / "tools" / "setup.sh"

# Nothing is installed; whoever is asked is root.
TOOLS = {
    "dpkg-query": "exit 1",
    "apt-cache": "exit 100",
    "id": "echo 0",
    "apt-get": """
case " $* " in
    *" --assume-no "*)
        echo "0 upgraded, 402 newly installed, 0 to remove and 0 not upgraded."
        echo "Need to get 281 MB of archives."
        echo "After this operation, 1,117 MB of additional disk space will be used." ;;
    *" update "*) ;;
    *) echo "dlstatus:1:20.5:Retrieving file" >&3
       echo "pmstatus:cmake:45.25:Unpacking cmake" >&3
       echo "E: $*" >&2
       exit "${APT_STATUS:-0}" ;;
esac""",
}


def packages(*groups):
    listed = subprocess.run([SETUP, "--list", *groups], capture_output=True, text=True, check=True)
    return set(listed.stdout.split())


class Lists(unittest.TestCase):
    def test_running_needs_no_package_of_tests(self):
        running = packages("build", "tour")
        self.assertTrue({"g++", "libwxgtk3.2-dev", "xvfb"} <= running)
        for name in ("chromium", "chromium-driver", "libgtest-dev", "python3-selenium", "lintian"):
            self.assertNotIn(name, running)

    def test_tests_need_all_of_that_and_more(self):
        self.assertTrue(packages("build", "tour") < packages("test"))
        self.assertTrue(packages("test") < packages("ci"))

    def test_every_command_has_a_group(self):
        text = (ROOT / "Makefile").read_text(encoding="utf-8")
        groups = {word[len("setup-"):] for word in text.split()
                  if word.startswith("setup-") and word[-1].isalpha()}
        self.assertIn("build", groups)
        for group in groups:
            with self.subTest(group=group):
                self.assertTrue(packages(group))


class Progress(unittest.TestCase):
    def set_up(self, **environment):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in TOOLS.items():
                tool = Path(folder) / name
                tool.write_text(f"#!/bin/sh\n{text}\n", encoding="utf-8")
                tool.chmod(0o755)
            return subprocess.run([SETUP, "build"], capture_output=True, text=True, check=False,
                                  env=os.environ | {"PATH": f"{folder}:{os.environ['PATH']}"} | environment)

    def test_says_what_comes_and_how_far_it_is(self):
        done = self.set_up()
        self.assertEqual(done.returncode, 0, done.stderr)
        said = done.stderr.splitlines()
        self.assertEqual(said[0], "Reading Debian's lists of packages")
        self.assertRegex(said[1], r"^Installing \d+ packages and what they need \(402 packages, 281 MB "
                                  r"to fetch, 1,117 MB on the disk\): cmake g\+\+ ")
        self.assertEqual(said[2:], ["  fetching, 20 %", "  installing, 45 %"])

    def test_a_failure_tells_what_the_package_manager_said(self):
        done = self.set_up(APT_STATUS="100")
        self.assertEqual(done.returncode, 1)
        self.assertIn("\nE: -y -q", done.stderr)

    def test_nothing_is_said_when_nothing_is_missing(self):
        with tempfile.TemporaryDirectory() as folder:
            tool = Path(folder) / "dpkg-query"
            tool.write_text("#!/bin/sh\nprintf installed\n", encoding="utf-8")
            tool.chmod(0o755)
            done = subprocess.run([SETUP, "test"], capture_output=True, text=True, check=False,
                                  env=os.environ | {"PATH": f"{folder}:{os.environ['PATH']}"})
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
