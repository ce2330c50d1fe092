"""Waiting for what a step should bring about."""

import time


class Missed(Exception):
    """A step of the tour did not happen."""


def require(holds, what):
    if not holds:
        raise Missed(what)


def wait_for(what, happened, limit=30):
    """Answers the first true result of `happened`; raises Missed, naming `what`, after `limit` seconds."""
    end = time.monotonic() + limit
    while True:
        result = happened()
        if result:
            return result
        require(time.monotonic() < end, what)
        time.sleep(0.05)


def await_value(name, look, wanted):
    """Waits until look() answers the value that is wanted."""
    try:
        wait_for("", lambda: look() == wanted)
    except Missed:
        raise Missed(f"{name} is {wanted!r} (it is {look()!r})") from None
