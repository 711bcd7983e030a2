"""Asks a program on an X display whether it is at rest, as platform/core/AtRest.h describes it.

Spoken through libxcb, which xdotool needs anyway; of its errors none ends the asker, so windows may close meanwhile.
"""

import ctypes
import itertools
import random
import struct

_xcb = ctypes.CDLL("libxcb.so.1")
_free = ctypes.CDLL(None).free
_free.argtypes = [ctypes.c_void_p]
_POINTERS = ("xcb_connect", "xcb_get_setup", "xcb_intern_atom_reply", "xcb_get_property_reply", "xcb_get_property_value",
             "xcb_query_tree_reply", "xcb_query_tree_children", "xcb_poll_for_event")
for _name in _POINTERS:
    getattr(_xcb, _name).restype = ctypes.c_void_p

_QUESTION = b"_SUISUITAG_AT_REST"
_CLIENT_MESSAGE = 33
_numbers = itertools.count(random.randrange(1, 1 << 31))  # an answer to another asker may still be there


class _Cookie(ctypes.Structure):
    _fields_ = [("sequence", ctypes.c_uint)]


class _Screens(ctypes.Structure):
    _fields_ = [("data", ctypes.POINTER(ctypes.c_uint32)), ("rem", ctypes.c_int), ("index", ctypes.c_int)]


_xcb.xcb_intern_atom.restype = _xcb.xcb_get_property.restype = _Cookie
_xcb.xcb_query_tree.restype = _xcb.xcb_send_event.restype = _Cookie
_xcb.xcb_setup_roots_iterator.restype = _Screens


class Asker:
    """A connection to one display, from which the windows of one process are asked."""

    def __init__(self, display, pid):
        self._pid = pid
        self._link = ctypes.c_void_p(_xcb.xcb_connect(display.encode(), None))
        if _xcb.xcb_connection_has_error(self._link):
            _xcb.xcb_disconnect(self._link)
            raise OSError(f"no X display {display}")
        setup = ctypes.c_void_p(_xcb.xcb_get_setup(self._link))
        self._root = _xcb.xcb_setup_roots_iterator(setup).data[0]  # the first word of a screen is its root window
        self._question, self._pid_note = (self._atom(name) for name in (_QUESTION, b"_NET_WM_PID"))
        self._asked = self._number = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        _xcb.xcb_disconnect(self._link)

    def _atom(self, name):
        reply = ctypes.c_void_p(_xcb.xcb_intern_atom_reply(
            self._link, _xcb.xcb_intern_atom(self._link, 0, len(name), name), None))
        atom = ctypes.cast(reply, ctypes.POINTER(ctypes.c_uint32))[2]
        _free(reply)
        return atom

    def _number_at(self, window, name):
        """The number that a property holds; 0 when there is none, None for a window that has closed."""
        cookie = _xcb.xcb_get_property(self._link, 0, window, name, 0, 0, 1)
        reply = ctypes.c_void_p(_xcb.xcb_get_property_reply(self._link, cookie, None))
        if not reply:
            return None
        value = ctypes.cast(_xcb.xcb_get_property_value(reply), ctypes.POINTER(ctypes.c_uint32))
        number = value[0] if _xcb.xcb_get_property_value_length(reply) == 4 else 0
        _free(reply)
        return number

    def _below(self, window):
        """The windows inside a window, at any depth; the list of a window manager is not everywhere."""
        reply = ctypes.c_void_p(_xcb.xcb_query_tree_reply(self._link, _xcb.xcb_query_tree(self._link, window), None))
        if not reply:
            return
        inside = ctypes.cast(_xcb.xcb_query_tree_children(reply), ctypes.POINTER(ctypes.c_uint32))
        inside = inside[:_xcb.xcb_query_tree_children_length(reply)]
        _free(reply)
        for one in inside:
            yield one
            yield from self._below(one)

    def _forget_errors(self):
        while event := _xcb.xcb_poll_for_event(self._link):
            _free(event)

    def _ask(self, window):
        self._asked, self._number = window, next(_numbers)
        _xcb.xcb_send_event(self._link, 0, window, 0, struct.pack("=BBHII5I", _CLIENT_MESSAGE, 32, 0, window,
                                                                  self._question, self._number, 0, 0, 0, 0))
        _xcb.xcb_flush(self._link)

    def answered(self):
        """Whether the program has answered; asks when no window of it has been asked yet, or that one has closed."""
        answer = None if self._asked is None else self._number_at(self._asked, self._question)
        self._forget_errors()
        if answer is None:
            self._asked = next((window for window in self._below(self._root)
                                if self._number_at(window, self._pid_note) == self._pid), None)
            if self._asked is not None:
                self._ask(self._asked)
            return False
        return answer == self._number
