#!/usr/bin/python3
"""Whole-process benchmark of epromtool import against export of the same image.

Builds images of 4 MiB and 16 MiB from the demonstration image's chain repeated up to the size
(about 4,700 and 18,900 blocks: tables, records, a self-describing block), closed by the end
block and erased behind it; exports each with the tool, then times, warm, the median of RUNS:

  epromtool import IMAGE IMAGE.cal --dry-run   against   epromtool export IMAGE -o OUT.cal

The goal is import within 5x of export at 16 MiB. Import at 4 and 16 MiB shows whether its time
grows with the size of the image alone (about 4x from the one to the other) or faster.
Usage: import_bench.py EPROMTOOL [RUNS]
"""
import os
import shutil
import statistics
import struct
import subprocess
import sys
import tempfile
import time

END_BLOCK = bytes.fromhex("ffff0000")
GOAL = 5.0


def chain_of(image):
    """The blocks in front of the end block."""
    offset = 0
    while offset + 4 <= len(image):
        block_id, size = struct.unpack_from("<HH", image, offset)
        if block_id == 0xFFFF:
            return image[:offset]
        if size < 8:
            break
        offset += size
    sys.exit("the demonstration image has no end block")


def make_image(tool, work, size):
    sample = os.path.join(work, "sample.eeprom")
    if not os.path.exists(sample):
        subprocess.run([tool, "sample", "-o", sample], check=True)
    chain = chain_of(open(sample, "rb").read())
    repeats = (size - len(END_BLOCK)) // len(chain)
    image = chain * repeats + END_BLOCK
    image += b"\xff" * (size - len(image))
    path = os.path.join(work, "image-%dM.eeprom" % (size >> 20))
    with open(path, "wb") as f:
        f.write(image)
    subprocess.run([tool, "export", path, "-o", path + ".cal"], check=True)
    return path


def seconds(command, runs):
    """Median wall time of `runs` whole processes after one warm-up run."""
    subprocess.run(command, stdout=subprocess.DEVNULL, check=True)
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        subprocess.run(command, stdout=subprocess.DEVNULL, check=True)
        times.append(time.perf_counter() - start)
    return statistics.median(times)


def main():
    tool = os.path.abspath(sys.argv[1])
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    work = tempfile.mkdtemp(prefix="epromtool-import-")
    try:
        rows = []
        for size in (4 << 20, 16 << 20):
            image = make_image(tool, work, size)
            calfile = image + ".cal"
            blocks = subprocess.run([tool, "list", image], capture_output=True, text=True,
                                    check=True).stdout.splitlines()[-1].split()[0]
            export = seconds([tool, "export", image, "-o", os.path.join(work, "out.cal")], runs)
            dry = seconds([tool, "import", image, calfile, "--dry-run"], runs)
            rows.append((size >> 20, blocks, os.path.getsize(calfile), export, dry))
        print("images of the demonstration chain repeated, median of %d warm runs" % runs)
        print("%4s %7s %10s %11s %11s %7s" % ("MiB", "blocks", "text bytes", "export s",
                                              "import s", "ratio"))
        for mib, blocks, text, export, dry in rows:
            print("%4d %7s %10d %11.3f %11.3f %7.2f" % (mib, blocks, text, export, dry,
                                                         dry / export))
        small, large = rows[0][4], rows[1][4]
        ratio = large / rows[1][3]
        print("import --dry-run 4 MiB -> 16 MiB: %.1fx the time for 4x the image" % (large / small))
        print("goal: import --dry-run within %gx of export at 16 MiB: %s (%.2fx)" %
              (GOAL, "met" if ratio <= GOAL else "MISSED", ratio))
    finally:
        shutil.rmtree(work)


if __name__ == "__main__":
    main()
