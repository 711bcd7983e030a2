"""A Wayland session on the private screen: a compositor in a window of the X server, which gets the keys typed there.

No program sees the windows of another under Wayland, so what a program shows is read from its own conversation with the
compositor (WAYLAND_DEBUG): which windows it has named, and which one has the keyboard."""

import pathlib
import re
import subprocess
import tempfile

import desk
from desk import wait_for

SOCKET = "suisui-wayland"
SHORT_NAMES_SINCE = 12  # version of weston from which backends and renderers are chosen by name
SETTINGS = """[core]
idle-time=0
[shell]
panel-position=none
locking=false
animation=none
close-animation=none
startup-animation=none
"""

SURFACE = re.compile(r"get_xdg_surface\(new id xdg_surface[@#](\d+), wl_surface[@#](\d+)\)")
TOPLEVEL = re.compile(r"xdg_surface[@#](\d+)\.get_toplevel\(new id xdg_toplevel[@#](\d+)\)")
TITLE = re.compile(r"xdg_toplevel[@#](\d+)\.set_title\(\"(.*)\"\)")
ENTER = re.compile(r"wl_keyboard[@#]\d+\.enter\(\d+, wl_surface[@#](\d+),")
LEAVE = re.compile(r"wl_keyboard[@#]\d+\.leave\(")
CONVERSATION = re.compile(r"^\[ *\d+[.,]\d+\] ")


class Compositor:
    """weston, with or without an X server of its own; ends with the object."""

    def __init__(self, screen, xwayland=False):
        self._folder = tempfile.TemporaryDirectory(prefix="suisui-weston-")
        folder = pathlib.Path(self._folder.name)
        settings, self._log = folder / "weston.ini", folder / "weston.log"
        settings.write_text(SETTINGS, encoding="utf-8")
        said = subprocess.run(["weston", "--version"], capture_output=True, encoding="utf-8", check=True).stdout
        short = int(re.search(r"(\d+)\.", said)[1]) >= SHORT_NAMES_SINCE
        self._process = subprocess.Popen(
            ["weston", *(["--backend=x11", "--renderer=pixman"] if short else ["--backend=x11-backend.so", "--use-pixman"]),
             "--width=1240", "--height=900", f"--socket={SOCKET}", f"--config={settings}", f"--log={self._log}",
             *(["--xwayland"] if xwayland else [])], env=screen.environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        place = pathlib.Path(screen.environment["XDG_RUNTIME_DIR"]) / SOCKET
        try:
            wait_for("the compositor is up", place.exists)
            wait_for("the compositor's window", lambda: "Weston" in screen.active_title())
        except desk.DeskError:
            self.close()
            raise
        self.environment = {**screen.environment, "WAYLAND_DISPLAY": SOCKET, "XDG_SESSION_TYPE": "wayland",
                            "QT_QPA_PLATFORM": "wayland", "WAYLAND_DEBUG": "client"}
        del self.environment["DISPLAY"]

    def x_display(self):
        """The display of the X server that belongs to the compositor."""
        def listening():
            return re.search(r"xserver listening on display (:\d+)", self._log.read_text("utf-8", "replace"))

        return wait_for("the X server of the compositor", listening)[1]

    def close(self):
        self._process.terminate()
        try:
            self._process.wait(desk.DEADLINE)
        except subprocess.TimeoutExpired:  # without its screen it does not listen
            self._process.kill()
            self._process.wait()
        self._folder.cleanup()


class Conversation:
    """The messages between a program and its compositor so far."""

    def __init__(self, program):
        self._program = program

    def focuses(self):
        """Titles of the windows that have had the keyboard, in order; the empty title means no window."""
        window_of, surface_of, titles, found = {}, {}, {}, [""]
        for line in self._program.said().splitlines():
            if match := SURFACE.search(line):
                surface_of[match[1]] = match[2]
            elif match := TOPLEVEL.search(line):
                window_of[surface_of.get(match[1])] = match[2]
            elif match := TITLE.search(line):
                titles[match[1]] = match[2]
            elif match := ENTER.search(line):
                # The number of a closed window is used again, so its title is the current one.
                found.append(titles.get(window_of.get(match[1]), ""))
            elif LEAVE.search(line):
                found.append("")
        return found

    def active_title(self):
        return self.focuses()[-1]

    def wait_active(self, title):
        try:
            wait_for(f"window {title!r}", lambda: self.active_title() == title)
        except desk.DeskError as error:
            raise desk.DeskError(f"{error}; so far: {self.focuses()}") from None

    def complaints(self):
        """What the program said besides."""
        return [line for line in self._program.said().splitlines() if not CONVERSATION.match(line)]

