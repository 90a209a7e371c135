"""Handles Ctrl-C and similar signals: a signal ends this program only where it waits for another one. So whatever was made is
removed, and a delivery is never cut short."""

import contextlib
import ctypes
import signal

PR_SET_PDEATHSIG = 1  # of prctl
SIGNALS = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)


class Stopped(BaseException):
    """A signal asked this program to end."""

    def __init__(self, number):
        super().__init__(number)
        self.number = number


class State:
    waiting = False
    caught = None


def catch():
    """Catches the signals, even those that the program was started with ignored, as shells start programs in the background."""
    for number in SIGNALS:
        signal.signal(number, on_signal)


def on_signal(number, _frame):
    State.caught = number
    if State.waiting:
        State.waiting = False
        raise Stopped(number)


@contextlib.contextmanager
def waiting():
    """A context for waiting: a signal that comes meanwhile, or came before, raises Stopped."""
    State.waiting = True
    try:
        if State.caught:
            raise Stopped(State.caught)
        yield
    finally:
        State.waiting = False


def end_with_parent(number=signal.SIGKILL):
    """Has the calling process, which was started just now, get this signal when its parent ends, in whatever way."""
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, number)
