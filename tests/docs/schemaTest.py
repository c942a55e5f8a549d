#!/usr/bin/python3
"""docs/tavisk.rng: what is right passes, what is wrong does not."""

import os
import subprocess
import sys
import unittest

from documents import ROOT

TAVISK = os.environ["TAVISK"]
SCHEMA = ROOT / "docs" / "tavisk.rng"
EXAMPLES = ROOT / "examples"
# flawed.xml has colours, numbers and flags in words.
FLAWED = EXAMPLES / "flawed.xml"
GOOD = sorted(path for path in [*EXAMPLES.glob("*.xml"), *EXAMPLES.glob("flawed/*.xml")]
              if path != FLAWED)

IMAGE = ('<image name="a" extension="png" xmlns:dt="urn:schemas-microsoft-com:datatypes" '
         'dt:dt="bin.base64">AAAA</image>')


def passes(data):
    """Whether the schema accepts it, and what it says."""
    done = subprocess.run(["xmllint", "--huge", "--noout", "--relaxng", SCHEMA, "-"], input=data,
                          capture_output=True, check=False)
    return done.returncode == 0, done.stderr.decode()


def around(node="", beside="", cabinet=""):
    return f"<cabinetinfo><cabinet{cabinet}><A/>{node}</cabinet>{beside}</cabinetinfo>".encode()


class Examples(unittest.TestCase):
    def test_there_are_some(self):
        self.assertGreater(len(GOOD), 5)

    def test_they_pass(self):
        for path in GOOD:
            with self.subTest(document=path.name):
                self.assertEqual(*self.result(path.read_bytes()))

    def test_they_pass_when_saved(self):
        for path in GOOD:
            if path.parent == EXAMPLES:
                with self.subTest(document=path.name):
                    saved = subprocess.run([TAVISK, "save", path], check=True, capture_output=True)
                    self.assertEqual(*self.result(saved.stdout))

    def test_they_pass_when_refreshed(self):
        saved = subprocess.run([TAVISK, "save", EXAMPLES / "door.xml", "--refresh",
                                "cabinet=>Handle"], check=True, capture_output=True).stdout
        self.assertIn(b"<location", saved)
        self.assertEqual(*self.result(saved))

    def test_the_flawed_one_does_not(self):
        self.assertFalse(passes(FLAWED.read_bytes())[0])

    @staticmethod
    def result(data):
        good, why = passes(data)
        return (good, why.splitlines()[:3]), (True, why.splitlines()[:3])


class Documents(unittest.TestCase):
    RIGHT = {
        "the smallest": around(),
        "every attribute": around('<B value="x" titlecolor="#00ffAA" answercolor="#000000" '
                                  'titlefontsize="-2" answerfontsize="3" titlehidden="0" '
                                  'answerhidden="1" style="63" spacebefore="2" spaceafter="0" '
                                  'columnbreak="1" pagebreak="0"/>'),
        "nodes in nodes": around("<B><C><D/></C></B>"),
        "any order": b"<cabinetinfo>" + IMAGE.encode() + b'<formula name="f"/><cabinet><A/>'
                     b'</cabinet><formula name="g"/></cabinetinfo>',
        "a location": around(beside='<location value="cabinet=>A"/>'),
        "the top's own gaps": around(cabinet=' spacebefore="1" pagebreak="1"'),
        "somebody's own data": around('<B xmlns:x="urn:x" x:id="7"/>',
                                      '<x:notes xmlns:x="urn:x"><y>text</y></x:notes>'),
        "a picture without data": around(beside='<image name="a" extension="png"/>'),
        "comments": around("<!-- a node -->", "<!-- no node -->"),
    }
    WRONG = {
        "another root": b"<cabinets><cabinet><A/></cabinet></cabinets>",
        "no cabinet": b"<cabinetinfo/>",
        "two cabinets": b"<cabinetinfo><cabinet><A/></cabinet><cabinet><A/></cabinet></cabinetinfo>",
        "a cabinet inside": around("<B><cabinet/></B>"),
        "a formula inside": around('<formula name="f"/>'),
        "a picture inside": around(f"<B>{IMAGE}</B>"),
        "a location inside": around('<location value="cabinet"/>'),
        "text in a node": around("<B>text</B>"),
        "a misspelt attribute": around('<B titelcolor="#000000"/>'),
        "a colour in words": around('<B titlecolor="red"/>'),
        "a colour of three digits": around('<B titlecolor="#FFF"/>'),
        "a size in words": around('<B titlefontsize="big"/>'),
        "a flag in words": around('<B titlehidden="true"/>'),
        "an empty flag": around('<B pagebreak=""/>'),
        "a style of another bit": around('<B style="64"/>'),
        "a gap below nothing": around('<B spacebefore="-1"/>'),
        "a formula without a name": around(beside='<formula standard="1"/>'),
        "a formula with a backquote": around(beside='<formula name="a`b"/>'),
        "a formula with text": around(beside='<formula name="f">5</formula>'),
        "a picture without a name": around(beside='<image extension="png"/>'),
        "a picture that leads elsewhere": around(beside='<image name="../a" extension="png"/>'),
        "a picture that is no base64": around(beside=IMAGE.replace("AAAA", "A-A")),
        "another data type": around(beside=IMAGE.replace("bin.base64", "bin.hex")),
        "two locations": around(beside=2 * '<location value="cabinet"/>'),
        "a misspelt element": around(beside='<formulas name="f"/>'),
    }

    def test_right_ones_pass(self):
        for name, document in self.RIGHT.items():
            with self.subTest(document=name):
                good, why = passes(document)
                self.assertTrue(good, why)

    def test_wrong_ones_do_not(self):
        for name, document in self.WRONG.items():
            with self.subTest(document=name):
                good, why = passes(document)
                self.assertFalse(good)
                self.assertIn("fails to validate", why)

    def test_the_component_loads_the_right_ones(self):
        for name, document in self.RIGHT.items():
            with self.subTest(document=name):
                saved = subprocess.run([TAVISK, "save", "-"], input=document, capture_output=True,
                                       check=False)
                self.assertEqual((saved.returncode, saved.stderr), (0, b""))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
