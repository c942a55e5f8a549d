#!/usr/bin/env python3
"""Measures the tavisk command against xmllint and writes docs/performance.md.

Whole processes run in pairs, command and xmllint one after the other on the same document, and what
counts is the median of the pairs' ratios of wall time: a machine that is busy or slow for a while
is so for both.
"""

import argparse
import itertools
import json
import os
import pathlib
import platform
import shutil
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
DOCUMENTS = ("S", "M", "L", "LP", "few", "many")
MANY = 1000  # documents of 1 MB
CHECK_RUNS = 5  # each takes many seconds


class Run:
    """One process: its wall and processor time in seconds and its peak memory in bytes."""

    def __init__(self, command, log):
        descriptor = os.open(log, os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o644)
        nowhere = os.open(os.devnull, os.O_WRONLY)
        actions = [(os.POSIX_SPAWN_DUP2, nowhere, 1), (os.POSIX_SPAWN_DUP2, descriptor, 2)]
        start = time.perf_counter()
        process = os.posix_spawnp(command[0], command, os.environ, file_actions=actions)
        _, status, usage = os.wait4(process, 0)
        self.wall = time.perf_counter() - start
        os.close(descriptor)
        os.close(nowhere)
        self.cpu = usage.ru_utime + usage.ru_stime
        # Never less than this script's own few megabytes, which a new process starts from.
        self.memory = usage.ru_maxrss * 1024
        if os.waitstatus_to_exitcode(status) != 0:
            message = pathlib.Path(log).read_text(errors="replace").strip()
            sys.exit(f"run.py: failed: {' '.join(command)}\n{message}")


class Bench:
    """Runs of the command and of xmllint, with pages in a new folder of `place` each time."""

    def __init__(self, build, place, runs):
        self.build = build
        self.work = place / "tavisk-bench-work"
        self.runs = runs
        self.documents = build / "bench-documents"
        self.log = str(self.work / "stderr.txt")
        self.folders = itertools.count()
        self.file_system = file_system(place)
        self.in_memory = self.file_system in ("tmpfs", "ramfs")
        self.clear()
        self.work.mkdir(parents=True)

    def clear(self):
        shutil.rmtree(self.work, ignore_errors=True)

    def make_documents(self):
        maker = self.build / "makeDocuments"
        wanted = [self.documents / f"{name}.xml" for name in DOCUMENTS] + self.many()
        age = maker.stat().st_mtime
        if not all(path.exists() and path.stat().st_mtime >= age for path in wanted):
            subprocess.run([maker, self.documents], check=True, stdout=subprocess.DEVNULL)

    def file(self, name):
        return str(self.documents / f"{name}.xml")

    def xmllint(self, name):
        return Run(["xmllint", "--huge", "--noout", self.file(name)], self.log)

    def render(self, name):
        folder = self.work / f"folder-{next(self.folders)}"
        command = [str(self.build / "tavisk"), "render", self.file(name)]
        run = Run(command + ["--folder", str(folder), "--evaluate"], self.log)
        # On a disk only at the very end: for minutes after files are deleted, some file systems
        # take much longer to make new ones.
        if self.in_memory:
            shutil.rmtree(folder)
        return run

    def save(self, name):
        command = [str(self.build / "tavisk"), "save", self.file(name), "-o", "/dev/null"]
        return Run(command, self.log)

    def many(self):
        return [self.documents / "many" / f"{number}.xml" for number in range(1, MANY + 1)]

    def check_many(self):
        """Both on all documents in one process and one thread."""
        files = [str(path) for path in self.many()]
        check = [str(self.build / "tavisk"), "check", "--jobs", "1"] + files
        return self.pairs(lambda: Run(check, self.log),
                          lambda: Run(["xmllint", "--noout"] + files, self.log),
                          min(self.runs, CHECK_RUNS))

    def against_xmllint(self, run, names):
        return {name: self.pairs(lambda: run(name), lambda: self.xmllint(name)) for name in names}

    def pairs(self, ours, other, runs=None):
        """Runs of both in turn, after a warm-up of each; who goes first alternates."""
        ours(), other()
        result = []
        for turn in range(runs or self.runs):
            if turn % 2 == 0:
                first = ours()
                result.append((first, other()))
            else:
                first = other()
                result.append((ours(), first))
        return Pairs(result)


class Pairs:
    def __init__(self, runs):
        self.ours = [pair[0] for pair in runs]
        self.other = [pair[1] for pair in runs]

    def ratios(self, what):
        return [getattr(a, what) / getattr(b, what) for a, b in zip(self.ours, self.other)]

    def ratio(self, what="wall"):
        return statistics.median(self.ratios(what))

    def quartiles(self, what="wall"):
        low, _, high = statistics.quantiles(self.ratios(what), n=4, method="inclusive")
        return low, high

    @staticmethod
    def middle(runs, what):
        return statistics.median(getattr(run, what) for run in runs)


