#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Wall time and memory of the command line, whole processes, with ipraytime (Debian: itools) in the same run.

usage: bench/cli.py BUILD-FOLDER [ROUNDS]     prints one table; the figures are medians of ROUNDS (default 41) runs
"""
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time


def run(words):
    """Wall time [ms] of one process."""
    start = time.perf_counter()
    code = subprocess.run(words, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode
    elapsed = (time.perf_counter() - start) * 1000.0
    if code != 0:
        sys.exit(f"{' '.join(words)} ended with {code}")
    return elapsed


def memory(words):
    """Largest resident memory of one process [MB], told by GNU time, whose own memory is small."""
    if not os.path.exists("/usr/bin/time"):
        return float("nan")
    result = subprocess.run(["/usr/bin/time", "-f", "%M", *words], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    return int(result.stderr.split()[-1]) / 1024.0


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    build = sys.argv[1]
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 41
    zorel = os.path.join(build, "bin", "zorel")
    folder = tempfile.mkdtemp(prefix="zorel-bench-")
    data = ["--data-dir", folder]
    subprocess.run([zorel, *data, "cities", "add", "745044"], check=True, stdout=subprocess.DEVNULL)
    year = ["--from", "2027-01-01", "--to", "2027-12-31"]
    commands = {
        "ipraytime, one day": ["ipraytime", "--latitude", "41.01", "--longitude", "28.97", "--utcdiff", "3", "--brief"],
        "zorel today (home city)": [zorel, *data, "today"],
        "zorel today 41.01,28.97,+3": [zorel, *data, "today", "41.01,28.97,+3"],
        "zorel today Istanbul": [zorel, *data, "today", "Istanbul"],
        "zorel table, a year, text": [zorel, *data, "table", "745044", *year],
        "zorel table, a year, CSV": [zorel, *data, "table", "745044", *year, "--csv"],
        "zorel table, a year, JSON": [zorel, *data, "table", "745044", *year, "--json"],
        "zorel table, a year, iCalendar": [zorel, *data, "table", "745044", *year, "--ics"],
        "zorel search konya": [zorel, *data, "search", "konya"],
        "zorel widget": [zorel, *data, "widget"],
        "zorel next": [zorel, *data, "next"],
        "zorel sky": [zorel, *data, "sky"],
    }
    if shutil.which("ipraytime") is None:
        del commands["ipraytime, one day"]
    results = {name: [] for name in commands}
    for _ in range(rounds):
        for name, words in commands.items():
            results[name].append(run(words))
    peer = statistics.median(results.get("ipraytime, one day", [float("nan")]))
    print(f"{'':34}{'median ms':>10}{'least ms':>10}{'MB':>7}{'ratio to ipraytime':>20}")
    for name, times in results.items():
        median = statistics.median(times)
        print(f"{name:34}{median:10.2f}{min(times):10.2f}{memory(commands[name]):7.1f}{median / peer:20.2f}")
    everywhere = [zorel, *data, "table", "--all", "--on", "2027-01-01", "--csv"]
    start = time.perf_counter()
    lines = subprocess.run(everywhere, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout.count(b"\n")
    elapsed = time.perf_counter() - start
    print(f"zorel table --all: {lines - 1} places in {elapsed:.2f} s, {(lines - 1) / elapsed:.0f} places per second, "
          f"{os.cpu_count()} processors")
    shutil.rmtree(folder)


main()
