"""What an assistive technology sees of a program: its controls by their spoken names, and where they are.

The tests find by it what they click, so each click also shows that the control's name reaches those who cannot see the
screen. The listening half (listen) runs in the system's own Python, which has the bindings."""

import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile

MOST_CELLS = 400
# Newer releases of the interface have other names for some roles.
ROLES = {"button": "push button"}
BINDINGS = ("/usr/bin/python3", "-B")


class ScreenReader:
    """Listens on one screen, over a message bus of its own; programs started on the screen from now on speak."""

    def __init__(self, screen):
        self._said = tempfile.TemporaryFile()
        self._bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"],
                                     env=screen.environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                     stderr=self._said, encoding="ascii", start_new_session=True)
        screen.environment.update(DBUS_SESSION_BUS_ADDRESS=self._bus.stdout.readline().strip(),
                                  QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self._listener = subprocess.Popen([*BINDINGS, str(pathlib.Path(__file__).resolve())], env=screen.environment,
                                          stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=self._said,
                                          encoding="utf-8")

    def controls(self):
        """All controls that can be seen and operated, of all windows: {"window", "role", "name", "place"}."""
        self._listener.stdin.write("controls\n")
        self._listener.stdin.flush()
        return json.loads(self._listener.stdout.readline() or "[]")

    def close(self):
        self._listener.terminate()
        os.killpg(self._bus.pid, signal.SIGTERM)  # with the services that it has started
        for process in (self._listener, self._bus):
            process.wait()
            process.stdout.close()
        self._listener.stdin.close()
        self._said.close()


def listen():
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib

    def look(node, window, found):
        """Descends to what is visible; skips large tables and trees."""
        states = node.get_state_set()
        if not states.contains(Atspi.StateType.SHOWING):
            return
        role = ROLES.get(node.get_role_name(), node.get_role_name())
        extents = node.get_extents(Atspi.CoordType.SCREEN)
        found.append({"window": window, "role": role, "name": node.get_name().strip(),
                      "enabled": states.contains(Atspi.StateType.ENABLED),
                      "place": [extents.x + extents.width // 2, extents.y + extents.height // 2]})
        count = node.get_child_count()
        if role in ("table", "tree table", "tree") and count > MOST_CELLS:
            return
        for index in range(count):
            child = node.get_child_at_index(index)
            if child is not None:
                look(child, window, found)

    for _ in sys.stdin:
        found = []
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(index)
            for at in range(program.get_child_count() if program is not None else 0):
                try:
                    window = program.get_child_at_index(at)
                    look(window, window.get_name(), found)
                except (GLib.Error, AttributeError):  # closed while it was looked at
                    pass
        print(json.dumps(found), flush=True)


if __name__ == "__main__":
    listen()
