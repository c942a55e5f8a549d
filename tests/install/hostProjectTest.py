#!/usr/bin/python3
"""A host's CMake project is the same whether Tavisk is installed or built with it, and what Tavisk is
built with does not get into it."""

import os
import re
import shutil
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
# Stays, so that the next run builds only what is new.
FOLDER = Path(os.environ["TAVISK_HOSTS"]) / "project"
WAYS = {"installed": f"-DCMAKE_PREFIX_PATH={os.environ['TAVISK_TREE']}",
        "sources": f"-DTAVISK_SOURCES={ROOT}"}


def output(*words, **more):
    return subprocess.run(list(map(str, words)), check=True, stdout=subprocess.PIPE, text=True,
                          **more).stdout


class HostProject(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        FOLDER.mkdir(exist_ok=True)
        tested = FOLDER / "tested.cmake"
        tested.write_text("enable_testing()\n", encoding="utf-8")
        for way, setting in WAYS.items():
            output("cmake", "--fresh", "-G", "Ninja", "-S", ROOT / "examples/cpp",
                   "-B", FOLDER / way, f"-DCMAKE_PROJECT_EditHelp_INCLUDE={tested}", setting)

    def assert_same(self, ask):
        """Both ways give the same answer, which is returned."""
        installed, sources = (ask(FOLDER / way) for way in WAYS)
        self.assertEqual(installed, sources)
        return installed


class Configured(HostProject):
    def test_the_host_keeps_its_own_settings(self):
        def settings(folder):
            cache = (folder / "CMakeCache.txt").read_text(encoding="utf-8")
            found = dict(re.findall(r"^((?:CMAKE|BUILD|CPACK)_\w+):(?!INTERNAL|STATIC)\w+=(.*)$",
                                    cache, re.MULTILINE))
            return {name: value for name, value in found.items() if name != "CMAKE_PREFIX_PATH"}
        self.assertEqual(self.assert_same(settings)["CMAKE_BUILD_TYPE"], "")

    def test_the_host_has_no_tests_and_installs_nothing(self):
        def left(folder):
            shutil.rmtree(folder / "tree", ignore_errors=True)
            output("cmake", "--install", folder, "--prefix", folder / "tree")
            return (sorted((folder / "tree").rglob("*")),
                    output("ctest", "--show-only", cwd=folder).splitlines()[-1])
        self.assertEqual(self.assert_same(left), ([], "Total Tests: 0"))

    def test_no_warning_of_ours_stops_the_host(self):
        compiled = output("ninja", "-C", FOLDER / "sources", "-t", "commands", "edit")
        self.assertIn("-Wconversion", compiled)
        self.assertNotIn("-Werror", compiled)

    def test_the_host_finds_the_headers(self):
        for way in WAYS:
            with self.subTest(way=way):
                output("cmake", "--build", FOLDER / way, "--target", "CMakeFiles/edit.dir/edit.cpp.o")


class Built(HostProject):
    """Compiles everything once more."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        for way in WAYS:
            output("cmake", "--build", FOLDER / way)

    def test_the_host_needs_the_library_by_its_name(self):
        needed = self.assert_same(lambda folder: sorted(
            re.findall(r"NEEDED.*\[(.*)]", output("readelf", "-d", folder / "edit"))))
        self.assertIn("libtavisk.so.0", needed)

    def test_the_host_gets_as_far_as_the_window(self):
        own = {name: value for name, value in os.environ.items() if "DISPLAY" not in name}
        said = self.assert_same(lambda folder: subprocess.run(
            [folder / "edit", "examples/door.xml"], cwd=ROOT, env=own, capture_output=True, text=True,
            check=False).stderr.splitlines()[-1])
        self.assertEqual(said, "examples/door.xml: error 361")


if __name__ == "__main__":
    unittest.main()
