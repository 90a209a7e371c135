"""The hidden folder within the output folder, where a run makes its results and from where it delivers all of them or none.

A run holds a lock on its folder. A folder that nobody has locked belongs to a killed run: the next run removes it, and first
completes its delivery, if that had begun."""

import contextlib
import fcntl
import os
import shutil
import threading

from failure import OUTPUT, Failure

PREFIX = ".run."
READY = "ready"  # a folder within the work folder: what it holds is complete and is being delivered


def locked(path):
    """A descriptor that holds the folder's lock; None while another run has it, or when the folder is gone."""
    try:
        folder = os.open(path, os.O_RDONLY | os.O_DIRECTORY)
    except OSError:
        return None
    try:
        fcntl.flock(folder, fcntl.LOCK_EX | fcntl.LOCK_NB)
        if os.path.samestat(os.fstat(folder), os.stat(path)):
            return folder
    except OSError:
        pass
    os.close(folder)
    return None


class WorkFolder:
    def __init__(self, out):
        self.out = out
        try:
            os.makedirs(out, exist_ok=True)
            self.clear_abandoned()
            self.lock = None
            while self.lock is None:  # another run may remove it as abandoned before it is locked
                self.path = os.path.join(os.path.realpath(out), PREFIX + os.urandom(4).hex())
                os.mkdir(self.path, 0o700)
                self.lock = locked(self.path)
        except OSError as error:
            raise Failure(OUTPUT, f"{out}: the folder cannot be written ({error.strerror})") from None

    def file(self, name):
        return os.path.join(self.path, name)

    def is_there(self):
        return os.path.isdir(self.path)

    def clear_abandoned(self):
        for name in os.listdir(self.out):
            path = os.path.join(self.out, name)
            lock = locked(path) if name.startswith(PREFIX) else None
            if lock is not None:
                with contextlib.suppress(OSError):
                    self.put_in_place(os.path.join(path, READY))
                shutil.rmtree(path, ignore_errors=True)
                os.close(lock)

    def targets(self, names):
        """Pairs of a name and the file behind links that has it in the output folder."""
        folder = os.path.realpath(self.out)
        paths = [os.path.join(folder, name) for name in names]
        return zip(names, [os.path.realpath(path) if os.path.islink(path) else path for path in paths])

    def put_in_place(self, ready):
        """Moves what is ready over the targets, one run at a time."""
        folder = os.open(self.out, os.O_RDONLY | os.O_DIRECTORY)
        overwritten = []
        try:
            fcntl.flock(folder, fcntl.LOCK_EX)
            pairs = [(os.path.join(ready, name), target) for name, target in self.targets(sorted(os.listdir(ready)))]
            for staged, target in pairs:  # first, since this may fail: undone below
                if os.path.getsize(staged) > 0 and not may_replace(staged, target):
                    overwritten.append((target, overwrite(target, contents(staged))))
            for staged, target in pairs:
                if os.path.getsize(staged) == 0:
                    with contextlib.suppress(FileNotFoundError):
                        os.unlink(os.path.join(self.out, os.path.basename(staged)))  # not what a link names
                    os.unlink(staged)
                elif may_replace(staged, target):
                    os.rename(staged, target)
        except OSError:
            for target, old in overwritten:
                overwrite(target, old)
            raise
        finally:
            os.close(folder)

    def deliver(self, names, optional=(), made=None):
        """Puts the results, which are in this folder or in the folder `made`, in place, with mode, owner and group of what they
        replace. Optional results that this run did not make are removed from the output folder; an empty file stands for such a one."""
        made = made or self.path
        try:
            staging = self.file("staging")
            os.mkdir(staging)
            for name in optional:
                with open(os.path.join(made, name), "ab"):
                    pass
            for name, target in self.targets((*names, *optional)):
                stage(os.path.join(made, name), os.path.join(staging, name), target)
            flush([os.path.join(staging, name) for name in (*names, *optional)])
            os.rename(staging, self.file(READY))  # from here on the delivery will be completed, if need be by the next run
            self.put_in_place(self.file(READY))
        except OSError as error:
            where = os.path.join(self.out, os.path.basename(error.filename2 or error.filename or ""))
            raise Failure(OUTPUT, f"{where}: it cannot be written ({error.strerror})") from None

    def remove(self):
        shutil.rmtree(self.path, ignore_errors=True)
        os.close(self.lock)


def stage(made, staged, target):
    """Moves a finished file to `staged`, with the target's permissions, or those that the umask asks for."""
    if not os.path.exists(target):
        mask = os.umask(0)
        os.umask(mask)
        os.chmod(made, 0o666 & ~mask)
    else:
        old = os.stat(target)
        with contextlib.suppress(PermissionError):
            os.chown(made, -1, old.st_gid)
            os.chown(made, old.st_uid, -1)
        os.chmod(made, old.st_mode & 0o7777)
    os.rename(made, staged)


def flush(paths):
    """Has the disk take the files, all at a time: one after another each would wait for a turn of the file system's journal."""
    failures = []

    def flush_one(path):
        try:
            with open(path, "rb") as file:
                os.fsync(file.fileno())
        except OSError as error:
            error.filename = path
            failures.append(error)

    threads = []
    for path in paths:
        try:
            threads.append(threading.Thread(target=flush_one, args=(path,)))
            threads[-1].start()
        except RuntimeError:  # the system has no thread for it now
            threads.pop()
            flush_one(path)
    for thread in threads:
        thread.join()
    if failures:
        raise failures[0]


def may_replace(staged, target):
    """Whether a rename can replace the target; it cannot where the target is another user's, or on another disk."""
    new, folder = os.stat(staged), os.stat(os.path.dirname(target))
    old = os.stat(target) if os.path.exists(target) else new
    return (old.st_uid, old.st_gid, folder.st_dev) == (new.st_uid, new.st_gid, new.st_dev) and not os.path.ismount(target)


def contents(path):
    with open(path, "rb") as file:
        return file.read()


def overwrite(path, data):
    """Writes into the file itself, and returns what was there."""
    with open(path, "r+b") as file:
        old = file.read()
        file.seek(0)
        file.write(data)
        file.truncate()
        file.flush()
        os.fsync(file.fileno())
    return old
