#!/usr/bin/python3
"""Runs the program `tavisk` as a build server does; the environment's TAVISK is its path."""

import json
import os
import resource
import shutil
import stat
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from targetSystem import RUN, WINDOWS, full_name, skip_on_windows

TAVISK = os.environ.get("TAVISK", "tavisk")

PLAIN = (
    '<cabinetinfo><cabinet><A value="x `f`&#10;\u00e4"/></cabinet>'
    '<formula name="f" standard="1" description="d" value="5"/></cabinetinfo>'
).encode()
SAVED = (
    '<cabinetinfo><cabinet><A value="x `f`&#10;\u00e4"/></cabinet>'
    '<formula name="f" description="d" standard="1"/>'
    '<formula name="code" standard="1"/><formula name="type" standard="1"/></cabinetinfo>'
).encode()


def tavisk(*arguments, data=b"", program=TAVISK, **options):
    """Exit code, standard output and standard error, as bytes."""
    options.setdefault("stdout", subprocess.PIPE)
    options.setdefault("stderr", subprocess.PIPE)
    if "stdin" not in options:
        options["input"] = data
    run = subprocess.run([*RUN, program, *arguments], timeout=120, **options)
    return run.returncode, run.stdout, run.stderr


class CommandTest(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory(prefix="tavisk-")
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)
        self.file = self.folder / "a.xml"
        self.file.write_bytes(PLAIN)

    def as_ordinary_user(self):
        """Options that run a copy of the command where file modes count: for root they do not, and
        another user may not get to where the command lies."""
        if os.geteuid() != 0:
            return {}
        self.folder.chmod(0o755)
        return {"program": shutil.copy(shutil.which(TAVISK), self.folder), "user": 65534}

    def small_disk(self):
        """A folder on a file system of 64 kB, or a skipped test where none can be made."""
        disk = self.folder / "disk"
        disk.mkdir()
        mount = ["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", str(disk)]
        try:
            done = subprocess.run(mount, capture_output=True, check=False).returncode == 0
        except OSError:
            done = False
        if not done:
            self.skipTest("no right to mount a small file system")
        self.addCleanup(subprocess.run, ["umount", str(disk)], check=True)
        return disk


