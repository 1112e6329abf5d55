#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs every benchmark and prints one table: figure, least, median, the peer's of the same run, ratio, target, verdict.
What cannot be measured is said in its row, and the rest goes on.

usage: bench/table.py [BUILD-FOLDER]     default: build/bench, built by bench/run.sh; takes some minutes
"""
import json
import os
import re
import subprocess
import sys
import tempfile

import cli
from figures import Table, at_most, ratio

BUILD = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else "build/bench")
REPETITIONS = 9
MICROSECONDS = {"ns": 1e-3, "us": 1.0, "ms": 1e3, "s": 1e6}


def say(text):
    print(f"... {text}", file=sys.stderr, flush=True)


def run(words):
    result = subprocess.run(words, capture_output=True, text=True)
    if result.returncode != 0:
        raise RuntimeError(f"{os.path.basename(words[0])} ended with {result.returncode}: {result.stderr.strip()[-200:]}")
    return result


class Measured:
    """Repetitions of each benchmark of a program, those of different ones mixed, so that a disturbance meets all."""

    def __init__(self, program, least_seconds):
        say(program)
        with tempfile.NamedTemporaryFile(suffix=".json") as file:
            run([os.path.join(BUILD, "bin", program), f"--benchmark_out={file.name}", "--benchmark_out_format=json",
                 f"--benchmark_repetitions={REPETITIONS}", "--benchmark_enable_random_interleaving=true",
                 f"--benchmark_min_time={least_seconds}"])
            runs = [entry for entry in json.load(file)["benchmarks"] if entry["run_type"] == "iteration"]
        self.runs = {}
        for entry in runs:
            self.runs.setdefault(entry["run_name"].removesuffix("/real_time"), []).append(entry)

    def times(self, name, unit, clock="real_time"):
        return [entry[clock] * MICROSECONDS[entry["time_unit"]] / MICROSECONDS[unit] for entry in self.runs[name]]


def engine(table):
    measured = Measured("bench_engine", 0.1)

    def add(figure, ours, unit, target=None, peer="", peer_name=None):
        table.add(figure, measured.times(ours, unit, "cpu_time"), unit, target, peer,
                  measured.times(peer_name, unit, "cpu_time") if peer_name else None)
    for group, days, whole, times_only in [("consecutive_days", "consecutive days", 0.80, 0.42),
                                           ("random_days", "random days", 0.40, 0.20),
                                           ("many_places_one_day", "many places on one day", 0.28, 0.16)]:
        add(f"16 times with all fields, {days}", f"{group}/zorel", "us", ratio(whole), "libitl", f"{group}/libitl")
        add(f"16 times alone, {days}", f"{group}/zorel_times_only", "us", ratio(times_only), "libitl",
            f"{group}/libitl")
    add("a told day, consecutive days", "day_told_consecutive/zorel", "us", ratio(0.75), "libitl",
        "day_told_consecutive/libitl")
    add("a told day, random days", "day_told_random/zorel", "us", ratio(0.40), "libitl", "day_told_random/libitl")
    add("Moon, full position", "moon_position/zorel", "us", ratio(1.0), "moon98 + nut80", "moon_position/moon98_nut80")
    add("Moon, rise and set of a day", "moon_rise_set/zorel", "us", at_most(20.0), "libnova", "moon_rise_set/libnova")
    add("observed Hijri date, every day of a year", "hijri_year/zorel", "ms", at_most(5.0))
    add("magnetic declination", "magnetic_declination/zorel", "us")


def catalogue(table):
    # Processor time: all is in memory, and milliseconds on a busy machine are mostly those of others.
    measured = Measured("bench_catalogue", 0.1)
    for name, figure in [("search/common_London", "search, common name"), ("search/common_San", "search, 7361 hits"),
                         ("search/most_hits_ing", "search, most hits (\"ing\")"),
                         ("search/rare_Reykjavik", "search, rare name"), ("search/missing_xqzzy", "search, no hit")]:
        table.add(figure, measured.times(name, "ms", "cpu_time"), "ms", at_most(20.0))
    table.add("a name to its place", measured.times("resolve/name_Istanbul", "us", "cpu_time"), "us")


def building(table):
    say("build-catalogue")
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "cities.sqlite")
        runs = []
        for _ in range(3):
            result = run(["/usr/bin/time", "-f", "TIME %e %M", os.path.join(BUILD, "bin", "build-catalogue"),
                          "resources/catalogue", file])
            runs.append([float(text) for text in re.search(r"TIME (\S+) (\d+)", result.stderr).groups()])
        table.add("building the catalogue", [seconds for seconds, _ in runs], "s", at_most(5.0))
        table.add("building the catalogue, memory", [kilobytes / 1024.0 for _, kilobytes in runs], "MB", at_most(200.0))
        table.add("catalogue file", [os.path.getsize(file) / 1e6], "MB", at_most(25.0))


def alarms(table):
    measured = Measured("bench_alarms", 0.1)
    for name, figure in [("placed_anew", "six alarms placed anew, every fsync"),
                         ("moved", "six alarms moved, every fsync"), ("unchanged", "six alarms unchanged")]:
        table.add(figure, measured.times(f"setSixAlarms/{name}", "ms"), "ms", at_most(40.0))


def views(table):
    measured = Measured("bench_views", 0.1)
    table.add("a city row built and torn down", measured.times("cityRow", "us"), "us")
    table.add("an alarm editor built and torn down", measured.times("alarmEditor", "us"), "us")
    table.add("one random tap of the views", measured.times("randomTaps", "us"), "us")
    table.add("first city with six active alarms", measured.times("firstCityWithSixAlarms", "ms"), "ms", at_most(80.0))


def window(table):
    say("zorel-settings")
    os.environ.update(QT_QPA_PLATFORM="offscreen", QT_QUICK_BACKEND="software")
    with tempfile.TemporaryDirectory() as folder:
        runs = []
        for _ in range(REPETITIONS):
            output = run([os.path.join(BUILD, "bin", "zorel-settings"), "--time-start", "--data-dir", folder]).stdout
            runs.append([int(part) for part in re.search(r"(\d+) ms.* (\d+) MB", output).groups()])
    table.add("window, process start to first frame", [milliseconds for milliseconds, _ in runs], "ms", at_most(150.0))
    table.add("window, resident memory then", [megabytes for _, megabytes in runs], "MB", at_most(90.0))


def command_line(table):
    say("zorel")
    cli.measure(table, BUILD, 41)


def main():
    table = Table()
    for part in (engine, command_line, catalogue, building, alarms, views, window):
        try:
            part(table)
        except (RuntimeError, OSError, KeyError, AttributeError, SystemExit) as trouble:
            table.not_measured(part.__name__.replace("_", " "), str(trouble) or type(trouble).__name__)
    print(table.text())


if __name__ == "__main__":
    main()
