# SPDX-License-Identifier: Apache-2.0
"""What people have in a ringtone folder is heard: each format is made, played by zorel-ring-play and recorded again.

usage: dbus-run-session -- python3 formats_test.py BIN
Two sound servers with a sink of nothing whose monitor is recorded: PulseAudio, and PipeWire without its PulseAudio interface.
Exit status 77 where a program or an encoder is missing.
"""

import array
import math
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

SKIPPED = 77
RATE = 8000    # samples a second of the recording
PITCH = 1000   # Hz
LENGTH = 3     # s of the tones that are made
PLAYED = 2     # s that they are played
NEEDED = ["pulseaudio", "parec", "pipewire", "wireplumber", "pw-record", "pw-cli"]
# What GStreamer makes of a tone. libav has the only encoder for AAC of those that Debian's main archive has.
ENCODERS = {
    "wav": "audioconvert ! wavenc",
    "ogg": "audioconvert ! vorbisenc ! oggmux",
    "mp3": "audioconvert ! lamemp3enc ! id3v2mux",
    "flac": "audioconvert ! flacenc",
    "opus": "audioconvert ! audioresample ! opusenc ! oggmux",
    "m4a": "audioconvert ! avenc_aac ! mp4mux",
    "m4r": "audioconvert ! avenc_aac ! mp4mux",
}


def lacking():
    for program in NEEDED:
        if not shutil.which(program):
            return program
    try:
        import gi
        gi.require_version("Gst", "1.0")
        from gi.repository import Gst
    except (ImportError, ValueError) as error:
        return str(error)
    Gst.init(None)
    for element in ("lamemp3enc", "flacenc", "opusenc", "vorbisenc", "avenc_aac", "mp4mux", "pulsesink", "pipewiresink"):
        if Gst.ElementFactory.find(element) is None:
            return f"the GStreamer element {element}"
    return None


def make_tone(path, encoder):
    from gi.repository import Gst
    buffers = LENGTH * 44100 // 1024
    pipeline = Gst.parse_launch(f"audiotestsrc num-buffers={buffers} freq={PITCH} volume=0.5 ! audio/x-raw,rate=44100 ! {encoder} "
                                f"! filesink name=file")
    pipeline.get_by_name("file").set_property("location", str(path))
    pipeline.set_state(Gst.State.PLAYING)
    message = pipeline.get_bus().timed_pop_filtered(60 * Gst.SECOND, Gst.MessageType.EOS | Gst.MessageType.ERROR)
    pipeline.set_state(Gst.State.NULL)
    if message is None or message.type == Gst.MessageType.ERROR:
        raise RuntimeError(f"cannot make {path.name}")


class PulseAudio:
    name = "PulseAudio"

    def __init__(self):
        self.server = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--load=module-null-sink sink_name=null",
             "--load=module-native-protocol-unix"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.environment = dict(os.environ)
        wait_for(lambda: subprocess.run(["pactl", "info"], capture_output=True).returncode == 0)

    def record(self):
        return subprocess.Popen(["parec", "-d", "null.monitor", "--format=s16le", f"--rate={RATE}", "--channels=1",
                                 "--latency-msec=20"], stdout=subprocess.PIPE)

    def close(self):
        self.server.terminate()
        self.server.wait()


