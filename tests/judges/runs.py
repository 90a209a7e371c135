"""Attacks on ./run: impossible names and files, drawings with nothing to report, runs that share a folder, that are interrupted
or killed, folders that vanish. Every case returns how often it tried and how often everything was whole."""

import csv
import hashlib
import io
import json
import os
import random
import shutil
import signal
import subprocess
import time

import ezdxf
from ezdxf import bbox

from host import PRICES, ROOT, SAMPLE, fresh_session, kill_at_instants

RESULTS = ["dialog.png", "drawing.dxf", "drawing.png", "report.csv", "report.html", "report.json", "report.txt", "table.png"]


def start(*arguments, **options):
    return subprocess.Popen([ROOT / "run", "--quiet", *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, **options)


def run(*arguments, **options):
    """Exit status, standard output, standard error."""
    process = start(*arguments, **options)
    output, words = process.communicate()
    return process.returncode, output, words


def printed(folder):
    return (folder / "report.txt").read_bytes().decode("cp1255").replace("\r", "")


def refused_files(bench):
    """Files that cannot be used give one line with the reason before any work; not even the output folder is made."""
    folder = bench.new_folder("refused_files")
    for name in ('a"b', "a*b", "a?b", "a<b", "a>b", "a|b", "a\\b", "a\tb", "a\nb", "a:b", "b.", "b ", "con", "NUL.prc", "lpt1"):
        shutil.copy(SAMPLE, folder / name)
    os.mkfifo(folder / "pipe")
    (folder / "link").symlink_to("nowhere")
    (folder / "full").mkdir()
    (folder / "full" / "report.txt").symlink_to("nowhere")
    here = sorted(os.listdir(folder))
    cases = [([folder / name], 3) for name in here if name != "full"]
    cases += [([SAMPLE, folder / name], 4) for name in here if name != "full"]
    cases += [(["/dev/null"], 3), ([folder], 3), ([""], 2), ([SAMPLE, ""], 2), (["a", "b", "c"], 4), (["--what"], 2), (["--out"], 2),
              (["--out", folder / "full"], 6), (["--out", folder / "link"], 6), (["--out", folder / "pipe"], 6),
              (["--out", folder / "a|c"], 6), (["--out", ""], 2)]
    survived = 0
    for arguments, status in cases:
        found, output, words = run(*arguments, cwd=folder)
        good = found == status and not output and words.startswith("run: ") and words.count("\n") == 1
        survived += good and sorted(os.listdir(folder)) == here
        if not good:
            print(f"{[str(word) for word in arguments]}: {found} {words!r}")
    return len(cases), survived


def drawings_without_references(bench):
    """What ./run says of drawings whose references cannot be selected, in every form of the file."""
    folder = bench.new_folder("drawings_without_references")
    def drawing(place, count, version):
        made = ezdxf.new(version)
        block = made.blocks.new("B")
        block.add_point((0, 0))
        made.layers.add("ICE").freeze()
        space = {"inside": made.blocks.new("OUTER"), "paper": made.layout("Layout1")}.get(place, made.modelspace())
        for number in range(count):
            space.add_blockref("B", (number, 0), dxfattribs={"layer": "Ice" if place == "frozen" else "0"})
        return made
    cases = [("frozen", 527, "its 527 block references are on frozen layers"), ("paper", 2, "its 2 block references are in paper space"),
             ("inside", 1, "its only block reference is inside a block"), ("frozen", 0, "it has no block references to report")]
    tried = survived = 0
    for version in ("R12", "R2000", "R2018"):
        for form in ("asc", "bin"):
            for place, count, words in cases:
                drawing(place, count, version).saveas(folder / "d.dxf", fmt=form)
                found = run(folder / "d.dxf", "--out", folder / "out")
                tried += 1
                good = found == (5, "", f"run: {folder / 'd.dxf'}: {words}\n") and not os.listdir(folder / "out")
                survived += good
                if not good:
                    print(version, form, place, found)
    return tried, survived


def places_of_tables(bench):
    """The table stands beside what is drawn, whatever extents the header has, and leaves the drawing half of the picture."""
    folder = bench.new_folder("places_of_tables")
    text = SAMPLE.read_bytes()
    lies = {"far": text.replace(b"16400.0", b"2e9", 1), "inside": text.replace(b"16400.0", b"9.5", 1), "true": text}
    zoom = lambda box: min(4 / box.size.x, 3 / box.size.y)  # noqa: E731
    places = set()
    for name, data in lies.items():
        (folder / f"{name}.dxf").write_bytes(data)
        run(folder / f"{name}.dxf", PRICES, "--out", folder / name)
        space = ezdxf.readfile(folder / name / "drawing.dxf").modelspace()
        table = max(space.query("INSERT"), key=lambda entity: int(entity.dxf.handle, 16))
        there, rest = bbox.extents([table]), bbox.extents(entity for entity in space if entity is not table)
        beside = there.extmin.x > rest.extmax.x and abs(there.extmax.y / rest.extmax.y - 1) < 0.02
        kept = zoom(bbox.extents(space)) / zoom(rest)
        colours = {entity.dxf.color for entity in (table, *table.attribs, *table.block())}
        places.add((beside and 0.68 < kept < 0.8 and colours == {7}, round(there.extmin.x), round(kept, 2)))
    return len(lies), len(lies) if len(places) == 1 and places.pop()[0] else 0


def unreadable_files(bench):
    """Files that the host refuses, and a price list that is not one."""
    folder = bench.new_folder("unreadable_files")
    (folder / "bad.dxf").write_bytes(b"no drawing")
    for name, drawing in (("drawing.prc", SAMPLE), ("binary.prc", PRICES.with_name("house_plan_r12_binary.dxf"))):
        shutil.copy(drawing, folder / name)
    cases = [([folder / "bad.dxf"], 3, "bad.dxf:1: a group code was expected"), ([SAMPLE, folder / "drawing.prc"], 4, "is not a price list: it is a drawing"),
             ([SAMPLE, folder / "binary.prc"], 4, "is not a price list")]
    survived = 0
    for arguments, status, words in cases:
        found = run(*arguments, "--out", folder / "out")
        survived += found[0] == status and words in found[2] and found[2].count("\n") == 1 and not os.listdir(folder / "out")
    return len(cases), survived


def forms(bench):
    """The bill is the same as text, CSV and JSON; notes and exit status follow the options."""
    folder = bench.new_folder("forms")
    out = folder / "out"
    (folder / "list.prc").write_text("DOOR_90|640|=1+1\r\nfridge|5,5|say \"x\", y\r\n", encoding="utf-8")
    text = run(SAMPLE, folder / "list.prc", "--out", out)
    table = run(SAMPLE, folder / "list.prc", "--out", "-", "--format", "csv")
    bill = json.loads(run(SAMPLE, folder / "list.prc", "--out", "-", "--format", "json", "--strict")[1])
    rows = list(csv.reader(io.StringIO(table[1].removeprefix("\ufeff"))))
    noted = subprocess.run([ROOT / "run", SAMPLE, folder / "list.prc", "--out", "-", "--strict"], capture_output=True, text=True, check=False)
    hidden = run(SAMPLE, folder / "list.prc", "--hide-prices", "--out", "-", "--format", "csv")[1]
    checks = [
        text[0] == 0 and text[1] == printed(out),
        (out / "report.csv").read_bytes() == table[1].replace("\n", "\r\n").encode() and json.loads((out / "report.json").read_bytes()) == bill,
        rows == [["Block name", "Item Price", "Quantity", "Description", "Total"], ["door_90", "640.00", "4", "'=1+1", "2560.00"],
                 ["fridge", "5.00", "1", 'say "x", y', "5.00"], ["Summary:", "", "", "", "2565.00"]],
        [[row[key] for key in ("block", "price", "quantity", "description", "total")] for row in bill["rows"]]
        == [["door_90", "640.00", 4, "=1+1", "2560.00"], ["fridge", "5.00", 1, 'say "x", y', "5.00"]] and bill["sum"] == "2565.00",
        bill["drawing"]["sha256"] == hashlib.sha256(SAMPLE.read_bytes()).hexdigest(),
        all(len(row["handles"]) == row["quantity"] for row in bill["rows"]),
        noted.returncode == 5 and noted.stdout == text[1] and noted.stderr.splitlines() == bill["note_lines"],
        any(line.startswith('Read in part (1 price): line 2 "5,5" as 5.00') for line in bill["note_lines"]),
        hidden.splitlines()[0].endswith("Block name,Quantity,Description") and len(hidden.splitlines()) == 3,
        run("--version")[:2] == (0, "Corvanes 1.0.0\n"), run("--format", "xml")[0] == 2]
    if not all(checks):
        print(f"forms: {checks} {rows} {noted.stderr}")
    return len(checks), sum(checks)


def two_runs_to_one_folder(bench):
    """Each prints its own bill, and the folder holds the results of one of them. The pictures of the dialogs are left out:
    on one display only one of the two is active, which colours the captions."""
    folder = bench.new_folder("two_runs_to_one_folder")
    results = RESULTS[1:]
    wholes = {}
    for name, arguments in (("priced", [SAMPLE, PRICES]), ("bare", [SAMPLE])):
        assert run(*arguments, "--out", folder / name)[0] == 0
        wholes[name] = {result: (folder / name / result).read_bytes() for result in results}
    survived = 0
    for _ in range(bench.options.kills):
        runs = {name: start(*arguments, "--out", folder / "both") for name, arguments in (("priced", [SAMPLE, PRICES]), ("bare", [SAMPLE]))}
        outputs = {name: process.communicate() for name, process in runs.items()}
        own = all(outputs[name] == (printed(folder / name), "") for name in runs)
        found = {result: (folder / "both" / result).read_bytes() for result in results}
        good = own and found in wholes.values() and sorted(os.listdir(folder / "both")) == RESULTS
        survived += good
        if not good:
            print(f"two runs: own={own} {[words for _, words in outputs.values()]} {sorted(os.listdir(folder / 'both'))}")
    return bench.options.kills, survived


def stopped(folder, times, number, session=()):
    """Runs that a signal ends at some instant end at once, and leave the old results or all new ones. The next run removes what
    remains of them."""
    out = folder / "out"
    wholes = []
    for arguments in ([SAMPLE, PRICES], [SAMPLE]):
        assert run(*arguments, "--out", out)[0] == 0
        wholes.append({name: (out / name).read_bytes() for name in RESULTS})

    def begin():
        process = subprocess.Popen([*session, ROOT / "run", "--quiet", SAMPLE, PRICES, "--out", out], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        deadline = time.monotonic() + 60
        while not any(name.startswith(".run.") for name in os.listdir(out)) and time.monotonic() < deadline:
            time.sleep(0.005)
        return process

    def whole(process):
        words = process.communicate()[1]
        found = {name: (out / name).read_bytes() for name in RESULTS}
        left = sorted(set(os.listdir(out)) - set(RESULTS))
        delivered = found in wholes or any(out.glob(".run.*/ready"))  # or the next run completes the delivery
        ended = process.returncode == -number or (process.returncode == 0 and found == wholes[0])  # it had ended before the signal
        good = ended and delivered and not words and (number == signal.SIGKILL or not left)
        if not good:
            print(f"signal {number}: {process.returncode} {words} {left} whole={delivered}")
        return good

    survived = kill_at_instants(times, 1.2, random.Random(number), begin, lambda process: process.send_signal(number), whole)
    if number == signal.SIGKILL:
        assert run(SAMPLE, "--out", out)[0] == 0 and sorted(os.listdir(out)) == RESULTS, os.listdir(out)
    return times, survived


def interrupted(bench):
    folder = bench.new_folder("interrupted")
    tried, survived = stopped(folder, bench.options.kills, signal.SIGINT)
    # The same in a session of the run's own.
    own = stopped(folder, 2, signal.SIGINT, fresh_session(ROOT / "build" / "wine-second")[:-1])
    return tried + own[0], survived + own[1]


def killed(bench):
    folder = bench.new_folder("killed")
    tried, survived = stopped(folder, bench.options.kills, signal.SIGKILL)
    # A run that was killed during its delivery, imitated: the next run completes the delivery, though it fails itself.
    ready, empty = folder / "out" / ".run.dead" / "ready", folder / "empty.dxf"
    ready.mkdir(parents=True)
    (ready / "report.txt").write_bytes(b"delivered")
    empty.write_bytes(b"  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nEOF\n")
    completed = run(empty, "--out", folder / "out")[0] == 5 and (folder / "out" / "report.txt").read_bytes() == b"delivered"
    return tried + 1, survived + (completed and sorted(os.listdir(folder / "out")) == RESULTS)


def vanished_folder(bench):
    """The output folder is removed while the run works."""
    folder = bench.new_folder("vanished_folder")
    times, survived = bench.options.kills, 0
    for i in range(times):
        out = folder / "out"
        process = start(SAMPLE, "--out", out)
        while not out.is_dir() or not os.listdir(out):
            time.sleep(0.005)
        time.sleep(0.25 * i / times)
        while out.exists():
            shutil.rmtree(out, ignore_errors=True)
        _, words = process.communicate()
        good = process.returncode == 6 and words.startswith("run: ") and words.count("\n") == 1 and str(out) in words
        survived += good
        if not good:
            print(f"vanished: {process.returncode} {words!r}")
    return times, survived


def permissions(bench):
    """The results keep the permissions of what they replace, follow links, and obey the umask where they are new."""
    folder = bench.new_folder("permissions")
    out = folder / "out"
    out.mkdir()
    (out / "report.txt").write_bytes(b"old" * 10000)
    (out / "report.txt").chmod(0o600)
    (folder / "elsewhere.png").write_bytes(b"old")
    (out / "drawing.png").symlink_to("../elsewhere.png")
    status, output, _ = run(SAMPLE, "--out", out, preexec_fn=lambda: os.umask(0o027))
    modes = [(out / name).stat().st_mode & 0o777 for name in ("dialog.png", "drawing.dxf", "report.txt")]
    good = status == 0 and output == printed(out) and (out / "drawing.png").is_symlink()
    return 1, int(good and modes == [0o640, 0o640, 0o600] and (folder / "elsewhere.png").stat().st_size > 1000)


def specks(bench):
    """Where things far away make a drawing a speck, there is drawing-detail.png. The next run without need removes it; of a link,
    only the link."""
    folder = bench.new_folder("specks")
    out = folder / "out"
    far = b"  0\nLINE\n  8\n0\n 10\n9e6\n 20\n9e6\n 11\n9.1e6\n 21\n9.1e6\n  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS\n"
    text = SAMPLE.read_bytes()
    (folder / "speck.dxf").write_bytes(text.replace(b"  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS\n", far, 1))
    words = subprocess.run([ROOT / "run", folder / "speck.dxf", PRICES, "--out", out], capture_output=True, text=True).stderr
    made = "drawing-detail.png shows most of it" in words and (out / "drawing-detail.png").stat().st_size > 10000
    (out / "drawing-detail.png").rename(folder / "kept.png")
    (out / "drawing-detail.png").symlink_to(folder / "kept.png")
    gone = run(SAMPLE, PRICES, "--out", out)[0] == 0 and sorted(os.listdir(out)) == RESULTS and (folder / "kept.png").exists()
    return 2, made + gone


CASES = (
    (refused_files, "names that Windows forbids, pipes, devices, empty and missing arguments"),
    (drawings_without_references, "drawings whose references cannot be selected"),
    (places_of_tables, "headers that lie about where the drawing is"),
    (unreadable_files, "files that are no drawing or no list"),
    (forms, "bills as text, CSV and JSON"),
    (two_runs_to_one_folder, "two runs to one folder at once"),
    (interrupted, "Ctrl-C at some instant of a run"),
    (killed, "kills at some instant of a run"),
    (vanished_folder, "output folders that vanish midway"),
    (specks, "drawings that are a speck in their picture"),
    (permissions, "results over files with permissions and links"),
)
