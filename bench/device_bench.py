"""`epromtool set --id 2 SN=...` on the emulated at24 (32 KiB, 32-byte pages, 5 ms per page)
beside the whole-image route (dd of the edited image onto the device): pages and bytes written
as the double counted them, whole-process times and their ratio.

usage: device_bench.py EPROMTOOL SAMPLE_IMAGE"""
import os
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "tests", "device"))
from at24_double import Double, fuse_unavailable  # noqa: E402


def timed(command, double, cwd):
    before = double.stats()
    start = time.perf_counter()
    result = subprocess.run(command, cwd=cwd, capture_output=True, text=True)
    seconds = time.perf_counter() - start
    if result.returncode != 0:
        sys.exit("failed: %s\n%s" % (" ".join(command), result.stderr))
    after = double.stats()
    return after["pages"] - before["pages"], after["bytes"] - before["bytes"], seconds


def main(tool, sample):
    reason = fuse_unavailable()
    if reason:
        sys.exit("cannot emulate the device: " + reason)
    content = open(sample, "rb").read()
    with tempfile.TemporaryDirectory() as work:
        edited = os.path.join(work, "edited.eeprom")
        with open(edited, "wb") as f:
            f.write(content)
        subprocess.run([tool, "set", edited, "--id", "2", "SN=424242", "--no-backup"], check=True,
                       capture_output=True)
        rows = []
        with Double(work, content, page_size=32, delay_ms=5) as double:
            rows.append(("epromtool set --id 2 SN (in place, backup, read-back)",
                         *timed([tool, "set", double.path, "--id", "2", "SN=424242", "--in-place"],
                                double, work)))
            with open(double.path, "rb") as f:
                assert f.read() == open(edited, "rb").read()
            rows.append(("dd of the whole edited image (bs=32)",
                         *timed(["dd", "if=" + edited, "of=" + double.path, "bs=32",
                                 "conv=notrunc", "status=none"], double, work)))
    print("%-56s %6s %7s %9s" % ("command", "pages", "bytes", "seconds"))
    for name, pages, written, seconds in rows:
        print("%-56s %6d %7d %9.3f" % (name, pages, written, seconds))
    print("set / whole-image write: %.4f (at most 0.01 wanted)" % (rows[0][3] / rows[1][3]))


if __name__ == "__main__":
    main(os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2]))