def microbenchmarks(build):
    """Median processor time in nanoseconds, and the counters, by name. They neither wait nor touch
    a disk, so that processor time is what they take on a machine that does nothing else."""
    return medians([build / "tavisk_bench", "--benchmark_min_time=0.2"], build, "cpu_time")


def ui_benchmarks(build):
    """The same for real windows on a display of their own. What opening takes is time on the
    clock, what a key takes is processor time: each says so to the benchmark itself."""
    measured = "openToIdle|selectNode|moveNode|typeInEditor|typeCharacter|typeBackquote"
    return medians([ROOT / "tools" / "withDisplay.sh", build / "tavisk_ui_bench",
                    "--benchmark_min_time=0.1", f"--benchmark_filter={measured}"],
                   build, "real_time")


def medians(command, build, what):
    out = build / "benchmarks.json"
    options = ["--benchmark_repetitions=5", "--benchmark_report_aggregates_only=true",
               "--benchmark_out_format=json", f"--benchmark_out={out}"]
    subprocess.run(command + options, check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)
    scale = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
    result = {}
    for entry in json.loads(out.read_text())["benchmarks"]:
        if entry.get("error_occurred"):
            sys.exit(f"run.py: {entry['name']}: {entry['error_message']}")
        if entry.get("aggregate_name") == "median":
            entry["ns"] = entry[what] * scale[entry["time_unit"]]
            result[entry["run_name"].removesuffix("/manual_time")] = entry
    return result


def verdict(value, goal, stretch=None):
    if value > goal:
        return "**missed**"
    if stretch is None:
        return "met"
    return "stretch met" if value <= stretch else "met, stretch missed"


def ratio_row(what, value, goal, stretch=None, detail=""):
    wanted = f"at most {goal}" + (f" (stretch {stretch})" if stretch else "")
    return what, wanted, f"{value:.3f}{detail}", verdict(value, goal, stretch)


def spread(pairs, what="wall"):
    low, high = pairs.quartiles(what)
    return f" ({low:.2f} to {high:.2f})"


def goal_rows(render, save, check, scaling, micro, windows):
    rows = []
    for name in ("M", "L"):
        rows.append(ratio_row(f"`tavisk render --evaluate`, whole process, {name}, to xmllint",
                              render[name].ratio(), 0.9, 0.65, spread(render[name])))
    rows.append(ratio_row("the same on LP", render["LP"].ratio(), 1.1, None, spread(render["LP"])))
    for name in ("M", "L"):
        rows.append(ratio_row(f"`tavisk save`, whole process, {name}, to xmllint",
                              save[name].ratio(), 0.8, 0.5, spread(save[name])))
    rows.append(ratio_row(f"`tavisk check --jobs 1`, {MANY:,} documents of 1 MB, processor time, to "
                          "xmllint", check.ratio("cpu"), 1.0, None, spread(check, "cpu")))
    for name in ("M", "L"):
        rows.append(ratio_row(f"peak memory of render on {name}, to xmllint's",
                              render[name].ratio("memory"), 1.8, None,
                              spread(render[name], "memory")))
    rows.append(ratio_row("render, from 20 formulas and 5 pictures to 2,000 and 500, same nodes",
                          scaling.ratio(), 1.25, None, " times" + spread(scaling)))

    for size, name in enumerate(("S", "M", "L")):
        page = micro[f"treeToPage/{size}"]
        each = page["ns"] / page["bytes"]
        rows.append((f"tree to page, per page byte, {name}", "at most 2 ns", f"{each:.2f} ns",
                     verdict(each, 2)))
    for length, goal in ((600, 1.2), (32000, 45)):
        each = micro[f"changeAnswer/{length}/0"]["ns"] / 1000
        rows.append((f"one change of an answer text, {length:,} characters",
                     f"at most {goal} µs", f"{each:.2f} µs", verdict(each, goal)))
    rows += key_rows(micro)
    rows += window_rows(windows)
    return rows


