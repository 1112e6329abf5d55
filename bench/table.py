#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs every benchmark and prints one table: figure, ours, target, the peer's figure of the same run, ratio.

usage: bench/table.py [BUILD-FOLDER]     default: build/bench, built by bench/run.sh; takes some minutes
"""
import json
import os
import re
import statistics
import subprocess
import sys
import tempfile

BUILD = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else "build/bench")
REPETITIONS = 5
ROWS = []


def say(text):
    print(f"... {text}", file=sys.stderr, flush=True)


def number(value):
    return f"{value:.3g}" if value < 100 else f"{value:.0f}"


def row(figure, ours, unit, target="", peer="", peer_value=None):
    ratio = f"{ours / peer_value:.3f}" if peer_value else ""
    peer_text = f"{peer} {number(peer_value)} {unit}" if peer_value else peer
    ROWS.append((figure, f"{number(ours)} {unit}", target, peer_text, ratio))


def google(program):
    """Median of each benchmark of a program, in the benchmark's own unit."""
    say(program)
    with tempfile.NamedTemporaryFile(suffix=".json") as file:
        result = subprocess.run(
            [os.path.join(BUILD, "bin", program), f"--benchmark_out={file.name}", "--benchmark_out_format=json",
             f"--benchmark_repetitions={REPETITIONS}", "--benchmark_report_aggregates_only=true"],
            capture_output=True, text=True)
        if result.returncode != 0:
            sys.exit(f"{program} ended with {result.returncode}:\n{result.stderr}")
        entries = json.load(file)["benchmarks"]
    return {entry["run_name"].removesuffix("/real_time"): entry
            for entry in entries if entry["aggregate_name"] == "median"}


def engine():
    times = google("bench_engine")

    def median(name):
        return times[name]["cpu_time"] / 1000.0
    for group, figure, target in [("day_told_random", "a whole told day, random days", "ratio 0.75"),
                                  ("day_told_consecutive", "a whole told day, consecutive days", "ratio 1.2"),
                                  ("random_days", "16 prayer times, random days", "ratio 1.0"),
                                  ("consecutive_days", "16 prayer times, consecutive days", "ratio 1.0"),
                                  ("many_places", "16 prayer times, many places on one day", "report")]:
        names = {name: name.split("/", 1)[1] for name in times if group in name.split("/", 1)[0]}
        ours = next((name for name, who in names.items() if who.startswith("zorel")), None)
        peer = next((name for name, who in names.items() if who.startswith("libitl")), None)
        if ours:
            row(figure, median(ours), "us", target, "libitl", median(peer) if peer else None)
    row("Moon, full position", median("moon_position/zorel"), "us", "ratio 1.0", "moon98 + nut80",
        median("moon_position/moon98_nut80"))
    row("Moon, rise and set of a day", median("moon_rise_set/zorel"), "us", "20 us, ratio 0.02", "libnova",
        median("moon_rise_set/libnova"))
    row("observed Hijri date, every day of a year", times["hijri_year/zorel"]["cpu_time"], "ms", "5 ms")
    row("magnetic declination", median("magnetic_declination/zorel"), "us", "report")


def catalogue():
    times = google("bench_catalogue")
    for name, figure in [("search/common_London", "search, common name"), ("search/common_San", "search, 7361 hits"),
                         ("search/rare_Reykjavik", "search, rare name"), ("search/missing_xqzzy", "search, no hit")]:
        row(figure, times[name]["real_time"], "ms", "20 ms")
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "cities.sqlite")
        runs = []
        for _ in range(3):
            result = subprocess.run(
                ["/usr/bin/time", "-f", "TIME %e %M", os.path.join(BUILD, "bin", "build-catalogue"),
                 "resources/catalogue", file], capture_output=True, text=True, check=True)
            runs.append(re.search(r"TIME (\S+) (\d+)", result.stderr).groups())
        row("building the catalogue", statistics.median(float(run[0]) for run in runs), "s", "5 s")
        row("building the catalogue, memory", max(int(run[1]) for run in runs) / 1024.0, "MB", "200 MB")
        row("catalogue file", os.path.getsize(file) / 1e6, "MB", "25 MB")


def alarms_and_views():
    times = google("bench_alarms")
    for name, figure in [("placed_anew", "six alarms placed anew, every fsync"),
                         ("moved", "six alarms moved, every fsync"), ("unchanged", "six alarms unchanged")]:
        row(figure, times[f"setSixAlarms/{name}"]["real_time"], "ms", "40 ms")
    times = google("bench_views")
    row("a city row built and torn down", times["cityRow"]["real_time"], "us", "report")
    row("an alarm editor built and torn down", times["alarmEditor"]["real_time"], "us", "report")
    row("one random tap of the views", times["randomTaps"]["real_time"], "us", "report")
    row("first city with six active alarms", times["firstCityWithSixAlarms"]["real_time"], "ms", "80 ms")


def window():
    say("zorel-settings")
    program = os.path.join(BUILD, "bin", "zorel-settings")
    if not os.path.exists(program):
        return
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_QUICK_BACKEND="software")
    with tempfile.TemporaryDirectory() as folder:
        runs = []
        for _ in range(9):
            output = subprocess.run([program, "--time-start", "--data-dir", folder], env=environment,
                                    capture_output=True, text=True, check=True).stdout
            runs.append(tuple(int(part) for part in re.search(r"(\d+) ms.* (\d+) MB", output).groups()))
    row("window, process start to first frame", statistics.median(run[0] for run in runs), "ms", "150 ms")
    row("window, resident memory then", statistics.median(run[1] for run in runs), "MB", "90 MB")


def command_line():
    say("zorel")
    print(subprocess.run([sys.executable, "bench/cli.py", BUILD, "21"], capture_output=True, text=True,
                         check=True).stdout)


def main():
    for part in (engine, catalogue, alarms_and_views, window):
        part()
    widths = [max(len(line[column]) for line in ROWS) for column in range(5)]
    print("| " + " | ".join(title.ljust(width) for title, width in
                           zip(("figure", "ours", "target", "peer, same run", "ratio"), widths)) + " |")
    print("|---|---:|---|---|---:|")
    for line in ROWS:
        print("| " + " | ".join(text.ljust(width) for text, width in zip(line, widths)) + " |")
    print()
    command_line()


if __name__ == "__main__":
    main()
