"""The keys of a bar-code reader that works as a keyboard, on an X display.

A reader sends a whole scan at once, however busy the computer is. So all keys go to the server in one piece: typed
one by one, as xdotool does, they would be as far apart as a starved machine makes them. Spoken through Xlib and its
XTEST extension, which xdotool needs anyway.
"""

import ctypes

_x = ctypes.CDLL("libX11.so.6")
_xtest = ctypes.CDLL("libXtst.so.6")
_x.XOpenDisplay.restype = ctypes.c_void_p
_x.XStringToKeysym.restype = ctypes.c_ulong
_x.XKeysymToKeycode.argtypes = [ctypes.c_void_p, ctypes.c_ulong]
_x.XKeysymToKeycode.restype = ctypes.c_ubyte
_x.XkbKeycodeToKeysym.argtypes = [ctypes.c_void_p, ctypes.c_ubyte, ctypes.c_int, ctypes.c_int]
_x.XkbKeycodeToKeysym.restype = ctypes.c_ulong
_x.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
_x.XCloseDisplay.argtypes = [ctypes.c_void_p]
_xtest.XTestFakeKeyEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int, ctypes.c_ulong]


def _strokes(link, names):
    """(key code, whether Shift is down) of keys by their names in the X protocol. ValueError for one that the keyboard
    does not have."""
    for name in names:
        symbol = _x.XStringToKeysym(name.encode())
        code = _x.XKeysymToKeycode(link, symbol) if symbol else 0
        if not code:
            raise ValueError(f"no key {name!r}")
        yield code, _x.XkbKeycodeToKeysym(link, code, 0, 0) != symbol


def type_at_once(display, names):
    """Presses and releases the keys; returns when the server has them all. OSError when there is no such display."""
    link = ctypes.c_void_p(_x.XOpenDisplay(display.encode()))
    if not link:
        raise OSError(f"no X display {display}")
    try:
        (shift, _), *strokes = _strokes(link, ["Shift_L", *names])
        for code, shifted in strokes:
            keys = [shift, code] if shifted else [code]
            for key, down in [*((key, True) for key in keys), *((key, False) for key in reversed(keys))]:
                _xtest.XTestFakeKeyEvent(link, key, down, 0)
        _x.XSync(link, False)
    finally:
        _x.XCloseDisplay(link)
