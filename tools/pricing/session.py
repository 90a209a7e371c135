"""A Windows session (tools/session) for as long as this program needs it."""

import os
import subprocess

from failure import INTERNAL, Failure
from interruption import waiting

# The command of the session: it prints its environment, and then waits for the end of its input. That comes when this program
# ends, in whatever way, and so ends the session.
HOLD = ["sh", "-c", "printenv -0; printf '\\0'; exec >&-; read -r _ || :"]


class Session:
    """A session and its environment. Where this program runs within a session, that one serves as the first; each further one
    has a Wine prefix of its own. On a `processor` of their own, its programs and Wine's server, which talk all
    the time, wake each other at once."""

    def __init__(self, root, *options, number=1, processor=None):
        self.options = options
        self.root = root
        self.processor = processor
        self.process = None
        self.is_up = False
        self.environment = dict(os.environ)
        if number > 1:
            prefix = os.environ.get("CORVANES_PREFIX") or os.path.join(root, "build", "wine")
            self.environment |= {"CORVANES_PREFIX": f"{prefix}-{number}", "CORVANES_PREFIX_MODEL": prefix}
        self.is_here = bool(os.environ.get("CORVANES_SESSION")) and "--display" not in options and number == 1

    def begin(self):
        """Starts the session while this program does other things; wait() then takes its environment."""
        if self.is_here or self.process:
            return
        # In a process group of its own, so that Ctrl-C reaches this program only, which then ends everything in order.
        self.process = subprocess.Popen([os.path.join(self.root, "tools", "session"), *self.options, *HOLD], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE, start_new_session=True, env=self.environment,
                                        preexec_fn=self.settle if self.processor is not None else None)

    def settle(self):
        """Moves the calling process, and what it starts from then on, to the session's processor."""
        if self.processor is not None:
            os.sched_setaffinity(0, {self.processor})

    def wait(self):
        if self.is_up or not self.process:
            return
        told = b""
        while not told.endswith(b"\0\0"):
            with waiting():
                more = os.read(self.process.stdout.fileno(), 65536)
            if not more:
                said = self.process.stderr.readline().decode("utf-8", "replace").strip()
                raise Failure(INTERNAL, said or "there is no Windows session")
            told += more
        self.environment = dict(os.fsdecode(pair).split("=", 1) for pair in told[:-2].split(b"\0"))
        self.is_up = True

    def end(self):
        """Lets the session end by itself. That takes half a second, for which nobody waits here; a next session does."""
        if self.process:
            self.process.stdin.close()
