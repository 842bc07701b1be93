"""The desk as tools/live.sh opens it: the program, the camera and the workbench's window on a display, a window
manager and buses of the test's own, worked through the accessibility tree and by the hand."""
import os
import shutil
import subprocess

from stage import LIMIT, Failure, Stage, wait_until

ROOT = os.path.join(os.path.dirname(os.path.realpath(__file__)), "../..")
WORKBENCH, PROGRAM, CAMERA = "travo-workbench", "TRAVO", "TRAVOLive"


class DeskStage(Stage):
    """As Stage; what is started on it is a whole desk."""

    screen_size = "1920x1200"

    def __enter__(self):
        super().__enter__()
        os.mkdir(self.in_folder("build"))
        os.symlink(self.in_folder("TRAVO"), self.in_folder("build/TRAVO"))
        os.symlink(os.path.join(self.build, "workbench"), self.in_folder("build/workbench"))
        # The desk's session bus is the stage's, to which the accessibility bus belongs.
        os.mkdir(self.in_folder("bin"))
        with open(self.in_folder("bin/dbus-run-session"), "w", encoding="utf-8") as file:
            file.write('#!/bin/sh\nshift\nexec "$@"\n')
        os.chmod(self.in_folder("bin/dbus-run-session"), 0o755)
        os.environ["PATH"] = self.in_folder("bin") + ":" + os.environ["PATH"]
        return self

    def start_desk(self):
        """A desk as new, with its own settings; it ends with `end_desk` or by hand."""
        for path in ("TRAVO/KVData.ini", "config/travo-workbench/window.ini"):
            if os.path.exists(self.in_folder(path)):
                os.remove(self.in_folder(path))
        self.desk = self._start([os.path.join(ROOT, "tools/live.sh"), self.in_folder("build")],
                                stdout=subprocess.DEVNULL, start_new_session=True)
        return self.desk

    def end_desk(self):
        """Ends what of the desk still runs, by number; the exit code of the desk."""
        for name in (PROGRAM, WORKBENCH):
            number = self.number_of(name)
            if number:
                os.kill(number, 15)
        return self.desk.wait(LIMIT)

    def start_workbench(self):
        """The workbench's window alone, with nobody at its wires."""
        self.workbench = self._start([os.path.join(self.build, "workbench/travo-workbench"), "--program-folder",
                                      self.in_folder("TRAVO")], stdout=subprocess.DEVNULL)
        subprocess.run([self._ask, "ready"], check=True, timeout=LIMIT)

    def end_workbench(self):
        self._end(self.workbench)

    def number_of(self, name):
        """The process of that name which runs on the desk, or None."""
        return next((number for number, program in self._running() if program == name[:15]), None)

    def wait_for_number_of(self, name):
        return wait_until(lambda: self.number_of(name), f"{name} running")

    def picture(self, path):
        """What the display shows, as a file."""
        if shutil.which("import"):
            subprocess.run(["import", "-window", "root", path], check=True, timeout=LIMIT)

    def processor_time(self, name):
        """Seconds that the process has used until now."""
        number = self.number_of(name)
        if number is None:
            raise Failure(f"{name} does not run")
        with open(f"/proc/{number}/stat", encoding="utf-8") as file:
            words = file.read().rsplit(")", 1)[1].split()
        return (int(words[11]) + int(words[12])) / os.sysconf("SC_CLK_TCK")
