#!/usr/bin/python3
"""What lies in an installed tree: links, symbols, files that other programs read."""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TREE = Path(os.environ["TAVISK_TREE"])
LIBRARIES = Path(os.environ["TAVISK_LIBRARY_FOLDER"])
EXAMPLES = Path(os.environ["TAVISK_EXAMPLES"])
SOURCE = Path(__file__).resolve().parents[2]
SHARE = TREE / "share"
COMMANDS = ["edit", "preview", "render", "save", "check"]


def output(*words, **more):
    return subprocess.run(list(map(str, words)), check=True, capture_output=True, text=True,
                          **more).stdout


def reviewed_symbols():
    return sorted(line.split("@")[0].strip()
                  for line in Path(os.environ["TAVISK_SYMBOLS"]).read_text().splitlines()
                  if line.startswith(" "))


class Library(unittest.TestCase):
    def test_links_lead_to_the_one_file(self):
        for name in ("libtavisk.so", "libtavisk.so.0"):
            self.assertEqual(os.readlink(LIBRARIES / name), "tavisk/libtavisk.so.0")
        self.assertEqual(sorted(path.name for path in (LIBRARIES / "tavisk").iterdir()),
                         ["cabinet.png", "libtavisk.so.0", "style.css"])

    def test_the_interface_is_the_reviewed_one(self):
        listed = output("nm", "-D", "--defined-only", "--format=posix", LIBRARIES / "libtavisk.so")
        self.assertEqual(sorted(line.split()[0] for line in listed.splitlines()),
                         reviewed_symbols())

    def test_its_name_and_that_it_leads_nowhere_else(self):
        dynamic = output("readelf", "-d", LIBRARIES / "libtavisk.so")
        self.assertIn("Library soname: [libtavisk.so.0]", dynamic)
        self.assertNotRegex(dynamic, "RPATH|RUNPATH")
        self.assertIn("NODELETE", dynamic)

    def test_hosts_need_it_by_that_name(self):
        for host in ("c", "cpp"):
            self.assertIn("NEEDED)             Shared library: [libtavisk.so.0]",
                          output("readelf", "-d", EXAMPLES / host / "edit"))


class Development(unittest.TestCase):
    def test_pkg_config_names_this_tree(self):
        words = output("pkg-config", "--cflags", "--libs", "tavisk",
                       env={**os.environ, "PKG_CONFIG_PATH": str(LIBRARIES / "pkgconfig")}).split()
        self.assertEqual(words[0][:2], "-I")
        self.assertEqual(Path(words[0][2:]).resolve(), TREE / "include")
        self.assertEqual(words[1][:2], "-L")
        self.assertEqual(Path(words[1][2:]).resolve(), LIBRARIES)
        self.assertEqual(words[2:], ["-ltavisk"])

    def test_a_moved_tree_is_found_where_it_is(self):
        with tempfile.TemporaryDirectory() as folder:
            moved = Path(os.path.realpath(folder)) / "moved"
            shutil.copytree(TREE, moved, symlinks=True)
            pkgconfig = moved / LIBRARIES.relative_to(TREE) / "pkgconfig"
            words = output("pkg-config", "--cflags", "tavisk",
                           env={**os.environ, "PKG_CONFIG_PATH": str(pkgconfig)}).split()
            self.assertEqual(Path(words[0][2:]).resolve(), moved / "include")
            # The command finds the library from where it is now, and gets as far as its window.
            edit = subprocess.run([moved / "bin" / "tavisk", "edit", SOURCE / "examples/door.xml"],
                                  env={"HOME": folder, "ASAN_OPTIONS": "detect_leaks=0"}, capture_output=True, text=True, check=False)
            self.assertEqual((edit.returncode, edit.stderr.splitlines()[0]),
                             (4, "Run-time error '361': Can't load or unload this object"))

    def test_every_public_header_is_there(self):
        self.assertEqual(sorted(path.name for path in (TREE / "include" / "tavisk").iterdir()),
                         ["clsTavisk.h", "com.h", "tavisk.h"])

    def test_another_minor_version_is_refused(self):
        version = output(TREE / "bin" / "tavisk", "--version").split()[-1]
        major, minor, _ = map(int, version.split("."))
        for wanted, found in ((f"{major}.{minor}", True), (f"{major}.{minor + 1}", False)):
            with self.subTest(wanted=wanted), tempfile.TemporaryDirectory() as folder:
                Path(folder, "CMakeLists.txt").write_text(
                    "cmake_minimum_required(VERSION 3.16)\nproject(Wants LANGUAGES C)\n"
                    f"find_package(Tavisk {wanted} REQUIRED)\n", encoding="utf-8")
                done = subprocess.run(["cmake", "-S", folder, "-B", f"{folder}/build",
                                       f"-DCMAKE_PREFIX_PATH={TREE}"],
                                      capture_output=True, text=True, check=False)
                self.assertEqual(done.returncode == 0, found, done.stderr)


