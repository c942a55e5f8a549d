#!/usr/bin/python3
"""Tests of tools/checkLayers.py on small source trees."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
sys.dont_write_bytecode = True
import checkLayers  # noqa: E402


class LayersTest(unittest.TestCase):
    def check(self, files):
        with tempfile.TemporaryDirectory() as folder:
            src = Path(folder)
            for name, text in files.items():
                (src / name).parent.mkdir(parents=True, exist_ok=True)
                (src / name).write_text(text, encoding="utf-8")
            return list(checkLayers.violations(src))

    def test_a_layer_may_know_itself_and_earlier_ones(self):
        self.assertEqual([], self.check({
            "platform/text.h": "#include <string>\n",
            "document/names.h": '#include "platform/text.h"\n',
            "document/names.cpp": '#include "document/names.h"\n#include "platform/text.h"\n'}))

    def test_a_layer_must_not_know_a_later_one(self):
        self.assertEqual(['platform/text.h: "editor/a.h": platform must not know editor'],
                         self.check({"platform/text.h": '#include "editor/a.h"\n',
                                     "editor/a.h": ""}))

    def test_an_include_must_name_a_file_from_the_source_root(self):
        self.assertEqual(['platform/a.cpp: "b.h": is no file of src/'],
                         self.check({"platform/a.cpp": '  #  include "b.h"\n',
                                     "platform/b.h": ""}))

    def test_one_file_knows_libxml2(self):
        self.assertEqual(
            ["platform/dom.cpp: <libxml/tree.h>: only platform/xmlReader.cpp knows libxml2"],
            self.check({"platform/xmlReader.cpp": "#include <libxml/parser.h>\n",
                        "platform/dom.cpp": "#include <libxml/tree.h>\n"}))

    def test_only_wx_folders_know_wxwidgets(self):
        self.assertEqual(
            ['editor/a.cpp: "editor/wx/frame.h": only a wx folder and the component may know a wx folder',
             "editor/a.cpp: <wx/frame.h>: only a wx folder knows wxWidgets"],
            self.check({"editor/wx/frame.h": "#include <wx/frame.h>\n",
                        "editor/a.cpp": '#include "editor/wx/frame.h"\n#include <wx/frame.h>\n'}))

    def test_the_component_opens_windows_but_has_no_widgets(self):
        self.assertEqual(
            ["component/a.cpp: <wx/frame.h>: only a wx folder knows wxWidgets"],
            self.check({"editor/wx/frame.h": "",
                        "component/a.cpp": '#include "editor/wx/frame.h"\n'
                                           "#include <wx/frame.h>\n"}))

    def test_the_command_is_linked_without_the_component(self):
        self.assertEqual(
            ['host/a.cpp: "component/a.h": the command loads the component at run time'],
            self.check({"component/a.h": "", "host/a.cpp": '#include "component/a.h"\n'}))

    def test_a_file_outside_the_layers_is_found(self):
        self.assertEqual(["main.cpp: belongs to no layer"], self.check({"main.cpp": ""}))

    def test_a_library_does_not_end_the_process(self):
        self.assertEqual(
            ["render/a.cpp: abort(: a library never ends its host's process"],
            self.check({"render/a.cpp": 'void f() { std::abort(); g.exit(); onexit(); }\n'
                                        '// exit(1)\nconst char* t = "exit(1)";\n',
                        "host/main.cpp": "int main() { exit(1); }\n"}))

    def test_a_program_with_another_library_is_found(self):
        self.assertNotEqual([], list(checkLayers.foreign_libraries("/bin/ls")))


if __name__ == "__main__":
    unittest.main()
