"""A display of a case's own, and its windows as the X server knows them."""
import ctypes
import os
import subprocess

from program import _end_with_parent, wait_until

VIEWABLE = 2
CLIENT_MESSAGE = 33


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("room", ctypes.c_long * 24)]


class Attributes(ctypes.Structure):
    _fields_ = [("place", ctypes.c_int * 4), ("border", ctypes.c_int), ("depth", ctypes.c_int),
                ("visual", ctypes.c_void_p), ("root", ctypes.c_ulong), ("numbers", ctypes.c_int * 4),
                ("planes", ctypes.c_ulong * 2), ("save_under", ctypes.c_int), ("colormap", ctypes.c_ulong),
                ("installed", ctypes.c_int), ("map_state", ctypes.c_int), ("masks", ctypes.c_long * 3),
                ("override", ctypes.c_int), ("screen", ctypes.c_void_p)]


# A window may go between two questions about it; the library's own handler would end the test.
_on_error = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda display, error: 0)


class Screen:
    def __init__(self, case):
        reading, writing = os.pipe()
        server = subprocess.Popen(["Xvfb", "-screen", "0", "2560x1600x24", "-nolisten", "tcp", "-noreset",
                                   "-displayfd", str(writing)], pass_fds=(writing,), preexec_fn=_end_with_parent,
                                  stderr=subprocess.DEVNULL)
        os.close(writing)
        case.addCleanup(server.wait)
        case.addCleanup(server.terminate)
        with os.fdopen(reading) as told:
            self.name = ":" + told.readline().strip()
        self.x = ctypes.CDLL("libX11.so.6")
        for name in ("XOpenDisplay", "XDefaultRootWindow", "XInternAtom"):
            getattr(self.x, name).restype = ctypes.c_ulong
        self.x.XSetErrorHandler(_on_error)
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(self.name.encode()))
        case.addCleanup(self.x.XCloseDisplay, self.display)

    def windows(self):
        """The program's windows on show; the main window is the largest. (width, number) of each, in that order."""
        root = ctypes.c_ulong(self.x.XDefaultRootWindow(self.display))
        found = []
        unused = ctypes.c_ulong()
        children = ctypes.POINTER(ctypes.c_ulong)()
        count = ctypes.c_uint()
        self.x.XQueryTree(self.display, root, ctypes.byref(unused), ctypes.byref(unused), ctypes.byref(children),
                          ctypes.byref(count))
        for place in range(count.value):
            number = children[place]
            shown = Attributes()
            self.x.XGetWindowAttributes(self.display, ctypes.c_ulong(number), ctypes.byref(shown))
            if shown.map_state == VIEWABLE and shown.place[2] > 50:
                found.append((shown.place[3], number))
        return sorted(found, reverse=True)

    def wait_for(self, count):
        return [number for _, number in
                wait_until(lambda: self._exactly(count), f"{count} windows on show")]

    def _exactly(self, count):
        windows = self.windows()
        return windows if len(windows) == count else None

    def ask_to_close(self, window):
        atom = lambda name: self.x.XInternAtom(self.display, name, 0)
        word = ClientMessage(type=CLIENT_MESSAGE, window=window, message_type=atom(b"WM_PROTOCOLS"), format=32)
        word.data[0] = atom(b"WM_DELETE_WINDOW")
        self.x.XSendEvent(self.display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(word))
        self.x.XSync(self.display, 0)
