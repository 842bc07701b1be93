"""The operator's hand: pointer and keys, through the X server's test extension. It counts what it presses."""
import ctypes
import time

LEFT, MIDDLE, RIGHT, WHEEL_UP, WHEEL_DOWN = 1, 2, 3, 4, 5
STEP = 24  # pixels between two places of a pointer that is dragged
PAUSE = 0.008  # seconds between them, as a mouse reports
STRUCK = 0.03  # seconds that a button or a key stays down, and between the two halves of a double click


class Hand:
    """On the present display. A click, a double click, a drag, a turned notch and a key held or struck count as a
    press each for each time that a button or a key goes down."""

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.test = ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XStringToKeysym.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        self.presses = 0
        self.began = time.monotonic()
        self.place = (0, 0)

    def close(self):
        self.x11.XCloseDisplay(self.display)

    def seconds(self):
        return time.monotonic() - self.began

    def move(self, x, y):
        self.place = (round(x), round(y))
        self.test.XTestFakeMotionEvent(self.display, -1, *self.place, ctypes.c_ulong(0))
        self._flush()

    def down(self, button=LEFT):
        self.presses += 1
        self._button(button, True)

    def up(self, button=LEFT):
        self._button(button, False)

    def click(self, x, y, button=LEFT):
        self.move(x, y)
        self.down(button)
        time.sleep(STRUCK)
        self.up(button)

    def double_click(self, x, y):
        self.click(x, y)
        time.sleep(STRUCK)
        self.click(x, y)

    def drag(self, begin, end):
        """From one place to another, with the left button held, by way of the places between."""
        self.move(*begin)
        self.down()
        self.glide(end)
        self.up()

    def glide(self, end):
        """Moves on as a hand does, in steps."""
        x, y = self.place
        steps = max(1, round(max(abs(end[0] - x), abs(end[1] - y)) / STEP))
        for step in range(1, steps + 1):
            self.move(x + (end[0] - x) * step / steps, y + (end[1] - y) * step / steps)
            time.sleep(PAUSE)

    def wheel(self, x, y, notches):
        """Positive is away from the hand."""
        self.move(x, y)
        for _ in range(abs(notches)):
            self.down(WHEEL_UP if notches > 0 else WHEEL_DOWN)
            self.up(WHEEL_UP if notches > 0 else WHEEL_DOWN)

    def hold(self, key):
        self.presses += 1
        self._key(key, True)

    def let_go(self, key):
        self._key(key, False)

    def strike(self, *keys):
        """The last of these keys, with the others held: strike("Shift_L", "Up")."""
        for key in keys:
            self.hold(key)
        time.sleep(STRUCK)
        for key in reversed(keys):
            self.let_go(key)

    def _button(self, button, is_down):
        self.test.XTestFakeButtonEvent(self.display, button, is_down, ctypes.c_ulong(0))
        self._flush()

    def _key(self, key, is_down):
        code = self.x11.XKeysymToKeycode(self.display, ctypes.c_ulong(self.x11.XStringToKeysym(key.encode())))
        self.test.XTestFakeKeyEvent(self.display, code & 0xFF, is_down, ctypes.c_ulong(0))
        self._flush()

    def _flush(self):
        self.x11.XSync(self.display, False)
