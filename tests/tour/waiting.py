"""Waiting for what a step should bring about."""

import time


class Missed(Exception):
    """A step of the tour did not happen."""


def wait_for(what, happened, limit=30):
    """Answers the first true result of `happened`; raises Missed, naming `what`, after `limit` seconds."""
    end = time.monotonic() + limit
    while True:
        result = happened()
        if result:
            return result
        if time.monotonic() > end:
            raise Missed(what)
        time.sleep(0.05)
