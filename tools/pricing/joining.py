"""Joins the totals of the shares of one list of drawings."""

import json
import os

from failure import NOTHING, USAGE, Failure
from inputs import check_folder
from ledger import worst
from total import NAMES, Total
from work_folder import WorkFolder


def read_share(folder):
    path = os.path.join(folder, NAMES[-1])
    try:
        with open(path, "rb") as file:
            total = json.load(file)
        total["share"], total["drawings"]
    except OSError as error:
        raise Failure(USAGE, f"{path}: it cannot be read ({error.strerror})") from None
    except (ValueError, KeyError, TypeError):
        raise Failure(USAGE, f"{path}: it is no total of a share") from None
    return total


def check_shares(folders, totals):
    """Raises a Failure unless the totals are all shares of one list, each once, with the same prices and options."""
    lists = {(one["share"]["of"], one["share"]["drawings"], one["share"]["sha256"]) for one in totals}
    if len(lists) > 1:
        raise Failure(USAGE, f"{', '.join(folders)}: the shares are not of one list of drawings")
    for member, words in (("program", "made by one version of the program"), ("prices", "priced by one price list"), ("columns", "priced with the same options")):
        if len({json.dumps(one[member]) for one in totals if one["columns"]}) > 1:
            raise Failure(USAGE, f"{', '.join(folders)}: the shares are not {words}")
    numbers = [one["share"]["number"] for one in totals]
    of = totals[0]["share"]["of"]
    missing = [str(number) for number in range(1, of + 1) if number not in numbers]
    if missing:
        raise Failure(USAGE, f"{', '.join(folders)}: of {of} shares there is no {', '.join(missing)}")
    twice = [str(number) for number in sorted(set(numbers)) if numbers.count(number) > 1]
    if twice:
        raise Failure(USAGE, f"{', '.join(folders)}: share {', '.join(twice)} is there twice")


def joined(folders):
    """The total of the shares in these folders."""
    totals = [read_share(folder) for folder in folders]
    try:
        check_shares(folders, totals)
        entries = sorted((one for total in totals for one in total["drawings"]), key=lambda one: one["name"])
        head = next((one for one in totals if one["columns"]), totals[0])
        return Total({key: head[key] for key in ("schema", "program", "prices", "columns")}, entries)
    except (KeyError, TypeError, AttributeError, ValueError, ArithmeticError):
        raise Failure(USAGE, f"{', '.join(folders)}: these are no totals of shares, or not as they were written") from None


def join(arguments, out):
    """Puts the joined total in its place. Returns the exit status that one run would have had, and the total."""
    folders = arguments.files
    total = joined(folders)
    if any(os.path.realpath(folder) == os.path.realpath(out) for folder in folders):
        raise Failure(USAGE, f"{out}: the results would take the place of a share")
    check_folder(out, NAMES)
    work = WorkFolder(out)
    try:
        total.deliver(work)
    finally:
        work.remove()
    statuses = {one["error"]["status"] for one in total.entries if one["error"]}
    if arguments.strict and any(one["note_lines"] for one in total.entries):
        statuses.add(NOTHING)
    return worst(statuses), total
