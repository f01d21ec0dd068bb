"""A FUSE test double of the at24/nvmem sysfs EEPROM file, and a helper that mounts it.

It serves one fixed-size file, `eeprom`, mounted with direct I/O so that every read and write
reaches it: no create, rename or truncate; each write() takes at most one page (and returns
short, as the at24 driver does), after a configurable delay. The content is kept in BACKING,
written through, so that a test reads what the "device" holds without going through FUSE.
Counts go to BACKING.stats (JSON); faults are read from BACKING.faults (JSON) whenever it
changes: {"eio_after": N} (EIO once N more pages went out), {"stall_after": N} (writes then take
nothing), {"short": true} (each write takes half a page), {"flip_read": true} (a flipped bit in
reads once a page was written), {"read_only": true} (opening for writing: EACCES).

Run as a program: at24_double.py MOUNTPOINT BACKING PAGE_SIZE DELAY_MS
"""
import errno
import json
import os
import shutil
import subprocess
import sys
import time

NAME = "eeprom"


def fuse_unavailable():
    """Why the double cannot run here, or None."""
    if not os.path.exists("/dev/fuse"):
        return "no /dev/fuse"
    if not os.access("/dev/fuse", os.R_OK | os.W_OK):
        return "/dev/fuse not accessible"
    try:
        import fusepy  # noqa: F401  (Debian's python3-fusepy)
    except ImportError:
        return "python3-fusepy not installed"
    return None


class Double:
    """Mounts the double on `mountpoint` with `content`; unmounts on exit, even after failures."""

    def __init__(self, workdir, content, page_size=32, delay_ms=0):
        self.mountpoint = os.path.join(workdir, "mnt")
        self.backing = os.path.join(workdir, "backing.eeprom")
        self.path = os.path.join(self.mountpoint, NAME)
        self.page_size, self.delay_ms = page_size, delay_ms
        os.makedirs(self.mountpoint, exist_ok=True)
        with open(self.backing, "wb") as f:
            f.write(content)
        self.faults()
        self.process = None

    def __enter__(self):
        self.process = subprocess.Popen(
            [sys.executable, os.path.abspath(__file__), self.mountpoint, self.backing,
             str(self.page_size), str(self.delay_ms)])
        for _ in range(200):
            if os.path.ismount(self.mountpoint):
                return self
            if self.process.poll() is not None:
                break
            time.sleep(0.02)
        self.__exit__(None, None, None)
        raise RuntimeError("the FUSE double did not mount on " + self.mountpoint)

    def __exit__(self, *exc):
        subprocess.run(["umount", "-l", self.mountpoint], stderr=subprocess.DEVNULL)
        if self.process is not None:
            try:
                self.process.wait(timeout=10)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
        return False

    def faults(self, **faults):
        """Replaces the faults in force; the page count for eio_after/stall_after starts anew."""
        faults["serial"] = time.monotonic_ns()
        with open(self.backing + ".faults", "w") as f:
            json.dump(faults, f)

    def content(self):
        with open(self.backing, "rb") as f:
            return f.read()

    def stats(self):
        try:
            with open(self.backing + ".stats") as f:
                return json.load(f)
        except FileNotFoundError:
            return {"pages": 0, "bytes": 0}


def serve(mountpoint, backing, page_size, delay_ms):
    from fusepy import FUSE, FuseOSError, Operations

    class At24(Operations):
        def __init__(self):
            with open(backing, "rb") as f:
                self.data = bytearray(f.read())
            self.out = os.open(backing, os.O_WRONLY)
            self.stats = {"pages": 0, "bytes": 0}
            self.fault_stamp, self.fault = None, {}
            self.since = 0  # pages written since the faults were loaded

        def load_faults(self):
            try:
                stamp = os.stat(backing + ".faults").st_mtime_ns
                if stamp != self.fault_stamp:
                    with open(backing + ".faults") as f:
                        fault = json.load(f)
                    if fault.get("serial") != self.fault.get("serial"):
                        self.fault, self.since = fault, 0
                    self.fault_stamp = stamp
            except (OSError, ValueError):
                pass

        def getattr(self, path, fh=None):
            now = time.time()
            if path == "/":
                return {"st_mode": 0o040755, "st_nlink": 2, "st_mtime": now}
            if path != "/" + NAME:
                raise FuseOSError(errno.ENOENT)
            self.load_faults()
            mode = 0o100400 if self.fault.get("read_only") else 0o100600
            return {"st_mode": mode, "st_nlink": 1, "st_size": len(self.data), "st_mtime": now}

        def readdir(self, path, fh):
            return [".", "..", NAME]

        def open(self, path, flags):
            self.load_faults()
            if flags & (os.O_WRONLY | os.O_RDWR) and self.fault.get("read_only"):
                raise FuseOSError(errno.EACCES)
            return 0

        def read(self, path, size, offset, fh):
            self.load_faults()
            part = bytearray(self.data[offset:offset + size])
            if part and self.fault.get("flip_read") and self.since > 0:
                part[0] ^= 0x01
            return bytes(part)

        def write(self, path, data, offset, fh):
            self.load_faults()
            if offset >= len(self.data):
                raise FuseOSError(errno.EFBIG)
            n = min(len(data), page_size - offset % page_size, len(self.data) - offset)
            if "eio_after" in self.fault and self.since >= self.fault["eio_after"]:
                raise FuseOSError(errno.EIO)
            if "stall_after" in self.fault and self.since >= self.fault["stall_after"]:
                return 0
            if self.fault.get("short"):
                n = max(1, n // 2)
            time.sleep(delay_ms / 1000.0)
            self.data[offset:offset + n] = data[:n]
            os.pwrite(self.out, bytes(data[:n]), offset)
            self.since += 1
            self.stats["pages"] += 1
            self.stats["bytes"] += n
            with open(backing + ".stats.tmp", "w") as f:
                json.dump(self.stats, f)
            os.replace(backing + ".stats.tmp", backing + ".stats")
            return n

        def truncate(self, path, length, fh=None):
            raise FuseOSError(errno.EPERM)

        def fsync(self, path, datasync, fh):
            return 0

    FUSE(At24(), mountpoint, foreground=True, nothreads=True, direct_io=True)


if __name__ == "__main__":
    serve(sys.argv[1], sys.argv[2], int(sys.argv[3]), float(sys.argv[4]))
