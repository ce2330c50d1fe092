"""The frame of a test that plays the program: it ends in time, and tells what did not happen."""

import signal
import sys

import picture
from stage import SCREEN, Stage
from waiting import Missed

TIME_LIMIT = 280  # seconds, of which a quick machine needs a small part


def _stop(number, _frame):
    raise Missed(f"the test ends in time (signal {signal.Signals(number).name})")


def perform(play, app_dir, plugins, stopped="stopped.png", **environment):
    """Runs play(stage), where the program was started; what did not happen ends the process by 1.

    There is then a picture of what there was to see, of the name `stopped`.
    """
    for reason in (signal.SIGALRM, signal.SIGTERM, signal.SIGINT):
        signal.signal(reason, _stop)
    signal.alarm(TIME_LIMIT)
    with Stage(app_dir, plugins) as stage:
        stage.start_program(**environment)
        try:
            play(stage)
        except Exception as failure:
            print(stage.log(), end="", file=sys.stderr)
            picture.from_screen(SCREEN).save(stopped)
            sys.exit(f"This did not happen: {failure!r}")
    signal.alarm(0)