def window_rows(windows):
    def ms(name):
        return windows[name]["ns"] / 1e6

    rows = []

    def goal(what, value, most, unit):
        rows.append((what, f"at most {most} {unit}", f"{value:.2f} {unit}", verdict(value, most)))

    for nodes, most in ((1000, 20), (10000, 80), (30000, 250)):
        beyond = ms(f"openToIdle/{nodes}") - ms("openToIdle/0")
        goal(f"editor open to idle beyond an empty document's, {nodes:,} nodes", beyond, most, "ms")
    for nodes in (1000, 10000, 30000):
        goal(f"selecting a node among {nodes:,}", ms(f"selectNode/{nodes}"), 5, "ms")
    goal("moving a node among 1,000", ms("moveNode/1000"), 20, "ms")
    for paragraph, text in ((400, "in paragraphs of 400"), (6000, "in one paragraph")):
        for place, where in enumerate(("start", "middle", "end")):
            name = f"typeCharacter/paragraph:{paragraph}/place:{place}/coloured:"
            goal(f"key in 6,000 characters {text}, 200 tokens, at the {where}, to the same without "
                 "colours", ms(name + "1") / ms(name + "0"), 1.2, "times")
    goal("key among 30,000 nodes, to 1,000",
         ms("typeInEditor/30000") / ms("typeInEditor/1000"), 1.2, "times")
    return rows


def key_rows(micro):
    """Linear means: three times the nodes take about three times as long, and 90 times the depth
    takes no longer. Some more is allowed for memory that no longer fits the caches; the square
    would be 9 times, nodes times depth 90 times as long."""

    def growth(name, small, large, per=None):
        first, second = micro[f"{name}/{small}"], micro[f"{name}/{large}"]
        scale = second[per] / first[per] if per else 1
        return (second["ns"] / first["ns"] / scale,
                f" ({first['ns'] / 1000:,.0f} to {second['ns'] / 1000:,.0f} µs)")

    rows = []
    for what, most, (value, times) in (
            ("all keys of a tree, from 10,000 to 30,000 nodes", 5,
             growth("keysOfTree", "10000/0", "30000/0")),
            ("comparing all keys while the tree is built, from 10,000 to 30,000 nodes", 5,
             growth("findLastKey", "10000/0", "30000/0")),
            ("the same for 10,000 nodes, from depth 10 to 900", 1.5,
             growth("findLastKey", "10000/10", "10000/900")),
            ("all keys of 10,000 nodes, per byte of key, from depth 10 to 900", 1.5,
             growth("keysOfTree", "10000/10", "10000/900", "keyBytes"))):
        rows.append((what, f"linear: at most {most} times", f"{value:.2f} times{times}",
                     verdict(value, most)))
    return rows


def process_rows(name, pairs, ours, other="xmllint"):
    rows = []
    for label, runs in ((ours, pairs.ours), (other, pairs.other)):
        rows.append((name, label, f"{Pairs.middle(runs, 'wall') * 1000:.1f}",
                     f"{Pairs.middle(runs, 'cpu') * 1000:.1f}",
                     f"{Pairs.middle(runs, 'memory') / 1e6:.1f}",
                     f"{pairs.ratio():.2f}" if runs is pairs.ours else "",
                     f"{pairs.ratio('cpu'):.2f}" if runs is pairs.ours else ""))
    return rows


def micro_rows(micro):
    rows = []
    for name, entry in micro.items():
        rate = entry.get("bytes_per_second")
        rows.append((f"`{name}`", f"{entry['ns'] / 1000:,.2f}",
                     f"{rate / 1e6:,.0f} MB/s" if rate else ""))
    return rows


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows]) + "\n"


