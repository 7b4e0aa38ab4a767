#!/usr/bin/env python3
"""The Windows edition under Wine beside the Linux build, and what calls of the automation server cost.

Usage: bench/windows/measure.py [ROUNDS]

Builds build/release and build/windows64 with PAGIVO_BENCH first. Runs everything in turn, so that a
processor which changes its clock is fair to all, and prints the least and the median of the rounds.
Times of the processor are Linux' own for the whole process, less those of one that does little, for
which Wine has to start as well.
"""

import contextlib
import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
RELEASE = ROOT / "build/release"
WINDOWS = ROOT / "build/windows64"
SERVER = WINDOWS / "src/automation/pagivo.dll"
UNDER_WINE = [ROOT / "tools/under_wine.sh", WINDOWS / "wine"]
FEW_PAGES = 100  # a document of so many is taken off longer ones, with the start of the process
PAGES = [1000, 5000]
CALLS = 200_000
SCRIPT = pathlib.Path(__file__).with_name("calls.vbs")


def build(preset, *targets):
    subprocess.run(["cmake", "--preset", preset, "-DPAGIVO_BENCH=ON"], cwd=ROOT, check=True,
                   stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", preset, "--target", *targets], cwd=ROOT, check=True,
                   stdout=subprocess.DEVNULL)


def run(command, folder):
    """What the command prints, and the microseconds of the processor that it took."""
    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen([str(part) for part in command], stdout=output, cwd=folder)
        _, status, usage = os.wait4(process.pid, 0)
        if status != 0:
            raise SystemExit(f"{command} failed")
        output.seek(0)
        return output.read().decode(), (usage.ru_utime + usage.ru_stime) * 1e6


def in_turn(measures, rounds):
    """The results of each measure, by its name."""
    results = {name: [] for name in measures}
    for _ in range(rounds):
        for name, measure in measures.items():
            results[name].append(measure())
    return results


def show(name, least, median, digits=0):
    print(f"  {name:34} least {least:9.{digits}f}  median {median:9.{digits}f}")


def show_all(name, values, digits=0):
    show(name, min(values), statistics.median(values), digits)


def beyond(starts, wholes, summary):
    """What a whole process takes beyond one that only starts."""
    return summary(wholes) - summary(starts)


def documents(folder, rounds):
    programs = {
        "Linux": [RELEASE / "bench/pagivo_report_process_pagivo"],
        "Windows": [*UNDER_WINE, WINDOWS / "bench/pagivo_report_process_pagivo.exe"],
    }
    for kind, argument in {"the report page": [], "without its picture": ["text"]}.items():
        results = in_turn({(name, pages): (lambda command=[*program, pages, "report.pdf", *argument]:
                                           run(command, folder)[1])
                           for pages in [FEW_PAGES, *PAGES] for name, program in programs.items()}, rounds)
        for pages in PAGES:
            print(f"{kind}, {pages} pages: microseconds of the processor a page")
            least, median = ({name: beyond(results[name, FEW_PAGES], results[name, pages], summary)
                             / (pages - FEW_PAGES)
                              for name in programs} for summary in (min, statistics.median))
            for name in programs:
                show(name, least[name], median[name])
            show("ratio", least["Windows"] / least["Linux"], median["Windows"] / median["Linux"], 2)


def server(folder, rounds):
    bench = [*UNDER_WINE, WINDOWS / "bench/pagivo_server_bench.exe"]
    with registered(folder):
        results = in_turn({
            "start": lambda: run([*bench, "start", SERVER], folder),
            "load": lambda: run([*bench, "load", SERVER], folder),
            "calls": lambda: run([*bench, "calls", SERVER], folder),
            "script": lambda: run([*UNDER_WINE, "cscript", "//nologo", f"Z:{SCRIPT}", CALLS], folder),
        }, rounds)
    print("loading the server and making an object: milliseconds")
    show_all("by the clock", [float(printed) for printed, _ in results["load"]], 1)
    starts, loads = ([used / 1000 for _, used in results[name]] for name in ("start", "load"))
    show("of the processor", beyond(starts, loads, min), beyond(starts, loads, statistics.median), 1)
    print("a call: nanoseconds")
    for lines in ([printed for printed, _ in results[name]] for name in ("calls", "script")):
        for name in re.findall(r"^\w+", lines[0], re.MULTILINE):
            show_all(name, [float(re.search(rf"{name} (\S+)", text)[1]) for text in lines])


@contextlib.contextmanager
def registered(folder):
    """The server in the registry of Wine's prefix, where scripts find it."""
    regsvr32 = [*UNDER_WINE, "regsvr32", "/s"]
    run([*regsvr32, SERVER], folder)
    try:
        yield
    finally:
        run([*regsvr32, "/u", SERVER], folder)


def size(folder):
    stripped = pathlib.Path(folder) / "stripped.dll"
    shutil.copy(SERVER, stripped)
    subprocess.run(["x86_64-w64-mingw32-strip", stripped], check=True)
    print(f"the server's file, stripped: {stripped.stat().st_size:,} bytes")


def main():
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 7
    build("release", "pagivo_report_process_pagivo")
    build("windows64", "pagivo_report_process_pagivo", "pagivo_server_bench", "pagivo_server")
    with tempfile.TemporaryDirectory() as folder:
        documents(folder, rounds)
        server(folder, rounds)
        size(folder)


if __name__ == "__main__":
    main()
