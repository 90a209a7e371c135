"""Ctrl-C and its kin: a signal ends this program where it waits for another, and nowhere else. So what is made is known
to who removes it, and a delivery is never cut short."""

import contextlib
import signal

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
    """Also what the program was started to ignore, as a shell does with what runs in the background."""
    for number in SIGNALS:
        signal.signal(number, on_signal)


def on_signal(number, _frame):
    State.caught = number
    if State.waiting:
        State.waiting = False
        raise Stopped(number)


@contextlib.contextmanager
def waiting():
    """For the time of a wait, which a signal ends with Stopped; so does one that came before."""
    State.waiting = True
    try:
        if State.caught:
            raise Stopped(State.caught)
        yield
    finally:
        State.waiting = False
