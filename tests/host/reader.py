# SPDX-License-Identifier: Apache-2.0
"""What a screen reader finds and hears: a client of AT-SPI, as Orca is one."""
import re
import threading

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from displays import eventually  # noqa: E402


class Ears:
    """Collects what programs announce."""

    def __init__(self):
        self.heard = []
        self.listener = Atspi.EventListener.new(self.hear)
        self.listener.register("object:announcement")
        threading.Thread(target=GLib.MainLoop().run, daemon=True).start()

    def hear(self, event):
        self.heard.append(str(event.any_data))

    def forget(self):
        self.heard.clear()

    def hears(self, pattern):
        return eventually(lambda: any(re.fullmatch(pattern, said) for said in list(self.heard)))


def application():
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        child = desktop.get_child_at_index(index)
        if child is not None and "zorel" in (child.get_name() or "").lower():
            return child
    return None


def tree():
    """(role, name, part, states) of all that is told to a screen reader."""
    lines = []

    def visit(part, depth):
        if part is None or depth > 30:
            return
        states = part.get_state_set()
        if part.get_name() and (states.contains(Atspi.StateType.VISIBLE) or depth < 2):
            lines.append((part.get_role_name(), part.get_name(), part, states))
        for index in range(part.get_child_count()):
            visit(part.get_child_at_index(index), depth + 1)

    try:
        root = application()
        if root is not None:
            root.clear_cache()
            visit(root, 0)
    except GLib.Error:  # a part went away while the tree was read
        return []
    return lines


def find(role, pattern):
    """(part, states) of the first of this role whose whole name fits; None without one."""
    return next(((part, states) for found, name, part, states in tree() if found == role and re.fullmatch(pattern, name)),
                None)


def centre(part):
    """Its middle on the screen."""
    box = part.get_extents(Atspi.CoordType.SCREEN)
    return box.x + box.width // 2, box.y + box.height // 2


def is_checked(states):
    return states.contains(Atspi.StateType.CHECKED)


def is_focused(states):
    return states.contains(Atspi.StateType.FOCUSED)


def is_enabled(states):
    return states.contains(Atspi.StateType.ENABLED)


def children_of(part):
    return [part.get_child_at_index(index) for index in range(part.get_child_count())]
