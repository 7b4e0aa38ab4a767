#!/usr/bin/env python3
"""Composing and exporting the report as whole processes, a library beside another.

Usage: report_processes.py [ROUNDS] [FOLDER OF THE PROGRAMS]

Runs the programs pagivo_report_process_* in turn, so that a processor which changes its clock is fair
to all, and prints the processor time in microseconds a page, the start of the process included:
least and median of the rounds. With one page it also says how long a process takes altogether, and how
long (for root) when nothing of it is in memory yet.
"""

import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

PAGES = [100, 1000, 5000, 20000]


def run(program, pages):
    """Microseconds a page."""
    with tempfile.TemporaryDirectory() as folder:
        command = [program, str(pages), f"{folder}/report.pdf"]
        return float(subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE).stdout)


def milliseconds_of_a_page(program):
    with tempfile.TemporaryDirectory() as folder:
        command = [program, "1", f"{folder}/report.pdf"]
        before = time.monotonic()
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
        return (time.monotonic() - before) * 1000


def milliseconds_of_a_first_page(program):
    os.sync()
    pathlib.Path("/proc/sys/vm/drop_caches").write_text("3")
    return milliseconds_of_a_page(program)


def in_turn(title, measure, programs, rounds):
    results = {program: [] for program in programs}
    for _ in range(rounds):
        for program in programs:
            results[program].append(measure(program))
    print(title)
    for program, values in results.items():
        name = program.name.removeprefix("pagivo_report_process_")
        print(f"  {name:8} least {min(values):8.1f}  median {statistics.median(values):8.1f}")


def main():
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 5
    folder = pathlib.Path(sys.argv[2] if len(sys.argv) > 2 else "build/release/bench")
    programs = sorted(folder.resolve().glob("pagivo_report_process_*"))
    if not programs:
        raise SystemExit(f"{folder} has no programs; configure with -DPAGIVO_BENCH=ON and build")
    for pages in PAGES:
        in_turn(f"{pages} pages, microseconds of the processor a page",
                lambda program, pages=pages: run(program, pages), programs, rounds)
    in_turn("one page, milliseconds from start to end", milliseconds_of_a_page, programs, rounds)
    if os.geteuid() == 0:
        in_turn("one page, milliseconds when nothing is in memory", milliseconds_of_a_first_page,
                programs, rounds)


if __name__ == "__main__":
    main()
