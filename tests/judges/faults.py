"""Injects faults into the whole road: full disks, folders that cannot be written, files that others change while they are read,
and price lists of all kinds. Every case returns how often it tried and how often nothing was lost, or None where only root can
try it."""

import pathlib
import resource
import signal
import subprocess
import threading

from host import Host, windows_path

OLD = b"what was there before"
REFUSED = '@alert "File * could  not be opened"'
REPLACE = '@alert "*already exists*" YES'


def drawing_bytes(count):
    blocks = "".join(f"  0\nBLOCK\n  8\n0\n  2\nBLOCK_{i}\n 70\n0\n 10\n0.0\n 20\n0.0\n  3\nB\n  0\nENDBLK\n  8\n0\n"
                     for i in range(count))
    references = "".join(f"  0\nINSERT\n  8\n0\n  2\nBLOCK_{i % count}\n 10\n{i}.0\n 20\n2.0\n" for i in range(max(6000, count)))
    head = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1009\n  0\nENDSEC\n"
    return (head + f"  0\nSECTION\n  2\nBLOCKS\n{blocks}  0\nENDSEC\n"
            f"  0\nSECTION\n  2\nENTITIES\n{references}  0\nENDSEC\n  0\nEOF\n").encode()


class Bench:
    """A folder with a drawing and a price list, and scripts that save reports and price lists."""

    def __init__(self, options, folder, blocks=400):
        self.options = options
        self.folder = folder
        folder.mkdir(exist_ok=True)
        self.drawing, self.prices = folder / "House.dxf", folder / "list.prc"
        self.drawing.write_bytes(drawing_bytes(blocks))
        self.prices.write_bytes(b"".join(b"block_%d|%d.5|text of %d\r\n" % (i, i, i) for i in range(blocks)))
        self.module_folder = self.new_folder("module")
        target = folder / "whole.txt"
        self.run(self.report(target)).succeed()
        self.whole_report = target.read_bytes()
        assert len(self.whole_report) > 20000

    def new_folder(self, name):
        path = self.folder / name
        path.mkdir()
        return path

    def run(self, lines, before_start=None, drawing=None):
        return Host(self.options.host, [self.options.module, self.options.probe], self.module_folder, lines,
                    drawing or self.drawing, before_start)

    def report(self, target, *afterwards):
        return ["QXBOMC", windows_path(self.prices), "ALL", "", '@press "Save to file"', windows_path(target), *afterwards,
                '@press "Close"']

    def price_list(self, target, *afterwards):
        return ["QXBOMT", '@press "Open"', windows_path(self.prices), '@press "Save As"', windows_path(target), *afterwards,
                '@press "Close"']


def temporary_files(folder):
    return list(folder.glob("*.tmp"))


def check_refused(bench, folder, what, before_start=None):
    """Checks that no report, price list or drawing can be written into the folder: each gives one error, and old files stay."""
    for name, script in (("report.txt", bench.report), ("prices.prc", bench.price_list)):
        old, new = folder / ("old_" + name), folder / ("new_" + name)
        bench.run(script(old, REPLACE, REFUSED), before_start).succeed()
        bench.run(script(new, REFUSED), before_start).succeed()
        assert old.read_bytes() == OLD, f"{what}: {old.name} holds {old.read_bytes()[:40]}"
        assert not new.exists(), f"{what}: {new.name} was left"
    run = bench.run(["SAVEAS", windows_path(folder / "new.dxf")], before_start)
    status, _ = run.finish()
    assert status == 1 and "could not be saved" in run.words() and "\n" not in run.words(), f"{what}: {run.words()!r}"
    assert not (folder / "new.dxf").exists(), f"{what}: half a drawing was left"
    assert not temporary_files(folder), f"{what}: {temporary_files(folder)}"


def put_old_files(folder):
    for name in ("old_report.txt", "old_prices.prc"):
        (folder / name).write_bytes(OLD)


def limit_file_size():
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (8000, 8000))