class Results(CommandTest):
    def test_version(self):
        self.assertEqual(tavisk("--version"), (0, b"tavisk 0.1.0\n", b""))

    def test_the_saved_document_is_on_standard_output_to_the_byte(self):
        self.assertEqual(tavisk("save", str(self.file)), (0, SAVED, b""))

    def test_hyphen_is_standard_input(self):
        self.assertEqual(tavisk("save", "-", data=PLAIN), (0, SAVED, b""))

    def test_a_pipe_has_no_size(self):
        large = PLAIN.replace(b"</cabinet>", b"<!--" + b"z" * 300000 + b"--></cabinet>")
        code, out, err = tavisk("save", "-", data=large)
        self.assertEqual((code, err), (0, b""))
        self.assertIn(b"z" * 300000, out)

    def test_a_page_that_browsers_can_open(self):
        folder = self.folder / "out" / "deep"
        code = tavisk("render", str(self.file), "--folder", str(folder), "--evaluate")
        self.assertEqual(code, (0, b"", b""))
        page = (folder / "temp.html").read_bytes()
        self.assertIn(b"x 5<br>\xe4", page)
        for name in ("style.css", "cabinet.png", "temp_images/generated_cabinet_picture.png"):
            self.assertGreater((folder / name).stat().st_size, 0, name)

    def test_a_folder_from_here_is_named_in_full(self):
        document = PLAIN.replace(b"x `f`", b"`~p`").replace(
            b"<formula", b'<image name="p" extension="png">aGk=</image><formula')
        code = tavisk("render", "-", "--folder=out/", "--evaluate", data=document, cwd=self.folder)
        self.assertEqual(code, (0, b"", b""))
        page = (self.folder / "out" / "temp.html").read_bytes()
        source = f"<img src='{full_name(os.path.realpath(self.folder))}/out/temp_images//p.png'>"
        self.assertIn(source.encode(), page)

    def test_nothing_is_left_beside_the_results(self):
        folder = self.folder / "out"
        tavisk("render", str(self.file), "--folder", str(folder))
        names = sorted(path.name for path in folder.iterdir())
        self.assertEqual(names, ["cabinet.png", "style.css", "temp.html"])

    def test_json_is_json(self):
        document = PLAIN.replace(b"`f`", b"`no \\&quot;&#9;`")
        code, out, _ = tavisk("check", "--json", "-", data=document)
        self.assertEqual(code, 1)
        report = json.loads(out)
        self.assertEqual(report["file"], "-")
        self.assertEqual(
            [(f["code"], f["key"], f["attribute"], f["position"]) for f in report["findings"]],
            [("unknown-formula", "cabinet=>A", "value", 2)])
        self.assertEqual(list(report["findings"][0]),
                         ["severity", "code", "key", "attribute", "position", "message"])

    def test_a_file_name_that_is_no_text_is_still_json(self):
        name = os.fsencode(self.folder) + b"/\xff.xml"
        Path(os.fsdecode(name)).write_bytes(PLAIN)
        code, out, _ = tavisk("check", "--json", name)
        self.assertEqual(code, 0)
        self.assertTrue(json.loads(out.decode())["file"].endswith("/\ufffd.xml"))

    def test_utf16(self):
        for order in ("utf-16-le", "utf-16-be"):
            data = ("\ufeff" + PLAIN.decode()).encode(order)
            self.assertEqual(tavisk("save", "-", data=data), (0, SAVED, b""), order)

    def test_messages_do_not_mix_with_results(self):
        code, out, err = tavisk("save", "-", data=b"<cabinetinfo/>")
        self.assertEqual((code, out), (3, b""))
        self.assertEqual(err, b"Error: No cabinet data found...\n")

    def test_usage(self):
        code, out, err = tavisk()
        self.assertEqual((code, out), (2, b""))
        self.assertEqual(err.count(b"\n"), 1)


