"""Checks the files of a run before any work."""

import os
import re
import stat

from failure import DRAWING, OUTPUT, PRICES, Failure
from windows_names import objection


DWG_MARK = re.compile(rb"(AC|MC)\d[.\d]\d[\d.]")


def dwg_mark(path):
    """The version mark at the front of a DWG drawing, as "AC1015"; empty for any other file, whatever its name."""
    try:
        with open(path, "rb") as file:
            begin = file.read(6)
    except OSError:
        return ""
    return begin.decode("ascii") if DWG_MARK.fullmatch(begin) else ""


def check_input(path, status):
    """Raises a Failure of this status when the host cannot read the file."""
    try:
        mode = os.stat(path).st_mode
        if stat.S_ISDIR(mode):
            raise Failure(status, f"{path}: it is a folder")
        if not stat.S_ISREG(mode):
            raise Failure(status, f"{path}: it is not a regular file")
        with open(path, "rb"):
            pass
    except FileNotFoundError:
        raise Failure(status, f"{path}: there is no such file") from None
    except OSError as error:
        raise Failure(status, f"{path}: it cannot be read ({error.strerror})") from None
    check_name(path, status)


def check_name(path, status):
    reason = objection(path)
    if reason:
        raise Failure(status, f"{path}: {reason}")


def check_folder(path, results):
    """Raises a Failure when the folder cannot take the results; makes nothing."""
    if os.path.islink(path) and not os.path.exists(path):
        raise Failure(OUTPUT, f"{path}: it is a link to a folder that does not exist")
    there = os.path.realpath(path)
    while not os.path.lexists(there):
        there = os.path.dirname(there)
    if not os.path.isdir(there):
        wrong = "it is not a folder" if os.path.exists(path) else "the folder cannot be made"
        raise Failure(OUTPUT, f"{path}: {wrong}")
    if not os.access(there, os.W_OK | os.X_OK):
        raise Failure(OUTPUT, f"{path}: the folder cannot be {'written' if os.path.isdir(path) else 'made'}")
    check_name(path, OUTPUT)
    for name in results:
        target = os.path.join(path, name)
        if os.path.isdir(target):
            raise Failure(OUTPUT, f"{target}: it is a folder")
        if os.path.islink(target) and not os.path.exists(target):
            raise Failure(OUTPUT, f"{target}: it is a link to a file that does not exist")
        if os.path.exists(target) and not os.path.isfile(target):
            raise Failure(OUTPUT, f"{target}: it is not a regular file")
        if os.path.exists(target) and not os.access(target, os.W_OK):
            raise Failure(OUTPUT, f"{target}: it cannot be written")


def check(drawing, prices, out, results):
    if drawing is not None:
        check_input(drawing, DRAWING)
    if prices is not None:
        check_input(prices, PRICES)
    if out is not None:
        check_folder(out, results)
