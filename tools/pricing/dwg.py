"""Recognises DWG drawings by their first bytes, and has the program in platform/dwg convert them to DXF, within limits."""

import contextlib
import hashlib
import json
import os
import resource
import select
import subprocess
import tempfile
import time

from dwg_notes import notes_of
from failure import DRAWING, INTERNAL, NOTHING, OUTPUT, Failure
from inputs import dwg_mark
from interruption import end_with_parent, waiting

VERSIONS = {"AC1014": "R14", "AC1015": "2000", "AC1018": "2004", "AC1021": "2007", "AC1024": "2010", "AC1027": "2013", "AC1032": "2018"}
OLD = {"AC1012": "R13", "AC1009": "R12", "AC1006": "R10"}

# The limits for one drawing: seconds, and more for each MB of it; bytes of memory.
SECONDS, SECONDS_A_MB = 30, 20
MEMORY = 6 << 30
MEMORY_OF_OBJECTS = 4 << 10  # MB: the part of MEMORY for objects


def check_version(path, mark):
    if mark not in VERSIONS:
        is_newer = mark.startswith("AC10") and mark > max(VERSIONS)
        age = "newer than 2018" if is_newer else f"of {OLD.get(mark, 'a version before R14')}"
        raise Failure(DRAWING, f"{path}: it is a DWG drawing {age} ({mark}); R14 to 2018 can be read")


def install(root):
    """Installs what reads DWG, where it is missing."""
    if subprocess.run([os.path.join(root, "tools", "setup"), "dwg"]).returncode != 0:
        raise Failure(INTERNAL, "what reads DWG drawings cannot be installed; build/npm.log tells why")


def limit():
    """Runs in the new process before the program starts: limits its memory, and has it end with this one, however this one
    ends."""
    resource.setrlimit(resource.RLIMIT_DATA, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    end_with_parent()


def source_of(path):
    """How report.json identifies a drawing's file."""
    digest = hashlib.sha256()
    with open(path, "rb") as file:
        while part := file.read(1 << 20):
            digest.update(part)
        return {"name": os.path.basename(path), "size": file.tell(), "sha256": digest.hexdigest()}


class Converted:
    """A DWG drawing that was converted to DXF in a folder of its own, with the notes for its bill."""

    def __init__(self, drawing, folder, converter):
        os.mkdir(folder)
        self.path = os.path.join(folder, os.path.splitext(os.path.basename(drawing))[0] + ".dxf")
        notes, self.note_lines = notes_of(converter.convert(drawing, self.path), self.path)
        self.told = os.path.join(folder, "source")  # for the module's CORVANES_SOURCE
        with open(self.told, "w", encoding="utf-8") as file:
            for item in (source_of(drawing), *notes, *self.note_lines):
                file.write(json.dumps(item, ensure_ascii=False) + "\n")

    def explained(self, failure):
        """A failure to price it, with the notes where there was nothing to report: what was lost may be the reason."""
        if failure.status != NOTHING:
            return failure
        return Failure(failure.status, "; ".join([str(failure), *self.note_lines]))


class Converter:
    """Converts drawings one after another. The program runs until close()."""

    def __init__(self, root):
        self.root = root
        self.process = None
        self.installed = False

    def convert(self, drawing, dxf):
        """Makes the file `dxf`, and returns what platform/dwg/inventory.mjs counted. Raises a Failure about the drawing."""
        check_version(drawing, dwg_mark(drawing))
        if not self.installed:
            install(self.root)
            self.installed = True
        if self.process is None or self.process.poll() is not None:
            self.start()
        limit = SECONDS + SECONDS_A_MB * os.path.getsize(drawing) / 1e6
        answer = self.ask(drawing, {"dwg": os.path.realpath(drawing), "dxf": os.path.realpath(dxf)}, limit)
        if "output" in answer:
            raise Failure(OUTPUT, f"the drawing cannot be converted ({answer['output']})")
        if "error" in answer:
            raise Failure(DRAWING, f"{drawing}: {answer['error']}")
        return answer

    def start(self):
        self.said = tempfile.TemporaryFile()
        program = os.path.join(self.root, "platform", "dwg", "dwg_to_dxf.mjs")
        self.process = subprocess.Popen(["node", f"--max-old-space-size={MEMORY_OF_OBJECTS}", program], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=self.said, preexec_fn=limit, start_new_session=True)

    def ask(self, drawing, question, limit):
        whole = None
        try:
            with contextlib.suppress(BrokenPipeError):
                self.process.stdin.write(json.dumps(question).encode() + b"\n")
                self.process.stdin.flush()
            whole = self.answer(drawing, time.monotonic() + limit, limit)
            return json.loads(whole)
        finally:
            if whole is None:  # too long, out of memory, or Ctrl-C
                self.close()

    def answer(self, drawing, deadline, limit):
        said = b""
        while not said.endswith(b"\n"):
            with waiting():
                ready, _, _ = select.select([self.process.stdout], [], [], max(0, deadline - time.monotonic()))
            if not ready:
                raise Failure(DRAWING, f"{drawing}: it takes the DWG reader more than {limit:.0f} s")
            part = os.read(self.process.stdout.fileno(), 1 << 16)
            if not part:
                raise Failure(*self.end(drawing))
            said += part
        return said

    def end(self, drawing):
        """The status and words of the Failure when the program has ended early."""
        self.process.wait()
        self.said.seek(0)
        words = self.said.read().decode("utf-8", "replace")
        if "ERR_MODULE_NOT_FOUND" in words:
            return INTERNAL, "the DWG reader's installation in platform/dwg/node_modules is not whole; remove that folder"
        return DRAWING, f"{drawing}: the DWG reader fails at it, or it takes more than {MEMORY >> 30} GB of memory"

    def close(self):
        if self.process:
            self.process.kill()
            self.process.wait()
            self.process.stdin.close()
            self.process.stdout.close()
            self.said.close()
            self.process = None
