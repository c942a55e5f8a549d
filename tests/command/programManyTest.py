#!/usr/bin/python3
"""Runs `tavisk` over many documents as a build server does; the environment's TAVISK is its path."""

import json
import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from urllib.parse import unquote

from targetSystem import RUN, WINDOWS, skip_on_windows

TAVISK = os.environ.get("TAVISK", "tavisk")
EXAMPLES = Path(__file__).resolve().parent.parent.parent / "examples"

GOOD = '<cabinetinfo>\n  <cabinet><A value="x"/></cabinet>\n</cabinetinfo>'
FLAWED = ('<cabinetinfo>\n  <cabinet>\n    <A value="an &amp; `f`"/>\n    <B style="big"/>\n'
          "  </cabinet>\n</cabinetinfo>")


def text(value):
    return isinstance(value, str) and value != ""


def number(value):
    return isinstance(value, int) and value >= 1


def one_of(*values):
    return lambda value: value in values


def list_of(check):
    return lambda values: isinstance(values, list) and all(check(value) for value in values)


def thing(required, optional=None):
    """An object with these members and no others, as the format's own description has it."""
    known = {**required, **(optional or {})}

    def check(value):
        if not isinstance(value, dict) or not set(required) <= set(value) <= set(known):
            raise AssertionError(f"{sorted(required)} are wanted in {value}")
        for name, member in value.items():
            if not known[name](member):
                raise AssertionError(f"{name} is {member!r}")
        return True

    return check


def address(value):
    return text(value) and re.fullmatch(r"(file://)?[A-Za-z0-9._~/%:-]+", value) is not None


MESSAGE = thing({"text": text})
ARTIFACT = thing({}, {"uri": address, "description": MESSAGE})
LOCATION = thing({"physicalLocation": thing(
    {"artifactLocation": ARTIFACT},
    {"region": thing({"startLine": number}, {"startColumn": number})})},
    {"logicalLocations": list_of(thing({"fullyQualifiedName": text}))})
RULE = thing({"id": text, "shortDescription": MESSAGE, "fullDescription": MESSAGE, "help": MESSAGE})
RESULT = thing({
    "message": MESSAGE, "ruleId": text, "ruleIndex": lambda value: isinstance(value, int),
    "level": one_of("none", "note", "warning", "error"), "locations": list_of(LOCATION)})
NOTIFICATION = thing({"message": MESSAGE, "level": one_of("error"), "locations": list_of(LOCATION)})
RUN_OBJECT = thing({
    "tool": thing({"driver": thing({"name": text, "version": text, "rules": list_of(RULE)})}),
    "columnKind": one_of("utf16CodeUnits"), "results": list_of(RESULT),
    "invocations": list_of(thing({"executionSuccessful": lambda value: isinstance(value, bool),
                                  "toolExecutionNotifications": list_of(NOTIFICATION)}))})
SARIF = thing({"$schema": text, "version": one_of("2.1.0"), "runs": list_of(RUN_OBJECT)})


