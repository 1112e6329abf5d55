#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""widgets_test.py PROGRAM BUNDLE PAGE: runs the samples for conky and tmux as the page has them, in these programs."""
import os
import pty
import re
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time

PROGRAM, BUNDLE, PAGE = map(os.path.abspath, sys.argv[1:4])
PATIENCE = 90  # [s] for a machine that is busy


def sample(title):
    """The first block of code below a heading of the page."""
    with open(PAGE, encoding="utf-8") as page:
        section = page.read().split(f"\n## {title}\n", 1)[1]
    return re.search(r"```\w*\n(.*?)```", section, re.DOTALL)[1]


def environment(folder):
    with open(f"{folder}/zorel", "w", encoding="utf-8") as script:
        script.write(f'#!/bin/sh\nexec "{PROGRAM}" --bundle "{BUNDLE}" --data-dir "{folder}/data" --lang en "$@"\n')
    os.chmod(f"{folder}/zorel", 0o755)
    variables = dict(os.environ, PATH=f"{folder}:{os.environ['PATH']}", HOME=folder, TERM="xterm", LC_ALL="C.UTF-8")
    variables.pop("TMUX", None)
    subprocess.run([f"{folder}/zorel", "cities", "add", "Istanbul"], env=variables, stdout=subprocess.DEVNULL, check=True)
    return variables


def next_time(folder, variables):
    return subprocess.run([f"{folder}/zorel", "next", "--format", "{name} {time}"], env=variables, capture_output=True, text=True,
                          check=True).stdout.strip()


def conky(folder, variables):
    with open(f"{folder}/conky.conf", "w", encoding="utf-8") as configuration:
        configuration.write(sample("conky"))
    return subprocess.run(["conky", "-c", f"{folder}/conky.conf", "-i", "2"], env=variables, capture_output=True, text=True,
                          timeout=PATIENCE, check=False).stdout


def tmux(folder, variables):
    """What stands on the screen once the status line is drawn."""
    with open(f"{folder}/tmux.conf", "w", encoding="utf-8") as configuration:
        configuration.write(sample("tmux"))
    process, handle = pty.fork()
    if process == 0:
        os.execvpe("tmux", ["tmux", "-u", "-S", f"{folder}/socket", "-f", f"{folder}/tmux.conf", "new-session", "sleep 600"],
                   variables)
    seen, end = "", time.monotonic() + PATIENCE
    while not re.search(r"\d\d:\d\d( \+1)? \(\d", seen) and time.monotonic() < end:
        if select.select([handle], [], [], 1.0)[0]:
            seen += os.read(handle, 65536).decode(errors="replace")
        else:  # the status line is drawn again when something asks for it
            subprocess.run(["tmux", "-S", f"{folder}/socket", "refresh-client", "-S"], env=variables, check=False,
                           stderr=subprocess.DEVNULL)
    subprocess.run(["tmux", "-S", f"{folder}/socket", "kill-server"], env=variables, check=False)
    os.kill(process, signal.SIGKILL)
    os.waitpid(process, 0)
    return re.sub(r"\x1b\[[0-9;?]*[A-Za-z]", "", seen)


def main():
    failures, missing = [], []
    for name, show in {"conky": conky, "tmux": tmux}.items():
        if not shutil.which(name):
            missing.append(name)
            continue
        with tempfile.TemporaryDirectory(prefix="zorel-widgets-") as folder:
            variables = environment(folder)
            before = next_time(folder, variables)
            shown = show(folder, variables)
            if not any(text in shown for text in (before, next_time(folder, variables))):
                failures.append(f"{name} shows {shown[-500:]!r} and not {before!r}")
    for failure in failures:
        print(failure)
    if missing:
        print("not installed: " + ", ".join(missing))
    sys.exit(1 if failures else 77 if missing else 0)


main()