def no_room(bench):
    folder = bench.new_folder("limited")
    put_old_files(folder)
    check_refused(bench, folder, "files of at most 8000 bytes", limit_file_size)
    return 5, 5


def full_or_read_only_disk(bench):
    disk = bench.new_folder("disk")
    if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "none", disk], stderr=subprocess.DEVNULL).returncode != 0:
        return None
    try:
        put_old_files(disk)
        (disk / "filler").write_bytes(b"x" * 49152)
        check_refused(bench, disk, "a full disk")
        subprocess.run(["mount", "-o", "remount,ro", disk], check=True)
        check_refused(bench, disk, "a read-only disk")
    finally:
        subprocess.run(["umount", disk], check=True)
    return 10, 10


def changed_while_it_is_read(bench):
    """A file that another process keeps cutting and completing opens as it was at one moment, or is refused in one line."""
    drawing = bench.drawing.read_bytes().replace(b"  0\nEOF", b"999\nroom to be caught within\n" * 1_000_000 + b"  0\nEOF")
    half, report = len(drawing) // 2, bench.folder / "read.txt"
    source = bench.folder / "restless.dxf"
    source.write_bytes(drawing)
    done = threading.Event()

    def change():
        with source.open("r+b") as file:
            while not done.wait(0.03):
                file.truncate(half)
                file.seek(half)
                file.write(drawing[half:])
                file.flush()

    writer = threading.Thread(target=change)
    writer.start()
    refusals = set()
    try:
        for _ in range(8):
            run = bench.run(bench.report(report), drawing=source)
            status, _ = run.finish()
            if status == 0:
                assert report.read_bytes() == bench.whole_report, "the report of a changing drawing differs"
                report.unlink()
            else:
                assert status == 1 and "\n" not in run.words() and source.name in run.words(), run.words()
                assert not report.exists(), "a refused drawing was reported"
                refusals.add(run.words().partition("restless.dxf")[2])
    finally:
        done.set()
        writer.join()
    assert any("was changed while it was read" in words for words in refusals), f"not caught once: {refusals}"
    return 8, 8


def price_lists_of_all_kinds(bench):
    """A list in any encoding of editors is read, and saved in the same encoding; a file of another kind gives one alert."""
    text = "".join(f"block_{i}|{i}.5|\u05d3\u05dc\u05ea {i}\r\n" for i in range(40))
    survived = 0
    encodings = ("cp1255", "utf-8", "utf-8-sig", "utf-16")
    source, copy, report = bench.folder / "kept.prc", bench.folder / "copy.prc", bench.folder / "kept.txt"
    for encoding in encodings:
        source.write_bytes(text.encode(encoding))
        bench.run(["QXBOMT", '@press "Open"', windows_path(source), '@press "Save As"', windows_path(copy), '@press "Close"',
                   "QXBOMC", windows_path(source), "ALL", "", '@press "Save to file"', windows_path(report),
                   '@press "Close"']).succeed()
        survived += copy.read_bytes() == source.read_bytes() and report.read_bytes().count(b"\xe3\xec\xfa ") == 40
        copy.unlink()
        report.unlink()
    foreign = {"a drawing": drawing_bytes(1), "not a text": pathlib.Path(bench.options.module).read_bytes(),
               "returns": text.replace("\r\n", "\r").encode("cp1255")}
    for reason, data in foreign.items():
        source.write_bytes(data)
        alert = f'@alert "File *kept.prc is not a price list: *{reason}*"'
        bench.run(["QXBOMC", windows_path(source), alert, "QXBOMT", '@press "Open"', windows_path(source), alert,
                   '@press "Close"']).succeed()
        survived += 1
    return len(encodings) + len(foreign), survived


# The cases, each with its words for the table.
CASES = (
    (no_room, "saves beyond the file size limit"),
    (full_or_read_only_disk, "saves to a full disk and to a read-only one"),
    (changed_while_it_is_read, "drawings read while somebody rewrites them"),
    (price_lists_of_all_kinds, "price lists in all encodings, and files that are none"),
)