def first_line(command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return done.stdout.strip().splitlines()[0].strip()


def cached(build, variable):
    for line in (build / "CMakeCache.txt").read_text().splitlines():
        if line.startswith(variable + ":"):
            return line.split("=", 1)[1]
    return "unknown"


def file_system(path):
    best = ("", "unknown")
    for line in pathlib.Path("/proc/mounts").read_text().splitlines():
        _, mount, kind = line.split()[:3]
        if path.is_relative_to(mount) and len(mount) > len(best[0]):
            best = (mount, kind)
    return best[1]


def pages_place(build):
    memory = pathlib.Path("/dev/shm")
    usable = memory.is_dir() and os.access(memory, os.W_OK)
    return memory if usable and shutil.disk_usage(memory).free > 1 << 30 else build


def circumstances(bench, load, date):
    info = pathlib.Path("/proc/cpuinfo").read_text().splitlines()
    model = next((line.split(":")[1].strip() for line in info if line.startswith("model name")),
                 platform.machine())
    system = platform.freedesktop_os_release().get("PRETTY_NAME", platform.system())
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    compiler = first_line([cached(bench.build, "CMAKE_CXX_COMPILER"), "--version"])
    place = "in memory" if bench.in_memory else "on disk"
    return (f"Measured{' on ' + date if date else ''} on {model}, {os.cpu_count()} cores, "
            f"{memory:.0f} GiB, {system}; {compiler}, "
            f"{cached(bench.build, 'CMAKE_BUILD_TYPE')} build; "
            f"{first_line([str(bench.build / 'tavisk'), '--version'])}; "
            f"{first_line(['xmllint', '--version'])}; documents on {file_system(bench.documents)}, "
            f"pages {place} ({bench.file_system}); other load at the start: {load:.1f} processes.\n")


def report(bench, load, date, render, save, check, scaling, on_disk, micro, windows):
    parts = ["# Performance\n",
             "This file is generated; `make bench` measures again and rewrites it.\n",
             circumstances(bench, load, date),
             f"Whole processes: {bench.runs} pairs after a warm-up, one after the other on the "
             "same document, in one thread, page cache warm, every page into a new folder. A ratio "
             "is the median of the pairs' ratios of wall time, with the quartiles in brackets. What "
             "xmllint does is `xmllint --huge --noout FILE`.\n",
             "Documents: S 1,000 nodes, 20 formulas, 5 pictures of 10 kB; M 10,000, 200, 50; L "
             "30,000, 2,000, 500; LP is L with pictures of 200 kB. Answers have 200 to 600 "
             "characters with about two formula tokens each, and a picture in every tenth. `check` reads "
             f"{MANY:,} documents of 1 MB, each with 1,850 nodes of its own, and is compared with one "
             f"xmllint over the same files, without `--huge`; {CHECK_RUNS} pairs.\n",
             "## Goals\n",
             table(("what", "goal", "measured", ""),
                   goal_rows(render, save, check, scaling, micro, windows)),
             "## Whole processes\n"]
    rows = []
    for name, pairs in render.items():
        rows += process_rows(name, pairs, "render")
    if on_disk:
        rows += process_rows("L", on_disk, "render to the build folder")
    for name, pairs in save.items():
        rows += process_rows(name, pairs, "save")
    rows += process_rows(f"{MANY:,} of 1 MB", check, "check")
    rows += process_rows("many, few", scaling, "render, 2,000 and 500", "render, 20 and 5")
    parts += ["Medians; the ratios are those of the pairs. Pages go to memory where possible: how "
              "long a disk's file system takes for 500 new pictures depends on what was deleted in the "
              "minutes before.\n",
              table(("document", "process", "wall ms", "CPU ms", "peak MB", "wall ratio",
                     "CPU ratio"), rows),
              "## Microbenchmarks\n",
              "Processor time, medians of five. Sizes 0, 1 and 2 are S, M and L; `changeAnswer` is by "
              "characters and whether some are not ASCII; keys are by nodes and depth, where depth 0 "
              "is a document like the others.\n",
              table(("benchmark", "µs", "rate"), micro_rows(micro)),
              "## Windows\n",
              "Medians of five, on a display that nobody sees. Sizes are nodes; opening, selecting "
              "and moving are time on the clock until nothing is left to do, keys are processor time "
              "until the letter is painted. Paragraphs are in characters, places 0, 1 and 2 are "
              "start, middle and end.\n",
              table(("benchmark", "µs", "rate"), micro_rows(windows))]
    return "\n".join(parts)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build",
                        help="build folder, made with TAVISK_BENCH=ON")
    parser.add_argument("--work", type=pathlib.Path,
                        help="where pages are written (default: /dev/shm, or the build folder)")
    parser.add_argument("--runs", type=int, default=11, help="pairs per measurement")
    parser.add_argument("--date", default="", help="date to write into the report")
    parser.add_argument("--out", type=pathlib.Path, default=ROOT / "docs" / "performance.md")
    options = parser.parse_args()
    if options.runs < 3:
        parser.error("--runs must be at least 3")
    if shutil.which("xmllint") is None:
        sys.exit("run.py: xmllint is missing (Debian package libxml2-utils)")

    load = os.getloadavg()[0]
    build = options.build.resolve()
    bench = Bench(build, (options.work or pages_place(build)).resolve(), options.runs)
    bench.make_documents()
    scaling = bench.pairs(lambda: bench.render("many"), lambda: bench.render("few"))
    render = bench.against_xmllint(bench.render, ("S", "M", "L", "LP"))
    save = bench.against_xmllint(bench.save, ("S", "M", "L", "LP"))
    check = bench.check_many()
    bench.clear()
    on_disk = None
    if bench.in_memory:
        disk = Bench(build, build, options.runs)
        on_disk = disk.against_xmllint(disk.render, ("L",))["L"]
        disk.clear()
    micro = microbenchmarks(build)
    windows = ui_benchmarks(build)

    rows = goal_rows(render, save, check, scaling, micro, windows)
    widths = [max(len(row[column]) for row in rows) for column in range(4)]
    for row in rows:
        print("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())
    text = report(bench, load, options.date, render, save, check, scaling, on_disk, micro, windows)
    options.out.parent.mkdir(parents=True, exist_ok=True)
    options.out.write_text(text, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
