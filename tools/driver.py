"""Drives the game in a window as a player does, and looks at the screen.

The scripted session of ./play and the end-to-end tests use it. Everything goes through the X display that DISPLAY
names, such as that of tools/screen: key and mouse events through xdotool, pictures of the screen through ImageMagick.
"""
import os
import pathlib
import re
import signal
import subprocess
import time

SCREEN = (1920, 1080)
TITLE = "Carapace"
PATIENCE = 60.0  # seconds that a loaded machine may need for what takes no time elsewhere
TAP = 0.1  # seconds that a tapped key is down: a few steps of the game, which polls some keys


class TooLate(Exception):
    """A condition did not come true in time."""


def call(*command):
    """Runs a command and returns its standard output; fails when it fails."""
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          text=True).stdout


def ask(*command):
    """Like call, but a failing command gives an empty text."""
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          text=True).stdout


def wait_until(condition, what, patience=PATIENCE):
    """Calls `condition` until its result is true, and returns it."""
    end = time.monotonic() + patience
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise TooLate(f"{what}: not within {patience:.0f} s")
        time.sleep(0.05)


def tap(key):
    """Presses and releases a key, by its X name."""
    call("xdotool", "keydown", key)
    time.sleep(TAP)
    call("xdotool", "keyup", key)


def move_mouse(x, y):
    """Moves the pointer to a place of the screen."""
    call("xdotool", "mousemove", str(x), str(y))


def box_is_shown(title):
    """True if a box with this title is on the screen."""
    return "IsViewable" in ask("xwininfo", "-name", title, "-stats")


class Picture:
    """A picture: 3 bytes a pixel, rows from the top."""

    def __init__(self, width, height, data):
        assert len(data) == width * height * 3, "the picture has another size than expected"
        self.width, self.height, self.data = width, height, data

    @classmethod
    def of_screen(cls):
        """A picture of the screen as it is now."""
        return cls.of_part(0, 0, *SCREEN)

    @classmethod
    def of_part(cls, x, y, width, height):
        """A picture of a rectangle of the screen."""
        data = subprocess.run(
            ["import", "-silent", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "-depth", "8", "rgb:-"],
            check=True, stdout=subprocess.PIPE).stdout
        return cls(width, height, data)

    def crop(self, x, y, width, height):
        """The rectangle with its upper left corner at (x, y)."""
        stride = self.width * 3
        rows = (self.data[(y + row) * stride + x * 3:(y + row) * stride + (x + width) * 3]
                for row in range(height))
        return Picture(width, height, b"".join(rows))

    def brightness(self):
        """Mean of all bytes, 0 to 255."""
        return sum(self.data) / len(self.data)

    def difference(self, other):
        """Mean difference of the bytes, 0 to 255."""
        assert (self.width, self.height) == (other.width, other.height)
        return sum(abs(a - b) for a, b in zip(self.data, other.data)) / len(self.data)

    def save(self, path):
        """Writes a PNG file."""
        pathlib.Path(path).parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["convert", "-size", f"{self.width}x{self.height}", "-depth", "8", "rgb:-",
                        str(path)], input=self.data, check=True)


class Window:
    """A window on the screen, by its X id."""

    def __init__(self, window_id):
        self.id = window_id

    def rectangle(self):
        """(x, y, width, height) of the client area on the screen."""
        report = call("xwininfo", "-id", self.id)
        return tuple(int(re.search(rf"{name}: +(-?\d+)", report)[1])
                     for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))

    def size(self):
        return self.rectangle()[2:]

    def picture(self):
        """A picture of the client area, once all of it is on the screen."""
        def inside():
            x, y, width, height = self.rectangle()
            fits = x >= 0 and y >= 0 and x + width <= SCREEN[0] and y + height <= SCREEN[1]
            return (x, y, width, height) if fits else None
        return Picture.of_part(*wait_until(inside, "the window within the screen"))

    def has_focus(self):
        return ask("xdotool", "getwindowfocus").strip() == self.id

    def state(self):
        """The window's state in the window manager's words: _NET_WM_STATE_FULLSCREEN, Iconic, ..."""
        return ask("xprop", "-id", self.id, "_NET_WM_STATE", "WM_STATE")

    def is_minimised(self):
        return "Iconic" in self.state()

    def is_full_screen(self):
        return "_NET_WM_STATE_FULLSCREEN" in self.state()

    def activate(self):
        """Brings the window to the front, also from its icon, and gives it the focus."""
        call("wmctrl", "-i", "-a", self.id)
        wait_until(self.has_focus, "focus of the window")

    def close(self):
        """Asks it to close, as the button of its frame does."""
        call("wmctrl", "-i", "-c", self.id)


class Game:
    """The running program: its window, its output and its end."""

    def __init__(self, program, directory, logs, environment=None, arguments=()):
        """Starts `program` with `arguments` in `directory`; its output goes to files in `logs`.

        `environment` holds variables to set, or to take away where the value is None.
        """
        self.logs = pathlib.Path(logs)
        self.logs.mkdir(parents=True, exist_ok=True)
        variables = dict(os.environ)
        for name, value in (environment or {}).items():
            variables.pop(name, None)
            if value is not None:
                variables[name] = value
        with open(self.logs / "stdout.txt", "wb") as out, open(self.logs / "stderr.txt", "wb") as err:
            self.process = subprocess.Popen(
                [str(pathlib.Path(program).resolve()), *arguments], cwd=directory, env=variables,
                stdin=subprocess.DEVNULL, stdout=out, stderr=err, start_new_session=True)

    def output(self):
        return (self.logs / "stdout.txt").read_text(errors="replace")

    def errors(self):
        return (self.logs / "stderr.txt").read_text(errors="replace")

    def is_running(self):
        return self.process.poll() is None

    def find_window(self, title=TITLE):
        """The visible window of this title, or None."""
        found = ask("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()
        return Window(found[0]) if found else None

    def wait_for_window(self):
        """Waits until the window is there, has the focus, and shows a picture; returns it."""
        def shown():
            fine = self.is_running() and not box_is_shown("Error")
            assert fine, "the program failed:\n" + self.output() + self.errors()
            window = self.find_window()
            return window if window and window.has_focus() else None
        window = wait_until(shown, "the game's window")
        wait_until(lambda: window.picture().brightness() > 1, "the first picture")
        return window

    def wait_for_line(self, line, times=1, patience=PATIENCE):
        """Waits until the program has printed a line this many times."""
        wait_until(lambda: self.output().splitlines().count(line) >= times, f"{times} times '{line}'", patience)

    def wait_for_end(self, patience=PATIENCE):
        """Waits until the program ends by itself and returns its exit status (negative: a signal)."""
        try:
            return self.process.wait(patience)
        except subprocess.TimeoutExpired:
            raise TooLate(f"the program did not end within {patience:.0f} s") from None

    def kill(self):
        """Ends the program for certain, and the process of its message box."""
        try:
            os.killpg(self.process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        self.process.wait()
