# SPDX-License-Identifier: Apache-2.0
"""The ring service in a session: a real bus, a notification server, PulseAudio with a sink whose monitor is recorded.

usage: dbus-run-session -- python3 session_test.py BIN
Exit status 77 where a program is missing that makes the session. Nothing here sets the clock of the system.
"""

import array
import json
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from datetime import datetime, timedelta, timezone
from pathlib import Path

SKIPPED = 77
try:
    import dbus
    import dbus.mainloop.glib
    import dbus.service
    from gi.repository import GLib
except ImportError as error:
    print(f"{error.name} is not installed")
    sys.exit(SKIPPED)
for program in ("pulseaudio", "parec"):
    if not shutil.which(program):
        print(f"{program} is not installed")
        sys.exit(SKIPPED)

BIN = Path(sys.argv[1]).resolve() if len(sys.argv) > 1 else Path()
TONES = Path(__file__).parents[2] / "resources" / "Ringtones"
RATE = 8000  # samples a second of the recording
NOTIFICATIONS = "org.freedesktop.Notifications"


class Server(dbus.service.Object):
    """A notification server that keeps what it was told."""

    def __init__(self, bus):
        super().__init__(bus, "/org/freedesktop/Notifications")
        self.capabilities = ["actions", "body"]
        self.inhibited = None
        self.shown, self.closed = [], []

    @dbus.service.method(NOTIFICATIONS, in_signature="susssasa{sv}i", out_signature="u")
    def Notify(self, application, replaces, icon, title, body, actions, hints, timeout):
        self.shown.append({"at": time.time(), "title": str(title), "body": str(body), "actions": [str(each) for each in actions],
                           "urgency": int(hints["urgency"]), "timeout": int(timeout)})
        return len(self.shown)

    @dbus.service.method(NOTIFICATIONS, in_signature="u")
    def CloseNotification(self, number):
        self.closed.append(int(number))
        self.NotificationClosed(number, 3)

    @dbus.service.method(NOTIFICATIONS, out_signature="as")
    def GetCapabilities(self):
        return self.capabilities

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        if name == "Inhibited" and self.inhibited is not None:
            return dbus.Boolean(self.inhibited)
        raise dbus.exceptions.DBusException("no such property", name="org.freedesktop.DBus.Error.UnknownProperty")

    @dbus.service.signal(NOTIFICATIONS, signature="uu")
    def NotificationClosed(self, number, reason):
        pass

    @dbus.service.signal(NOTIFICATIONS, signature="us")
    def ActionInvoked(self, number, action):
        pass


