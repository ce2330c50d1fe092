"""What a window manager does when the close button of a window's frame is pressed."""

import ctypes

_CLIENT_MESSAGE = 33
_x11 = ctypes.CDLL("libX11.so.6")
_x11.XOpenDisplay.restype = ctypes.c_void_p
_x11.XInternAtom.restype = ctypes.c_ulong


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5),
                ("rest", ctypes.c_long * 12)]  # an event of the library is never smaller than this


def ask_to_close(window):
    """Asks the program that owns a window, given by its number, to close it. Needs DISPLAY."""
    display = ctypes.c_void_p(_x11.XOpenDisplay(None))
    protocols = _x11.XInternAtom(display, b"WM_PROTOCOLS", 0)
    delete = _x11.XInternAtom(display, b"WM_DELETE_WINDOW", 0)
    message = _ClientMessage(type=_CLIENT_MESSAGE, window=window, message_type=protocols, format=32)
    message.data[0] = delete
    _x11.XSendEvent(display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(message))
    _x11.XCloseDisplay(display)
