#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Wall time of the command line, whole processes, with ipraytime (Debian: itools) in the same run.

usage: bench/cli.py BUILD-FOLDER [ROUNDS]     prints one table; ROUNDS (default 41) runs of each, one after the other
                                              in turn, so that a disturbance meets all of them
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time

from figures import Table, at_most, ratio

PEER = "ipraytime, one day"
HOME = "zorel today (home city)"
YEAR = ["--from", "2027-01-01", "--to", "2027-12-31"]
EVERYWHERE = ["table", "--all", "--on", "2027-01-01", "--csv"]
ROUNDS_OF_EVERYWHERE = 9


def milliseconds(words):
    """Wall time of one process."""
    start = time.perf_counter()
    result = subprocess.run(words, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    elapsed = (time.perf_counter() - start) * 1000.0
    if result.returncode != 0:
        sys.exit(f"{' '.join(words)} ended with {result.returncode}:\n{result.stderr.decode(errors='replace')}")
    return elapsed


def megabytes(words):
    """Largest resident memory of one process, told by GNU time, whose own memory is small."""
    result = subprocess.run(["/usr/bin/time", "-f", "%M", *words], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    return int(result.stderr.split()[-1]) / 1024.0


def commands(zorel):
    """Name, words, target, name of what it is compared with."""
    return [
        (PEER, ["ipraytime", "--latitude", "41.01", "--longitude", "28.97", "--utcdiff", "3", "--brief"], None, None),
        ("zorel --version", [*zorel, "--version"], None, PEER),
        (HOME, [*zorel, "today"], ratio(2.2), PEER),
        ("zorel today 41.01,28.97,+3", [*zorel, "today", "41.01,28.97,+3"], ratio(1.8), PEER),
        ("zorel today Istanbul", [*zorel, "today", "Istanbul"], ratio(1.3), HOME),
        ("zorel widget", [*zorel, "widget"], None, PEER),
        ("zorel next", [*zorel, "next"], ratio(1.05), "zorel widget"),
        ("zorel chart", [*zorel, "chart"], at_most(50), PEER),
        ("zorel chart, picture", [*zorel, "chart", "--svg"], at_most(50), PEER),
        ("zorel chart, Oslo, picture", [*zorel, "chart", "Oslo", "--svg"], at_most(50), PEER),
        ("zorel sheet, a month", [*zorel, "sheet"], at_most(50), PEER),
        ("zorel sheet, a year", [*zorel, "sheet", "--year", "2027"], None, PEER),
        ("zorel sky", [*zorel, "sky"], None, PEER),
        ("zorel sky, picture", [*zorel, "sky", "--svg"], at_most(50), PEER),
        ("Tab behind a place", [*zorel[:1], "complete", "bash", "today", "Ist"], at_most(30), PEER),
        ("zorel search konya", [*zorel, "search", "konya"], None, PEER),
        ("zorel table, a year, text", [*zorel, "table", "745044", *YEAR], None, PEER),
        ("zorel table, a year, CSV", [*zorel, "table", "745044", *YEAR, "--csv"], None, PEER),
        ("zorel table, a year, JSON", [*zorel, "table", "745044", *YEAR, "--json"], None, PEER),
        ("zorel table, a year, iCalendar", [*zorel, "table", "745044", *YEAR, "--ics"], None, PEER),
    ]


def measure(table, build, rounds):
    """Adds the rows of the command line to a table."""
    with tempfile.TemporaryDirectory(prefix="zorel-bench-") as folder:
        zorel = [os.path.join(build, "bin", "zorel"), "--data-dir", folder]
        subprocess.run([*zorel, "cities", "add", "745044"], check=True, stdout=subprocess.DEVNULL)
        measured = [command for command in commands(zorel) if shutil.which(command[1][0])]
        times = {name: [] for name, *_ in measured}
        for _ in range(rounds):
            for name, words, *_ in measured:
                times[name].append(milliseconds(words))
        for name, _, target, peer in measured:
            table.add(name, times[name], "ms", target, peer or "", times.get(peer))
        if PEER not in times:
            table.not_measured(PEER, "Debian's itools is not installed")
        everywhere = [milliseconds([*zorel, *EVERYWHERE]) / 1000.0 for _ in range(ROUNDS_OF_EVERYWHERE)]
        table.add("zorel table --all", everywhere, "s", at_most(0.5))
        if os.path.exists("/usr/bin/time"):
            table.add("zorel today, memory", [megabytes([*zorel, "today"])], "MB")
            table.add("zorel table --all, memory", [megabytes([*zorel, *EVERYWHERE])], "MB")


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    table = Table()
    measure(table, sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 41)
    print(table.text())


if __name__ == "__main__":
    main()
