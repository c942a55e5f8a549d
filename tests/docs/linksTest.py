#!/usr/bin/python3
"""Every link in the documents leads somewhere, and nothing lies about that none leads to."""

import re
import sys
import unittest

from documents import ROOT, documents

ELSEWHERE = re.compile(r"(https?|mailto):")
FILE = re.compile(r"[\w.-]+(/[\w.*-]+)*/[\w*-]+\.(h|cpp|c|py|sh|xml|md|cmake|txt|rng|map|idl|def)")


class Links(unittest.TestCase):
    def setUp(self):
        self.documents = documents()

    def each_target(self):
        """Document, file and anchor of each link that stays here."""
        for document in self.documents.values():
            for target in document.targets():
                if not ELSEWHERE.match(target):
                    file, _, anchor = target.partition("#")
                    path = (document.path.parent / file).resolve() if file else document.path
                    yield document, path, anchor

    def test_files_exist(self):
        for document, path, _ in self.each_target():
            with self.subTest(document=document.path.name, target=str(path)):
                self.assertTrue(path.exists())
                self.assertTrue(path.is_relative_to(ROOT))

    def test_anchors_exist(self):
        for document, path, anchor in self.each_target():
            if anchor:
                with self.subTest(document=document.path.name, target=f"{path}#{anchor}"):
                    target = self.documents[str(path.relative_to(ROOT))]
                    self.assertIn(anchor, target.anchors())

    def each_word(self):
        """Document and text of everything that is written as code in a line."""
        for document in self.documents.values():
            for line in document.prose:
                for word in re.findall(r"`([^`]+)`", line):
                    yield document, word

    def test_files_that_are_named_exist(self):
        for document, word in self.each_word():
            if FILE.fullmatch(word):
                with self.subTest(document=document.path.name, file=word):
                    places = (ROOT, ROOT / "src", document.path.parent)
                    self.assertTrue(any(list(place.glob(word)) for place in places))

    def test_commands_of_the_makefile_exist(self):
        targets = re.findall(r"^([\w-]+):", (ROOT / "Makefile").read_text(), re.MULTILINE)
        for document, word in self.each_word():
            if target := re.match(r"make ([\w-]+)", word):
                with self.subTest(document=document.path.name, command=word):
                    self.assertIn(target[1], targets)

    def test_pictures_say_what_they_show(self):
        for name, document in self.documents.items():
            for tag in re.findall(r"<img [^>]*>", "\n".join(document.prose)):
                with self.subTest(document=name, picture=tag):
                    self.assertRegex(tag, r' alt="[^"]{10,}"')

    def test_every_picture_is_in_a_document(self):
        shown = {path for _, path, _ in self.each_target()}
        for picture in (ROOT / "docs" / "images").iterdir():
            with self.subTest(picture=picture.name):
                self.assertIn(picture, shown)

    def test_every_document_is_reached_from_the_readme(self):
        links = {}
        for document, path, _ in self.each_target():
            links.setdefault(document.path, set()).add(path)
        reached, waiting = set(), [ROOT / "README.md"]
        while waiting:
            if (path := waiting.pop()) not in reached:
                reached.add(path)
                waiting += links.get(path, ())
        for name in self.documents:
            with self.subTest(document=name):
                self.assertIn(ROOT / name, reached)

    def test_a_table_of_contents_names_the_headings(self):
        for name in ("docs/authors.md", "docs/hosts.md", "docs/servers.md"):
            document = self.documents[name]
            listed = re.findall(r"^- \[.*\]\(#(.*)\)$", "\n".join(document.prose), re.MULTILINE)
            self.assertEqual(listed, document.anchors()[1:], name)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
