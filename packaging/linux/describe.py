#!/usr/bin/python3
"""Writes what a system knows of the command, its manual page and its completion, from what the
command says of itself.

    describe.py TAVISK TEMPLATE OUT [NAME=VALUE]...

OUT is TEMPLATE with each @NAME@ replaced, those of `described` too.
"""

import re
import subprocess
import sys
from pathlib import Path

OPTION = re.compile(r"^  (-[\w-]+)(?: (\S+))?(?:$|  +)", re.MULTILINE)
# An option, or the name of a value.
MARKED = re.compile(r"(?<![\w/-])(--?[a-z][a-z-]*)|\b(FILE|DIR|OUT|KEY|NAME|N|COMMAND)(?=s?\b)")
# What a shell proposes for a value of that name; nothing for any other.
PROPOSED = {"DIR": "_filedir -d", "OUT": "_filedir", "FILE": "_filedir",
            "N": 'COMPREPLY=($(compgen -W "{1..$(nproc)}" -- "$cur"))'}


class Help:
    """How a command is called, its options, and everything else that `--help` says."""

    def __init__(self, text):
        blocks = text.rstrip("\n").split("\n\n")
        usage = self.taken(blocks, "Usage:")
        self.usages = re.findall(r"^(?:Usage:)? +(tavisk .*?)(?:  .*)?$", usage, re.MULTILINE)
        self.examples = self.taken(blocks, "Examples:", "A first page:").split("\n")[1:]
        self.exits = self.taken(blocks, "Exit codes")
        self.options = OPTION.findall(text)
        self.blocks = blocks

    @staticmethod
    def taken(blocks, *begins):
        found = next(block for block in blocks if block.startswith(begins))
        blocks.remove(found)
        return found


def escaped(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return re.sub(r"^(?=[.'])", r"\\&", text, flags=re.MULTILINE)


def marked(text):
    """With options in bold and values in italics."""
    pieces = []
    at = 0
    for found in MARKED.finditer(text):
        font = "B" if found[1] else "I"
        pieces += [escaped(text[at:found.start()]), f"\\f{font}{escaped(found[0])}\\fR"]
        at = found.end()
    return "".join(pieces) + escaped(text[at:])


def entry(head, text):
    """A head with its text standing in below it."""
    text = "\n".join(line.strip() for line in text.strip().split("\n"))
    return f".TP\n{head}\n{marked(text)}"


def option(text):
    found = OPTION.match(text)
    head = f"\\fB{escaped(found[1])}\\fR" + (f" \\fI{escaped(found[2])}\\fR" if found[2] else "")
    return entry(head, text[found.end():])


def paragraph(block):
    """Lines that stand in stay lines; others are filled."""
    if OPTION.match(block):
        return "\n".join(map(option, re.split(r"\n(?=  -)", block)))
    pieces = re.split(r"((?:^  .*\n?)+)", block, flags=re.MULTILINE)
    return ".PP\n" + "\n".join(
        f".EX\n{escaped(piece.rstrip())}\n.EE" if piece.startswith("  ") else marked(piece.strip())
        for piece in pieces if piece)


def synopsis(usage):
    command = " ".join(usage.split(" ")[:2])
    return f"\\fB{escaped(command)}\\fR{marked(usage[len(command):])}"


def exit_status(text):
    begin, *codes = re.split(r"\n  (?=\d)", text)
    return "\n".join([marked(begin), *(entry(f".B {code[0]}", code[1:]) for code in codes)])


def described(tool, commands):
    usages = [usage for one in commands.values() for usage in one.usages]
    usages += ["tavisk COMMAND --help", "tavisk --version"]
    values = dict(option for one in commands.values() for option in one.options if option[1])
    examples = [line.strip() for one in [tool, *commands.values()] for line in one.examples]
    return {
        "SYNOPSIS": "\n.br\n".join(map(synopsis, usages)),
        "DESCRIPTION": "\n".join(map(paragraph, tool.blocks[1:])),
        "COMMANDS": "\n".join("\n".join([f".SS {name}", *map(paragraph, one.blocks)])
                              for name, one in commands.items()),
        "EXIT_STATUS": exit_status(tool.exits),
        "EXAMPLES": "\n".join(map(escaped, dict.fromkeys(examples))),
        "NAMES": " ".join(commands),
        "OPTIONS": "\n".join(
            f'            {name}) options="{" ".join(option for option, _ in one.options)}" ;;'
            for name, one in commands.items()),
        "VALUES": "\n".join(
            f"        {name}) {PROPOSED.get(value, ':')}; return ;;"
            for name, value in values.items()),
    }


def main(program, template, out, *others):
    def told(*words):
        return Help(subprocess.run([program, *words, "--help"], check=True, capture_output=True,
                                   encoding="utf-8").stdout)

    tool = told()
    names = dict.fromkeys(usage.split()[1] for usage in tool.usages)
    commands = {name: told(name) for name in names if name.isalpha() and name.islower()}
    text = Path(template).read_text(encoding="utf-8")
    known = described(tool, commands) | dict(other.split("=") for other in others)
    for name, what in known.items():
        text = text.replace(f"@{name}@", what)
    Path(out).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
