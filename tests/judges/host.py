"""Runs the drawing host for a test: with a script, held at a line of it, limited, or killed."""

import os
import pathlib
import shutil
import signal
import subprocess
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
SAMPLE = ROOT / "samples" / "house_plan.dxf"
PRICES = ROOT / "samples" / "house_prices.prc"


def windows_path(path):
    return "Z:" + str(pathlib.Path(path).resolve()).replace("/", "\\")


def fresh_session(prefix, *runner):
    """The words before a command that run it, through `runner`, in a new session with this Wine prefix."""
    return ["env", "-u", "CORVANES_SESSION", f"CORVANES_PREFIX={prefix}", *runner, ROOT / "tools" / "session"]


def kill_at_instants(times, lasts, random, begin, kill, whole):
    """Begins and kills `times` runs, at instants spread over `lasts` seconds. Returns after how many kills everything was
    whole."""
    survived = 0
    for number in range(times):
        run = begin()
        time.sleep(lasts * (number + random.random()) / times)
        kill(run)
        survived += bool(whole(run))
    return survived


class Host:
    """One run. The modules are copied into `folder`, since the report module keeps its settings beside itself. `session`
    is the command to run it by, the test's own session when there is none."""

    def __init__(self, program, modules, folder, lines, drawing=None, before_start=None, session=()):
        self.folder = pathlib.Path(folder)
        self.number = self.folder / "process" if session else None
        script, self.said = self.folder / "test.scr", self.folder / "said"
        script.write_text("\n".join(lines + ["QUIT"]) + "\n", encoding="utf-8")
        command = [ROOT / "tools" / "wine", program] + ([windows_path(drawing)] if drawing else [])
        if session:  # the shell prints its process id, which exec gives to the host
            command = [*session, "sh", "-c", 'echo $$ >"$0"; exec "$@"', self.number, *command]
        for module in modules:
            own = self.folder / pathlib.Path(module).name
            if not own.exists():
                shutil.copy(module, own)
            command += ["--load", windows_path(own)]
        with open(self.said, "wb") as said:
            # A host that crashes ends at once instead of waiting for a debugger.
            surroundings = dict(os.environ, WINEDLLOVERRIDES=os.environ.get("WINEDLLOVERRIDES", "") + ";winedbg.exe=d")
            self.process = subprocess.Popen(command + ["--script", windows_path(script)], stdin=subprocess.PIPE,
                                            stdout=subprocess.PIPE, stderr=said, preexec_fn=before_start,
                                            env=surroundings)

    def wait_until_held(self):
        """Waits until the script has come to a HOLD."""
        line = self.process.stdout.readline().strip()
        if line != b"held":
            raise AssertionError(f"the host was not held: {line!r} {self.words()}")

    def release(self):
        self.process.stdin.write(b"\n")
        self.process.stdin.flush()

    def kill(self):
        """Kills the host, not the session around it, and waits for the end of both."""
        if self.number:
            os.kill(int(self.number.read_text(encoding="ascii")), signal.SIGKILL)
        else:
            self.process.kill()
        self.process.communicate()

    def finish(self):
        """The exit status and what was written to standard output meanwhile."""
        output = self.process.communicate()[0].decode()
        return self.process.returncode, output

    def words(self):
        return self.said.read_text(encoding="utf-8", errors="replace").strip()

    def succeed(self):
        status, output = self.finish()
        if status != 0:
            raise AssertionError(f"status {status}: {self.words()}")
        return output
