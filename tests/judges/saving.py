"""Attacks on saving: saves that are killed, two saves at once, and files of other owners and permissions. Every case returns how
often it tried and how often everything was whole afterwards, or None where only root can try it."""

import os
import pathlib
import random
import shutil
import subprocess
import time

from host import ROOT, Host, fresh_session, kill_at_instants, windows_path

LINES = 710_000  # 50 MB
OWNER, MEMBER, GROUP = 12345, 12346, 54321
SECOND_PREFIX = ROOT / "build" / "wine-second"


def write_large_drawing(path):
    head = ["0", "SECTION", "2", "BLOCKS", "0", "BLOCK", "8", "0", "2", "MARK", "70", "0", "10", "0", "20", "0", "3", "MARK", "0",
            "ENDBLK", "8", "0", "0", "ENDSEC", "0", "SECTION", "2", "ENTITIES"]
    with open(path, "w", encoding="ascii", newline="") as file:
        file.write("\r\n".join(head) + "\r\n")
        for number in range(LINES):
            file.write(f"0\r\nLINE\r\n8\r\nWALLS\r\n10\r\n{number}.125\r\n20\r\n0.0\r\n11\r\n{number}.25\r\n21\r\n1000.0\r\n")
        file.write("0\r\nENDSEC\r\n0\r\nEOF\r\n")


class LargeDrawing:
    """A drawing, with its contents before and after each of two saves, which insert a block at different places."""

    def __init__(self, bench):
        self.bench = bench
        self.folder = bench.folder / "large"
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir()
        self.drawing, self.old = self.folder / "big.dxf", self.folder / "old"
        write_large_drawing(self.old)
        self.contents = {"old": self.old.read_bytes()}
        for place in (1, 2):
            self.restore()
            run = self.save(place)
            run.wait_until_held()
            start = time.monotonic()
            run.release()
            run.wait_until_held()
            self.lasts = time.monotonic() - start
            run.release()
            run.succeed()
            self.contents[f"new {place}"] = self.drawing.read_bytes()
        assert len(set(self.contents.values())) == 3, "nothing was saved"

    def restore(self):
        shutil.copy(self.old, self.drawing)

    def save(self, place, session=()):
        """Starts a host that opens the drawing, and that HOLD stops before and after the save."""
        folder = self.folder / f"host {place}"
        folder.mkdir(exist_ok=True)
        lines = ["INSERT", "MARK", f"{place},2", "", "", "", "HOLD", "QSAVE", "HOLD"]
        return Host(self.bench.options.host, [self.bench.options.probe], folder, lines, self.drawing, session=session)

    def which(self):
        """Which of the three contents the file has; None when it is a mixture."""
        now = self.drawing.read_bytes()
        return next((name for name, whole in self.contents.items() if whole == now), None)

    def leftovers(self):
        return set(self.folder.glob("*.tmp"))


def killed_in_fresh_sessions(bench):
    """Saves that are killed in fresh sessions. A fresh wineserver gives the process numbers of the last one again. A left-over
    file is there beforehand."""
    large = LargeDrawing(bench)
    source = random.Random(bench.options.seed)
    session = fresh_session(SECOND_PREFIX)
    within = 0
    (large.folder / "big.dxf.0123456789abcdef.tmp").write_bytes(b"left before")
    before = set()

    def begin():
        large.restore()
        before.update(large.leftovers())
        run = large.save(1, session)
        run.wait_until_held()
        run.release()
        return run

    def whole(_):
        nonlocal within
        after = large.leftovers()
        within += bool(after - before)
        before.clear()
        return large.which() in ("old", "new 1") and len(after) <= 1

    survived = kill_at_instants(bench.options.kills, large.lasts * 1.1, source, begin, Host.kill, whole)
    large.restore()
    run = large.save(1, session)
    for _ in range(2):
        run.wait_until_held()
        run.release()
    run.succeed()
    assert large.which() == "new 1" and not large.leftovers(), "the save after the kills"
    assert within, "no kill fell into a save"
    return bench.options.kills, survived


