"""A desk for the program with nobody sitting at it: a screen, a bar-code reader on a serial line, a program
folder, and hands for the keyboard. The sample day and the whole-program tests work at it.

Nothing here waits for a fixed time: every wait is for a condition and ends in DeskError at its deadline.
"""

import os
import pathlib
import select
import shutil
import socket
import sqlite3
import subprocess
import tempfile
import termios
import time
import tty
import urllib.parse

import at_rest
import typing_reader

MAIN_WINDOW = " すいすいＴＡＧ　　【 入出荷在庫管理 】　　Tarnvik Works Co.,Ltd."
END_DIALOG = " システムを終了します"
NO_PORT_BOX = "通信ポート(COM) 未設定"
UNSAVED_BOX = "すいすいＴＡＧ"
UNREGISTERED_BOX = "商品 未登録エラー"
SHORTAGE_BOXES = (" 在庫不足", " 最低在庫数 未満")

FIRST_SCREEN = 90
DEADLINE = 60.0  # seconds; generous, since nothing waits longer than it must
LOOK_AGAIN = 0.02
PAINTED = 0.2  # a window that has just come up has painted itself by then


# Names of the keys that xdotool does not know by their character.
KEYS = {"\n": "Return", "-": "minus", "[": "bracketleft", "]": "bracketright", "{": "braceleft", "}": "braceright",
        "#": "numbersign", "@": "at", "*": "asterisk"}


class DeskError(AssertionError):
    """Something expected did not happen."""


def wait_for(what, condition, seconds=DEADLINE):
    """Returns the first true value of condition(); DeskError names what when it stays false."""
    deadline = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise DeskError(f"not within {seconds:g} seconds: {what}")
        time.sleep(LOOK_AGAIN)


def wait_past(stamp):
    """Waits until the second of a scan's time stamp is over: a scan ends in a later second than it began, and then
    its row is on the screen."""
    wait_for("the second of the scan is over", lambda: time.strftime("%Y%m%d%H%M%S") > stamp)


def is_whole_pdf(file):
    """Whether the file is there to its last line."""
    return file.exists() and file.read_bytes().rstrip().endswith(b"%%EOF")


def state_of(pid):
    """The letter that the kernel has for the state of a process."""
    try:
        return pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()[0]
    except OSError:
        return "X"


def has_ended(pid):
    return state_of(pid) in "ZX"


def display_of(pid):
    """The X display on which a process shows its windows."""
    words = pathlib.Path(f"/proc/{pid}/environ").read_bytes().split(b"\0")
    return next((word[len(b"DISPLAY="):].decode() for word in words if word.startswith(b"DISPLAY=")), "")


def open_files(pid):
    """Where the open files of a process lead to."""
    found = []
    for link in pathlib.Path(f"/proc/{pid}/fd").iterdir():
        try:
            found.append(os.readlink(link))
        except OSError:  # closed meanwhile
            continue
    return found


def wait_at_rest(pid):
    """Waits until the process has handled everything that it was given (keys, clicks, scans) and waits for more, or
    has ended. It says so itself; first this waits until it has read what its reader has sent."""
    try:
        with at_rest.Asker(display_of(pid), pid) as asker:
            wait_for("the reader's bytes are taken",
                     lambda: has_ended(pid) or all(reader.taken() for reader in Reader.of(pid)))
            wait_for("the program is at rest", lambda: has_ended(pid) or asker.answered())
    except OSError:
        if not has_ended(pid):
            raise


class Windows:
    """The windows of an X display that is there already; environment names it."""

    def __init__(self, environment):
        self.environment = environment

    def _xdotool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=self.environment, stdin=subprocess.DEVNULL,
                              capture_output=True, encoding="utf-8", check=False)

    def _visible(self):
        return self._xdotool("search", "--onlyvisible", "--name", ".").stdout.split()

    def titles(self):
        """Titles of the windows that can be seen."""
        commands = [word for window in self._visible() for word in ("getwindowname", window)]
        # A window may close between the two queries; the rest of the list is still right.
        return self._xdotool(*commands).stdout.splitlines() if commands else []

    def active_window(self):
        """The number of the window that takes the keys, "" when there is none."""
        return self._xdotool("getactivewindow").stdout.strip()

    def active_title(self):
        return self._xdotool("getactivewindow", "getwindowname").stdout.rstrip("\n")

    def wait_active(self, title, seconds=DEADLINE):
        """Waits until the window with this title is there and takes the keys."""
        try:
            wait_for(f"window {title!r}", lambda: self.active_title() == title, seconds)
        except DeskError as error:
            raise DeskError(f"{error}; to be seen: {self.titles()}") from None

    def wait_in_front_of(self, window):
        """Waits until another window than that one takes the keys; it may carry the same title."""
        wait_for("a window in front", lambda: self.active_window() not in ("", window))

    def wait_gone(self, title, seconds=DEADLINE):
        wait_for(f"window {title!r} is gone", lambda: title not in self.titles(), seconds)


