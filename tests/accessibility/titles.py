"""The titles of the windows as the window manager is told them, the toolkit's own additions among them."""
import ctypes

ANY_TYPE = 0
# In 32-bit words.
LONGEST = 1024
# A window may go while it is looked at, which Xlib would end the process for.
_pass_over = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)


class _Property(ctypes.Structure):
    _fields_ = [("type", ctypes.c_ulong), ("format", ctypes.c_int), ("items", ctypes.c_ulong),
                ("left", ctypes.c_ulong), ("text", ctypes.POINTER(ctypes.c_char))]


def window_titles():
    """Of all windows of the display that have one."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XDefaultRootWindow.restype = ctypes.c_ulong
    x11.XInternAtom.restype = ctypes.c_ulong
    x11.XSetErrorHandler(_pass_over)
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    name = ctypes.c_ulong(x11.XInternAtom(display, b"_NET_WM_NAME", False))
    try:
        return [title for window in _windows(x11, display, x11.XDefaultRootWindow(display))
                if (title := _text(x11, display, window, name))]
    finally:
        x11.XCloseDisplay(display)


def _windows(x11, display, parent):
    root, above, count = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_uint()
    children = ctypes.POINTER(ctypes.c_ulong)()
    x11.XQueryTree(display, ctypes.c_ulong(parent), ctypes.byref(root), ctypes.byref(above),
                   ctypes.byref(children), ctypes.byref(count))
    found = children[:count.value]
    if found:
        x11.XFree(children)
    return found + [window for child in found for window in _windows(x11, display, child)]


def _text(x11, display, window, name):
    read = _Property()
    x11.XGetWindowProperty(display, ctypes.c_ulong(window), name, ctypes.c_long(0), ctypes.c_long(LONGEST), False,
                           ctypes.c_ulong(ANY_TYPE), *(ctypes.byref(read, getattr(_Property, field).offset)
                                                       for field, _ in _Property._fields_))
    if not read.text:
        return ""
    text = read.text[:read.items].decode()
    x11.XFree(read.text)
    return text
