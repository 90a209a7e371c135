"""Translates names of files for the Windows programs, which see the machine's files under the drive Z:."""

import functools
import os
import re

FORBIDDEN = re.compile(r'[\x00-\x1f"*:<>?\\|]')
DEVICES = re.compile(r"(con|prn|aux|nul|com[1-9]|lpt[1-9])( *\..*)?", re.IGNORECASE)


def objection(path):
    """Why a Windows program cannot name this file, in words; empty when it can."""
    for name in os.path.realpath(path).split("/"):
        found = FORBIDDEN.search(name)
        if found:
            return f"Windows forbids {found.group()} in a name"
        if name[-1:] in (".", " "):
            return "Windows forbids a dot or blank at the end of a name"
        if DEVICES.fullmatch(name):
            return f"{name} names a device of Windows"
        if any("\ud800" <= c <= "\udfff" for c in name):
            return "the name is not in UTF-8"
    return ""


@functools.cache
def real_folder(path):
    """The folder behind links; a script names many files of one, and what leads there stays while this program runs."""
    return os.path.realpath(path)


def windows_path(path):
    folder, name = os.path.split(path)
    inside = os.path.join(real_folder(folder), name)
    is_plain = name not in ("", ".", "..") and not os.path.islink(inside)
    return "Z:" + (inside if is_plain else os.path.realpath(path)).replace("/", "\\")


def own_paths(words):
    """The words of a Windows program, with the machine's own paths in place of Windows ones."""
    return words.replace("Z:\\", "/").replace("\\", "/")