class Screen(Windows):
    """An X server and a window manager of its own, closed with the object."""

    def __init__(self, width=1280, height=960):
        self._home = tempfile.TemporaryDirectory(prefix="suisui-screen-")
        os.chmod(self._home.name, 0o700)
        self._server, number = self._start_server(f"{width}x{height}x24")
        super().__init__({key: value for key, value in os.environ.items()
                          if not key.startswith("QT_") and key not in ("WAYLAND_DISPLAY", "XDG_SESSION_TYPE")})
        # The settings of the window manager and the user must not influence what happens here.
        self.environment.update(DISPLAY=f":{number}", LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb",
                                XDG_RUNTIME_DIR=self._home.name, XDG_CONFIG_HOME=self._home.name)
        self._manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.environment,
                                         stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                         stderr=subprocess.DEVNULL)
        wait_for("the window manager is up", lambda: self._xdotool("get_num_desktops").returncode == 0)

    @staticmethod
    def _start_server(size):
        """The server and its number. A named number is locked by the server, so that of two that start at the same
        moment one gives up and tries the next; servers that look for a free number themselves take no lock."""
        for number in range(FIRST_SCREEN, FIRST_SCREEN + 500):
            if os.path.exists(f"/tmp/.X{number}-lock") or os.path.exists(f"/tmp/.X11-unix/X{number}"):
                continue
            server = subprocess.Popen(["Xvfb", f":{number}", "-screen", "0", size, "-nolisten", "tcp", "-noreset"],
                                      stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

            def answers():
                with socket.socket(socket.AF_UNIX) as line:
                    return line.connect_ex(f"/tmp/.X11-unix/X{number}") == 0

            def is_mine():
                try:
                    return int(pathlib.Path(f"/tmp/.X{number}-lock").read_text(encoding="ascii")) == server.pid
                except (OSError, ValueError):  # the other server has ended meanwhile
                    return False

            wait_for("the X server is up", lambda: server.poll() is not None or answers())
            if server.poll() is None and is_mine():
                return server, number
            server.kill()
            server.wait()
        raise DeskError("no X server starts")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        for process in (self._manager, self._server):
            process.terminate()
            process.wait()
        self._home.cleanup()

    def press(self, *keys):
        done = self._xdotool("key", *keys)
        if done.returncode != 0:
            raise DeskError(f"keys {keys}: {done.stderr}")

    def click(self, x, y, times=1):
        """The left button of the mouse."""
        self._xdotool("mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "60", "1")

    def type_by_hand(self, text, milliseconds=120):
        """Types as a fast typist does."""
        self._xdotool("key", "--delay", str(milliseconds), *(KEYS.get(letter, letter) for letter in text))

    def type(self, text):
        """Types all at once, as a keyboard-style reader does; a line break is Enter.

        A second Enter in a row is the one of the number pad: the same key twice within a millisecond would pass for a
        held key."""
        keys = []
        for letter in text:
            key = KEYS.get(letter, letter)
            keys.append("KP_Enter" if key == "Return" and keys[-1:] == ["Return"] else key)
        typing_reader.type_at_once(self.environment["DISPLAY"], keys)

    def answer(self, title, *keys, picture=None):
        """Waits for the box, answers it with keys (Enter unless keys are given) and waits until it is gone.

        The next box may carry the same title, so it is the window that is waited for."""
        self.wait_active(title)
        window = self.active_window()
        if picture:
            self.settled_picture(picture)
        self.press(*(keys or ("Return",)))
        wait_for(f"window {title!r} is gone", lambda: window not in self._visible())

    def picture(self, path):
        subprocess.run(["scrot", "--overwrite", str(path)], env=self.environment, check=False,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def settled_picture(self, path):
        """A picture of the screen once it has stopped changing."""
        path = pathlib.Path(path)

        def same_twice():
            self.picture(path)
            before = path.read_bytes() if path.exists() else b""
            time.sleep(PAINTED)
            self.picture(path)
            return before and path.read_bytes() == before

        wait_for(f"a steady screen for {path.name}", same_twice)


class Reader:
    """A bar-code reader on a pseudo-terminal."""

    _plugged_in = {}  # by device

    @staticmethod
    def of(pid):
        """The readers whose port a process has open."""
        return [Reader._plugged_in[file] for file in open_files(pid) if file in Reader._plugged_in]

    def __init__(self):
        self._reader, self._line = os.openpty()
        tty.setraw(self._line)
        os.set_blocking(self._reader, False)
        self.device = os.ttyname(self._line)
        Reader._plugged_in[self.device] = self

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.unplug()

    def send(self, data):
        while data:
            _, taken, _ = select.select([], [self._reader], [], DEADLINE)
            if not taken:
                raise DeskError(f"nobody reads the line; {len(data)} bytes are left")
            data = data[os.write(self._reader, data):]

    def scan(self, text):
        self.send(text.encode("cp932") + b"\r\n")

    def taken(self):
        """Whether everything that was sent has been read. Looking makes the kernel pass on what it still holds."""
        return not select.select([self._line], [], [], 0)[0]

    def forget(self):
        """Drops what was sent and never read."""
        termios.tcflush(self._line, termios.TCIFLUSH)

    def unplug(self):
        Reader._plugged_in.pop(self.device, None)
        for end in (self._line, self._reader):
            if end >= 0:
                os.close(end)
        self._reader = self._line = -1


class Shop:
    """A program folder, and a look into its database that changes nothing."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder).resolve()
        self.database = self.folder / "DB" / "trnvik.mdb"

    @staticmethod
    def install(build, folder):
        """The program folder as an installation leaves it, without a database."""
        subprocess.run(["cmake", "--install", str(build), "--prefix", str(pathlib.Path(folder).resolve())],
                       check=True, stdout=subprocess.DEVNULL)
        return Shop(folder)

    def fill(self):
        """A database with the sample shop."""
        for command in ("create", "sample"):
            self.tagdb(command, check=True)

    def copy_to(self, folder):
        """A shop of the same contents. The programs are linked, not copied: each still sees its own folder."""
        programs = {"suisuitag", "tagdb"}

        def take(source, target):
            if pathlib.Path(source).name in programs:
                try:
                    return os.link(source, target)
                except OSError:  # another file system
                    pass
            return shutil.copy2(source, target)

        shutil.copytree(self.folder, folder, copy_function=take)
        return Shop(folder)

    def tagdb(self, *arguments, check=False):
        return subprocess.run([str(self.folder / "tagdb"), *arguments, "--base", str(self.folder)], check=check,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              encoding="utf-8", env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})

    def rows(self, sql, *values):
        """Rows of a SELECT as a second, reading connection sees them."""
        link = sqlite3.connect(f"file:{urllib.parse.quote(str(self.database))}?mode=ro", uri=True, timeout=10)
        try:
            return link.execute(sql, values).fetchall()
        finally:
            link.close()

    def count(self, table):
        return self.rows(f"SELECT count(*) FROM {table}")[0][0]

    def stock(self):
        return dict(self.rows("SELECT Code, ZaikoSuu FROM ZaikoTB"))

    def change(self, sql, rows):
        """Prepares the shop before the program starts: one statement for each of rows, in one unit."""
        link = sqlite3.connect(self.database)
        with link:
            link.executemany(sql, rows)
        link.close()

    def add(self, table, rows):
        """Adds rows given as {column: text}; the columns not named stay empty."""
        rows = [rows] if isinstance(rows, dict) else list(rows)
        names = list(rows[0])
        self.change(f"INSERT INTO {table} ({', '.join(names)}) VALUES ({', '.join('?' * len(names))})",
                    [[row[name] for name in names] for row in rows])

    def use_reader(self, device, port=9):
        """Sets up the reader as the settings screen does: 9600,N,8,1 on the numbered port."""
        (self.folder / "Ini" / "AppEnv.ini").write_text(
            "[Use]\nLastUseDate=\n\n"
            f"[Reader]\nCommKind=1\nCommPortNo={port}\nCommBaud=9600\nCommParity=N\nCommDataBit=8\n"
            f"CommStopBit=1\n\n[Ports]\n{port}={device}\n", encoding="utf-8")

    def settings(self, name):
        """A settings file as {(section, key): value}."""
        found, section = {}, ""
        for line in (self.folder / "Ini" / name).read_text(encoding="utf-8").splitlines():
            line = line.strip()
            if line.startswith("["):
                section = line.strip("[]")
            elif "=" in line and not line.startswith(";"):
                key, value = line.split("=", 1)
                found[section, key] = value
        return found


class Program:
    """One run of the program in a shop's folder."""

    def __init__(self, shop, screen):
        self._said = tempfile.TemporaryFile()
        self._process = subprocess.Popen([str(shop.folder / "suisuitag")], cwd="/", env=screen.environment,
                                         stdin=subprocess.DEVNULL, stdout=self._said, stderr=self._said)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.running():
            self._process.kill()
        self._process.wait()
        self._said.close()

    @property
    def pid(self):
        return self._process.pid

    def running(self):
        return self._process.poll() is None

    def wait_port(self, reader):
        """Waits until the program has opened the reader's port and, asleep, has dropped what was sent before."""
        wait_for("the reader's port is open", lambda: reader in Reader.of(self.pid) and state_of(self.pid) in "SZX")

    def ended(self, seconds=DEADLINE):
        """Waits for the end; the exit status, negative for a signal."""
        wait_for("the program has ended", lambda: not self.running(), seconds)
        return self._process.returncode

    def said(self):
        """What it wrote to its outputs; a healthy run writes nothing. The place in the file is shared with the program,
        which may still be writing, so it stays where it is."""
        file = self._said.fileno()
        return os.pread(file, os.fstat(file).st_size, 0).decode("utf-8", "replace")

    def wait_idle(self):
        """Waits until the program has nothing left to do."""
        wait_at_rest(self.pid)
