#!/usr/bin/python3
"""Whole-process benchmark of epromtool over a folder of module images.

Builds FOLDER with COUNT images of the demonstration image (32 KiB), each with its own serial
number in the ident block (checksum recomputed), a few damaged: a failed service checksum, a
chain cut short, an empty file. Then times, warm, best of RUNS:

  epromtool verify -r FOLDER          against  cksum FILES...   (goal: within 2x)
  epromtool inventory -r FOLDER --csv against  cksum FILES...   (goal: within 3x)

and the peak memory of both epromtool commands for COUNT/10 and COUNT images, which must not grow
with the number of images. Each command runs under PEAK_MEMORY (bench/PeakMemory.cpp).
Usage: batch_bench.py EPROMTOOL PEAK_MEMORY [COUNT] [RUNS]
"""
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import time

PEAK_MEMORY = None
SERIAL_OFFSET = 20  # in the ident block at the start of the sample
SERVICE_BLOCK = 0x2C  # SERVICE_200


def checksum(block):
    """The 16-bit checksum: the negated word sum with the checksum word counted as 0."""
    total = 0
    for i in range(0, len(block) - 1, 2):
        if i != 4:
            total += block[i] | block[i + 1] << 8
    return -total & 0xFFFF


def make_folder(tool, folder, count):
    sample = os.path.join(os.path.dirname(folder), "sample.eeprom")
    subprocess.run([tool, "sample", "-o", sample], check=True)
    base = bytearray(open(sample, "rb").read())
    ident_size = struct.unpack_from("<H", base, 2)[0]
    os.makedirs(folder)
    for n in range(count):
        image = bytearray(base)
        struct.pack_into("<I", image, SERIAL_OFFSET, 100000 + n)
        struct.pack_into("<H", image, 4, checksum(image[:ident_size]))
        if n % 2000 == 7:  # a service byte changed by hand: checksum BAD
            image[SERVICE_BLOCK + 9] ^= 0x01
        if n % 2000 == 11:  # a block's size field runs past the end: broken chain
            struct.pack_into("<H", image, SERVICE_BLOCK + 2, 0xFFF0)
        if n == 13:
            image = b""
        # A few levels of folders, as a depot would keep them.
        sub = os.path.join(folder, "rack%02d" % (n // 1000))
        os.makedirs(sub, exist_ok=True)
        with open(os.path.join(sub, "module %05d.eeprom" % n), "wb") as f:
            f.write(image)


def files_of(folder):
    found = []
    for root, dirs, files in os.walk(folder):
        dirs.sort()
        found += [os.path.join(root, f) for f in sorted(files)]
    return found


def run(command):
    """Wall time in seconds, peak resident memory in KiB and exit code of one whole process."""
    done = subprocess.run([PEAK_MEMORY] + command, capture_output=True, text=True, check=True)
    seconds, peak, code = done.stdout.split()
    return float(seconds), int(peak), int(code)


def best(command, runs):
    run(command)  # warm the page cache
    results = [run(command) for _ in range(runs)]
    return min(r[0] for r in results), max(r[1] for r in results), results[0][2]


def main():
    global PEAK_MEMORY
    tool = os.path.abspath(sys.argv[1])
    PEAK_MEMORY = os.path.abspath(sys.argv[2])
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 10000
    runs = int(sys.argv[4]) if len(sys.argv) > 4 else 5
    work = tempfile.mkdtemp(prefix="epromtool-batch-")
    try:
        small, large = os.path.join(work, "small"), os.path.join(work, "large")
        make_folder(tool, large, count)
        make_folder(tool, small, max(count // 10, 1))
        cksum = best(["cksum"] + files_of(large), runs)
        verify = best([tool, "verify", "-r", large], runs)
        inventory = best([tool, "inventory", "-r", large, "--csv"], runs)
        print("%d images of 32 KiB, best of %d warm runs" % (count, runs))
        print("%-34s %8s %8s %10s %5s" % ("command", "seconds", "ratio", "peak KiB", "exit"))
        for name, result in (("cksum FILES...", cksum), ("epromtool verify -r", verify),
                             ("epromtool inventory -r --csv", inventory)):
            print("%-34s %8.3f %8.2f %10d %5d" % (name, result[0], result[0] / cksum[0],
                                                   result[1], result[2]))
        print("goals: verify within 2x of cksum (%s), inventory within 3x (%s)" %
              ("met" if verify[0] <= 2 * cksum[0] else "MISSED",
               "met" if inventory[0] <= 3 * cksum[0] else "MISSED"))
        for sub in ("verify", "inventory"):
            few = best([tool, sub, "-r", small] + (["--csv"] if sub == "inventory" else []), 1)
            many = verify if sub == "verify" else inventory
            print("peak memory of %s: %d KiB for %d images, %d KiB for %d" %
                  (sub, few[1], max(count // 10, 1), many[1], count))
    finally:
        shutil.rmtree(work)


if __name__ == "__main__":
    main()