class Described(unittest.TestCase):
    """The manual page and the completion know every option of the command."""

    @staticmethod
    def options(text):
        return set(re.findall(r"(?<![\w-])(--[a-z]+|-[a-z])(?![\w-])", text))

    def of_the_command(self, command):
        """Those that its help gives a line to."""
        told = output(TREE / "bin" / "tavisk", command, "--help")
        options = set(re.findall(r"^  (-[a-z-]+)", told, re.MULTILINE))
        self.assertTrue(options)
        return options

    def test_the_manual_page_reads_without_a_warning(self):
        page = SHARE / "man" / "man1" / "tavisk.1.gz"
        read = subprocess.run(["man", "--warnings", "-l", page], capture_output=True, text=True,
                              check=True, env={**os.environ, "MANPAGER": "cat", "LC_ALL": "C.UTF-8",
                                               "MANWIDTH": "100"})
        self.assertEqual(read.stderr, "")
        text = re.sub(".\b", "", read.stdout)
        sections = re.split(r"^   (\w+)$", text, flags=re.MULTILINE)
        described = dict(zip(sections[1::2], sections[2::2]))
        self.assertEqual(list(described), COMMANDS)
        for command in COMMANDS:
            own = self.of_the_command(command)
            with self.subTest(command=command):
                self.assertEqual(own - self.options(described[command]), set())

    def test_the_completion(self):
        for words, expected in {
                "tavisk ": {*COMMANDS, "--help", "--version"},
                "tavisk re": {"render"},
                "tavisk check d": {"door.xml"},
                "tavisk render door.xml --folder p": {"python"},
                "tavisk render door.xml --folder=p": {"python"},
        }.items():
            with self.subTest(words=words):
                self.assertEqual(self.completed(words), expected)

    def test_the_completion_knows_all_options(self):
        for command in COMMANDS:
            with self.subTest(command=command):
                self.assertEqual(self.completed(f"tavisk {command} -"),
                                 self.of_the_command(command) | {"--help"})

    def completed(self, line):
        words = line.split(" ")
        quoted = " ".join(f"'{word}'" for word in words)
        script = (". /usr/share/bash-completion/bash_completion\n"
                  f". {SHARE}/bash-completion/completions/tavisk\n"
                  f"COMP_WORDS=({quoted}) COMP_CWORD={len(words) - 1} COMP_TYPE=9\n"
                  f"COMP_LINE='{line}' COMP_POINT={len(line)}\n"
                  f"_tavisk tavisk '{words[-1]}' '{words[-2]}'\n"
                  'printf "%s\\n" "${COMPREPLY[@]}"\n')
        return set(output("bash", "-c", script, cwd=SOURCE / "examples").split())


class Desktop(unittest.TestCase):
    """Documents are known by their name or by what they hold."""

    @classmethod
    def setUpClass(cls):
        temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(temporary.cleanup)
        cls.data = Path(temporary.name)
        shutil.copytree(SHARE / "mime", cls.data / "mime")
        # Beside the types that the system knows.
        packages = Path("/usr/share/mime/packages/freedesktop.org.xml")
        shutil.copy(packages, cls.data / "mime" / "packages")
        subprocess.run(["update-mime-database", cls.data / "mime"], check=True, capture_output=True)

    def kind(self, name, text):
        ask = ("import sys; from gi.repository import Gio; "
               "print(Gio.content_type_guess(sys.argv[1], sys.argv[2].encode())[0])")
        return output("/usr/bin/python3", "-c", ask, name, text,
                      env={**os.environ, "XDG_DATA_DIRS": str(self.data),
                           "XDG_DATA_HOME": str(self.data)}).strip()

    def test_documents(self):
        own = "application/vnd.tavisk.help+xml"
        for document in ("door.xml", "base-cabinet.xml", "flawed.xml"):
            text = (SOURCE / "examples" / document).read_text(encoding="utf-8")[:4096]
            self.assertEqual(self.kind("door", text), own, document)
        self.assertEqual(self.kind("door.cabinetinfo", ""), own)
        self.assertEqual(self.kind("door.cabinetinfo.xml", ""), own)

    def test_other_documents_stay_what_they_are(self):
        for name in ("other", "other.xml"):
            self.assertEqual(self.kind(name, '<?xml version="1.0"?><other/>'), "application/xml")

    def test_the_editor_opens_them(self):
        entry = (SHARE / "applications" / "tavisk.desktop").read_text(encoding="utf-8")
        self.assertIn("\nExec=tavisk edit %f\n", entry)
        self.assertIn("\nMimeType=application/vnd.tavisk.help+xml;\n", entry)
        subprocess.run(["desktop-file-validate", SHARE / "applications" / "tavisk.desktop"],
                       check=True)
        self.assertTrue((SHARE / "icons/hicolor/scalable/apps/tavisk.svg").is_file())


if __name__ == "__main__":
    sys.exit(unittest.main(verbosity=2))