def saved_by_two(bench):
    """Hosts under two prefixes, which know nothing of each other, save one drawing at the same time."""
    large = LargeDrawing(bench)
    times, survived = max(2, bench.options.kills // 4), 0
    for _ in range(times):
        large.restore()
        runs = [large.save(1, fresh_session(SECOND_PREFIX)), large.save(2)]
        for _ in range(2):
            for run in runs:
                run.wait_until_held()
            for run in runs:
                run.release()
        ends = [run.finish()[0] for run in runs]
        survived += ends == [0, 0] and large.which() in ("new 1", "new 2") and not large.leftovers()
    return times, survived


def owned(path):
    info = os.stat(path)
    return info.st_uid, info.st_gid, info.st_mode & 0o7777


def saved_with_permissions(bench):
    """A file that is saved over keeps its mode, owner and group; a new one obeys the umask of the person who saves."""
    folder = bench.new_folder("owned")
    root = os.geteuid() == 0
    cases = [(os.geteuid(), os.getegid(), mode) for mode in (0o600, 0o640, 0o644, 0o664, 0o755)]
    cases += [(OWNER, GROUP, mode) for mode in (0o600, 0o640, 0o664)] if root else []
    survived = 0
    for number, (user, group, mode) in enumerate(cases):
        target = folder / f"{number}.txt"
        target.write_bytes(b"old")
        os.chown(target, user, group)
        target.chmod(mode)
        bench.run(bench.report(target, '@alert "*already exists*" YES')).succeed()
        survived += owned(target) == (user, group, mode) and target.read_bytes() == bench.whole_report
    for mask in (0o077, 0o027, 0o002):
        target = folder / f"new{mask:o}.txt"
        bench.run(bench.report(target), lambda value=mask: os.umask(value)).succeed()
        survived += owned(target)[2] == 0o666 & ~mask
    return len(cases) + 3, survived


def saved_by_other_users(bench):
    """The owner saves, and then a member of the group, who cannot keep the owner, and in the second folder cannot make a new
    file."""
    if os.geteuid() != 0:
        return None
    home = bench.new_folder("home")
    os.chown(home, MEMBER, GROUP)
    bench.folder.chmod(0o755)
    bench.folder.parent.chmod(0o755)
    survived = 0
    session = fresh_session(home / "prefix", "setpriv", f"--reuid={MEMBER}", f"--regid={GROUP}", "--clear-groups", "env",
                            f"HOME={home}")
    cases = [(MEMBER, 0o640, 0o777, True), (OWNER, 0o660, 0o777, True), (OWNER, 0o660, 0o755, True), (OWNER, 0o640, 0o777, False)]
    for number, (user, mode, folder_mode, may) in enumerate(cases):
        own, folder = home / f"host{number}", bench.folder / f"shared{number}"
        own.mkdir()
        folder.mkdir()
        target = folder / "big.dxf"
        target.write_bytes(bench.drawing.read_bytes())
        os.chown(own, MEMBER, GROUP)
        os.chown(target, user, GROUP)
        target.chmod(mode)
        folder.chmod(folder_mode)
        # Large changes and small ones: the file grows.
        lines = ["INSERT", "BLOCK_1", "1,2", "", "", "", "QSAVE"]
        run = Host(bench.options.host, [bench.options.probe], own, lines, target, session=session)
        status, _ = run.finish()
        grown = len(target.read_bytes()) > len(bench.drawing.read_bytes())
        kept = owned(target) == (user, GROUP, mode) and not list(folder.glob("*.tmp"))
        survived += kept and (status == 0) == may and grown == may
    return len(cases), survived


def stopped_in_the_midst(bench):
    """A write in place fails after it has begun, and the whole new contents stay beside the file. The target is a mount point,
    which cannot be replaced, and sparse, so that a full disk has no room to fill it."""
    disk = bench.new_folder("small disk")
    if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "none", disk], stderr=subprocess.DEVNULL).returncode != 0:
        return None
    target = disk / "old.txt"
    try:
        target.touch()
        os.truncate(target, 100_000)
        subprocess.run(["mount", "--bind", target, target], check=True)
        (disk / "filler").write_bytes(b"x" * (os.statvfs(disk).f_bavail * 4096 - len(bench.whole_report) - 8192))
        bench.run(bench.report(target, '@alert "*already exists*" YES', '@alert "File * could  not be opened"')).succeed()
        rescued = [path.read_bytes() for path in pathlib.Path(disk).glob("old.txt.*.rescued")]
        return 1, int(rescued == [bench.whole_report])
    finally:
        subprocess.run(["umount", target], check=False)
        subprocess.run(["umount", disk], check=True)


def pointed_at_what_is_no_file(bench):
    """A save to a broken link or to a pipe is refused, and changes neither."""
    folder = bench.new_folder("odd")
    link, pipe = folder / "link.txt", folder / "pipe.txt"
    link.symlink_to("nowhere.txt")
    os.mkfifo(pipe)
    survived = 0
    for target in (link, pipe):
        named = windows_path(folder) + "\\" + target.name  # not what the link leads to
        bench.run(["QXBOMC", "^C", "ALL", "", '@press "Save to file"', named, '@alert "File * could  not be opened"',
                   '@press "Close"']).succeed()
        survived += target.is_symlink() or target.is_fifo()
    assert sorted(os.listdir(folder)) == ["link.txt", "pipe.txt"]
    return 2, survived


CASES = (
    (killed_in_fresh_sessions, "kills while a drawing is saved, each in a fresh session, with a leftover there"),
    (saved_by_two, "two prefixes that save one drawing at once"),
    (saved_with_permissions, "saves over files of other modes and owners, and with other umasks"),
    (saved_by_other_users, "saves by the owner and by a member of the group"),
    (stopped_in_the_midst, "disk full in the midst of writing in place"),
    (pointed_at_what_is_no_file, "saves to a link to nothing and to a pipe"),
)
