"""A Japanese input method on the private screen: ibus with the anthy engine, switched on."""

import os
import pathlib
import signal
import subprocess
import tempfile

from desk import DeskError, wait_for


class InputMethod:
    """Runs for one screen, on a private message bus, and ends with the object.

    Programs that are started on the screen while it runs have it; it is switched on from the beginning."""

    def __init__(self, screen):
        self._home = tempfile.TemporaryDirectory(prefix="suisui-input-method-")
        settings = pathlib.Path(screen.environment["XDG_CONFIG_HOME"]) / "glib-2.0" / "settings" / "keyfile"
        settings.parent.mkdir(parents=True)
        settings.write_text("[org/freedesktop/ibus/engine/anthy/common]\ninput-mode=0\n", encoding="ascii")  # kana
        # A program waits until the input method has handled a key. Otherwise it would be at rest while keys are still
        # on their way back, and on a busy machine a field that gets the focus would reset what is typed after them.
        # The engine is a script of the system's own Python; settings and caches of the user stay out of it.
        screen.environment.update(PATH="/usr/bin:/bin", GSETTINGS_BACKEND="keyfile", QT_IM_MODULE="ibus",
                                  IBUS_ENABLE_SYNC_MODE="1",
                                  XDG_CACHE_HOME=self._home.name, HOME=self._home.name)
        self._environment = screen.environment
        self._said = tempfile.TemporaryFile()
        self._daemon = subprocess.Popen(
            ["dbus-run-session", "--", "ibus-daemon", "--panel=disable", "--config=disable", "--cache=none",
             "--emoji-extension=disable"],
            env=self._environment, stdin=subprocess.DEVNULL, stdout=self._said, stderr=self._said,
            start_new_session=True)
        try:
            wait_for("the input method is up", self._is_on)
        except DeskError as error:
            self.close()
            raise DeskError(f"{error}; it said: {self.said()}") from None

    def _is_on(self):
        self._ibus("engine", "anthy")
        return self._ibus("engine").stdout.strip() == "anthy"

    def _ibus(self, *arguments):
        return subprocess.run(["ibus", *arguments], env=self._environment, stdin=subprocess.DEVNULL,
                              capture_output=True, encoding="utf-8", check=False)

    def said(self):
        self._said.seek(0)
        return self._said.read().decode("utf-8", "replace")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        os.killpg(self._daemon.pid, signal.SIGTERM)  # the bus, the engine and what else has come with them
        self._daemon.wait()
        self._said.close()
        self._home.cleanup()
