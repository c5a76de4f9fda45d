"""A screen of a test's own: X server, window manager, session bus; pointer and keys."""

import os
import signal
import subprocess
import tempfile
import time
import uuid
from pathlib import Path

PATIENCE = float(os.environ.get("COMPANION_TEST_PATIENCE", "1"))
MARK = "COMPANION_TEST_RUN"


def wait_for(what, condition, seconds=30):
    """Polls until the condition gives something, and returns that."""
    deadline = time.monotonic() + seconds * PATIENCE
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > deadline:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.05)


class Display:
    """Everything that is started on it carries its mark, and ends with it."""

    def __init__(self):
        self._children = []
        self._mark = uuid.uuid4().hex
        self._runtime = tempfile.TemporaryDirectory(prefix="companion-display-")
        self.environment = {
            name: value for name, value in os.environ.items()
            if not name.startswith(("QT_", "NESTLET_", "WAYLAND", "DBUS_", "AT_SPI_"))
        } | {
            MARK: self._mark,
            "HOME": self._runtime.name,
            "XDG_RUNTIME_DIR": self._runtime.name,
            "LC_ALL": "C.UTF-8",
            "QT_QPA_PLATFORM": "xcb",
            "QT_QUICK_BACKEND": "software",
            "QT_ACCESSIBILITY": "1",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        }

    def open(self, size=(1440, 1000)):
        self._size = size
        number = self._start_server()
        self.environment["DISPLAY"] = f":{number}"
        bus = self.start("dbus-daemon", "--session", "--nofork", "--print-address",
                         stdout=subprocess.PIPE, text=True)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        self.start("openbox")
        wait_for("the window manager", self._has_window_manager)
        # What this process itself asks of the display and the bus.
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "HOME"):
            os.environ[name] = self.environment[name]

    def _start_server(self):
        reading, writing = os.pipe()
        width, height = self._size
        self.start("Xvfb", "-displayfd", str(writing), "-screen", "0", f"{width}x{height}x24",
                   "-nolisten", "tcp", "-noreset", pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as numbers:
            return numbers.readline().strip()

    def _has_window_manager(self):
        answer = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], text=True,
                                env=self.environment, capture_output=True)
        return "window id" in answer.stdout

    def start(self, *command, environment=None, **options):
        options.setdefault("stderr", subprocess.DEVNULL)
        options.setdefault("stdout", subprocess.DEVNULL)
        process = subprocess.Popen(command, env=self.environment | (environment or {}), **options)
        self._children.append(process)
        return process

    def close(self):
        self.end()
        self._runtime.cleanup()

    def end(self, environment=None):
        """Ends what was started, also by what was started; given variables narrow it down."""
        wanted = {MARK: self._mark} | (environment or {})

        def none_left():
            mine = [process for process in processes()
                    if all(process.variable(name) == value for name, value in wanted.items())]
            for process in mine:
                process.signal(signal.SIGKILL)
            for child in self._children:
                child.poll()  # or it stays as a zombie
            return not mine
        wait_for("the end of what was started", none_left)

    def picture(self, path):
        subprocess.run(["import", "-window", "root", str(path)], env=self.environment, check=False)

    def window(self, title):
        search = ["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"]
        return subprocess.check_output(search, env=self.environment, text=True).split()[0]

    def active_title(self):
        """Of the window that has the keyboard."""
        answer = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], text=True,
                                env=self.environment, capture_output=True)
        return answer.stdout.strip()

    def picture_of(self, window, path):
        """Without its frame."""
        subprocess.run(["import", "-window", window, str(path)], env=self.environment, check=True)

    def do(self, *arguments):
        """Real input: `xdotool` speaks to the X server's test extension."""
        subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True)

    def park_pointer(self):
        """Puts the pointer where nothing follows it."""
        self.do("mousemove", self._size[0] - 1, 0)

    def hover(self, place):
        self.do("mousemove", place[0] - 3, place[1], "sleep", "0.05", "mousemove", *place)

    def double_click(self, place):
        self.do("mousemove", *place, "sleep", "0.05",
                "click", "--repeat", "2", "--delay", "60", "1")

    def click(self, place):
        self.do("mousemove", *place, "sleep", "0.05", "click", "1")

    def drag(self, start, end):
        self.begin_drag(start, end)
        self.let_go(end)

    def begin_drag(self, start, end):
        """In steps, as a hand does: drags begin with a movement and are followed on the way."""
        self.do("mousemove", *start, "mousedown", "1")
        steps = 8
        for step in range(1, steps + 1):
            point = [round(a + (b - a) * step / steps) for a, b in zip(start, end)]
            self.do("mousemove", *point, "sleep", "0.03")

    def tremble(self, place):
        self.do("mousemove", place[0] + 1, place[1] + 1, "sleep", "0.05", "mousemove", *place)

    def let_go(self, place):
        self.tremble(place)
        self.do("sleep", "0.2", "mouseup", "1")

    def key(self, *names):
        self.do("key", "--delay", "20", *names)

    def type(self, text):
        self.do("type", "--delay", "20", text)


class Process:
    """A process as /proc shows it."""

    def __init__(self, number):
        self.number = number
        self._folder = Path("/proc") / str(number)

    def variable(self, name):
        prefix = name.encode() + b"="
        for entry in self._read("environ").split(b"\0"):
            if entry.startswith(prefix):
                return entry[len(prefix):].decode(errors="replace")
        return None

    def is_alive(self):
        state = self._read("stat").rpartition(b")")[2].split()
        return bool(state) and state[0] != b"Z"

    def leads_session(self):
        """As an application does, and what it starts in turn does not."""
        try:
            return os.getsid(self.number) == self.number
        except ProcessLookupError:
            return False

    def signal(self, number):
        try:
            os.kill(self.number, number)
        except ProcessLookupError:
            pass

    def _read(self, name):
        try:
            return (self._folder / name).read_bytes()
        except OSError:
            return b""


def processes():
    """All but this one."""
    numbers = (int(entry) for entry in os.listdir("/proc") if entry.isdigit())
    return [Process(number) for number in numbers if number != os.getpid()]
