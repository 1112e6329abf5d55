# SPDX-License-Identifier: Apache-2.0
"""Displays without a screen, with a window manager, a mouse and a keyboard: an X server and a Wayland compositor."""
import os
import pathlib
import re
import socket
import struct
import subprocess
import tempfile
import time

PATIENCE = 20.0
SIZE = (1400, 900)


def eventually(condition, patience=PATIENCE):
    deadline = time.monotonic() + patience
    while time.monotonic() < deadline:
        found = condition()
        if found:
            return found
        time.sleep(0.1)
    return condition()


def plain_environment():
    """The environment without what this test session says of Qt and of displays."""
    return {name: value for name, value in os.environ.items()
            if not name.startswith("QT_") and name not in ("DISPLAY", "WAYLAND_DISPLAY", "XDG_DATA_HOME")}


def quietly(words, **more):
    return subprocess.Popen(words, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **more)


class XDisplay:
    """Xvfb and openbox; keys and clicks by xdotool."""

    platform = "xcb"

    def __init__(self):
        reading, writing = os.pipe()
        self.server = quietly(["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{SIZE[0]}x{SIZE[1]}x24",
                               "-nolisten", "tcp"], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as lines:
            self.name = ":" + lines.readline().strip()
        self.manager = quietly(["openbox", "--sm-disable"], env=plain_environment() | {"DISPLAY": self.name})
        self.window = ""

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()

    def environment(self):
        return {"DISPLAY": self.name}

    def tool(self, *words):
        return subprocess.run(["xdotool", *words], env=plain_environment() | self.environment(), check=False,
                              capture_output=True, text=True, timeout=30).stdout

    def await_window(self):
        """Whether the window came; it then has the keyboard."""
        found = eventually(lambda: self.tool("search", "--onlyvisible", "--name", "^Zorel$").split())
        if found:
            self.window = found[0]
            self.tool("windowactivate", "--sync", self.window)
        return bool(found)

    def resize(self, width, height):
        self.tool("windowsize", "--sync", self.window, str(width), str(height))

    def click(self, x, y):
        self.tool("mousemove", str(x), str(y))
        time.sleep(0.1)
        self.tool("click", "1")

    def key(self, *names):
        self.tool("key", "--delay", "60", *names)

    def type(self, text):
        self.tool("type", "--delay", "60", text)


class WaylandMouse:
    """A mouse of a Wayland compositor (wlr-virtual-pointer-unstable-v1), spoken to without a library."""

    LEFT = 0x110
    DISPLAY, REGISTRY, ANSWER, MANAGER, MOUSE = 1, 2, 3, 4, 5

    def __init__(self, path):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(path)
        self.send(self.DISPLAY, 1, struct.pack("=I", self.REGISTRY))
        self.send(self.DISPLAY, 0, struct.pack("=I", self.ANSWER))
        interface = b"zwlr_virtual_pointer_manager_v1\0"
        name = self.find(interface)
        self.send(self.REGISTRY, 0, struct.pack("=II", name, len(interface)) +
                  interface.ljust(-(-len(interface) // 4) * 4, b"\0") + struct.pack("=II", 1, self.MANAGER))
        self.send(self.MANAGER, 0, struct.pack("=II", 0, self.MOUSE))

    def send(self, target, opcode, body=b""):
        self.socket.sendall(struct.pack("=IHH", target, opcode, 8 + len(body)) + body)

    def find(self, interface):
        """The number under which the compositor offers an interface."""
        data = b""
        while True:
            data += self.socket.recv(65536)
            while len(data) >= 8:
                target, opcode, size = struct.unpack_from("=IHH", data)
                if len(data) < size:
                    break
                if target == self.ANSWER:
                    raise OSError("the compositor has no virtual mouse")
                if target == self.REGISTRY and opcode == 0:
                    name, length = struct.unpack_from("=II", data, 8)
                    if data[16:16 + length] == interface:
                        return name
                data = data[size:]

    def event(self, opcode, *numbers):
        self.send(self.MOUSE, opcode, struct.pack(f"={1 + len(numbers)}I", int(time.monotonic() * 1000) & 0xffffffff,
                                                  *numbers))
        self.send(self.MOUSE, 4)

    def move(self, x, y):
        self.event(1, int(x), int(y), *SIZE)

    def press(self, down):
        self.event(2, self.LEFT, int(down))


class WaylandDisplay:
    """sway without an output device; it refuses root, so that root runs it as nobody. Keys by wtype."""

    platform = "wayland"

    def __init__(self, scale=1):
        self.folder = tempfile.TemporaryDirectory()
        runtime = pathlib.Path(self.folder.name)
        (runtime / "config").write_text(
            f"output HEADLESS-1 resolution {SIZE[0]}x{SIZE[1]} position 0 0 scale {scale}\ndefault_border none\n")
        words = ["sway", "-c", str(runtime / "config")]
        if os.getuid() == 0:
            nobody = 65534
            os.chown(runtime, nobody, nobody)
            words = ["setpriv", f"--reuid={nobody}", f"--regid={nobody}", "--clear-groups", *words]
        self.runtime = runtime
        self.compositor = quietly(words, env=plain_environment() | {
            "HOME": str(runtime), "XDG_RUNTIME_DIR": str(runtime), "WLR_BACKENDS": "headless",
            "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman"})
        self.socket = eventually(lambda: next(iter(runtime.glob("wayland-?")), None))
        self.control = eventually(lambda: next(iter(runtime.glob("sway-ipc*")), None))
        self.mouse = WaylandMouse(str(self.socket))
        # A keyboard that stays: wtype takes its own away with it, before a window has learnt of it.
        self.keyboard = quietly(["wtype", "-s", "100000000"], env=self.client())

    def client(self):
        return plain_environment() | self.environment() | {"XDG_RUNTIME_DIR": str(self.runtime)}

    def close(self):
        self.keyboard.terminate()
        self.keyboard.wait()
        self.mouse.socket.close()
        self.compositor.terminate()
        self.compositor.wait()
        self.folder.cleanup()

    def environment(self):
        return {"WAYLAND_DISPLAY": str(self.socket)}

    def sway(self, *words):
        return subprocess.run(["swaymsg", "-s", str(self.control), *words], env=plain_environment(), check=False,
                              capture_output=True, text=True, timeout=30).stdout

    def await_window(self):
        """Whether the window came; it fills the output."""
        return bool(eventually(lambda: re.search(r'"app_id": "[^"]*zorel', self.sway("-t", "get_tree"), re.I)))

    def resize(self, width, height):
        self.sway("[app_id=.*] floating enable, resize set", str(width), str(height))

    def click(self, x, y):
        self.mouse.move(x, y)
        time.sleep(0.1)
        self.mouse.press(True)
        time.sleep(0.1)
        self.mouse.press(False)

    def wtype(self, *words):
        subprocess.run(["wtype", "-d", "60", *words], env=self.client(), check=False, timeout=30)

    def key(self, *names):
        for name in names:
            held, _, plain = name.rpartition("+")
            self.wtype(*(["-M", held] if held else []), "-k", plain, *(["-m", held] if held else []))

    def type(self, text):
        self.wtype(text)

    def picture(self, file):
        """What is on the output, as a picture."""
        subprocess.run(["grim", str(file)], env=self.client(), check=True, timeout=30)
