#!/usr/bin/python3
"""All attacks in one table: what was tried, how often, and how often it was survived.

usage: attacks.py [--kills N] [--write]. Runs check_faults and check_run, of the programs in build/windows/bin; --write puts
the table into docs/attacks.md. Needs the environment of tools/session.
"""

import argparse
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
MARK = "<!-- tests/truth/attacks.py writes this -->\n"


def table(results):
    """A table of (what was tried in words, how often, how often it was survived)."""
    rows = [("attack", "tried", "survived"), ("---", "---:", "---:")]
    rows += [(words, str(tried), str(survived)) for words, tried, survived in results]
    widths = [max(len(row[column]) for row in rows) for column in range(3)]
    return "\n".join("| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |" for row in rows)


def rows_of(command):
    lines = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=False).stdout.splitlines()
    print(*(line for line in lines if not line.startswith("| ")), sep="\n", file=sys.stderr)
    return [tuple(cell.strip() for cell in line.strip("|").split("|")) for line in lines if line.startswith("| ")][2:]


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--kills", type=int, default=20)
    parser.add_argument("--write", action="store_true")
    options = parser.parse_args()
    here, programs = pathlib.Path(__file__).parent, ROOT / "build" / "windows" / "bin"
    rows = rows_of([here / "check_faults", *(programs / name for name in ("drawinghost.exe", "Corvanes.arx", "Probe.arx")),
                    "--kills", str(options.kills)])
    rows += rows_of([here / "check_run", "--times", str(options.kills)])
    print(table(rows))
    if options.write:
        page = ROOT / "docs" / "attacks.md"
        before, _, after = page.read_text(encoding="utf-8").split(MARK)
        page.write_text(f"{before}{MARK}{table(rows)}\n{MARK}{after}", encoding="utf-8")
    return 0 if all(tried == survived for _, tried, survived in rows) else 1


if __name__ == "__main__":
    sys.exit(main())
