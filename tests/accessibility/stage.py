"""The stage of the accessibility test: a display, a session bus with an accessibility bus, folders, and on
it as often as asked the workbench with the program on a copy of its folder. All of it is the test's own, and
all of it ends with it.
"""
import ctypes
import os
import shutil
import signal
import socket
import subprocess
import tempfile
import time

from screen import Screen

LIMIT = 15  # seconds that anything may take to come up, to change or to end
SPACING = 0.02  # seconds between two looks at a condition
UNHEARD = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
LAUNCHERS = ("/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher")


class Failure(Exception):
    """What did not come about, in one sentence."""


def wait_until(condition, what, limit=LIMIT):
    """The first value of `condition` that counts as true; Failure when none has come within `limit` s."""
    end = time.monotonic() + limit
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Failure(f"not within {limit} s: {what}")
        time.sleep(SPACING)


# Of Linux's prctl.
PARENT_DEATH_SIGNAL = 1
CHILD_SUBREAPER = 36


def _end_with_parent():
    # However the test itself ends, also by the signal that cannot be caught, nothing outlives it.
    ctypes.CDLL(None).prctl(PARENT_DEATH_SIGNAL, signal.SIGTERM)


class Stage:
    """`with Stage(build_folder) as stage:`; the environment of this very process becomes the stage's."""

    screen_size = "2560x1600"  # pixels of its display

    def __init__(self, build):
        self.build = os.path.realpath(build)
        self.processes = []  # in the order of their start
        self.folder = None
        self.scene = None  # program and workbench
        self.screen = None

    def __enter__(self):
        # What the buses start becomes a child of this process when they end.
        ctypes.CDLL(None).prctl(CHILD_SUBREAPER, 1)
        self.folder = tempfile.mkdtemp(prefix="travo-accessibility-")
        try:
            self._make_folders()
            self._start_display()
            self._start_buses()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        left = []
        try:
            for process in reversed(self.processes):
                self._end(process)
            left = self._end_what_is_left()
        finally:
            shutil.rmtree(self.folder, ignore_errors=True)
        if left:
            raise Failure(f"left behind by what the test has started: {', '.join(left)}")

    def start_program(self, further_settings=""):
        """A new world, new settings and the program on them; the program's process number."""
        workbench = self._start([os.path.join(self.build, "workbench/travo-workbench"), "--headless",
                                 "--program-folder", self.in_folder("TRAVO"), "--end-with-input"],
                                stdin=subprocess.PIPE, stdout=subprocess.DEVNULL)
        subprocess.run([self._ask, "ready"], check=True, timeout=LIMIT)
        self.ask("write-settings ports")
        with open(self.in_folder("TRAVO/KVData.ini"), "a", encoding="cp1252", newline="\r\n") as settings:
            settings.write(further_settings)
        program = self._start([self.in_folder("TRAVO/TRAVO")])
        self.scene = (program, workbench)
        return program.pid

    def end_program(self):
        """Closes the program as the end of the session does; what it left as its exit code."""
        program, workbench = self.scene
        self._end(program)
        self._end(workbench)
        return program.returncode

    @property
    def _ask(self):
        return os.path.join(self.build, "workbench/workbench-ask")

    def in_folder(self, path):
        return os.path.join(self.folder, path)

    def ask(self, command):
        """One command to the workbench; the values of its answer."""
        asked = subprocess.run([self._ask, command], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                               timeout=LIMIT)
        if asked.returncode != 0:
            raise Failure(f"the workbench does not do '{command}': {asked.stderr.strip()}")
        return asked.stdout.split()

    def ask_camera(self, command):
        """One command to the camera program, once it runs; its answer."""
        with socket.socket(socket.AF_UNIX) as camera:
            camera.settimeout(LIMIT)
            camera.connect(self.in_folder("runtime/travo-live.socket"))
            camera.sendall(command.encode() + b"\n")
            answer = camera.makefile(encoding="utf-8").readline()
        if not answer.startswith("ok"):
            raise Failure(f"the camera program does not do '{command}': {answer.strip()}")
        return answer.split()[1:]

    def _make_folders(self):
        for name in ("runtime", "data", "config", "cache", "services", "display"):
            os.mkdir(self.in_folder(name), 0o700)
        shutil.copytree(os.path.join(self.build, "TRAVO"), self.in_folder("TRAVO"), symlinks=True,
                        ignore=shutil.ignore_patterns("ports", "KVData.ini"))
        system = os.environ.get("XDG_DATA_DIRS") or "/usr/local/share:/usr/share"
        os.environ.update(XDG_RUNTIME_DIR=self.in_folder("runtime"), XDG_DATA_HOME=self.in_folder("data"),
                          XDG_CONFIG_HOME=self.in_folder("config"), XDG_CACHE_HOME=self.in_folder("cache"),
                          XDG_DATA_DIRS=self.in_folder("services") + ":" + system,
                          QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8")
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XAUTHORITY", "AT_SPI_BUS_ADDRESS", "NO_AT_BRIDGE",
                     "QT_ACCESSIBILITY"):
            os.environ.pop(name, None)
        tool = os.path.join(os.path.dirname(os.path.realpath(__file__)), "../../tools/live-service.sh")
        subprocess.run([tool, self.in_folder("services"), self.in_folder("TRAVO")], check=True,
                       stdout=subprocess.DEVNULL)

    def _start(self, command, **options):
        process = subprocess.Popen(command, preexec_fn=_end_with_parent, **options)
        self.processes.append(process)
        return process

    def _start_and_read(self, command):
        """Starts what says a line on a descriptor, the command's last word, once it is up; that line."""
        reading, writing = os.pipe()
        with os.fdopen(reading) as told:
            try:
                self._start([word.replace("@DESCRIPTOR@", str(writing)) for word in command],
                            pass_fds=(writing,), stderr=subprocess.DEVNULL)
            finally:
                os.close(writing)
            line = told.readline().strip()
        if not line:
            raise Failure(f"{command[0]} does not come up")
        return line

    def _start_display(self):
        number = self._start_and_read(["Xvfb", "-screen", "0", f"{self.screen_size}x24", "-nolisten", "tcp", "-noreset",
                                       "-fbdir", self.in_folder("display"), "-displayfd", "@DESCRIPTOR@"])
        self.screen = Screen(self.in_folder("display/Xvfb_screen0"))
        os.environ["DISPLAY"] = f":{number}"
        self._start(["openbox", "--sm-disable"], **UNHEARD)

    def _start_buses(self):
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._start_and_read(
            ["dbus-daemon", "--session", "--nofork", "--nosyslog", "--print-address=@DESCRIPTOR@"])
        launcher = next((path for path in LAUNCHERS if os.path.exists(path)), None)
        if launcher is None:
            raise Failure("there is no at-spi-bus-launcher; the package at-spi2-core is missing")
        self._start([launcher, "--launch-immediately", "--a11y=1"], **UNHEARD)

    @staticmethod
    def _end(process):
        if process.poll() is None:
            process.terminate()
        if process.stdin:
            process.stdin.close()
        try:
            process.wait(LIMIT)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()

    def _running(self):
        """What runs in the stage's runtime folder, this process apart: (number, program) of each."""
        mark = f"XDG_RUNTIME_DIR={self.in_folder('runtime')}".encode()
        found = []
        for number in filter(str.isdigit, os.listdir("/proc")):
            try:
                with open(f"/proc/{number}/environ", "rb") as file:
                    belongs = mark in file.read().split(b"\0")
                with open(f"/proc/{number}/comm", encoding="utf-8") as file:
                    program = file.read().strip()
            except OSError:
                continue  # ended meanwhile, or another user's
            if belongs and int(number) != os.getpid():
                found.append((int(number), program))
        return found

    @staticmethod
    def _have_all_ended():
        try:
            while os.waitpid(-1, os.WNOHANG)[0] != 0:
                pass
        except ChildProcessError:
            return True
        return False

    def _end_what_is_left(self):
        """What the buses have started ends with them; ends and names what has not."""
        try:
            wait_until(self._have_all_ended, "the end of what the buses have started")
        except Failure:
            pass
        left = self._running()
        for number, _ in left:
            try:
                os.kill(number, signal.SIGKILL)
            except ProcessLookupError:
                pass  # ended meanwhile
        return [f"{program} ({number})" for number, program in left]
