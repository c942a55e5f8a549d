"""The documents for readers, taken apart: blocks, links, headings.

A comment in the line before a block says what tests make of it:

    <!-- not run: WHY -->         commands that cannot run in a test
    <!-- exits with N: WHY -->    commands that are expected to fail
    <!-- file: NAME -->           a program that the commands further down use under that name
    <!-- from: PATH -->           a part of a file, word for word
    <!-- not compiled: WHY -->    what belongs to another language
"""

import re
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FENCE = re.compile(r"^```(\w*)$")
COMMENT = re.compile(r"^<!-- (.*) -->$")
NOT_OURS = re.compile(r"build.*|\..*")


@dataclass
class Block:
    document: "Document"
    line: int
    language: str
    text: str
    remark: str  # of the comment before it

    def said(self, what):
        """What a remark "WHAT: ..." or "WHAT N: ..." says, or nothing."""
        return self.remark[len(what):].lstrip(": ") if self.remark.startswith(what) else None

    def __str__(self):
        return f"{self.document.path.relative_to(ROOT)}:{self.line}"


class Document:
    def __init__(self, path):
        self.path = path
        self.text = path.read_text(encoding="utf-8")
        self.blocks = []
        self.prose = []  # the lines outside of blocks
        self._split()

    def _split(self):
        lines = self.text.splitlines()
        remark = ""
        numbers = iter(range(len(lines)))
        for number in numbers:
            if begin := FENCE.match(lines[number]):
                inside = []
                for inner in numbers:
                    if lines[inner] == "```":
                        break
                    inside.append(lines[inner] + "\n")
                else:
                    raise AssertionError(f"{self.path}:{number + 1}: the block does not end")
                self.blocks.append(Block(self, number + 1, begin[1], "".join(inside), remark))
                self.prose.append("")
            else:
                self.prose.append(lines[number])
            comment = COMMENT.match(lines[number])
            remark = comment[1] if comment else ""

    def headings(self):
        return [line.lstrip("#").strip() for line in self.prose if re.match("#+ ", line)]

    def anchors(self):
        """As sites that show these documents make them."""
        return [re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
                for heading in self.headings()]

    def targets(self):
        """Of links and pictures."""
        prose = re.sub(r"`[^`]*`", "", "\n".join(self.prose))
        return re.findall(r"\]\(([^)\s]+)\)", prose) + re.findall(r'(?:src|href)="([^"]+)"', prose)


def documents():
    """All that are ours, by their path from the root."""
    found = {}
    for path in sorted(ROOT.rglob("*.md")):
        name = path.relative_to(ROOT)
        if not any(NOT_OURS.fullmatch(part) for part in name.parts):
            found[str(name)] = Document(path)
    return found
