#!/usr/bin/python3
"""Tests of tools/checkLayers.py on small source trees."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
sys.dont_write_bytecode = True
import checkLayers  # noqa: E402

FLOORS = {"base": "1", "xml": "2", "check": "6", "editor": "6", "command": "7", "ui/toolkit": "7.1",
          "ui/preview": "7.2", "ui/editor": "7.3", "component": "8"}


class LayersTest(unittest.TestCase):
    def check(self, files, *, floors=None, headers=()):
        """What is found in a tree with these files of src/, and floors for just their folders."""
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            if floors is None:
                floors = {str(Path(name).parent) for name in files}
            rows = "".join(f"| {FLOORS[name]} | `{name}/` | texts | `a.h` |\n" for name in floors)
            written = {"docs/architecture.md": "| floor | folder | holds | main files |\n" + rows,
                       **{f"src/{name}": text for name, text in files.items()},
                       **{f"include/{name}": "" for name in headers}}
            for name, text in written.items():
                (root / name).parent.mkdir(parents=True, exist_ok=True)
                (root / name).write_text(text, encoding="utf-8")
            return list(checkLayers.violations(root))

    def includes(self, one, other):
        return self.check({f"{one}/a.cpp": f'#include "{other}/b.h"\n', f"{other}/b.h": ""})

    def test_a_folder_may_know_itself_and_lower_floors(self):
        self.assertEqual([], self.check({
            "base/text.h": "#include <string>\n",
            "xml/names.h": '#include "base/text.h"\n',
            "xml/names.cpp": '#include "xml/names.h"\n#include "base/text.h"\n'}))

    def test_a_folder_must_not_know_a_higher_floor(self):
        for one, other in (("base", "editor"), ("xml", "command"), ("editor", "ui/toolkit"),
                           ("check", "component"), ("ui/editor", "component"),
                           ("command", "component")):
            with self.subTest(one=one, other=other):
                self.assertEqual([f'{one}/a.cpp: "{other}/b.h": {one} must not know {other}'],
                                 self.includes(one, other))

    def test_folders_on_one_floor_do_not_know_each_other(self):
        for one, other in (("check", "editor"), ("editor", "check"), ("command", "ui/toolkit"),
                           ("ui/editor", "command")):
            with self.subTest(one=one, other=other):
                self.assertEqual([f'{one}/a.cpp: "{other}/b.h": {one} must not know {other}'],
                                 self.includes(one, other))

    def test_nobody_knows_the_command(self):
        self.assertEqual(['component/a.cpp: "command/b.h": component must not know command'],
                         self.includes("component", "command"))

    def test_the_command_does_not_edit(self):
        self.assertEqual(['command/a.cpp: "editor/b.h": command must not know editor'],
                         self.includes("command", "editor"))

    def test_windows_know_the_core_and_the_component_knows_windows(self):
        for one, other in (("ui/editor", "check"), ("ui/preview", "editor"), ("command", "check"),
                           ("component", "ui/editor")):
            with self.subTest(one=one, other=other):
                self.assertEqual([], self.includes(one, other))

    def test_a_folder_of_windows_knows_those_of_lower_steps(self):
        for one, other in (("ui/editor", "ui/preview"), ("ui/editor", "ui/toolkit"),
                           ("ui/preview", "ui/toolkit")):
            with self.subTest(one=one, other=other):
                self.assertEqual([], self.includes(one, other))
                self.assertEqual([f'{other}/a.cpp: "{one}/b.h": {other} must not know {one}'],
                                 self.includes(other, one))

    def test_an_include_must_name_a_file_from_the_source_root(self):
        self.assertEqual(['base/a.cpp: "b.h": is no file of src/'],
                         self.check({"base/a.cpp": '  #  include "b.h"\n', "base/b.h": ""}))

    def test_one_file_knows_libxml2(self):
        self.assertEqual(
            ["xml/dom.cpp: <libxml/tree.h>: only xml/xmlReader.cpp knows libxml2"],
            self.check({"xml/xmlReader.cpp": "#include <libxml/parser.h>\n",
                        "xml/dom.cpp": "#include <libxml/tree.h>\n"}))

    def test_only_ui_knows_wxwidgets(self):
        for folder in ("editor", "command", "component"):
            with self.subTest(folder=folder):
                self.assertEqual(
                    [f"{folder}/a.cpp: <wx/frame.h>: only ui knows wxWidgets"],
                    self.check({"ui/editor/frame.h": "#include <wx/frame.h>\n",
                                f"{folder}/a.cpp": "#include <wx/frame.h>\n"}))

    def test_twins_are_named_after_the_toolkit_in_ui_and_after_the_system_elsewhere(self):
        self.assertEqual(
            ["base/b_msw.h: is named after a toolkit; ui has twins per toolkit, every other folder "
             "per system",
             "ui/toolkit/b_linux.cpp: is named after a system; ui has twins per toolkit, every other "
             "folder per system"],
            self.check({"base/a_linux.cpp": "", "base/a_windows.cpp": "", "base/b_msw.h": "",
                        "ui/toolkit/a_gtk.cpp": "", "ui/toolkit/b_linux.cpp": ""}))

    def test_files_do_not_include_each_other_in_a_circle(self):
        self.assertEqual(
            ["base/a -> base/b -> base/c -> base/a: a circle"],
            self.check({"base/a.h": "", "base/a.cpp": '#include "base/a.h"\n#include "base/b.h"\n',
                        "base/b.h": "", "base/b_linux.cpp": '#include "base/c.h"\n',
                        "base/c.h": '#include "base/a.h"\n'}))

    def test_what_is_included_on_two_ways_is_no_circle(self):
        self.assertEqual([], self.check({"base/a.h": '#include "base/b.h"\n#include "base/c.h"\n',
                                         "base/b.h": '#include "base/c.h"\n', "base/c.h": ""}))

    def test_two_files_do_not_share_a_name(self):
        self.assertEqual(
            ["src/base/a.h, src/xml/A.h: one name", "src/base/b.h, include/tavisk/b.h: one name"],
            self.check({"base/a.h": "", "base/b.h": "", "xml/A.h": ""}, headers=["tavisk/b.h"]))

    def test_a_folder_without_a_floor_is_found(self):
        self.assertEqual([".: has no floor in docs/architecture.md"],
                         self.check({"main.cpp": "", "base/a.h": ""}, floors=["base"]))

    def test_a_floor_without_a_folder_is_found(self):
        self.assertEqual(["docs/architecture.md: xml: is no folder with sources"],
                         self.check({"base/a.h": ""}, floors=["base", "xml"]))

    def test_a_library_does_not_end_the_process(self):
        self.assertEqual(
            ["base/a.cpp: abort(: a library never ends its host's process"],
            self.check({"base/a.cpp": 'void f() { std::abort(); g.exit(); onexit(); }\n'
                                      '// exit(1)\nconst char* t = "exit(1)";\n',
                        "command/main.cpp": "int main() { exit(1); }\n"}))

    def test_a_program_with_another_library_is_found(self):
        self.assertNotEqual([], list(checkLayers.foreign_libraries("/bin/ls")))


if __name__ == "__main__":
    unittest.main()