class Failures(CommandTest):
    FULL = b"Run-time error '61': Disk full\n"
    DEVICE = b"Run-time error '57': Device I/O error\n"

    def test_full_disk_behind_standard_output(self):
        for arguments in (["save", str(self.file)], ["check", str(self.file)], ["--help"]):
            with open("/dev/full", "wb") as full:
                code, _, err = tavisk(*arguments, stdout=full)
            self.assertEqual((code, err), (4, self.FULL + b"File: standard output\n"), arguments)

    def test_full_disk_behind_the_output_file(self):
        code, _, err = tavisk("save", str(self.file), "-o", "/dev/full")
        self.assertEqual((code, err), (4, self.FULL + b"File: /dev/full\n"))
        self.assertTrue(stat.S_ISCHR(os.stat("/dev/full").st_mode))

    def test_full_disk_keeps_the_old_output_file(self):
        disk = self.small_disk()
        out = disk / "b.xml"
        out.write_bytes(b"old")
        large = PLAIN.replace(b"</cabinet>", b"<!--" + b"z" * 300000 + b"--></cabinet>")
        code, _, err = tavisk("save", "-", "-o", str(out), data=large)
        self.assertEqual((code, err), (4, self.FULL + f"File: {out}\n".encode()))
        self.assertEqual(out.read_bytes(), b"old")
        self.assertEqual([path.name for path in disk.iterdir()], ["b.xml"])

    @skip_on_windows("a disk that comes and goes upsets Wine's own servers")
    def test_full_disk_keeps_the_old_page(self):
        disk = self.small_disk()
        for name in ("temp.html", "cabinet.png", "style.css"):
            (disk / name).write_bytes(b"old")
        large = PLAIN.replace(b"/></cabinet>", b"/>" + b"<B/>" * 3000 + b"</cabinet>")
        code, _, err = tavisk("render", "-", "--folder", str(disk), data=large)
        self.assertEqual((code, err), (4, self.FULL + f"File: {disk}/temp.html\n".encode()))
        self.assertEqual((disk / "temp.html").read_bytes(), b"old")
        self.assertEqual(len(list(disk.iterdir())), 3)

    @skip_on_windows("the limit is one for Wine's own servers")
    def test_limit_on_the_length_of_files_keeps_the_old_page(self):
        folder = self.folder / "out"
        tavisk("render", str(self.file), "--folder", str(folder))
        old = (folder / "temp.html").read_bytes()
        large = PLAIN.replace(b"/></cabinet>", b"/>" + b"<B/>" * 3000 + b"</cabinet>")
        limit = 64 << 10
        code, _, err = tavisk(
            "render", "-", "--folder", str(folder), data=large,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit)))
        self.assertEqual((code, err), (4, self.FULL + f"File: {folder}/temp.html\n".encode()))
        self.assertEqual((folder / "temp.html").read_bytes(), old)
        self.assertEqual(len(list(folder.iterdir())), 3)

    def test_closed_pipe(self):
        reading, writing = os.pipe()
        os.close(reading)
        code, _, err = tavisk("save", str(self.file), stdout=writing)
        os.close(writing)
        self.assertEqual((code, err), (4, self.DEVICE + b"File: standard output\n"))

    def test_closed_standard_output(self):
        code, _, err = tavisk("save", str(self.file), preexec_fn=lambda: os.close(1))
        self.assertEqual((code, err), (4, self.DEVICE + b"File: standard output\n"))
        self.assertEqual(self.file.read_bytes(), PLAIN)

    @skip_on_windows("Wine does not start a program with a folder as its input")
    def test_folder_as_standard_input(self):
        folder = os.open(self.folder, os.O_RDONLY)
        code, _, err = tavisk("check", "-", stdin=folder)
        os.close(folder)
        self.assertEqual((code, err), (4, self.DEVICE + b"File: standard input\n"))

    @skip_on_windows("Wine runs for the owner of its prefix only")
    def test_folder_that_may_not_be_written(self):
        folder = self.folder / "locked"
        folder.mkdir()
        out = folder / "b.xml"
        out.write_bytes(b"old")
        folder.chmod(0o555)
        self.addCleanup(folder.chmod, 0o755)
        code, _, err = tavisk("save", "-", "-o", str(out), data=PLAIN, **self.as_ordinary_user())
        self.assertEqual((code, err),
                         (4, f"Run-time error '70': Permission denied\nFile: {out}\n".encode()))
        self.assertEqual(out.read_bytes(), b"old")

    @skip_on_windows("Wine runs for the owner of its prefix only")
    def test_file_that_may_not_be_read(self):
        self.file.chmod(0)
        code, _, err = tavisk("check", str(self.file), **self.as_ordinary_user())
        self.assertEqual(
            (code, err),
            (4, f"Run-time error '70': Permission denied\nFile: {self.file}\n".encode()))

    def test_missing_file(self):
        name = str(self.folder / "none.xml")
        self.assertEqual(tavisk("check", name),
                         (4, b"", f"Run-time error '53': File not found\nFile: {name}\n".encode()))

    @skip_on_windows("Wine itself needs more addresses than the limit allows")
    def test_too_little_memory(self):
        if b"__asan_init" in Path(TAVISK).read_bytes():
            self.skipTest("the sanitizer needs more addresses than the limit allows")
        limit = 256 << 20

        def less_memory():
            resource.setrlimit(resource.RLIMIT_AS, (limit, limit))

        data = b"<cabinetinfo><cabinet>" + b"<A/>" * 5_000_000
        code, out, err = tavisk("save", "-", data=data, preexec_fn=less_memory)
        self.assertEqual((code, out, err), (4, b"", b"Run-time error '7': Out of memory\n"))


if __name__ == "__main__":
    sys.exit(unittest.main(verbosity=2 if WINDOWS else 1))
