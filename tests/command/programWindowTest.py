#!/usr/bin/python3
"""Runs `tavisk edit` and `tavisk preview` with a component that answers without a window; the
environment's TAVISK is the program, FAKE that component."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from targetSystem import LIBRARY, RUN, SUFFIX, WINDOWS, full_name, skip_on_windows

TAVISK = os.environ.get("TAVISK", "tavisk")
FAKE = os.environ.get("FAKE", LIBRARY)

PLAIN = "<cabinetinfo>\n<cabinet><A value='\u00e4'/></cabinet></cabinetinfo>"
LOADED = '<cabinetinfo><cabinet><A value="\u00e4"/></cabinet></cabinetinfo>'
EDITED = '<cabinetinfo><cabinet><A value="edited"/></cabinet></cabinetinfo>'


class WindowCommandTest(unittest.TestCase):
    """The command beside the component that answers, and a document."""

    def setUp(self):
        temporary = tempfile.TemporaryDirectory(prefix="tavisk-")
        self.addCleanup(temporary.cleanup)
        self.folder = Path(os.path.realpath(temporary.name))
        self.bin = self.folder / "bin"
        self.bin.mkdir()
        self.program = shutil.copy(shutil.which(TAVISK), self.bin / f"tavisk{SUFFIX}")
        shutil.copy(FAKE, self.bin / LIBRARY)
        self.file = self.folder / "a.xml"
        self.file.write_text(PLAIN, encoding="utf-8")
        self.log = self.folder / "log"
        self.temporary = self.folder / "tmp"
        self.temporary.mkdir()

    def run_it(self, *arguments, data=b"", result=None, error=None, environment=()):
        """Exit code, standard output and standard error."""
        env = {**os.environ, "FAKE_LOG": str(self.log), "TMPDIR": str(self.temporary),
               **dict(environment)}
        if result is not None:
            text = self.folder / "result"
            text.write_text(result, encoding="utf-8")
            env["FAKE_RESULT"] = str(text)
        if error is not None:
            env["FAKE_ERROR"] = str(error)
        run = subprocess.run([*RUN, self.program, *map(str, arguments)], input=data, env=env,
                             capture_output=True, timeout=60, check=False)
        return run.returncode, run.stdout.decode(), run.stderr.decode()

    def handed_over(self):
        call, _, xml = self.log.read_text(encoding="utf-8").partition("\n")
        return call, xml

    def stamp(self):
        """Changes whenever the file is written, even with the same bytes."""
        status = self.file.stat()
        return status.st_ino, status.st_mtime_ns, self.file.read_bytes()


class Edit(WindowCommandTest):
    def test_the_component_gets_the_document(self):
        self.assertEqual(self.run_it("edit", self.file), (0, "", ""))
        self.assertEqual(self.handed_over(), ("edit", PLAIN))

    def test_utf16_is_handed_over_as_utf8(self):
        self.file.write_bytes(("\ufeff" + PLAIN).encode("utf-16-be"))
        self.assertEqual(self.run_it("edit", self.file), (0, "", ""))
        self.assertEqual(self.handed_over(), ("edit", PLAIN))

    def test_an_edited_document_replaces_the_file(self):
        self.assertEqual(self.run_it("edit", self.file, result=EDITED), (0, "", ""))
        self.assertEqual(self.file.read_text(encoding="utf-8"), EDITED)

    def test_an_unchanged_document_is_not_written(self):
        before = self.stamp()
        for same in (PLAIN, LOADED):
            self.assertEqual(self.run_it("edit", self.file, result=same), (0, "", ""))
            self.assertEqual(self.stamp(), before)

    def test_an_output_is_always_written_and_the_file_left_alone(self):
        out = self.folder / "out.xml"
        before = self.stamp()
        for returned in (LOADED, EDITED):
            self.assertEqual(self.run_it("edit", self.file, "-o", out, result=returned),
                             (0, "", ""))
            self.assertEqual(out.read_text(encoding="utf-8"), returned)
            self.assertEqual(self.stamp(), before)

    def test_the_file_as_output_counts_as_the_file(self):
        before = self.stamp()
        other_name = self.folder / "bin" / ".." / "a.xml"
        self.run_it("edit", self.file, "-o", other_name, result=LOADED)
        self.assertEqual(self.stamp(), before)
        self.run_it("edit", self.file, "-o", other_name, result=EDITED)
        self.assertEqual(self.file.read_text(encoding="utf-8"), EDITED)

    def test_standard_streams(self):
        for returned in (LOADED, EDITED):
            self.assertEqual(self.run_it("edit", "-", data=PLAIN.encode(), result=returned),
                             (0, returned, ""))
        self.assertEqual(self.handed_over(), ("edit", PLAIN))
        self.assertEqual(self.run_it("edit", self.file, "-o", "-", result=EDITED), (0, EDITED, ""))
        self.assertEqual(self.file.read_text(encoding="utf-8"), PLAIN)

    def test_a_document_that_the_component_rejects_is_exit_3(self):
        before = self.stamp()
        self.assertEqual(self.run_it("edit", self.file, error=364),
                         (3, "", "tavisk: the document was rejected\n"))
        self.assertEqual(self.stamp(), before)

    def test_an_error_of_the_component_is_exit_4(self):
        before = self.stamp()
        self.assertEqual(
            self.run_it("edit", self.file, error=91),
            (4, "", "Run-time error '91': Object variable or With block variable not set\n"))
        self.assertEqual(self.stamp(), before)

    def test_without_a_display(self):
        hint = "A window needs a display: is DISPLAY or WAYLAND_DISPLAY set?\n"
        self.assertEqual(
            self.run_it("edit", self.file, error=361),
            (4, "", "Run-time error '361': Can't load or unload this object\n"
                    + ("" if WINDOWS else hint)))

    def test_a_text_with_a_nul_is_rejected_without_a_window(self):
        self.file.write_bytes(PLAIN.encode() + b"\0<more/>")
        self.assertEqual(self.run_it("edit", self.file),
                         (3, "", "Tavisk: The text contains a NUL character\nline 2\n"))
        self.assertFalse(self.log.exists())

    def test_broken_utf16_is_rejected_without_a_window(self):
        self.file.write_bytes(b"\xfe\xff\xd8\0")
        self.assertEqual(self.run_it("edit", self.file),
                         (3, "", "Tavisk: The text is not valid Unicode\nline 1\n"))
        self.assertFalse(self.log.exists())

    def test_a_missing_file(self):
        none = self.folder / "none.xml"
        self.assertEqual(self.run_it("edit", none),
                         (4, "", f"Run-time error '53': File not found\nFile: {none}\n"))
        self.assertFalse(self.log.exists())

    @skip_on_windows("Wine has its own folder for temporary files")
    def test_work_that_cannot_be_written_is_kept(self):
        lost = self.folder / "none" / "b.xml"
        kept = self.temporary / "a-edited.xml"
        self.assertEqual(
            self.run_it("edit", self.file, "-o", lost, result=EDITED),
            (4, "", f"The edited document is kept in {kept}\n"
                    f"Run-time error '76': Path not found\nFile: {lost}\n"))
        self.assertEqual(kept.read_text(encoding="utf-8"), EDITED)

    @skip_on_windows("Wine has its own folder for temporary files")
    def test_work_that_can_be_kept_nowhere(self):
        lost = self.folder / "none" / "b.xml"
        self.temporary.rmdir()
        self.assertEqual(
            self.run_it("edit", self.file, "-o", lost, result=EDITED),
            (4, "", "The edited document could not be kept.\n"
                    f"Run-time error '76': Path not found\nFile: {lost}\n"))


class Preview(WindowCommandTest):
    def test_the_component_gets_the_document(self):
        self.assertEqual(self.run_it("preview", self.file), (0, "", ""))
        self.assertEqual(self.handed_over(), ("preview 0", PLAIN))
        self.assertEqual(self.run_it("preview", "--evaluate", "-", data=LOADED.encode()),
                         (0, "", ""))
        self.assertEqual(self.handed_over(), ("preview 1", LOADED))

    def test_errors(self):
        self.assertEqual(self.run_it("preview", self.file, error=364)[0], 3)
        self.assertEqual(self.run_it("preview", self.file, error=70),
                         (4, "", "Run-time error '70': Permission denied\n"))


class Library(WindowCommandTest):
    def test_missing(self):
        (self.bin / LIBRARY).unlink()
        code, out, err = self.run_it("edit", self.file)
        self.assertEqual(
            (code, out, err),
            (4, "", "tavisk: the component with the windows is missing: "
                    f"{LIBRARY} is neither in {full_name(self.bin)}, nor in ../lib from there, nor on the system's library path\n"))

    def test_in_the_folder_of_libraries_beside_that_of_the_command(self):
        (self.folder / "lib").mkdir()
        (self.bin / LIBRARY).rename(self.folder / "lib" / LIBRARY)
        self.assertEqual(self.run_it("edit", self.file), (0, "", ""))

    @skip_on_windows("all tests share the system of one Wine prefix")
    def test_on_the_systems_path(self):
        elsewhere = self.folder / "elsewhere"
        elsewhere.mkdir()
        (self.bin / LIBRARY).rename(elsewhere / LIBRARY)
        self.assertEqual(
            self.run_it("edit", self.file, environment={"LD_LIBRARY_PATH": str(elsewhere)}),
            (0, "", ""))

    def test_one_that_cannot_be_loaded_is_not_passed_over(self):
        (self.folder / "lib").mkdir()
        (self.bin / LIBRARY).rename(self.folder / "lib" / LIBRARY)
        (self.bin / LIBRARY).write_bytes(b"no library")
        code, out, err = self.run_it("edit", self.file)
        self.assertEqual((code, out), (4, ""))
        self.assertEqual(err.count("\n"), 1)
        self.assertTrue(err.startswith("tavisk: the component cannot be loaded: "), err)

    def test_one_without_the_interface(self):
        other = "*/wine/*/version.dll" if WINDOWS else "*/libm.so.6"
        shutil.copy(next(Path("/usr/lib").glob(other)), self.bin / LIBRARY)
        code, out, err = self.run_it("edit", self.file)
        self.assertEqual((code, out), (4, ""))
        self.assertTrue(err.startswith("tavisk: the component cannot be used: "), err)

    def test_other_commands_need_none(self):
        (self.bin / LIBRARY).unlink()
        self.assertEqual(self.run_it("check", self.file), (0, "no findings\n", ""))


if __name__ == "__main__":
    sys.exit(unittest.main(verbosity=2 if WINDOWS else 1))