class Recording:
    """What the sink plays, from now on."""

    def __init__(self):
        self.process = subprocess.Popen(
            ["parec", "-d", "null.monitor", "--format=s16le", f"--rate={RATE}", "--channels=1", "--latency-msec=20"],
            stdout=subprocess.PIPE)
        os.set_blocking(self.process.stdout.fileno(), False)
        self.samples = bytearray()

    def pull(self):
        while chunk := self.process.stdout.read(65536):
            self.samples += chunk

    def sound(self):
        """Seconds from the first to the last tenth that is loud, and the loudest sample (0 to 1) of each tenth."""
        self.pull()
        values = array.array("h", bytes(self.samples[: len(self.samples) // 2 * 2]))
        step = RATE // 10
        peaks = [max(map(abs, values[at : at + step])) / 32768 for at in range(0, len(values) - step, step)]
        loud = [number for number, peak in enumerate(peaks) if peak > 0.003]
        if not loud:
            return 0.0, []
        return (loud[-1] - loud[0] + 1) / 10, peaks[loud[0] : loud[-1] + 1]

    def close(self):
        self.process.terminate()
        self.process.wait()
        self.process.stdout.close()


class Session(unittest.TestCase):
    runtime = None

    @classmethod
    def setUpClass(cls):
        if Session.runtime is not None:
            return  # one session serves all classes
        cls = Session
        cls.runtime = tempfile.mkdtemp(prefix="zorel-session-")
        os.environ["XDG_RUNTIME_DIR"] = cls.runtime
        dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
        cls.bus = dbus.SessionBus()
        cls.server = Server(cls.bus)
        cls.context = GLib.MainContext.default()
        cls.sound = cls.start_sound()
        unittest.addModuleCleanup(cls.end_session)

    @classmethod
    def start_sound(cls):
        process = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--load=module-null-sink sink_name=null",
             "--load=module-native-protocol-unix"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        for _ in range(100):
            if subprocess.run(["pactl", "info"], capture_output=True).returncode == 0:
                return process
            time.sleep(0.1)
        raise RuntimeError("PulseAudio does not come up")

    @classmethod
    def end_session(cls):
        cls.sound.terminate()
        cls.sound.wait()
        shutil.rmtree(cls.runtime, ignore_errors=True)

    def setUp(self):
        self.server.capabilities, self.server.inhibited = ["actions", "body"], None
        self.server.shown.clear()
        self.server.closed.clear()
        self.bus.request_name(NOTIFICATIONS)
        self.folder = Path(tempfile.mkdtemp(prefix="zorel-ring-"))
        self.addCleanup(shutil.rmtree, self.folder, True)
        self.data = self.folder / "data"
        self.data.mkdir()
        # A planner that prints what the test wrote, and the real player.
        (self.folder / "zorel-ring-play").symlink_to(BIN / "zorel-ring-play")
        planner = self.folder / "zorel-ring-plan"
        planner.write_text(f"#!/bin/sh\ncat {self.folder}/plan\n")
        planner.chmod(0o755)
        self.write_plan()
        self.services = []
        self.recording = Recording()
        self.addCleanup(self.recording.close)
        self.addCleanup(self.end_services)

    def end_services(self):
        for process in self.services:
            process.kill()
            process.wait()
            process.stderr.close()
        # A player that is asked to end fades; the next test must not hear it.
        self.wait(lambda: not subprocess.run(["pactl", "list", "short", "sink-inputs"], capture_output=True).stdout)

    # What a test does.

    def write_plan(self, at=None, ringtone=TONES / "Garden Chime.wav", seconds=5):
        lines = [] if at is None else [
            f"ring\tfajr\t{at}\tFajr 06:08\tIstanbul\tFajr was at 06:08\t{ringtone}\t{TONES / 'Dawn Bell.wav'}\t{seconds}"]
        lines += ["stop\tStop", "snooze\tSnooze 5 min", "keeper\t", "trouble\t", "end", ""]
        (self.folder / "plan").write_text("\n".join(lines))

    def start(self, *options, helpers=True, **environment):
        words = [BIN / "zorel-ring", "--data-dir", self.data, *options]
        process = subprocess.Popen(words + (["--helpers", self.folder] if helpers else []), stderr=subprocess.PIPE, text=True,
                                   env=os.environ | environment)
        self.services.append(process)
        return process

    def ask(self, *options):
        """The service asks this process's server back, so it must not be waited for without serving."""
        process = subprocess.Popen([BIN / "zorel-ring", *options], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.wait(lambda: process.poll() is not None)
        text = process.stdout.read()
        process.stdout.close()
        return process.returncode, text

    def status(self):
        return self.ask("--status")[1]

    def serve(self, seconds):
        self.wait(lambda: False, seconds)

    def wait(self, holds, seconds=10.0):
        end = time.monotonic() + seconds
        while not holds() and time.monotonic() < end:
            while self.context.iteration(False):
                pass
            self.recording.pull()
            time.sleep(0.005)
        return holds()

    def start_waiting(self, *options):
        process = self.start(*options)
        self.assertTrue(self.wait(lambda: "wakes" in self.status()), "the service does not answer")
        return process

    def wait_for_ring(self, count=1):
        self.assertTrue(self.wait(lambda: len(self.server.shown) == count), "nothing was shown")
        return self.server.shown[-1]

    @staticmethod
    def soon(seconds=3):
        return int(time.time()) + seconds


class Ringing(Session):
    def test_rings_on_the_second_for_its_time_with_a_soft_beginning_and_end(self):
        at = self.soon()
        self.write_plan(at)
        self.start_waiting()
        ring = self.wait_for_ring()
        self.assertGreaterEqual(ring["at"], at)
        self.assertLess(ring["at"], at + 1)
        self.assertEqual((ring["title"], ring["body"]), ("Fajr 06:08", "Istanbul"))
        self.assertEqual(ring["actions"], ["default", "Stop", "stop", "Stop", "snooze", "Snooze 5 min"])
        self.assertEqual((ring["urgency"], ring["timeout"]), (2, 0))
        self.serve(7)
        length, peaks = self.recording.sound()
        self.assertAlmostEqual(length, 5, delta=0.9)
        self.assertGreater(max(peaks), 0.1)
        self.assertLess(max(peaks[:2] + peaks[-2:]), max(peaks) / 4)
        self.assertIn("sound ended, played", self.status())

    def test_a_short_tone_goes_on_for_the_whole_time(self):
        self.write_plan(self.soon(), TONES / "Wood Blocks.wav", 20)
        self.start_waiting()
        self.wait_for_ring()
        self.serve(22)
        self.assertAlmostEqual(self.recording.sound()[0], 20, delta=1.5)

    def test_stop_of_the_notification_silences(self):
        self.write_plan(self.soon(), seconds=60)
        self.start_waiting()
        self.wait_for_ring()
        self.serve(2)
        self.server.ActionInvoked(1, "stop")
        self.assertTrue(self.wait(lambda: "sound ended" in self.status()))
        self.assertEqual(self.server.closed, [1])
        self.serve(1)
        self.assertLess(self.recording.sound()[0], 4)

    def test_closing_the_notification_silences_and_expiring_does_not(self):
        self.write_plan(self.soon(), seconds=60)
        self.start_waiting()
        self.wait_for_ring()
        self.server.NotificationClosed(77, 2)
        self.serve(1)
        self.assertNotIn("sound ended", self.status())
        self.server.NotificationClosed(1, 2)
        self.assertTrue(self.wait(lambda: "sound ended" in self.status()))

    def test_stop_from_a_terminal_silences(self):
        self.write_plan(self.soon(), seconds=60)
        self.start_waiting()
        self.wait_for_ring()
        self.assertEqual(self.ask("--stop")[0], 0)
        self.assertTrue(self.wait(lambda: "sound ended" in self.status()))

    def test_snooze_rings_again_even_when_the_service_was_started_anew(self):
        self.write_plan(self.soon(), seconds=60)
        process = self.start_waiting()
        self.wait_for_ring()
        self.server.ActionInvoked(1, "snooze")
        self.assertTrue(self.wait(lambda: "sound ended" in self.status()))
        rung = self.data / "rung.txt"
        until = int(rung.read_text().split("snoozed\t")[1].split("\t")[0])
        self.assertAlmostEqual(until - time.time(), 300, delta=15)
        process.kill()
        process.wait()
        # The five minutes are not waited for: the note of them is written earlier.
        rung.write_text(rung.read_text().replace(f"snoozed\t{until}", f"snoozed\t{self.soon()}"))
        self.start_waiting()
        self.assertEqual(self.wait_for_ring(2)["title"], "Fajr 06:08")
        self.assertNotIn("snoozed", rung.read_text())

    def test_an_edit_while_it_waits_counts_at_once(self):
        self.write_plan(int(time.time()) + 3600)
        self.start_waiting()
        at = self.soon()
        self.write_plan(at)
        (self.data / "user.sqlite").write_text("changed")
        self.assertLess(self.wait_for_ring()["at"], at + 1)

    def test_a_killed_service_that_is_started_anew_rings_nothing_twice(self):
        self.write_plan(self.soon(), seconds=60)
        process = self.start_waiting()
        self.wait_for_ring()
        process.kill()
        process.wait()
        self.start_waiting()
        self.serve(2)
        self.assertEqual(len(self.server.shown), 1)

    def test_what_was_missed_is_told_without_sound(self):
        self.write_plan(int(time.time()) - 240)
        self.start_waiting()
        missed = self.wait_for_ring()
        self.assertEqual((missed["title"], missed["actions"], missed["urgency"]), ("Fajr was at 06:08", [], 1))
        self.serve(2)
        self.assertEqual(self.recording.sound()[0], 0)

    def test_what_was_missed_long_ago_is_not_told(self):
        self.write_plan(int(time.time()) - 660)
        self.start_waiting()
        self.serve(1)
        self.assertEqual(self.server.shown, [])

    def test_two_services_ring_once(self):
        self.write_plan(self.soon(4))
        self.start_waiting()
        second = self.start()
        self.assertTrue(self.wait(lambda: second.poll() is not None))
        self.assertEqual(second.returncode, 0)
        self.wait_for_ring()
        self.serve(2)
        self.assertEqual(len(self.server.shown), 1)

    def test_do_not_disturb_is_silent(self):
        self.server.inhibited = True
        self.write_plan(self.soon())
        self.start_waiting()
        self.wait_for_ring()
        self.serve(3)
        self.assertEqual(self.recording.sound()[0], 0)
        self.assertIn("do not disturb", self.status())

    def test_a_server_without_buttons_gets_none(self):
        self.server.capabilities = ["body"]
        self.write_plan(self.soon())
        self.start_waiting()
        self.assertEqual(self.wait_for_ring()["actions"], [])


class CommandLine(Session):
    def zorel(self, *words):
        """Not waited for by hand: the ring service asks this process's server meanwhile."""
        process = subprocess.Popen([BIN / "zorel", "--data-dir", self.data, *words], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   text=True, env=os.environ | {"XDG_CONFIG_HOME": str(self.folder / "config")})
        self.wait(lambda: process.poll() is not None, 20)
        out, err = process.communicate()
        return process.returncode, out + err

    def test_an_alarm_is_tried_and_silenced(self):
        self.write_plan(int(time.time()) + 3600, seconds=60)
        self.start_waiting()
        self.assertEqual(self.zorel("alarms", "test", "fajr"), (0, ""))
        self.assertEqual(self.wait_for_ring()["title"], "Fajr 06:08")
        self.serve(5)
        self.assertEqual(self.zorel("alarms", "stop"), (0, ""))
        self.assertTrue(self.wait(lambda: "sound ended, played" in self.status()))
        self.assertGreater(max(self.recording.sound()[1]), 0.1)

    def test_nothing_to_silence_is_said(self):
        status, text = self.zorel("alarms", "stop")
        self.assertEqual(status, 3)
        self.assertIn("does not run", text)

    def test_it_keeps_still_while_gnome_rings(self):
        self.start(helpers=False, XDG_CONFIG_HOME=str(self.folder / "config"))
        self.assertTrue(self.wait(lambda: "wakes" in self.status()))
        self.assertNotIn("trouble", self.status())  # a user without a database has no alarms
        self.assertEqual(self.zorel("alarms", "connect", "gnome")[0], 0)
        self.assertTrue(self.wait(lambda: "keeper\tGNOME" in self.status()))
        self.assertEqual(self.zorel("alarms", "connect", "none")[0], 0)
        self.assertTrue(self.wait(lambda: "keeper" not in self.status()))


class Missing(Session):
    def test_without_the_ringtone_the_bundled_tone_sounds_and_that_is_said(self):
        broken = self.folder / "broken.ogg"
        broken.write_bytes(b"no sound at all" * 100)
        for ringtone in (self.folder / "gone.ogg", broken):
            with self.subTest(ringtone=ringtone.name):
                self.write_plan(self.soon(), ringtone)
                process = self.start_waiting()
                self.assertTrue(self.wait(lambda: "the bundled tone was" in self.status(), 15))
                self.assertGreater(max(self.recording.sound()[1]), 0.1)
                process.terminate()
                self.assertIn(f"{ringtone} cannot be played", process.communicate()[1])
                self.recording.samples.clear()

    def test_without_a_sound_server_there_is_the_notification(self):
        self.write_plan(self.soon())
        self.start("--calendar", str(self.data), PULSE_SERVER="unix:/nowhere")
        self.wait_for_ring()
        self.assertTrue(self.wait(lambda: "no sound server" in self.status()))
        self.assertNotIn("nobody was told", self.status())

    def test_without_a_notification_server_there_is_the_sound(self):
        self.bus.release_name(NOTIFICATIONS)
        self.write_plan(self.soon())
        self.start_waiting()
        self.assertTrue(self.wait(lambda: "no notification server" in self.status(), 15))
        self.serve(4)
        self.assertGreater(max(self.recording.sound()[1]), 0.1)

    def test_without_either_a_line_says_that_nobody_was_told(self):
        self.bus.release_name(NOTIFICATIONS)
        self.write_plan(self.soon())
        process = self.start(PULSE_SERVER="unix:/nowhere")
        self.assertTrue(self.wait(lambda: "nobody was told" in self.status(), 15))
        process.terminate()
        self.assertIn("nobody was told", process.communicate()[1])

    def test_without_a_bus_there_is_the_sound(self):
        self.write_plan(self.soon())
        self.start(DBUS_SESSION_BUS_ADDRESS="", XDG_RUNTIME_DIR=str(self.folder),
                   PULSE_SERVER=f"unix:{self.runtime}/pulse/native")
        self.serve(7)
        self.assertGreater(max(self.recording.sound()[1], default=0), 0.1)


class Whole(Session):
    """Everything as people have it: the command line, the real planner, the event in the calendar."""

    @staticmethod
    def zorel(folder, *words):
        return subprocess.run([BIN / "zorel", "--data-dir", folder, *words], check=True, capture_output=True, text=True,
                              env=os.environ | {"TZ": "UTC", "LANG": "C.UTF-8"}).stdout

    def alarm_for(self, minute):
        """A city, a prayer of it and the offset that make an alarm ring at a full minute."""
        for city in ("745044", "2950159", "5128581", "1275339", "1642911", "360630", "5391959", "2147714", "3448439", "184745"):
            day = json.loads(self.zorel(self.data, "today", city, "--json", "--now", minute.isoformat()))
            for prayer in ("fajr", "sunrise", "dhuhr", "asr", "maghrib", "isha"):
                if day["times"][prayer]:
                    offset = (minute - datetime.fromisoformat(day["times"][prayer])).total_seconds() / 60
                    if offset == int(offset) and abs(offset) <= 59:
                        return city, prayer, int(offset)
        raise RuntimeError("no city has a time within an hour of this minute")

    def test_an_alarm_that_is_switched_on_rings_at_its_minute(self):
        minute = (datetime.now(timezone.utc) + timedelta(seconds=75)).replace(second=0, microsecond=0)
        city, prayer, offset = self.alarm_for(minute)
        earlier = ("--now", (minute - timedelta(minutes=20)).isoformat())
        self.start(helpers=False)
        self.assertTrue(self.wait(lambda: "wakes" in self.status()))
        self.zorel(self.data, "cities", "add", city)
        self.zorel(self.data, "alarms", "on", prayer, *earlier)
        self.zorel(self.data, "alarms", "offset", prayer, str(offset), *earlier)
        self.assertTrue(self.wait(lambda: f"next\t{prayer}\t{int(minute.timestamp())}" in self.status()))
        self.assertTrue(self.wait(lambda: self.server.shown, 90))
        ring = self.server.shown[0]
        self.assertGreaterEqual(ring["at"], minute.timestamp())
        self.assertLess(ring["at"], minute.timestamp() + 1)
        self.serve(3)
        self.assertGreater(max(self.recording.sound()[1]), 0.1)
        # When its event is over, it is moved to the next day.
        self.assertTrue(self.wait(lambda: f"next\t{prayer}" in self.status(), 75))


class Starting(unittest.TestCase):
    """Each in a bus of its own."""

    def in_session(self, script, **environment):
        return subprocess.run(["dbus-run-session", "--", "sh", "-c", script], capture_output=True, text=True, timeout=60,
                              env=os.environ | environment)

    def test_the_bus_starts_it_without_systemd(self):
        with tempfile.TemporaryDirectory(prefix="zorel-start-") as folder:
            services = Path(folder) / "dbus-1" / "services"
            services.mkdir(parents=True)
            shutil.copy(Path(__file__).parents[2] / "resources/dbus/org.zorel.Ring.service", services)
            result = self.in_session("zorel-ring --start && zorel-ring --status", XDG_DATA_HOME=folder,
                                     PATH=f"{BIN}:{os.environ['PATH']}")
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertIn("wakes\t", result.stdout)

    def test_without_its_service_file_it_starts_itself_once(self):
        with tempfile.TemporaryDirectory(prefix="zorel-start-") as folder:
            script = f"'{BIN}/zorel-ring' --start && '{BIN}/zorel-ring' --start && '{BIN}/zorel-ring' --status"
            result = self.in_session(script, XDG_DATA_HOME=folder, XDG_DATA_DIRS=folder)
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertIn("wakes\t", result.stdout)

    def test_an_alarm_that_is_switched_on_starts_it_and_says_who_rings(self):
        with tempfile.TemporaryDirectory(prefix="zorel-start-") as folder:
            script = f"""'{BIN}/zorel' cities add 745044 && '{BIN}/zorel' alarms on fajr || exit 1
                         for _ in 1 2 3 4 5 6 7 8 9 10; do  # until its first plan is there
                             '{BIN}/zorel-ring' --status | grep next && exit 0; sleep 0.5
                         done; exit 1"""
            result = self.in_session(script, XDG_DATA_HOME=folder, XDG_DATA_DIRS=folder)
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertIn("rings through zorel-ring", result.stderr)
            self.assertIn("next\tfajr\t", result.stdout)

    def test_where_nobody_rings_that_is_said(self):
        with tempfile.TemporaryDirectory(prefix="zorel-start-") as folder:
            for bus in ({"DBUS_SESSION_BUS_ADDRESS": "", "XDG_RUNTIME_DIR": folder, "XDG_DATA_HOME": folder}, {}):
                options = [] if bus else ["--data-dir", folder]
                for words in (["cities", "add", "745044"], ["alarms", "on", "fajr"]):
                    result = subprocess.run([BIN / "zorel", *options, *words], capture_output=True, text=True,
                                            env=os.environ | bus)
                    self.assertEqual(result.returncode, 0, result.stderr)
                self.assertIn("nobody rings yet", result.stderr)

    def test_where_it_does_not_run_it_says_so(self):
        result = self.in_session(f"'{BIN}/zorel-ring' --status")
        self.assertEqual(result.returncode, 1)
        self.assertIn("does not run", result.stderr)

    @unittest.skipUnless(os.geteuid() == 0 and shutil.which("setcap") and shutil.which("setpriv"), "needs root and setcap")
    def test_wakes_the_machine_where_its_file_has_the_capability_and_gives_up_the_rest(self):
        with tempfile.TemporaryDirectory(prefix="zorel-start-") as folder:
            program = Path(folder) / "zorel-ring"
            os.chmod(folder, 0o755)
            shutil.copy(BIN / "zorel-ring", program)
            script = f"""{program} --data-dir "$(mktemp -d)" 2>/dev/null & sleep 2; {program} --status
                         grep -E 'NoNewPrivs|CapEff' /proc/$!/status; kill $!"""
            nobody = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", "--inh-caps=-all"]

            def answer():
                return subprocess.run([*nobody, "dbus-run-session", "--", "sh", "-c", script], capture_output=True, text=True,
                                      timeout=60, env=os.environ | {"HOME": folder, "XDG_RUNTIME_DIR": ""}).stdout

            plain = answer()
            self.assertIn("wakes\tno\n", plain)
            self.assertRegex(plain, r"CapEff:\s+0{16}")
            subprocess.run(["setcap", "cap_wake_alarm=ep", program], check=True)
            capable = answer()
            self.assertIn("wakes\tyes\n", capable)
            self.assertRegex(capable, r"CapEff:\s+0000000800000000")  # this one and no other
            self.assertRegex(capable, r"NoNewPrivs:\s+1")

    def test_wrong_words_are_refused(self):
        for words in (["--what"], ["extra"], ["--test"]):
            self.assertEqual(subprocess.run([BIN / "zorel-ring", *words], capture_output=True).returncode, 2)
        for words in ([], ["--seconds", "0", "a.wav"], ["--seconds", "5x", "a.wav"], ["--seconds", "5"]):
            self.assertEqual(subprocess.run([BIN / "zorel-ring-play", *words], capture_output=True).returncode, 2)


if __name__ == "__main__":
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]], verbosity=2)
