"""The start of the program where the session's bus or the camera program is ill: the main window comes first."""
import os
import socket
import unittest

from case import Case
from stage import wait_until
from tree import Program

PLACE = (1900, 900, 520, 624)  # of the main window, in pixels; no other case has windows there, nor do boxes come
UNITS = 15  # of the settings file, to a pixel
WITH_CAMERA = "[Window]\n0=0\n"
CAMERA_LOAD = "Error : Camera Load"
BOX_LIMIT = 100  # seconds; ten times what a camera program has for its start
# A camera program that never takes its name, until it is told to go.
NEVER_UP = "#!/bin/sh\nwhile [ ! -e '{gone}' ]; do sleep 0.1; done\n"


class Start(unittest.TestCase):

    def setUp(self):
        self.stage = Case.stage
        top, left = PLACE[1] * UNITS, PLACE[0] * UNITS
        self.place = f"[FormMain_Position]\nTop={top}\nLeft={left}\n"

    def is_painted(self):
        """Whether more than a few colours stand where the main window is: an empty one shows but one."""
        return len(set(self.stage.screen.pixels(PLACE, (0.1, 0.2, 0.9, 0.9)))) > 8

    def start(self, further_settings="", bus=None):
        wait_until(lambda: not self.is_painted(), "an empty screen")
        before = os.environ["DBUS_SESSION_BUS_ADDRESS"]
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus or before
        try:
            return self.stage.start_program(self.place + further_settings)
        finally:
            os.environ["DBUS_SESSION_BUS_ADDRESS"] = before
            # Also where the case fails; a second end finds nothing to do.
            self.addCleanup(self.stage.end_program)

    def log(self):
        with open(self.stage.in_folder("data/Zelvo/Shared/Data/debugTRAVO.txt"), encoding="cp1252") as log:
            return log.read()

    def end(self):
        self.assertEqual(self.stage.end_program(), 0)

    def see_button(self, program, word):
        program.windows_on_show("frame")
        tab = next(child for child in program.all_below() if child.role == "page tab" and child.name == "User"
                   and child.has("shown"))
        tab.press()
        button = next(child for child in program.all_below() if child.name == "Camera window")
        wait_until(lambda: button.has(word), f"the camera's button {word}")

    def answer_box(self, program):
        def is_up():
            return next((box for box in program.windows_on_show("alert", "dialog")
                         if any(below.name == CAMERA_LOAD for below in box.all_below())), None)

        box = wait_until(is_up, "the box of the camera", BOX_LIMIT)
        button = next(below for below in box.all_below()
                      if below.role == "push button" and below.name.replace("&", "") == "OK")
        button.press_and_go_on()
        wait_until(lambda: not is_up(), "the end of the box")

    def with_camera_program(self, text):
        """The camera program is another one for the time of the case, or with None there is none."""
        path, kept = self.stage.in_folder("TRAVO/TRAVOLive"), self.stage.in_folder("TRAVO/TRAVOLive.kept")
        os.rename(path, kept)
        if text is not None:
            with open(path, "w", encoding="ascii") as file:
                file.write(text)
            os.chmod(path, 0o755)
        self.addCleanup(os.replace, kept, path)

    def test_on_a_silent_session_bus_the_window_comes_all_the_same(self):
        path = self.stage.in_folder("silent-bus")
        with socket.socket(socket.AF_UNIX) as silent:
            silent.bind(path)
            silent.listen(8)
            self.start(bus=f"unix:path={path}")
            wait_until(self.is_painted, "the main window on a silent bus", 20)
            self.end()

    def test_on_a_silent_session_bus_the_camera_is_given_up_behind_the_window(self):
        path = self.stage.in_folder("silent-bus-for-camera")
        with socket.socket(socket.AF_UNIX) as silent:
            silent.bind(path)
            silent.listen(8)
            self.start(WITH_CAMERA, bus=f"unix:path={path}")
            wait_until(self.is_painted, "the main window on a silent bus", 20)
            wait_until(lambda: CAMERA_LOAD in self.log(), "the word that the camera is not there", 20)
            self.end()

    def test_a_missing_camera_leaves_its_button_raised_and_the_next_start_asks_for_none(self):
        self.with_camera_program(None)
        program = Program(self.start(WITH_CAMERA))
        self.answer_box(program)
        self.see_button(program, "raised")
        self.end()
        with open(self.stage.in_folder("TRAVO/KVData.ini"), encoding="cp1252") as settings:
            self.assertIn("\n0=1\n", settings.read())

    def test_a_camera_that_never_comes_up_holds_no_window_back(self):
        gone = self.stage.in_folder("camera-may-go")
        self.with_camera_program(NEVER_UP.format(gone=gone))
        try:
            process = self.start(WITH_CAMERA)
            wait_until(self.is_painted, "the main window without a camera")
            self.assertNotIn(CAMERA_LOAD, self.log())
            program = Program(process)
            self.answer_box(program)
            self.see_button(program, "raised")
            self.end()
        finally:
            with open(gone, "w", encoding="ascii"):
                pass


