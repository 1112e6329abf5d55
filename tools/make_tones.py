#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Synthesises the ringtones in resources/Ringtones (mono, 16 bit, 16 kHz).

Every tone is built from decaying sine partials and nothing else, so it is this project's own work under its
licence. The same script always makes the same files; that is why they need no source recordings.
  make_tones.py            writes the files
  make_tones.py --check    writes nothing; exit code 1 when a file is missing or differs by more than one step
The folder holds nothing but tones: the alarm editor offers every file in it.
"""

import argparse
import math
import struct
import sys
import wave
from pathlib import Path

FOLDER = Path(__file__).resolve().parent.parent / "resources" / "Ringtones"
RATE = 16000  # samples per second
PEAK = 26000  # loudest sample of a tone

# A voice is a list of partials: (frequency ratio, strength, decay time in seconds).
BELL = [(0.5, 0.35, 1.6), (1.0, 1.0, 1.3), (1.183, 0.55, 0.9), (1.506, 0.3, 0.7), (2.0, 0.5, 0.6), (2.514, 0.2, 0.4)]
CHIME = [(1.0, 1.0, 1.1), (2.756, 0.45, 0.5), (5.404, 0.2, 0.25)]
WOOD = [(1.0, 1.0, 0.09), (3.93, 0.5, 0.04), (9.2, 0.15, 0.015)]
FLUTE = [(1.0, 1.0, 0.9), (2.0, 0.22, 0.7), (3.0, 0.08, 0.5)]
STRING = [(n, 1.0 / n**1.3, 1.4 / n**0.7) for n in range(1, 9)]

# A tone: (voice, attack in seconds, length in seconds, notes as (start in seconds, pitch in semitones above A4)).
TONES = {
    "Dawn Bell": (BELL, 0.004, 4.0, [(0.0, -9), (1.2, -9), (2.4, -5)]),
    "Garden Chime": (CHIME, 0.002, 3.4, [(0.0, 10), (0.35, 7), (0.7, 3), (1.05, 5), (1.4, 10), (2.1, 15)]),
    "Wood Blocks": (WOOD, 0.001, 2.4, [(0.4 * bar + beat, pitch) for bar in range(6)
                                       for beat, pitch in ((0.0, 3), (0.13, -2), (0.26, 3))]),
    "Evening Flute": (FLUTE, 0.07, 4.2, [(0.0, -7), (0.6, -5), (1.2, -2), (1.8, 0), (2.6, -2)]),
    "Plucked Strings": (STRING, 0.003, 3.6, [(0.25 * n, p) for n, p in enumerate((-21, -14, -9, -5, -2, -5, -9, -14))]),
}


def add_note(samples, voice, attack, start, pitch):
    """Adds one note to the samples."""
    frequency = 440.0 * 2.0 ** (pitch / 12.0)
    first = round(start * RATE)
    for ratio, strength, decay in voice:
        step = 2.0 * math.pi * frequency * ratio / RATE
        for place in range(first, len(samples)):
            age = (place - first) / RATE
            level = strength * math.exp(-age / decay)
            if level < 1e-4:
                break
            samples[place] += level * min(1.0, age / attack) * math.sin(step * (place - first))


def synthesise(voice, attack, length, notes):
    """All samples of a tone as integers, faded out over the last 0.2 s so that a repetition does not click."""
    samples = [0.0] * round(length * RATE)
    for start, pitch in notes:
        add_note(samples, voice, attack, start, pitch)
    fade = round(0.2 * RATE)
    for place in range(fade):
        samples[-1 - place] *= place / fade
    loudest = max(abs(sample) for sample in samples)
    return [round(PEAK * sample / loudest) for sample in samples]


def write_wave(path, samples):
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(struct.pack(f"<{len(samples)}h", *samples))


def read_wave(path):
    with wave.open(str(path), "rb") as file:
        return list(struct.unpack(f"<{file.getnframes()}h", file.readframes(file.getnframes())))


def is_up_to_date(path, samples):
    """One step of difference per sample is left to the rounding of another C library's sine."""
    if not path.exists():
        return False
    stored = read_wave(path)
    return len(stored) == len(samples) and all(abs(a - b) <= 1 for a, b in zip(stored, samples))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", action="store_true", help="write nothing, report what differs")
    arguments = parser.parse_args()
    stale = [path.name for path in FOLDER.glob("*") if path.stem not in TONES]
    for name, tone in TONES.items():
        path = FOLDER / f"{name}.wav"
        samples = synthesise(*tone)
        if not arguments.check:
            FOLDER.mkdir(parents=True, exist_ok=True)
            write_wave(path, samples)
        elif not is_up_to_date(path, samples):
            stale.append(path.name)
    for name in stale:
        print(f"{name}: not what tools/make_tones.py makes", file=sys.stderr)
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main())