class ManyDocuments(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory(prefix="tavisk-")
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)

    def write(self, name, document):
        (self.folder / name).write_text(document, encoding="utf-8")
        return name

    def tavisk(self, *arguments, **options):
        done = subprocess.run([*RUN, TAVISK, *arguments], cwd=self.folder, capture_output=True,
                              encoding="utf-8", timeout=120, check=False, **options)
        return done.returncode, done.stdout, done.stderr

    def sarif(self, *files):
        """The exit code and the one run of the report, which is what the format asks for."""
        code, out, _ = self.tavisk("check", "--sarif", *files)
        report = json.loads(out)
        SARIF(report)
        run, = report["runs"]
        return code, run

    def test_sarif_tells_what_and_where(self):
        code, run = self.sarif(self.write("a b.xml", FLAWED))
        self.assertEqual(code, 1)
        found = []
        for result in run["results"]:
            place = result["locations"][0]["physicalLocation"]
            self.assertEqual(run["tool"]["driver"]["rules"][result["ruleIndex"]]["id"],
                             result["ruleId"])
            found.append((place["artifactLocation"]["uri"], place["region"]["startLine"],
                          place["region"]["startColumn"], result["ruleId"], result["level"]))
        self.assertEqual(found, [("a%20b.xml", 3, 24, "unknown-formula", "error"),
                                 ("a%20b.xml", 4, 15, "bad-number", "error")])
        self.assertTrue(run["invocations"][0]["executionSuccessful"])

    def test_sarif_places_are_where_the_text_is(self):
        example = EXAMPLES / "flawed.xml"
        _, run = self.sarif(str(example))
        lines = example.read_text(encoding="utf-8").split("\n")
        self.assertGreater(len(run["results"]), 5)
        for result in run["results"]:
            location = result["locations"][0]
            region = location["physicalLocation"]["region"]
            line = lines[region["startLine"] - 1]
            name = location["logicalLocations"][0]["fullyQualifiedName"]
            # A node's line has its name, that of a picture or formula its name attribute.
            name = re.sub('.*"(.*)"', r"\1", name.split("=>")[-1].replace(" ", "_"))
            self.assertIn(name, line.replace(" ", "_"))
            character = line[region["startColumn"] - 1]
            if result["ruleId"].startswith(("unknown-", "odd-")):
                self.assertEqual(character, "`")

    def test_sarif_of_a_broken_document_names_the_line(self):
        code, run = self.sarif(self.write("a.xml", "<cabinetinfo>\n<cabinet>\n</cabinetinfo>"))
        self.assertEqual(code, 1)
        region = run["results"][0]["locations"][0]["physicalLocation"]["region"]
        self.assertEqual(region, {"startLine": 3})

    def test_sarif_of_clean_missing_and_flawed_documents(self):
        code, run = self.sarif(self.write("good.xml", GOOD), "gone.xml",
                               self.write("flawed.xml", FLAWED))
        self.assertEqual(code, 4)
        self.assertEqual(len(run["results"]), 2)
        invocation, = run["invocations"]
        self.assertFalse(invocation["executionSuccessful"])
        notification, = invocation["toolExecutionNotifications"]
        self.assertEqual(notification["message"]["text"], "Run-time error '53': File not found")

    def test_sarif_without_findings(self):
        code, run = self.sarif(self.write("good.xml", GOOD))
        self.assertEqual((code, run["results"]), (0, []))

    @skip_on_windows("file names are text there")
    def test_file_names_that_are_no_text(self):
        name = os.fsdecode(b"\xff'\"<.xml")
        self.write(name, FLAWED)
        _, run = self.sarif(name)
        uri = run["results"][0]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"]
        self.assertEqual(uri, "%FF%27%22%3C.xml")
        self.assertEqual(unquote(uri, errors="surrogateescape"), name)
        code, out, _ = self.tavisk("check", "--json", name, name)
        self.assertEqual(code, 1)
        self.assertEqual(json.loads(out)["documents"][1]["file"], "\ufffd'\"<.xml")

    def test_json_of_several_documents(self):
        names = [self.write("good.xml", GOOD), "gone.xml", self.write("flawed.xml", FLAWED)]
        code, out, err = self.tavisk("check", "--json", *names)
        self.assertEqual(code, 4)
        report = json.loads(out)
        self.assertEqual([document["file"] for document in report["documents"]], names)
        self.assertEqual([len(document["findings"]) for document in report["documents"]],
                         [0, 0, 2])
        self.assertEqual(report["documents"][1]["error"],
                         {"number": 53, "message": "File not found"})
        self.assertEqual(report["summary"], {"documents": 3, "clean": 1, "withFindings": 1,
                                             "failed": 1, "findings": 2})
        self.assertEqual(err, "gone.xml: Run-time error '53': File not found\n"
                              "3 documents: 1 clean, 1 with findings, 1 failed; 2 findings\n")

    def test_the_examples_in_one_call(self):
        files = sorted(map(str, EXAMPLES.glob("*.xml")))
        code, out, err = self.tavisk("render", *files, "--folder", "out", "--evaluate")
        self.assertEqual((code, err), (0, ""))
        self.assertEqual(out, f"{len(files)} documents: {len(files)} rendered\n")
        # Under Wine every start of a program takes seconds.
        for file in map(Path, files[:2] if WINDOWS else files):
            place = self.folder / "out" / file.stem
            self.tavisk("render", str(file), "--folder", "single", "--evaluate")
            single = (self.folder / "single" / "temp.html").read_bytes()
            many = (place / "temp.html").read_bytes()
            self.assertEqual(many.replace(f"/out/{file.stem}/".encode(), b"/single/"), single)

    def test_a_thousand_documents_on_any_number_of_threads(self):
        names = [self.write(f"{i}.xml", GOOD if i % 3 else FLAWED) for i in range(1000)]
        runs = {jobs: self.tavisk("check", "--jobs", jobs, *names) for jobs in ("1", "2", "16")}
        self.assertEqual(runs["1"][0], 1)
        self.assertTrue(runs["1"][1].endswith(
            "1000 documents: 666 clean, 334 with findings; 668 findings\n"))
        self.assertEqual(runs["2"], runs["1"])
        self.assertEqual(runs["16"], runs["1"])

    @skip_on_windows("there is no such device")
    def test_a_full_disk_behind_the_report_ends_it(self):
        names = [self.write(f"{i}.xml", FLAWED) for i in range(50)]
        with open("/dev/full", "wb") as full:
            done = subprocess.run([TAVISK, "check", "--jobs", "4", *names], cwd=self.folder,
                                  stdout=full, stderr=subprocess.PIPE, timeout=120, check=False)
        self.assertEqual((done.returncode, done.stderr),
                         (4, b"Run-time error '61': Disk full\nFile: standard output\n"))

    def test_a_standalone_page_on_standard_output(self):
        code, out, err = self.tavisk("render", "-", "--standalone", "-o", "-", "--evaluate",
                                     input=GOOD)
        self.assertEqual((code, err), (0, ""))
        self.assertTrue(out.startswith('<html><head><meta charset="utf-8">'))
        self.assertTrue(out.endswith("</body></html>"))
        self.assertEqual(list(self.folder.iterdir()), [])


if __name__ == "__main__":
    sys.exit(unittest.main(verbosity=2 if WINDOWS else 1))
