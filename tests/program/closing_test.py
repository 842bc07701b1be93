"""What a closing writes, and a wish to close that comes while a box stands before the window."""
import ctypes
import os
import struct

from program import Case, read
from screen import Screen

# Both ends of a renaming: equal events that follow one another would come as one.
MOVED = 0x40 | 0x80
EVENT = struct.Struct("iIII")


class Closing(Case):
    def watch_for_replacements(self):
        libc = ctypes.CDLL(None)
        watch = libc.inotify_init1(os.O_NONBLOCK)
        self.addCleanup(os.close, watch)
        libc.inotify_add_watch(watch, os.fsencode(self.folder / "TRAVO"), MOVED)
        return watch

    @staticmethod
    def replacements(watch):
        names = []
        try:
            data = os.read(watch, 65536)
        except BlockingIOError:
            return names
        while data:
            length = EVENT.unpack_from(data)[3]
            names.append(data[EVENT.size:EVENT.size + length].rstrip(b"\0").decode())
            data = data[EVENT.size + length:]
        return names

    def test_a_closing_replaces_the_settings_file_once_and_leaves_nothing_beside_it(self):
        run = self.start().wait_for_log()
        watch = self.watch_for_replacements()
        self.assertEqual(run.end(), 0)
        self.assertEqual(self.replacements(watch).count("KVData.ini"), 1)
        self.assertIn("[User_Value]\r\nXYOffset=100\r\n", read(self.folder.settings))
        self.assertTrue(read(self.folder.settings).endswith("[Window]\r\n0=1\r\n1=1\r\n2=1\r\n3=1\r\n4=1\r\n"))
        self.assertFalse([name for name in os.listdir(self.folder / "TRAVO") if name.endswith(".tmp")])

    def test_a_wish_to_close_while_a_box_is_up_is_taken_up_after_it(self):
        screen = Screen(self)
        run = self.start(environment={"QT_QPA_PLATFORM": None, "DISPLAY": screen.name})
        main, = screen.wait_for(1)
        self.driver("fail")
        box = screen.wait_for(2)[1]
        screen.ask_to_close(main)
        screen.ask_to_close(main)
        self.driver("well")
        screen.ask_to_close(box)
        # The closing question. Closed without a button it is answered with Cancel, and there is no second one.
        question = self.wait_for_another(screen, box)
        screen.ask_to_close(question)
        screen.wait_for(1)
        screen.ask_to_close(main)
        self.wait_for_another(screen, question)
        self.assertEqual(run.end(), 0)

    @staticmethod
    def wait_for_another(screen, box):
        while True:
            window = screen.wait_for(2)[1]
            if window != box:
                return window