class PipeWire:
    name = "PipeWire"

    def __init__(self, output=True):
        # Nobody answers where PulseAudio's clients look: the player has to find PipeWire itself.
        self.environment = os.environ | {"PULSE_SERVER": "unix:/nowhere"}
        runtime = Path(os.environ["XDG_RUNTIME_DIR"])
        parts = runtime / "config" / "pipewire" / "pipewire.conf.d"
        parts.mkdir(parents=True)
        (parts / "quiet.conf").write_text("" if not output else
            "context.objects = [ { factory = adapter args = { factory.name = support.null-audio-sink node.name = quiet "
            "media.class = Audio/Sink object.linger = true audio.position = [ FL FR ] } } ]\n")
        own = self.environment | {"XDG_CONFIG_HOME": str(runtime / "config"), "XDG_STATE_HOME": str(runtime / "state")}
        self.servers = []
        for server in ("pipewire", "wireplumber"):
            self.servers.append(
                subprocess.Popen([server], env=own, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
            wait_for(lambda: "application.name" in self.ask("Client"))
        wait_for(lambda: "WirePlumber" in self.ask("Client") and ("quiet" in self.ask("Node") or not output))

    @staticmethod
    def ask(kind):
        return subprocess.run(["pw-cli", "ls", kind], capture_output=True, text=True).stdout

    def record(self):
        return subprocess.Popen(["pw-record", "--target", "quiet", "-P", "{ stream.capture.sink = true }", "--rate", str(RATE),
                                 "--channels", "1", "--format", "s16", "-"], stdout=subprocess.PIPE)

    def close(self):
        for server in reversed(self.servers):
            server.terminate()
            server.wait()


def wait_for(holds, seconds=20):
    end = time.monotonic() + seconds
    while not holds():
        if time.monotonic() > end:
            raise RuntimeError("it does not come up")
        time.sleep(0.1)


def share_of_pitch(samples):
    """The share of the samples' power that lies at the tone's pitch (Goertzel)."""
    weight = 2 * math.cos(2 * math.pi * PITCH / RATE)
    before = last = 0.0
    for sample in samples:
        before, last = last, sample + weight * last - before
    power = last * last + before * before - weight * last * before
    total = sum(sample * sample for sample in samples)
    return 2 * power / (len(samples) * total) if total else 0.0


class Formats(unittest.TestCase):
    def hear(self, server, *files):
        """Exit status of the player, seconds that were loud, and the share of the right pitch in them."""
        recorder = server.record()
        os.set_blocking(recorder.stdout.fileno(), False)
        samples = bytearray()
        end = time.monotonic() + 20
        while len(samples) < RATE // 4 and time.monotonic() < end:  # it hears: silence, so far
            samples += recorder.stdout.read(65536) or b""
            time.sleep(0.02)
        player = subprocess.Popen([BIN / "zorel-ring-play", "--seconds", str(PLAYED), *files], env=server.environment,
                                  stderr=subprocess.DEVNULL)
        end = time.monotonic() + 40
        quiet = None
        while time.monotonic() < end and (quiet is None or time.monotonic() < quiet):
            samples += recorder.stdout.read(65536) or b""
            if quiet is None and player.poll() is not None:
                quiet = time.monotonic() + 0.7
            time.sleep(0.02)
        player.kill()
        status = player.wait()
        recorder.terminate()
        recorder.wait()
        recorder.stdout.close()
        values = array.array("h", bytes(samples[: len(samples) // 2 * 2]))
        step = RATE // 10
        loud = [values[at: at + step] for at in range(0, len(values) - step, step) if max(map(abs, values[at: at + step])) > 300]
        # A busy machine may break the sound of a server without real-time rights here and there.
        shares = sorted(share_of_pitch(part) for part in loud[2:-2])
        return status, len(loud) / 10, shares[len(shares) // 2] if shares else 0.0

    def expect_heard(self, server, file):
        status, seconds, share = self.hear(server, file)
        print(f"  {server.name:10} {file.suffix[1:]:5} {seconds:.1f} s, {share:.2f} of it {PITCH} Hz", flush=True)
        self.assertEqual(status, 0)
        self.assertGreater(seconds, PLAYED - 0.8)
        self.assertLess(seconds, PLAYED + 0.7)
        self.assertGreater(share, 0.8)

    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp(prefix="zorel-formats-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder, True)
        for format, encoder in ENCODERS.items():
            make_tone(cls.folder / f"tone.{format}", encoder)

    def serve(self, kind):
        runtime = Path(tempfile.mkdtemp(prefix="zorel-sound-"))
        self.addCleanup(shutil.rmtree, runtime, True)
        os.environ["XDG_RUNTIME_DIR"] = str(runtime)
        server = kind()
        self.addCleanup(server.close)
        return server

    def test_every_format_is_heard_through_pulseaudio(self):
        server = self.serve(PulseAudio)
        for format in ENCODERS:
            with self.subTest(format=format):
                self.expect_heard(server, self.folder / f"tone.{format}")

    def test_what_cannot_be_played_makes_room_for_the_next(self):
        server = self.serve(PulseAudio)
        broken = self.folder / "broken.mp3"
        broken.write_bytes((self.folder / "tone.mp3").read_bytes()[:40])
        text = self.folder / "text.ogg"
        text.write_text("no sound at all\n" * 100)
        for bad in (broken, text, self.folder / "gone.wav", self.folder):
            with self.subTest(bad=bad.name):
                status, seconds, share = self.hear(server, bad, self.folder / "tone.ogg")
                self.assertEqual(status, 4)
                self.assertGreater(seconds, PLAYED - 0.8)
                self.assertGreater(share, 0.8)

    def test_pipewire_is_found_where_nobody_speaks_for_pulseaudio(self):
        server = self.serve(PipeWire)
        for format in ("wav", "m4a"):
            with self.subTest(format=format):
                self.expect_heard(server, self.folder / f"tone.{format}")


    def test_a_sound_server_without_an_output_takes_no_sound(self):
        server = self.serve(lambda: PipeWire(output=False))
        player = subprocess.run([BIN / "zorel-ring-play", "--seconds", "2", self.folder / "tone.wav"], env=server.environment,
                                capture_output=True, timeout=60)
        self.assertEqual(player.returncode, 3)


if __name__ == "__main__":
    missing = lacking()
    if missing:
        print(f"{__file__}: Skipped\nnot installed: {missing}")
        sys.exit(SKIPPED)
    BIN = Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
