#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""shells_test.py PROGRAM BUNDLE: presses Tab in real shells at a terminal, and looks what they made of the line.

In each shell "zorel" is a script that asks the program for completions and otherwise prints its words."""
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

PROGRAM, BUNDLE = map(os.path.abspath, sys.argv[1:3])
PATIENCE = 60  # [s] for a machine that is busy
CASES = [
    ("zorel tod\t", ["today"]),
    ("zorel today --js\t", ["today", "--json"]),
    ("zorel --color al\t", ["--color", "always"]),
    ("zorel today Trondh\t", ["today", "Trondheim"]),
    ("zorel today Kuala\\ Lu\t", ["today", "Kuala Lumpur"]),
    ("zorel today Kuala Lu\t", ["today", "Kuala", "Lumpur"]),
    ("zorel today \"Kuala Lu\t", ["today", "Kuala Lumpur"]),
    ("zorel today kuala\\ lu\t", ["today", "Kuala Lumpur"]),
    ("zorel cities home Berg\t", ["cities", "home", "Bergama"]),
    ("zorel alarms ringtone fajr Evening\\ F\t", ["alarms", "ringtone", "fajr", "Evening Flute"]),
    ("zorel alarms on al\t", ["alarms", "on", "all"]),
]
STARTS = {
    "bash": (["bash", "--norc", "--noprofile", "-i"], "PS1='> '; . {folder}/zorel.bash\n"),
    "zsh": (["zsh", "-f", "-i"],
            "PS1='> '; fpath=({folder} $fpath); autoload -Uz compinit; compinit -u -d {folder}/dump\n"),
    "fish": (["fish", "--no-config", "-i"], "function fish_prompt; printf '> '; end; source {folder}/zorel.fish\n"),
}


class Terminal:
    """A shell at a terminal of its own."""

    def __init__(self, words, environment):
        self.process, self.handle = pty.fork()
        if self.process == 0:
            os.execvpe(words[0], words, environment)
        self.seen = ""

    def type(self, text):
        os.write(self.handle, text.encode())

    def wait_for(self, pattern):
        end = time.monotonic() + PATIENCE
        while not (found := re.search(pattern, self.seen)):
            if time.monotonic() > end or not select.select([self.handle], [], [], end - time.monotonic())[0]:
                return None
            try:
                self.seen += os.read(self.handle, 65536).decode(errors="replace")
            except OSError:
                return None
        self.seen = self.seen[found.end():]
        return found

    def close(self):
        os.kill(self.process, signal.SIGKILL)
        os.waitpid(self.process, 0)
        os.close(self.handle)


def prepare(folder):
    with open(f"{folder}/zorel", "w", encoding="utf-8") as script:
        script.write('#!/bin/sh\nif [ "$1" = complete ]; then shift; shell=$1; shift\n'
                     f'exec "{PROGRAM}" complete "$shell" --bundle "{BUNDLE}" --data-dir "{folder}/data" '
                     f'--ringtones "{folder}/tones" "$@"\nfi\n'
                     'printf GOT; for word in "$@"; do printf "[%s]" "$word"; done; echo .END\n')
    os.chmod(f"{folder}/zorel", 0o755)
    for shell, name in {"bash": "zorel.bash", "zsh": "_zorel", "fish": "zorel.fish"}.items():
        with open(f"{folder}/{name}", "w", encoding="utf-8") as script:
            subprocess.run([PROGRAM, "completion", shell], stdout=script, check=True)
    os.mkdir(folder + "/tones")
    open(folder + "/tones/Evening Flute.wav", "w", encoding="utf-8").close()
    subprocess.run([PROGRAM, "--bundle", BUNDLE, "--data-dir", folder + "/data", "cities", "add", "Bergama"],
                   stdout=subprocess.DEVNULL, check=True)


def failures_in(shell, folder):
    words, start = STARTS[shell]
    environment = dict(os.environ, PATH=f"{folder}:{os.environ['PATH']}", HOME=folder, XDG_DATA_HOME=folder,
                       XDG_CONFIG_HOME=folder, TERM="xterm", LC_ALL="C.UTF-8")
    failures = []
    terminal = Terminal(words, environment)
    terminal.type(start.format(folder=folder) + "zorel ready\n")
    if not terminal.wait_for(r"GOT\[ready\]\.END"):
        failures.append(f"{shell} does not start: {terminal.seen[-300:]!r}")
    for line, wanted in CASES if not failures else []:
        terminal.type(line)
        time.sleep(0.1)  # some shells take what follows a Tab at once for pasted text
        terminal.type("\n")
        got = terminal.wait_for(r"GOT((?:\[[^\]]*\])*)\.END")
        made = re.findall(r"\[([^\]]*)\]", got[1]) if got else None
        if made != wanted:
            failures.append(f"{shell}: {line!r} became {made}, not {wanted}; {terminal.seen[-200:]!r}")
        if not got:
            break
    terminal.close()
    return failures


def main():
    failures, missing = [], []
    for shell in STARTS:
        if not shutil.which(shell):
            missing.append(shell)
            continue
        with tempfile.TemporaryDirectory(prefix="zorel-shells-") as folder:
            prepare(folder)
            failures += failures_in(shell, folder)
    for failure in failures:
        print(failure)
    if failures:
        sys.exit(1)
    if missing:
        print("not installed: " + ", ".join(missing))
        sys.exit(77)
    print(f"{len(CASES)} lines in each of {', '.join(STARTS)}")


main()
