"""Copies of the program folder and runs of the program on them; all that a case starts ends with it."""
import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
import time
import unittest

LIMIT = 20  # seconds that anything may take
SPACING = 0.02  # seconds between two looks at a condition
PARENT_DEATH_SIGNAL = 1
LOG = "Zelvo/Shared/Data/debugTRAVO.txt"


def wait_until(condition, what):
    """The first value of `condition` that counts as true."""
    end = time.monotonic() + LIMIT
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"not within {LIMIT} s: {what}")
        time.sleep(SPACING)


def _end_with_parent():
    ctypes.CDLL(None).prctl(PARENT_DEATH_SIGNAL, signal.SIGKILL)


def put(path, text=""):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="cp1252", newline="") as file:
        file.write(text)


def read(path):
    try:
        with open(path, encoding="cp1252", newline="") as file:
            return file.read()
    except FileNotFoundError:
        return ""


class Folder:
    """A program folder with a driver library, if there is one, and runtime and data folder beside it."""

    build = None
    driver = None

    def __init__(self):
        self.path = tempfile.mkdtemp(prefix="travo-program-")
        built = os.path.join(os.path.realpath(self.build), "TRAVO")
        os.mkdir(self / "TRAVO")
        shutil.copy2(os.path.join(built, "TRAVO"), self / "TRAVO/TRAVO")
        if self.driver:
            shutil.copy2(self.driver, self / "TRAVO/libManipulatorDriver.so")
        os.symlink(os.path.join(built, "skin"), self / "TRAVO/skin")
        self.make_runtime("runtime")

    def __truediv__(self, name):
        return os.path.join(self.path, name)

    def make_runtime(self, name):
        os.mkdir(self / name, 0o700)
        return self / name

    @property
    def settings(self):
        return self / "TRAVO/KVData.ini"


class Run:
    """One run of the program."""

    def __init__(self, folder, runtime="runtime", data="data", environment=None, **options):
        self.folder = folder
        self.log_path = os.path.join(folder / data, LOG)
        known = {name: value for name, value in os.environ.items()
                 if not name.startswith(("QT_", "XDG_", "DBUS_", "WAYLAND_")) and
                 name not in ("DISPLAY", "SESSION_MANAGER", "XAUTHORITY")}
        known.update(XDG_RUNTIME_DIR=folder / runtime, XDG_DATA_HOME=folder / data, LC_ALL="C.UTF-8",
                     DBUS_SESSION_BUS_ADDRESS="unix:path=/none", TRAVO_TEST_DRIVER=folder / "driver",
                     QT_QPA_PLATFORM="offscreen", NO_AT_BRIDGE="1")
        known.update(environment or {})
        known = {name: value for name, value in known.items() if value is not None}
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        self.process = subprocess.Popen([folder / "TRAVO/TRAVO"], env=known, preexec_fn=_end_with_parent, **options)

    def log(self):
        return read(self.log_path)

    def _has_signal(self, state):
        """Whether SIGTERM is in that state, as the system calls it."""
        for line in read(f"/proc/{self.process.pid}/status").splitlines():
            if line.startswith(state + ":"):
                return bool(int(line.split()[1], 16) >> (signal.SIGTERM - 1) & 1)
        return False

    def wait_for_handlers(self):
        """From then on a signal is the program's own to handle."""
        wait_until(lambda: self._has_signal("SigCgt") or self.process.poll() is not None, "handlers of signals")
        return self

    def wait_for_log(self, text="\r\n"):
        wait_until(lambda: text in self.log(), f"a log with {text!r}")
        return self

    def ask_to_end(self):
        """Once it has returned, a further signal is a second one."""
        self.process.send_signal(signal.SIGTERM)
        wait_until(lambda: not self._has_signal("ShdPnd"), "a signal that is taken")

    def end(self):
        """Its exit code after the system has asked it to end."""
        self.wait_for_handlers().ask_to_end()
        return self.code()

    def code(self):
        return self.process.wait(LIMIT)

    def stop(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        for stream in (self.process.stdin, self.process.stdout, self.process.stderr):
            if stream:
                stream.close()


class Case(unittest.TestCase):
    def setUp(self):
        self.folder = Folder()
        self.addCleanup(shutil.rmtree, self.folder.path, ignore_errors=True)

    def start(self, **options):
        run = Run(self.folder, **options)
        self.addCleanup(run.stop)
        return run

    def driver(self, word):
        put(self.folder / "driver.new", word)
        os.rename(self.folder / "driver.new", self.folder / "driver")
